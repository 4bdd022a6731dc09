#include "platform/StdFont.h"

#include <cmath>

namespace Varnel_Controles {

QFont StdFont::toQFont() const
{
    QFont font(Name);
    font.setPointSizeF(Size > 0 ? Size : 8.25);
    font.setWeight(QFont::Weight(qBound(1, Weight, 1000)));
    font.setUnderline(Underline);
    font.setItalic(Italic);
    font.setStrikeOut(Strikethrough);
    return font;
}

StdFont StdFont::fromQFont(const QFont &font)
{
    StdFont f;
    f.Name = font.family();
    f.Size = font.pointSizeF() > 0 ? font.pointSizeF() : 8.25;
    f.Weight = int(font.weight());
    f.Underline = font.underline();
    f.Italic = font.italic();
    f.Strikethrough = font.strikeOut();
    return f;
}

bool StdFont::operator==(const StdFont &o) const
{
    return Name.compare(o.Name, Qt::CaseInsensitive) == 0 && std::fabs(Size - o.Size) < 0.01
        && Charset == o.Charset && Weight == o.Weight && Underline == o.Underline
        && Italic == o.Italic && Strikethrough == o.Strikethrough;
}

} // namespace Varnel_Controles
