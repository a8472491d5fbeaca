#include "forms/form_font.h"

namespace tolvinpt {

QFont formFont()
{
    QFont font(QStringLiteral("Noto Sans CJK JP"));
    font.setPointSizeF(9.75);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

} // namespace tolvinpt
