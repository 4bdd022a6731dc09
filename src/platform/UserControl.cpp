#include "platform/UserControl.h"

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QLabel>

namespace Varnel_Controles {

namespace {

// A label's text as it is read out: "&Código" is "Código", "&&" one "&".
QString withoutAccessKey(const QString &text)
{
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size())
            ++i;
        out += text[i];
    }
    return out.trimmed();
}

} // namespace

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

void UserControl::setInnerField(QWidget *field)
{
    m_innerField = field;
    setFocusProxy(field);
    setFocusPolicy(field->focusPolicy());
    field->installEventFilter(this);
    connect(this, &QObject::objectNameChanged, this, &UserControl::nameInnerField);
    nameInnerField();
}

void UserControl::addInnerField(QWidget *field)
{
    m_otherFields << field;
    field->installEventFilter(this);
    connect(field, &QObject::destroyed, this, [this, field] { m_otherFields.removeAll(field); });
}

QString UserControl::accessibleFieldName() const
{
    if (!accessibleName().isEmpty())
        return accessibleName();
    const QList<QLabel *> labels = window()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label == m_relationLabel)
            continue;
        if (label->buddy() == this || (m_innerField && label->buddy() == m_innerField)) {
            const QString text = withoutAccessKey(label->text());
            if (!text.isEmpty())
                return text;
        }
    }
    return objectName();
}

void UserControl::nameInnerField()
{
    if (!m_innerField)
        return;
    const QString name = accessibleFieldName();
    m_innerField->setAccessibleName(name);
    // Screen readers on Linux name a combo box by its current entry and find what it is for
    // through its label relation: a hidden label of the control, the inner field's buddy,
    // carries the name (its "&" doubled, so that it makes no access key).
    if (!m_relationLabel) {
        m_relationLabel = new QLabel(this);
        m_relationLabel->setObjectName(QStringLiteral("lblAccesible"));
        m_relationLabel->hide();
        m_relationLabel->setBuddy(m_innerField);
    }
    m_relationLabel->setText(QString(name).replace(u'&', QLatin1String("&&")));
}

bool UserControl::event(QEvent *event)
{
    // A label made the control's buddy after it was created is read when the control shows.
    if (event->type() == QEvent::Show)
        nameInnerField();
    return QWidget::event(event);
}

bool UserControl::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_innerField && event->type() == QEvent::FocusIn)
        nameInnerField();
    if (event->type() == QEvent::FocusOut && watched->isWidgetType()
        && (watched == m_innerField || m_otherFields.contains(static_cast<QWidget *>(watched)))) {
        // Qt has already made the widget that takes the focus the focus widget (none when the
        // window is left): inside the control, the focus has not left it.
        const QWidget *to = QApplication::focusWidget();
        if (!to || (to != this && !isAncestorOf(to))) {
            QFocusEvent out(QEvent::FocusOut, static_cast<QFocusEvent *>(event)->reason());
            QCoreApplication::sendEvent(this, &out);
        }
    }
    return QWidget::eventFilter(watched, event);
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
