// The legacy value rules on any text and any number: no undefined behaviour, and the rules
// agree with each other (the numeric test with the conversion, Str read back by Val, a date
// read back from its own formatting).
#include "FuzzInput.h"
#include "platform/Legacy.h"

#include <cmath>

using namespace Varnel_Controles;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    bool numeric = false;
    const double converted = Legacy::CDbl(text, &numeric);
    FUZZ_REQUIRE(numeric == Legacy::IsNumeric(text) && std::isfinite(converted));
    const double value = Legacy::Val(text);
    FUZZ_REQUIRE(std::isfinite(value));
    FUZZ_REQUIRE(std::fabs(Legacy::Val(Legacy::Str(value)) - value) <= 1e-13 * std::fabs(value));
    if (const auto date = Legacy::CDate(text))
        FUZZ_REQUIRE(Legacy::CDate(Legacy::FormatDate(*date)) == date);
    (void)Legacy::Trim(text);
    for (QChar c : text)
        (void)Legacy::UCaseChar(c);
    double number = 0; // the first bytes as binary numbers
    qint64 whole = 0;
    if (size >= 8) {
        std::memcpy(&number, data, 8);
        std::memcpy(&whole, data, 8);
    }
    for (double d : {converted, value, number}) {
        (void)Legacy::Str(d);
        (void)Legacy::CLng(d);
        (void)Legacy::CInt(d);
    }
    (void)Legacy::Format00(whole);
    return 0;
}
