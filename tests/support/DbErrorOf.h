// The description of the DbError a piece of code throws, so that a test compares one text
// instead of writing try / QFAIL / catch around each call.
#pragma once

#include "data/DbError.h"

#include <QString>

namespace Varnel_Controles::Testing {

/// The description of the DbError that `code` throws; "(no error)" when it throws none.
template <typename Code>
QString dbErrorOf(Code &&code)
{
    try {
        code();
    } catch (const DbError &e) {
        return e.Description();
    }
    return QStringLiteral("(no error)");
}

} // namespace Varnel_Controles::Testing
