// The property bag of a host form: ordered key/value pairs that a control reads on load and
// writes on save, and their text form, the property block of the legacy host form files:
//
//     BackColor       =   &H00FFFFC0&
//     Text            =   "ABC"
//     AceptDecimals   =   -1  'True
//     BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851}
//        Name            =   "Tahoma"
//        Size            =   8.25
//     EndProperty
#pragma once

#include "varnel_controles_export.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QVariant>
#include <stdexcept>

#include "StdFont.h"

namespace Varnel_Controles {

/// A property block that cannot be read; `line` is 1-based.
class VARNEL_CONTROLES_EXPORT PropertyBagError : public std::runtime_error
{
public:
    PropertyBagError(int line, const QString &message);
    int line() const { return m_line; }
    QString message() const { return m_message; }

private:
    int m_line;
    QString m_message;
};

class VARNEL_CONTROLES_EXPORT PropertyBag
{
public:
    /// The stored value of `key` (exact spelling), or `defaultValue` when it was not written.
    QVariant ReadProperty(const QString &key, const QVariant &defaultValue = QVariant()) const;
    /// Stores `value` under `key`, or removes the key when the value equals its default
    /// (numbers compared as 32-bit values, so True = -1 differs from a default of 1).
    void WriteProperty(const QString &key, const QVariant &value, const QVariant &defaultValue);

    bool contains(const QString &key) const;
    /// The line `key` was read from by fromText (0 for a key written by the program).
    int lineOf(const QString &key) const;
    /// Throws PropertyBagError naming the key's line unless its value is a whole number from
    /// `min` to `max` (a missing key passes). Controls check their keys with it before loading
    /// anything, so that a refused block changes nothing.
    void requireRange(const QString &key, qint64 min, qint64 max) const;
    /// Keys in the order they were written or read from text.
    QStringList keys() const;
    bool isEmpty() const { return m_items.isEmpty(); }

    /// The block in the form-file syntax, one `Key = value` per line, indented by `indent` blanks.
    QString toText(int indent = 0) const;
    /// Reads a block (optionally wrapped in `Begin Library.Class name` … `End`).
    /// Throws PropertyBagError naming the first bad line (also a whole number beyond 32 bits,
    /// a decimal beyond a double, a font size beyond 2160 points, blocks nested more than 32
    /// deep); nothing is returned half-read.
    static PropertyBag fromText(const QString &text);

    /// Whether two property values are the same for the omission rule.
    static bool sameValue(const QVariant &a, const QVariant &b);

private:
    QList<QPair<QString, QVariant>> m_items;
    QHash<QString, int> m_lines;
};

} // namespace Varnel_Controles
