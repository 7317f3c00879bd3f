#include "render/shown_text.h"

#include <QStringList>

namespace halvern {

namespace {

bool DoesHarm(QChar c) {
    const char16_t code = c.unicode();
    const bool separatesLinesOrTurnsText = code >= 0x2028 && code <= 0x202E;
    const bool isolatesDirection = code >= 0x2066 && code <= 0x2069;
    const bool isNoCharacter = code >= 0xFFFE;
    return c.category() == QChar::Other_Control || separatesLinesOrTurnsText || isolatesDirection || isNoCharacter;
}

QString Decoded(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QString Harmless(QString line) {
    for (QChar& c : line)
        if (DoesHarm(c))
            c = QChar::ReplacementCharacter;
    return line;
}

}  // namespace

QString ShownLine(std::string_view text) { return Harmless(Decoded(text)); }

QString ShownLines(std::string_view text) {
    QString whole = Decoded(text);
    whole.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QStringList lines = whole.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = Harmless(line);
    return lines.join(QLatin1Char('\n'));
}

QString ShownName(std::string_view text) { return ShownLine(text).replace(QLatin1Char('&'), QLatin1String("&&")); }

QString ShownTitle(std::string_view text) {
    return ShownLine(text).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

}  // namespace halvern
