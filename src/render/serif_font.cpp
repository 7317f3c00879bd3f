#include "render/serif_font.h"

#include <QStringList>

namespace halvern {

QFont SerifFont() {
    QFont font;
    font.setFamilies({QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif")});
    font.setStyleHint(QFont::Serif);
    return font;
}

}  // namespace halvern
