#include "platform/UserControl.h"

#include <QApplication>
#include <QEvent>

namespace Varnel_Controles {

UserControl::UserControl(QWidget *parent)
    : QWidget(parent)
{
}

StdFont UserControl::AmbientFont() const
{
    return StdFont::fromQFont(parentWidget() ? parentWidget()->font() : QApplication::font());
}

void UserControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        const bool enabled = !testAttribute(Qt::WA_ForceDisabled);
        if (enabled != m_enabled) {
            m_enabled = enabled;
            enabledChanged(enabled);
            notify("Enabled");
        }
    } else if (event->type() == QEvent::FontChange) {
        fontChanged();
        notify("Font");
    }
    QWidget::changeEvent(event);
}

void UserControl::applyEnabled(bool enabled)
{
    m_enabled = enabled;
    enabledChanged(enabled);
    QWidget::setEnabled(enabled);
}

void UserControl::readFont(const PropertyBag &bag)
{
    const QVariant font = bag.ReadProperty(QStringLiteral("Font"), QVariant::fromValue(AmbientFont()));
    if (font.typeId() == qMetaTypeId<StdFont>() && font.value<StdFont>() != AmbientFont())
        QWidget::setFont(font.value<StdFont>().toQFont());
    else
        QWidget::setFont(QFont()); // back to the host's font
}

void UserControl::writeFont(PropertyBag &bag, const QFont &font) const
{
    bag.WriteProperty(QStringLiteral("Font"), QVariant::fromValue(StdFont::fromQFont(font)), QVariant::fromValue(AmbientFont()));
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
