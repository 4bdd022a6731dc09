#include "platform/UserControl.h"

#include <QApplication>

namespace Varnel_Controles {

UserControl::UserControl(QWidget *parent)
    : QWidget(parent)
{
}

StdFont UserControl::AmbientFont() const
{
    return StdFont::fromQFont(parentWidget() ? parentWidget()->font() : QApplication::font());
}

bool UserControl::toBool(const QVariant &value)
{
    if (value.typeId() == QMetaType::QString) {
        const QString s = value.toString().trimmed();
        if (s.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
        if (s.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
        return s.toDouble() != 0;
    }
    return value.toDouble() != 0;
}

bool UserControl::readBool(const PropertyBag &bag, const char *key, bool defaultValue)
{
    return toBool(bag.ReadProperty(QString::fromLatin1(key), defaultValue));
}

} // namespace Varnel_Controles
