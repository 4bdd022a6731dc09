// The input mask of the masked field, without a window: which characters each position takes,
// what is shown, what Text and ClipText give, and what a typed character does.
//
// Mask characters: # digit, 9 optional digit, ? letter, A alphanumeric, a optional
// alphanumeric, & any character, C optional character, > and < upper / lower case from there
// on, \ the next character is a literal; anything else (/ : . , -) is a literal.
#pragma once

#include "varnel_controles_export.h"

#include <QString>
#include <QVector>

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT MaskEngine
{
public:
    /// Sets the mask and empties every position. An empty mask means no mask at all.
    void setMask(const QString &mask);
    QString mask() const { return m_mask; }
    bool hasMask() const { return !m_slots.isEmpty(); }
    /// Positions of the displayed text (literals included).
    int length() const { return int(m_slots.size()); }
    bool isInput(int pos) const;
    /// Whether `c` may stand at input position `pos` (`prompt` counts when `allowPrompt`).
    bool accepts(int pos, QChar c, QChar prompt = QChar(), bool allowPrompt = false) const;

    /// Empties every input position.
    void clear();
    /// Whether no input position holds a character.
    bool isBlank() const;
    /// Literals, the characters entered, and `prompt` at every empty position.
    QString display(QChar prompt) const;
    /// The value: the display with prompts; without them, empty positions are blanks and a
    /// field with nothing entered is "".
    QString text(bool promptInclude, QChar prompt) const;
    /// The characters entered, without literals.
    QString clipText() const;
    /// Fills the positions from a text: literals of the mask may be present or left out, the
    /// prompt character leaves a position empty, and so does a blank except at & and C, which
    /// keep it as typed. Returns -1, or the position of the first character the mask refuses
    /// (nothing is changed then).
    int setText(const QString &text, QChar prompt);

    struct Typed
    {
        bool accepted = false;
        int cursor = 0; // where the caret goes
    };
    /// Types `c` at `cursor`: it fills the next input position that takes it (a character
    /// equal to the next literal just moves past that literal).
    Typed type(int cursor, QChar c, QChar prompt = QChar(), bool allowPrompt = false);
    /// Empties the input positions in [from, to).
    void erase(int from, int to);
    /// The first input position at or after / before `pos` (-1 when none).
    int nextInput(int pos) const;
    int previousInput(int pos) const;
    /// Whether every required position (# ? A &) holds a character.
    bool isComplete() const;

private:
    enum Kind { Literal, Digit, OptDigit, Letter, Alnum, OptAlnum, Any, OptAny };
    enum Case { Keep, Upper, Lower };
    struct Slot
    {
        Kind kind;
        QChar literal;
        Case fold;
        QChar value; // null when empty
    };
    QString m_mask;
    QVector<Slot> m_slots;
};

} // namespace Varnel_Controles
