// What the fuzz targets share: reading the fuzzer's bytes as texts, and stopping on a broken
// rule so that libFuzzer (or the replay) reports the input.
#pragma once

#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace fuzz {

/// The bytes as UTF-16 code units (little-endian), whatever they hold (lone surrogates and NUL included).
inline QString utf16(const uint8_t *data, size_t size)
{
    QString s(qsizetype(size / 2), Qt::Uninitialized);
    std::memcpy(s.data(), data, size_t(s.size()) * 2);
    return s;
}

/// Splits `text` at its first `separator` into two texts.
inline std::pair<QString, QString> split(const QString &text, QChar separator)
{
    const qsizetype at = text.indexOf(separator);
    return {text.left(at < 0 ? text.size() : at), at < 0 ? QString() : text.mid(at + 1)};
}

inline void require(bool holds, const char *rule, const char *file, int line)
{
    if (!holds) {
        std::fprintf(stderr, "%s:%d: broken rule: %s\n", file, line, rule);
        std::abort();
    }
}

} // namespace fuzz

#define FUZZ_REQUIRE(condition) fuzz::require(bool(condition), #condition, __FILE__, __LINE__)
