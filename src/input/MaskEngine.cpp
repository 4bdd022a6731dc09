#include "input/MaskEngine.h"

namespace Varnel_Controles {

void MaskEngine::setMask(const QString &mask)
{
    m_mask = mask;
    m_slots.clear();
    Case fold = Keep;
    for (int i = 0; i < mask.size(); ++i) {
        const QChar c = mask[i];
        Kind kind = Literal;
        switch (c.unicode()) {
        case '#': kind = Digit; break;
        case '9': kind = OptDigit; break;
        case '?': kind = Letter; break;
        case 'A': kind = Alnum; break;
        case 'a': kind = OptAlnum; break;
        case '&': kind = Any; break;
        case 'C': kind = OptAny; break;
        case '>': fold = Upper; continue;
        case '<': fold = Lower; continue;
        case '\\':
            if (i + 1 < mask.size())
                m_slots.append({Literal, mask[++i], Keep, QChar()});
            continue;
        default: break;
        }
        m_slots.append({kind, kind == Literal ? c : QChar(), fold, QChar()});
    }
}

bool MaskEngine::isInput(int pos) const
{
    return pos >= 0 && pos < m_slots.size() && m_slots[pos].kind != Literal;
}

bool MaskEngine::accepts(int pos, QChar c, QChar prompt, bool allowPrompt) const
{
    if (!isInput(pos))
        return false;
    if (allowPrompt && !prompt.isNull() && c == prompt)
        return true;
    switch (m_slots[pos].kind) {
    case Digit: case OptDigit: return c >= u'0' && c <= u'9';
    case Letter: return c.isLetter();
    case Alnum: case OptAlnum: return c.isLetterOrNumber();
    case Any: case OptAny: return c.unicode() >= 32;
    case Literal: return false;
    }
    return false;
}

void MaskEngine::clear()
{
    for (Slot &s : m_slots)
        s.value = QChar();
}

bool MaskEngine::isBlank() const
{
    for (const Slot &s : m_slots)
        if (s.kind != Literal && !s.value.isNull())
            return false;
    return true;
}

QString MaskEngine::display(QChar prompt) const
{
    QString out;
    for (const Slot &s : m_slots)
        out += s.kind == Literal ? s.literal : (s.value.isNull() ? prompt : s.value);
    return out;
}

QString MaskEngine::text(bool promptInclude, QChar prompt) const
{
    if (promptInclude)
        return display(prompt);
    if (isBlank())
        return QString();
    return display(u' ');
}

QString MaskEngine::clipText() const
{
    QString out;
    for (const Slot &s : m_slots)
        if (s.kind != Literal && !s.value.isNull())
            out += s.value;
    return out;
}

int MaskEngine::setText(const QString &text, QChar prompt)
{
    QVector<Slot> filled = m_slots;
    for (Slot &s : filled)
        s.value = QChar();
    int pos = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        while (pos < filled.size() && filled[pos].kind == Literal && filled[pos].literal != c)
            ++pos; // a literal left out of the text
        if (pos >= filled.size())
            return i;
        if (filled[pos].kind == Literal) { // the literal itself
            ++pos;
            continue;
        }
        const bool takesBlank = filled[pos].kind == Any || filled[pos].kind == OptAny;
        if (c == prompt || (c == u' ' && !takesBlank)) {
            ++pos;
            continue;
        }
        if (!accepts(pos, c))
            return i;
        filled[pos].value = filled[pos].fold == Upper ? c.toUpper() : filled[pos].fold == Lower ? c.toLower() : c;
        ++pos;
    }
    m_slots = filled;
    return -1;
}

MaskEngine::Typed MaskEngine::type(int cursor, QChar c, QChar prompt, bool allowPrompt)
{
    const int input = nextInput(cursor);
    if (input < 0 || !accepts(input, c, prompt, allowPrompt)) {
        // The separator the caret has just skipped by itself: typing it changes nothing.
        for (int p = qMin(cursor, int(m_slots.size())) - 1; p >= 0 && m_slots[p].kind == Literal; --p)
            if (m_slots[p].literal == c)
                return {true, cursor};
        // The separator of the section: the rest of the section stays empty, the caret moves past it.
        for (int p = qMax(0, cursor); p < m_slots.size(); ++p) {
            if (m_slots[p].kind == Literal)
                return m_slots[p].literal == c ? Typed{true, p + 1} : Typed{false, cursor};
        }
        return {false, cursor};
    }
    Slot &s = m_slots[input];
    s.value = (allowPrompt && c == prompt) ? c : s.fold == Upper ? c.toUpper() : s.fold == Lower ? c.toLower() : c;
    const int after = nextInput(input + 1);
    return {true, after < 0 ? int(m_slots.size()) : after};
}

void MaskEngine::erase(int from, int to)
{
    for (int p = qMax(0, from); p < qMin(to, int(m_slots.size())); ++p)
        if (m_slots[p].kind != Literal)
            m_slots[p].value = QChar();
}

int MaskEngine::nextInput(int pos) const
{
    for (int p = qMax(0, pos); p < m_slots.size(); ++p)
        if (m_slots[p].kind != Literal)
            return p;
    return -1;
}

int MaskEngine::previousInput(int pos) const
{
    for (int p = qMin(pos, int(m_slots.size()) - 1); p >= 0; --p)
        if (m_slots[p].kind != Literal)
            return p;
    return -1;
}

bool MaskEngine::isComplete() const
{
    for (const Slot &s : m_slots)
        if ((s.kind == Digit || s.kind == Letter || s.kind == Alnum || s.kind == Any) && s.value.isNull())
            return false;
    return true;
}

} // namespace Varnel_Controles
