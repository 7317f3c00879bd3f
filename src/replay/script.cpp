#include "replay/script.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "store/fixed_text.h"

namespace halvern::replay {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutLeadingBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

/// Takes a word in double quotes from the front of a text; the first quote is there.
std::string TakeQuoted(std::string_view& text) {
    std::string word;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            text.remove_prefix(i + 1);
            if (!text.empty() && kBlanks.find(text.front()) == std::string_view::npos)
                throw ScriptError("a blank is missing behind a closing quote");
            return word;
        }
        if (text[i] == '\\') {
            ++i;
            if (i == text.size() || (text[i] != '"' && text[i] != '\\'))
                throw ScriptError("only \\\" and \\\\ may stand in quotes");
        }
        word += text[i];
    }
    throw ScriptError("a closing quote is missing");
}

std::string TakeBare(std::string_view& text) {
    const std::size_t size = std::min(text.find_first_of(kBlanks), text.size());
    std::string word(text.substr(0, size));
    text.remove_prefix(size);
    return word;
}

ScriptLine TakenApart(std::size_t number, std::string_view text) {
    ScriptLine line{.number = number, .text = std::string(text), .words = {}, .error = {}};
    try {
        // A zero byte would cut the name of a file short on its way to the system.
        if (text.find('\0') != std::string_view::npos)
            throw ScriptError("the line holds a zero byte");
        for (; !text.empty(); text = WithoutLeadingBlanks(text))
            line.words.push_back(text.front() == '"' ? TakeQuoted(text) : TakeBare(text));
    } catch (const ScriptError& error) {
        line.error = error.what();
    }
    return line;
}

}  // namespace

Script::Script(std::string_view text) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t size = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, size);
        text.remove_prefix(std::min(size + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        line = WithoutLeadingBlanks(line);
        if (!line.empty() && line.front() != '#')
            lines_.push_back(TakenApart(number, line));
    }
}

bool Script::NextIs(std::string_view word) const {
    return !AtEnd() && !lines_[next_].words.empty() && lines_[next_].words.front() == word;
}

const ScriptLine& Script::Next() {
    if (AtEnd())
        throw ScriptEnd{};
    const ScriptLine& line = lines_[next_++];
    lineNumber_ = line.number;
    return line;
}

// Some two million lines. A device has no end, and would take all the memory.
constexpr std::size_t kLongestScript = 64 << 20;

std::string ReadScript(const std::string& path) {
    const bool isFile = path != "-";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(isFile ? std::fopen(path.c_str(), "rb") : nullptr,
                                                                 std::fclose);
    std::FILE* const file = isFile ? opened.get() : stdin;
    if (file == nullptr)
        throw ScriptUnreadable(std::strerror(errno));

    std::string text;
    char piece[65536];
    while (const std::size_t size = std::fread(piece, 1, sizeof piece, file)) {
        text.append(piece, size);
        if (text.size() > kLongestScript)
            throw ScriptUnreadable("the script is too long");
    }
    if (std::ferror(file) != 0)
        throw ScriptUnreadable(std::strerror(errno));
    if (!IsUtf8(text))
        throw ScriptUnreadable("the script is not UTF-8");
    return text;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 1 && static_cast<unsigned char>(text.front()) >= 0x80)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace halvern::replay
