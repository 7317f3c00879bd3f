#pragma once

#include <QString>

#include <string_view>

namespace halvern {

/// A text of the program as one line on the screen.
///
/// The text is UTF-8, but the name of a file can be anything: a byte that is no UTF-8 and a control character each show
/// as one replacement character, so that neither can break the line or turn its direction. So do the two characters that
/// no page of XML may hold. Blanks stay as they are.
QString ShownLine(std::string_view text);

/// The same where the toolkit would take an `&` as the mark of an access key, and it is a letter like any other.
QString ShownName(std::string_view text);

/// The same for a text of several lines: CR LF, and LF, break it.
QString ShownLines(std::string_view text);

/// The same for the title of a window, in which the toolkit would take "[*]" as the place of a mark of its own.
QString ShownTitle(std::string_view text);

}  // namespace halvern
