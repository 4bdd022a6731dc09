// The mask engine on any mask and any typing: the caret stays in the field, the text given
// fills back in without refusal and, with its prompts, shows what was typed.
// Input: one byte of options (bit 0: blank prompt, bit 1: the prompt may be typed), then
// UTF-16: the mask, NUL, the keys typed (8 erases the position before the caret), NUL, a text.
#include "FuzzInput.h"
#include "input/MaskEngine.h"

using namespace Varnel_Controles;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QChar prompt = data[0] & 1 ? u' ' : u'_';
    const auto [mask, rest] = fuzz::split(fuzz::utf16(data + 1, size - 1), QChar(0));
    const auto [typed, text] = fuzz::split(rest, QChar(0));
    MaskEngine m;
    m.setMask(mask);
    int cursor = 0;
    for (QChar c : typed) {
        if (c != QChar(8)) {
            if (const auto r = m.type(cursor, c, prompt, data[0] & 2); r.accepted)
                cursor = r.cursor;
        } else if (const int before = m.previousInput(cursor - 1); before >= 0) {
            m.erase(before, before + 1);
            cursor = before;
        }
        FUZZ_REQUIRE(cursor >= 0 && cursor <= m.length());
    }
    const QString shown = m.display(prompt);
    FUZZ_REQUIRE(shown.size() == m.length());
    for (bool promptInclude : {true, false}) {
        MaskEngine back;
        back.setMask(mask);
        FUZZ_REQUIRE(back.setText(m.text(promptInclude, prompt), prompt) == -1);
        FUZZ_REQUIRE(!promptInclude || back.display(prompt) == shown);
    }
    const int refused = m.setText(text, prompt);
    FUZZ_REQUIRE(refused >= -1 && refused < text.size());
    FUZZ_REQUIRE(refused < 0 || m.display(prompt) == shown);
    (void)m.clipText();
    (void)m.isComplete();
    return 0;
}
