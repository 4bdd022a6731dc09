// The EAN check digit as the application computes it: weights counted from the left, 3-1 for
// payloads under 9 characters (EAN-8) and 1-3 otherwise (EAN-13); a character that is not a
// digit, or a position past the twelfth, counts 0.
#pragma once

#include "varnel_controles_export.h"

#include <QString>

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT EanCheckDigit
{
public:
    /// The digit 0-9 completing `payload`.
    static int compute(const QString &payload);
    /// The payload followed by its digit.
    static QString complete(const QString &payload) { return payload + QString::number(compute(payload)); }
};

} // namespace Varnel_Controles
