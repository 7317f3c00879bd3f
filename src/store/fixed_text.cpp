#include "store/fixed_text.h"

namespace halvern {

namespace {

struct LeadByte {
    unsigned char mask;
    unsigned char bits;
    std::size_t length;
    std::uint32_t smallest;
};

// Sequences of UTF-8; a longer form of a smaller code point is no sequence.
constexpr LeadByte kLeads[] = {
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

bool IsCodePoint(std::uint32_t value) { return value <= 0x10FFFF && !(value >= 0xD800 && value <= 0xDFFF); }

std::size_t SequenceLength(std::string_view text, const LeadByte& lead) {
    if (text.size() < lead.length)
        return 0;
    std::uint32_t value = static_cast<unsigned char>(text[0]) & static_cast<unsigned char>(~lead.mask);
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return 0;
        value = (value << 6) | (byte & 0x3FU);
    }
    return value >= lead.smallest && IsCodePoint(value) ? lead.length : 0;
}

}  // namespace

std::string_view RightTrimmed(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trimmed(std::string_view text) {
    const std::string_view right = RightTrimmed(text);
    const std::size_t first = right.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : right.substr(first);
}

std::string Concat(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const auto part : parts)
        size += part.size();
    std::string text;
    text.reserve(size);
    for (const auto part : parts)
        text += part;
    return text;
}

std::size_t CharacterLength(std::string_view text) {
    if (text.empty())
        return 0;
    const auto first = static_cast<unsigned char>(text[0]);
    for (const auto& lead : kLeads)
        if ((first & lead.mask) == lead.bits)
            return std::max<std::size_t>(SequenceLength(text, lead), 1);
    return 1;
}

FileName& FileName::operator=(std::string_view text) {
    std::size_t size = 0;
    for (std::size_t characters = 0; characters < kCharacters && size < text.size(); ++characters)
        size += CharacterLength(text.substr(size));
    const std::string_view name = RightTrimmed(text.substr(0, size));
    std::copy(name.begin(), name.end(), bytes_.begin());
    size_ = static_cast<std::uint16_t>(name.size());
    return *this;
}

}  // namespace halvern
