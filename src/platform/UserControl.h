// What a host form gives every control of the library: persisted properties read from and
// written to the form's property bag, a notification when a persisted property changes,
// and the ambient font.
#pragma once

#include "varnel_controles_export.h"

#include <QWidget>

#include "PropertyBag.h"
#include "StdFont.h"

class QLabel;

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT UserControl : public QWidget
{
    Q_OBJECT

public:
    explicit UserControl(QWidget *parent = nullptr);

    /// Loads the persisted properties; a missing key yields its default.
    virtual void ReadProperties(const PropertyBag &bag) = 0;
    /// Saves the persisted properties, omitting those equal to their default.
    virtual void WriteProperties(PropertyBag &bag) const = 0;

    /// The host's font: the parent widget's, or the application's without a parent.
    StdFont AmbientFont() const;
    /// The last enabled state given to the control itself (QWidget::setEnabled); a disabled
    /// parent does not change it.
    bool Enabled() const { return m_enabled; }

Q_SIGNALS:
    /// A persisted property was assigned; `key` is its persisted key.
    void PropertyChanged(const QString &key);

protected:
    void notify(const char *key) { Q_EMIT PropertyChanged(QString::fromLatin1(key)); }
    /// The enabled state was given (by QWidget::setEnabled or a load); "Enabled" is notified after.
    virtual void enabledChanged(bool) {}
    /// The font changed (QWidget::setFont or a load); "Font" is notified after.
    virtual void fontChanged() {}
    /// Loads the persisted "Enabled" key's state without waiting for a change event.
    void applyEnabled(bool enabled);
    /// Reads "Font" (default: the ambient font) into the control's font.
    void readFont(const PropertyBag &bag);
    /// Writes "Font" against the ambient font.
    void writeFont(PropertyBag &bag, const QFont &font) const;
    void changeEvent(QEvent *event) override;
    /// Takes `field` as the inner field that holds the focus for the control. It is named for
    /// assistive technology after the control (see accessibleFieldName), and the focus leaving
    /// it for a widget outside the control reaches the control as a FocusOut, so that item
    /// delegates and QDataWidgetMapper commit on it.
    void setInnerField(QWidget *field);
    /// A further field of the control that takes the focus (a level of the family picker): the
    /// focus leaving it for a widget outside the control reaches the control too. A move
    /// between the control's own fields is not leaving it.
    void addInnerField(QWidget *field);
    /// The inner field's accessible name: the control's accessible name, else the text of the
    /// label whose buddy it is, else the control's object name.
    QString accessibleFieldName() const;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Reads a Boolean key: any non-zero number is True.
    static bool readBool(const PropertyBag &bag, const char *key, bool defaultValue);
    static bool toBool(const QVariant &value);

private:
    void nameInnerField();

    bool m_enabled = true;
    QWidget *m_innerField = nullptr;
    QList<QWidget *> m_otherFields; // addInnerField
    QLabel *m_relationLabel = nullptr; // hidden: the inner field's label for assistive technology
};

} // namespace Varnel_Controles
