#include "articles/EanCheckDigit.h"

namespace Varnel_Controles {

int EanCheckDigit::compute(const QString &payload)
{
    int odd = 0, even = 0;
    for (int position = 1; position <= 12 && position <= payload.size(); ++position) {
        const QChar c = payload.at(position - 1);
        const int digit = (c >= u'0' && c <= u'9') ? c.unicode() - u'0' : 0;
        (position % 2 ? odd : even) += digit;
    }
    const int total = payload.size() < 9 ? odd * 3 + even : odd + even * 3;
    const int check = 10 - total % 10;
    return check == 10 ? 0 : check;
}

} // namespace Varnel_Controles
