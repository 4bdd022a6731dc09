// The property-block reader on any text: a block is read or refused naming a line of it,
// never a crash; what is read is written as a block that reads back the same.
#include "FuzzInput.h"
#include "platform/PropertyBag.h"

using namespace Varnel_Controles;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    PropertyBag bag;
    try {
        bag = PropertyBag::fromText(text);
    } catch (const PropertyBagError &e) {
        FUZZ_REQUIRE(e.line() >= 1 && e.line() <= text.count(u'\n') + 1);
        return 0;
    }
    const QString written = bag.toText(3);
    try {
        const PropertyBag again = PropertyBag::fromText(written);
        FUZZ_REQUIRE(again.keys() == bag.keys() && again.toText(3) == written);
    } catch (const PropertyBagError &e) {
        std::fprintf(stderr, "%s\n%s\n", e.what(), qPrintable(written));
        FUZZ_REQUIRE(!"a block that was read is written back as one the reader refuses");
    }
    return 0;
}
