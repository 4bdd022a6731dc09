// What a host form gives every control of the library: persisted properties read from and
// written to the form's property bag, a notification when a persisted property changes,
// and the ambient font.
#pragma once

#include <QWidget>

#include "platform/PropertyBag.h"
#include "platform/StdFont.h"

namespace Varnel_Controles {

class UserControl : public QWidget
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

signals:
    /// A persisted property was assigned; `key` is its persisted key.
    void PropertyChanged(const QString &key);

protected:
    void notify(const char *key) { emit PropertyChanged(QString::fromLatin1(key)); }
    /// Reads a Boolean key: any non-zero number is True.
    static bool readBool(const PropertyBag &bag, const char *key, bool defaultValue);
    static bool toBool(const QVariant &value);
};

} // namespace Varnel_Controles
