#pragma once

#include <QImage>

#include <string>

namespace halvern::test {

/// Holds a picture against the one of this name that a person has looked at (tests/render/pictures). Lines, ticks and
/// markers are the same to the pixel; a text may differ where its font is drawn a little otherwise.
///
/// Where a picture is to change, the new one stands in the folder "pictures" of the build, and is put in place by hand.
void ExpectAsStored(const QImage& picture, const std::string& name);

}  // namespace halvern::test
