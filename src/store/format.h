#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace halvern {

/// A number pattern such as "  0.0000E+00; -0.0000E+00", parsed once.
///
/// Sections  one to three, with ';' between them: for positive numbers, for negative ones, for zero. A section that is
///           absent or empty leaves its numbers to the first; a negative one then gets a minus sign in front of the
///           whole, literals included
/// '0'       a digit that is always shown
/// '#'       a digit that is shown if it is significant; between a '0' and the decimal point it is always shown
/// '.'       the decimal point, the first one of a section; shown without digits beside it too
/// E+00      an exponent of at least as many digits as there are zeros, its sign always shown; with E-00 only a minus
///           sign is. The number has as many digits in front of the point as there are places
/// others    stand for themselves, among the digits too: letters, blanks, a second point, an E without sign and zero
///
/// A pattern written as a literal is parsed by the compiler; one that has no meaning does not compile.
class Pattern {
  public:
    static constexpr std::size_t kMaxLength = 64;

    /// Of a literal; takes part in conversions, so that a literal can stand where a pattern is asked for.
    template <std::size_t N>
    consteval Pattern(const char (&literal)[N]) : Pattern(std::string_view{literal, N - 1}) {}

    /// Of a text that outlives the pattern.
    ///
    /// Throws std::invalid_argument with an empty first section, more than three sections, more than 64 characters,
    /// a digit or a second exponent behind an exponent, an exponent without digits in front of it, and with digits that
    /// are broken up by literals into more than some twenty pieces.
    constexpr explicit Pattern(std::string_view text);

    /// What stands at one place of a section, from the left.
    struct Piece {
        enum class Kind : std::uint8_t { kLiteral, kWhole, kFraction, kExponent };

        Kind kind = Kind::kLiteral;
        std::uint8_t from = 0;   // literal: its place in the text; digits: the places of their kind to the left of it
        std::uint8_t count = 0;  // characters or places
    };

    struct Section {
        std::uint8_t firstPiece = 0;
        std::uint8_t endPiece = 0;
        std::uint8_t wholePlaces = 0;     // '0' and '#' in front of the decimal point
        std::uint8_t wholeShown = 0;      // of these, the ones from the first '0' on
        std::uint8_t decimals = 0;        // '0' and '#' behind it
        std::uint8_t decimalsShown = 0;   // of these, the ones up to the last '0'
        std::uint8_t exponentDigits = 0;  // 0: no exponent
        bool plusInExponent = false;
        bool minusInFront = false;
    };

    /// The section that serves a value; a negative zero counts as zero.
    constexpr const Section& SectionFor(double value) const {
        return sections_[value > 0.0 ? kPositive : value < 0.0 ? kNegative : kZero];
    }
    constexpr const Piece* Pieces() const { return pieces_.data(); }
    constexpr std::string_view Text() const { return text_; }

  private:
    static constexpr std::size_t kMaxPieces = 24;
    static constexpr std::size_t kPositive = 0;
    static constexpr std::size_t kNegative = 1;
    static constexpr std::size_t kZero = 2;

    static constexpr bool IsPlace(char c) { return c == '0' || c == '#'; }

    constexpr Section ParseSection(std::size_t begin, std::size_t end);
    constexpr bool StartsExponent(std::size_t at, std::size_t end) const;
    constexpr std::size_t AddExponent(Section& section, std::size_t at, std::size_t end);
    constexpr void AddPlace(Section& section, char place, bool behindPoint);
    constexpr void Extend(const Section& section, Piece::Kind kind, std::uint8_t from);
    constexpr void Add(Piece piece);

    std::string_view text_;
    std::array<Section, 3> sections_{};
    std::array<Piece, kMaxPieces> pieces_{};
    std::uint8_t pieceCount_ = 0;
};

/// Room for any number in any pattern, characters: a pattern's literals, the 309 digits of the largest double in front
/// of the point, a sign, and two more digits of an exponent than a pattern may ask for.
inline constexpr std::size_t kFormatRoom = Pattern::kMaxLength + 309 + 1 + 2;

/// Writes a number by a pattern into room of the caller's and returns the end of the text; writes no '\0'.
///
/// Given     out       room for kFormatRoom characters, however short the pattern
///           value     any finite number
/// Rounding  to the nearest double of 15 significant digits first (a half to even), then to the digits that the
///           pattern shows, a half away from zero, worked on these 15: 1.005 in "0.00" is 1.01. Digits behind the 15th
///           are zeros
/// Note      digits for which there is no place are shown in front of the first place. A negative number keeps its sign
///           when it rounds to zero
/// Note      infinity and NaN, which do not get as far as this, come out as "INF", "-INF" and "NAN"
/// Fails     never, and never looks at the locale
char* FormatTo(char* out, double value, const Pattern& pattern) noexcept;

/// The text of a formatted number, held in the object itself. It converts to a std::string_view, which must not outlive
/// the object: good as an argument, not to begin a view with. A std::string is the place for a text that stays.
class Formatted {
  public:
    Formatted(double value, const Pattern& pattern) noexcept
        : length_(static_cast<std::size_t>(FormatTo(text_, value, pattern) - text_)) {}
    Formatted(const Formatted&) = delete;
    Formatted& operator=(const Formatted&) = delete;

    std::string_view View() const noexcept { return {text_, length_}; }
    operator std::string_view() const noexcept { return View(); }

  private:
    char text_[kFormatRoom];  // not filled in advance: only the first length_ characters are anything
    std::size_t length_;
};

/// The text of a number by a pattern, see FormatTo. A single is widened to double.
inline Formatted Format(double value, const Pattern& pattern) noexcept { return {value, pattern}; }
inline Formatted Format(std::int32_t value, const Pattern& pattern) noexcept {
    return {static_cast<double>(value), pattern};
}

constexpr Pattern::Pattern(std::string_view text) : text_(text) {
    if (text.size() > kMaxLength)
        throw std::invalid_argument("number pattern: more than 64 characters");
    std::size_t count = 0;
    for (std::size_t begin = 0; begin <= text.size(); ++count) {
        if (count == sections_.size())
            throw std::invalid_argument("number pattern: more than three sections");
        const std::size_t end = std::min(text.find(';', begin), text.size());
        sections_[count] = ParseSection(begin, end);
        begin = end + 1;
    }
    const auto isEmpty = [](const Section& section) { return section.firstPiece == section.endPiece; };
    if (isEmpty(sections_[kPositive]))
        throw std::invalid_argument("number pattern: the first section is empty");
    if (isEmpty(sections_[kZero]))
        sections_[kZero] = sections_[kPositive];
    if (isEmpty(sections_[kNegative])) {
        sections_[kNegative] = sections_[kPositive];
        sections_[kNegative].minusInFront = true;
    }
}

constexpr Pattern::Section Pattern::ParseSection(std::size_t begin, std::size_t end) {
    Section section;
    section.firstPiece = section.endPiece = pieceCount_;
    const auto text = text_.substr(begin, end - begin);
    const bool hasPlaces = std::find_if(text.begin(), text.end(), IsPlace) != text.end();
    bool behindPoint = false;
    for (std::size_t at = begin; at < end; ++at) {
        if (IsPlace(text_[at])) {
            AddPlace(section, text_[at], behindPoint);
        } else if (StartsExponent(at, end)) {
            at = AddExponent(section, at, end) - 1;
        } else {
            if (text_[at] == '.' && !behindPoint) {
                behindPoint = true;
                if (hasPlaces && section.wholePlaces == 0)
                    Add({Piece::Kind::kWhole, 0, 0});  // where the digits go for which there is no place
            }
            Extend(section, Piece::Kind::kLiteral, static_cast<std::uint8_t>(at));
        }
    }
    section.endPiece = pieceCount_;
    return section;
}

constexpr void Pattern::AddPlace(Section& section, char place, bool behindPoint) {
    if (section.exponentDigits != 0)
        throw std::invalid_argument("number pattern: a digit behind the exponent");
    if (behindPoint) {
        Extend(section, Piece::Kind::kFraction, section.decimals++);
        if (place == '0')
            section.decimalsShown = section.decimals;
    } else {
        Extend(section, Piece::Kind::kWhole, section.wholePlaces++);
        if (place == '0' || section.wholeShown != 0)
            ++section.wholeShown;
    }
}

constexpr bool Pattern::StartsExponent(std::size_t at, std::size_t end) const {
    return at + 2 < end && text_[at] == 'E' && (text_[at + 1] == '+' || text_[at + 1] == '-') && text_[at + 2] == '0';
}

constexpr std::size_t Pattern::AddExponent(Section& section, std::size_t at, std::size_t end) {
    if (section.exponentDigits != 0)
        throw std::invalid_argument("number pattern: a second exponent");
    if (section.wholePlaces + section.decimals == 0)
        throw std::invalid_argument("number pattern: an exponent without digits in front of it");
    section.plusInExponent = text_[at + 1] == '+';
    for (at += 2; at < end && text_[at] == '0'; ++at)
        ++section.exponentDigits;
    Add({Piece::Kind::kExponent, 0, section.exponentDigits});
    return at;
}

constexpr void Pattern::Extend(const Section& section, Piece::Kind kind, std::uint8_t from) {
    if (pieceCount_ > section.firstPiece && pieces_[pieceCount_ - 1].kind == kind)
        ++pieces_[pieceCount_ - 1].count;
    else
        Add({kind, from, 1});
}

constexpr void Pattern::Add(Piece piece) {
    if (pieceCount_ == kMaxPieces)
        throw std::invalid_argument("number pattern: too many pieces");
    pieces_[pieceCount_++] = piece;
}

}  // namespace halvern
