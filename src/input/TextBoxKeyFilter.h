// The key filter of kdTextBox, without a window: what a typed character becomes.
#pragma once

#include "varnel_controles_export.h"

#include <QString>
#include <optional>

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT TextBoxKeyFilter
{
public:
    struct Settings
    {
        qint32 typeOfValues = 0; // 1 = numeric; any other value filters as alphanumeric
        bool aceptDecimals = false;
        bool aceptNegative = false;
        bool convertToUpper = true;
        bool keyEnterChangeFocus = true;
    };
    struct Field
    {
        QString text;         // untrimmed text of the field
        QString selectedText; // "" when nothing is selected
    };
    struct Outcome
    {
        qint16 keyAscii = 0;          // what goes on to the host's KeyPress (0 = swallowed)
        bool moveFocusNext = false;   // Enter asked to move on
        std::optional<QString> text;  // sign toggle: the field's new text, caret at its end
    };

    /// Upper case, Enter, then the numeric or alphanumeric rules, in that order.
    static Outcome filter(qint16 keyAscii, const Settings &settings, const Field &field);
};

} // namespace Varnel_Controles
