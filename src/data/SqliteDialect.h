// The embedded database speaks the library's T-SQL through this module: a small rewriter for
// the statements the library issues, plus functions and a collation registered on the SQLite
// handle, so that each statement gives the answers SQL Server gives.
//
// Rewrites: ISNULL → IFNULL; TOP n → LIMIT n (also in subqueries); CONVERT(VARCHAR, x) → the
// server's number-to-text; a prefix LIKE on a column gains the equivalent range condition so
// that it still seeks an index: a text range, or on the integer codes (columns Codigo and
// Cod_Articulo, which the library only matches by pattern where they are integers) the ranges
// of the numbers whose text starts with the prefix ("12%": 12, 120-129, 1200-1299 …); dates
// written as dd/mm/yyyy (also with a leading blank) or by FechaSQL become ISO dates where they
// meet a date column. When the top-level WHERE fixes a table's company ("WHERE a.Cod_Empresa =1"
// with no OR beside it), a subquery's reference to that company ("aref.Cod_empresa=a.Cod_Empresa")
// is written as the number, so the subquery runs once instead of once per row; an integer code
// prefix of that table takes its codes from a subquery on the table alone ("a.Codigo IN (SELECT
// Codigo FROM Articulos WHERE Cod_Empresa=1 AND (Codigo BETWEEN …))"), because SQLite seeks
// OR-ed ranges only in a table that is not joined to others; and in a statement ordered by one
// of that table's columns, a prefix of another column (not inside parentheses) takes the
// ordering column from such a subquery ("a.Codigo IN (SELECT Codigo FROM Articulos WHERE
// Cod_Empresa=1 AND Descripcion >= 'TOR' …)"), so that the sort reads the keys alone and the
// joined tables only for the rows listed in order.
// Registered: the collation MODERN_SPANISH_CI_AS (case-insensitive, accent-sensitive, Ñ after
// N, trailing blanks ignored, punctuation before digits and letters, hyphens and apostrophes
// only breaking ties) used by every text column, LIKE with SQL Server's wildcards under the
// same rules, LEN (trailing blanks not counted) and TSQL_VARCHAR.
#pragma once

#include "varnel_controles_export.h"

#include <QString>

struct sqlite3;

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT SqliteDialect
{
public:
    /// The version of the collation's order; files indexed under a lower one are reindexed
    /// when opened (their user_version records the order their indexes follow).
    static constexpr int kCollationVersion = 2;

    /// The statement as SQLite runs it. Throws DbError for a statement holding text SQL cannot
    /// store (a NUL, half a surrogate pair, U+FFFE, U+FFFF): such a statement is never passed on;
    /// and for a statement cut short where it is rewritten (TOP without its number).
    static QString adapt(const QString &tsql);
    /// Registers the collation and functions on a connection handle.
    static void registerFunctions(sqlite3 *handle);

    /// Compares two texts as SQL Server's Modern_Spanish_CI_AS does (negative, 0, positive).
    static int compare(const QString &a, const QString &b);
    /// SQL Server's LIKE (% _ [abc] [a-z] [^a]) under the same case and accent rules.
    static bool like(const QString &text, const QString &pattern);
    /// The default conversion of a float to VARCHAR (12.5 gives "12.5", 1e7 gives "1e+007").
    static QString floatToVarchar(double value);
    /// Date columns whose literals are stored as ISO dates.
    static bool isDateColumn(const QString &column);
};

} // namespace Varnel_Controles
