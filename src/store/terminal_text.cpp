#include "store/terminal_text.h"

#include "store/fixed_text.h"

namespace halvern {

namespace {

/// Given     character   one of UTF-8, or a byte that belongs to none
bool CommandsTheTerminal(std::string_view character) {
    if (character.size() == 1)
        return character < " " || character > "~";
    const bool isControl = character <= "\xC2\x9F";
    // NOLINTBEGIN(misc-misleading-bidirectional): the very signs that are looked for
    const bool separatesLinesOrTurnsText = character >= "\xE2\x80\xA8" && character <= "\xE2\x80\xAE";
    const bool isolatesDirection = character >= "\xE2\x81\xA6" && character <= "\xE2\x81\xA9";
    // NOLINTEND(misc-misleading-bidirectional)
    return isControl || separatesLinesOrTurnsText || isolatesDirection;
}

}  // namespace

std::string OnTerminal(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string shown;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, CharacterLength(text));
        text.remove_prefix(character.size());
        if (!CommandsTheTerminal(character)) {
            shown += character;
            continue;
        }
        for (const char byte : character) {
            const auto code = static_cast<unsigned char>(byte);
            shown += "\\x";
            shown += kDigits[code >> 4U];
            shown += kDigits[code & 0xFU];
        }
    }
    return shown;
}

}  // namespace halvern
