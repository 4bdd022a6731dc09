// The legacy value rules on any text and any number: no undefined behaviour, and the rules
// agree with each other (the numeric test with the conversion, Str read back by Val, a date
// read back from its own formatting).
#include "FuzzInput.h"
#include "platform/Legacy.h"

#include <cmath>
#include <cstring>

using namespace Varnel_Controles;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = fuzz::utf8(data, size);

    bool numeric = false;
    const double converted = Legacy::CDbl(text, &numeric);
    FUZZ_REQUIRE(numeric == Legacy::IsNumeric(text));
    FUZZ_REQUIRE(std::isfinite(converted));
    (void)Legacy::CLng(converted);
    (void)Legacy::CInt(converted);

    const double value = Legacy::Val(text);
    FUZZ_REQUIRE(std::isfinite(value));
    (void)Legacy::CLng(value);
    (void)Legacy::CInt(value);
    const double back = Legacy::Val(Legacy::Str(value));
    FUZZ_REQUIRE(std::fabs(back - value) <= 1e-13 * std::fabs(value));

    if (const auto date = Legacy::CDate(text))
        FUZZ_REQUIRE(Legacy::CDate(Legacy::FormatDate(*date)) == date);
    (void)Legacy::Trim(text);
    for (QChar c : text)
        (void)Legacy::UCaseChar(c);

    // The same bytes as binary numbers.
    if (size >= 8) {
        double d;
        qint64 n;
        std::memcpy(&d, data, 8);
        std::memcpy(&n, data, 8);
        (void)Legacy::Str(d);
        (void)Legacy::CLng(d);
        (void)Legacy::CInt(d);
        (void)Legacy::Format00(n);
    }
    return 0;
}
