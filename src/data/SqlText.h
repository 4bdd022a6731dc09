// How values enter the statements. Numbers only through numeric conversions; text only between
// apostrophes, with every apostrophe of the text doubled, so that a user's text is always a
// literal (a text without apostrophes comes out exactly as typed).
#pragma once

#include <QString>

namespace Varnel_Controles::SqlText {

/// The company code as plain digits: 1 gives "1".
QString empresa(qint16 code);
/// A code as the user typed it: the value of its leading digits, written with the leading
/// blank of the classic number-to-text rule ("0012" gives " 12", no digits give " 0").
QString codigo(const QString &typed);
/// A number with the leading blank (" 12", "-3").
QString numero(double value);
/// The text to put between apostrophes, each of its own apostrophes doubled.
QString texto(const QString &text);
/// A Boolean as the bit columns take it: 1 or 0.
QString bit(bool value);
/// A search filter as a LIKE pattern: "*" appended unless already last, then every "*"
/// becomes "%" ("PAR" → "PAR%", "*PAR" → "%PAR%", "" → "%"). Apostrophes are doubled.
QString patron(const QString &filter);

} // namespace Varnel_Controles::SqlText
