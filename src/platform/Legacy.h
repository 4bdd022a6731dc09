// The value rules of the legacy runtime under the Spanish locale (decimal comma, point for
// thousands, day-first dates). Host code and controls use these instead of QLocale, whose
// strict grouping rules refuse texts such as "1.234,5" that the legacy numeric test accepts.
#pragma once

#include "varnel_controles_export.h"

#include <QDate>
#include <QString>
#include <optional>

namespace Varnel_Controles::Legacy {

/// Numeric test: blanks around, a sign before or after (or parentheses), points as thousands
/// separators anywhere after a digit, one decimal comma, an exponent, or &H/&O. "" is not numeric.
VARNEL_CONTROLES_TESTS_EXPORT bool IsNumeric(const QString &text);
/// The text converted by the numeric test's rules ("12,5" is 12.5, "12.5" is 125); 0 when refused.
VARNEL_CONTROLES_TESTS_EXPORT double CDbl(const QString &text, bool *ok = nullptr);
/// Value of the leading number of the text, locale-free: blanks are skipped, "." is the decimal
/// point, parsing stops at the first other character; 0 when there is no digit. A number beyond
/// the range of a double ("1e999", hundreds of hex digits) gives the largest double, signed.
VARNEL_CONTROLES_TESTS_EXPORT double Val(const QString &text);
/// Number to text with one leading blank for non-negative numbers (" 12", "-3", " .5").
VARNEL_CONTROLES_TESTS_EXPORT QString Str(double value);
/// Rounds half to even into 32 bits; out-of-range values are clamped.
VARNEL_CONTROLES_TESTS_EXPORT qint32 CLng(double value);
/// Rounds half to even into 16 bits; out-of-range values are clamped.
VARNEL_CONTROLES_TESTS_EXPORT qint16 CInt(double value);
/// Upper case of one character (ñ gives Ñ, á gives Á); characters without a one-character
/// upper-case form are returned unchanged.
VARNEL_CONTROLES_TESTS_EXPORT QChar UCaseChar(QChar c);
/// Blanks (spaces only, not tabs) removed from both ends.
VARNEL_CONTROLES_TESTS_EXPORT QString Trim(const QString &text);
/// Integer with at least two digits: 7 gives "07".
VARNEL_CONTROLES_TESTS_EXPORT QString Format00(qint64 value);
/// Day-first date reading: d/m/y, d-m-y or d.m.y, two-digit years 30-99 in the 1900s and
/// 00-29 in the 2000s, d/m alone (or "d/m/") in the current year; also yyyy-mm-dd. A time of
/// day after the date ("01/11/2026 10:30:00") is allowed and dropped. Impossible dates give no value.
VARNEL_CONTROLES_TESTS_EXPORT std::optional<QDate> CDate(const QString &text);
inline bool IsDate(const QString &text) { return CDate(text).has_value(); }
/// "dd/mm/yyyy".
VARNEL_CONTROLES_TESTS_EXPORT QString FormatDate(const QDate &date);

} // namespace Varnel_Controles::Legacy
