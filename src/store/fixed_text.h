#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace halvern {

/// Without the blanks at its end.
std::string_view RightTrimmed(std::string_view text);

/// Without the blanks at both ends. Only the blank itself counts, no tab or line break.
std::string_view Trimmed(std::string_view text);

/// The texts one behind the other.
std::string Concat(std::initializer_list<std::string_view> parts);

/// A text of N characters of one byte each: cut when too long, filled up with blanks when too short.
template <std::size_t N>
class FixedText {
  public:
    FixedText() { characters_.fill(' '); }
    FixedText& operator=(std::string_view text) {
        const std::size_t count = std::min(text.size(), N);
        std::copy_n(text.data(), count, characters_.data());
        std::fill(characters_.begin() + static_cast<std::ptrdiff_t>(count), characters_.end(), ' ');
        return *this;
    }

    /// All N characters.
    std::string_view View() const { return {characters_.data(), N}; }
    operator std::string_view() const { return View(); }

  private:
    std::array<char, N> characters_;
};

/// The name of a file: 127 characters as a person counts them, cut or filled up with blanks.
///
/// The bytes are those of the file system and pass through unchanged. A UTF-8 sequence counts as one character, a byte
/// that belongs to none counts as one too.
class FileName {
  public:
    static constexpr std::size_t kCharacters = 127;

    FileName& operator=(std::string_view text);

    /// Without the blanks at the end, which only fill: the name that the file system knows.
    std::string_view Name() const { return {bytes_.data(), size_}; }
    /// Without the blanks at both ends: the name as messages show it.
    std::string_view Shown() const { return Trimmed(Name()); }

  private:
    static constexpr std::size_t kLongestSequence = 4;

    std::uint16_t size_ = 0;
    std::array<char, kCharacters * kLongestSequence> bytes_;
};

/// Length in bytes of the character that a text starts with: 1 to 4 for a well-formed UTF-8 sequence, 1 for a byte
/// that starts none, 0 for an empty text.
std::size_t CharacterLength(std::string_view text);

}  // namespace halvern
