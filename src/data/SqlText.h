// How values enter the statements. Numbers only through numeric conversions; text only between
// apostrophes, with every apostrophe of the text doubled, so that a user's text is always a
// literal (a text without apostrophes comes out exactly as typed).
//
// Text SQL cannot store is refused, never cleaned: a NUL (SQLite ends the statement there), half
// of a UTF-16 surrogate pair (SQLite's UTF-16 decoder would swallow the apostrophe after it and
// end the literal early) and the noncharacters U+FFFE and U+FFFF (read back as U+FFFD). The
// caller gets a DbError (number 5) with a Spanish message naming the position; controls show it
// in their usual error box, the barcode class raises it to its caller.
#pragma once

#include "varnel_controles_export.h"

#include <QString>

namespace Varnel_Controles::SqlText {

/// The company code as plain digits: 1 gives "1".
VARNEL_CONTROLES_EXPORT QString empresa(qint16 code);
/// A code as the user typed it: the value of its leading digits, written with the leading
/// blank of the classic number-to-text rule ("0012" gives " 12", no digits give " 0").
VARNEL_CONTROLES_EXPORT QString codigo(const QString &typed);
/// A number with the leading blank (" 12", "-3").
VARNEL_CONTROLES_EXPORT QString numero(double value);
/// The text to put between apostrophes, each of its own apostrophes doubled. Throws DbError
/// for text SQL cannot store.
VARNEL_CONTROLES_EXPORT QString texto(const QString &text);
/// A Boolean as the bit columns take it: 1 or 0.
VARNEL_CONTROLES_EXPORT QString bit(bool value);
/// A search filter as a LIKE pattern: "*" appended unless already last, then every "*"
/// becomes "%" ("PAR" → "PAR%", "*PAR" → "%PAR%", "" → "%"). Apostrophes are doubled; text SQL
/// cannot store throws DbError as in texto.
VARNEL_CONTROLES_EXPORT QString patron(const QString &filter);
/// As patron, with "%", "_" and "[" typed by the user standing for themselves ("[%]", "[_]",
/// "[[]"): only "*" is a wildcard ("50%" → "50[%]%"). A filter without them gives patron's text.
VARNEL_CONTROLES_EXPORT QString patronLiteral(const QString &filter);

/// Whether SQL can store the text: no NUL, no half surrogate pair, no U+FFFE or U+FFFF.
VARNEL_CONTROLES_EXPORT bool storable(QStringView text);
/// Throws DbError unless a whole statement is storable text; every statement passes here
/// before it is prepared.
VARNEL_CONTROLES_EXPORT void comprobarInstruccion(QStringView statement);

} // namespace Varnel_Controles::SqlText
