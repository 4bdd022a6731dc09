// The SQLite dialect on any statement and any text: adapt gives a statement or a DbError,
// never a crash; the Spanish comparison is a consistent order; LIKE and the collation give
// the same answers run by SQLite (UTF-8, the pattern kept for the statement) as in C++.
// Input: one byte choosing the part, then the payload (UTF-16 texts split at NUL).
#include "FuzzInput.h"
#include "data/DbError.h"
#include "data/SqliteDialect.h"

#include <sqlite3.h>
#include <vector>

using namespace Varnel_Controles;

namespace {

int sign(int v) { return v < 0 ? -1 : v > 0 ? 1 : 0; }

// Runs a statement with two text parameters on a connection with the dialect's functions;
// returns the integer columns of its rows.
std::vector<int> run(const char *sql, const QByteArray &a, const QByteArray &b)
{
    static sqlite3 *db = [] {
        sqlite3 *handle = nullptr;
        sqlite3_open(":memory:", &handle);
        SqliteDialect::registerFunctions(handle);
        return handle;
    }();
    sqlite3_stmt *statement = nullptr;
    std::vector<int> out;
    sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
    sqlite3_bind_text(statement, 1, a.constData(), int(a.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(statement, 2, b.constData(), int(b.size()), SQLITE_TRANSIENT);
    while (sqlite3_step(statement) == SQLITE_ROW)
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            out.push_back(sqlite3_column_int(statement, i));
    sqlite3_finalize(statement);
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QString payload = fuzz::utf16(data + 1, size - 1);
    const auto [a, b] = fuzz::split(payload, QChar(0));
    if (data[0] % 3 == 0) {
        try {
            (void)SqliteDialect::adapt(payload);
        } catch (const DbError &) {
        }
    } else if (data[0] % 3 == 1) {
        const int order = sign(SqliteDialect::compare(a, b));
        FUZZ_REQUIRE(SqliteDialect::compare(a, a) == 0 && order == -sign(SqliteDialect::compare(b, a)));
        const bool like = SqliteDialect::like(a, b);
        if (QStringView(a).isValidUtf16() && QStringView(b).isValidUtf16()) {
            // a LIKE b; the same pattern over three rows; a = b and a < b in the collation.
            const std::vector<int> sql = run("SELECT ?1 LIKE ?2, ?1 = ?2 COLLATE MODERN_SPANISH_CI_AS, "
                                             "?1 < ?2 COLLATE MODERN_SPANISH_CI_AS", a.toUtf8(), b.toUtf8());
            FUZZ_REQUIRE(sql == (std::vector<int>{like, order == 0, order < 0}));
            const std::vector<int> rows = run("SELECT x LIKE ?2 FROM (SELECT ?1 AS x UNION ALL SELECT 'B' UNION ALL "
                                              "SELECT ?1)", a.toUtf8(), b.toUtf8());
            FUZZ_REQUIRE(rows.size() == 3 && rows[0] == int(like) && rows[2] == int(like));
        }
    } else { // raw bytes as SQLite text, valid UTF-8 or not
        const QByteArray bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
        const qsizetype at = bytes.indexOf('\0');
        (void)run("SELECT ?1 LIKE ?2, ?2 LIKE ?1, ?1 = ?2 COLLATE MODERN_SPANISH_CI_AS, LEN(?1), TSQL_VARCHAR(?2) IS NULL",
                  bytes.left(at < 0 ? bytes.size() : at), at < 0 ? QByteArray() : bytes.mid(at + 1));
    }
    return 0;
}
