// What the fuzz targets share: reading the fuzzer's bytes as texts, and stopping on a broken
// rule so that libFuzzer (or the replay) reports the input.
#pragma once

#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// The bytes as UTF-16 code units, whatever they hold (lone surrogates and NUL included).
inline QString utf16(const uint8_t *data, size_t size)
{
    QString s(qsizetype(size / 2), Qt::Uninitialized);
    for (size_t i = 0; i + 1 < size; i += 2)
        s[qsizetype(i / 2)] = QChar(char16_t(data[i] | (data[i + 1] << 8)));
    return s;
}

/// The bytes as UTF-8 (invalid sequences become replacement characters).
inline QString utf8(const uint8_t *data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
}

/// Splits `text` at its first `separator` into two texts.
inline std::pair<QString, QString> split(const QString &text, QChar separator)
{
    const qsizetype at = text.indexOf(separator);
    if (at < 0)
        return {text, QString()};
    return {text.left(at), text.mid(at + 1)};
}

#define FUZZ_REQUIRE(condition)                                                                     \
    do {                                                                                            \
        if (!(condition)) {                                                                         \
            std::fprintf(stderr, "%s:%d: broken rule: %s\n", __FILE__, __LINE__, #condition);     \
            std::abort();                                                                           \
        }                                                                                           \
    } while (false)

} // namespace fuzz
