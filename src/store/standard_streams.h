#pragma once

namespace halvern {

/// Holds the places of the three standard streams. Whoever starts the program can have closed some of them; the next file
/// that it opens would come to stand there, and what is printed would go into the user's data. A stream held in this way
/// fails as a closed one does.
void HoldStandardStreams();

}  // namespace halvern
