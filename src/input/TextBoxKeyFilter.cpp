#include "input/TextBoxKeyFilter.h"

#include "platform/Legacy.h"

namespace Varnel_Controles {

TextBoxKeyFilter::Outcome TextBoxKeyFilter::filter(qint16 keyAscii, const Settings &s, const Field &field)
{
    Outcome out;
    if (s.convertToUpper && keyAscii > 0)
        keyAscii = qint16(Legacy::UCaseChar(QChar(char16_t(keyAscii))).unicode());
    if (keyAscii == 13 && s.keyEnterChangeFocus)
        out.moveFocusNext = true;

    const QString trimmed = Legacy::Trim(field.text);
    if (s.typeOfValues == 1) {
        switch (keyAscii) {
        case 8:
        case 13:
            break;
        case 39:
            keyAscii = 0;
            break;
        case 44: // the comma, refused once the text holds one, whatever is selected
            if (!s.aceptDecimals || trimmed.contains(u','))
                keyAscii = 0;
            break;
        case 45:
            if (!s.aceptNegative) {
                keyAscii = 0;
            } else if (field.selectedText != field.text) {
                // Toggle the sign wherever the caret stands. The test looks at the trimmed
                // text but the cut removes the untrimmed text's first character.
                out.text = trimmed.startsWith(u'-') ? field.text.mid(1) : u'-' + field.text;
                keyAscii = 0;
            }
            break;
        case 46: // the point types a comma; allowed over a whole-text selection
            keyAscii = 44;
            if (!s.aceptDecimals || (trimmed.contains(u',') && field.selectedText != field.text))
                keyAscii = 0;
            break;
        default:
            if (!Legacy::IsNumeric(QString(QChar(char16_t(keyAscii)))))
                keyAscii = 0;
            break;
        }
    } else if (keyAscii == 39) {
        keyAscii = 0;
    }
    out.keyAscii = keyAscii;
    return out;
}

} // namespace Varnel_Controles
