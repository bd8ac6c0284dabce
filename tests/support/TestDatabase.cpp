#include "support/TestDatabase.h"

#include <QFile>

#include <sqlite3.h>

#include <stdexcept>

TestDatabase::TestDatabase(const QString& path)
{
    if (sqlite3_open(QFile::encodeName(path).constData(), &mDatabase) != SQLITE_OK)
        throw std::runtime_error("cannot open a test database");
}

TestDatabase::~TestDatabase()
{
    sqlite3_close(mDatabase);
}

void TestDatabase::exec(const QString& sql)
{
    char* error = nullptr;
    if (sqlite3_exec(mDatabase, sql.toUtf8().constData(), nullptr, nullptr, &error) != SQLITE_OK) {
        const std::string message = error ? error : "unknown error";
        sqlite3_free(error);
        throw std::runtime_error(message);
    }
}

void TestDatabase::execWithBlob(const QString& statement, const QByteArray& blob)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(mDatabase, statement.toUtf8().constData(), -1, &prepared, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(mDatabase));
    sqlite3_bind_blob(prepared, 1, blob.constData(), int(blob.size()), SQLITE_TRANSIENT);
    const int status = sqlite3_step(prepared);
    sqlite3_finalize(prepared);
    if (status != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(mDatabase));
}

QStringList TestDatabase::rows(const QString& query)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(mDatabase, query.toUtf8().constData(), -1, &prepared, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(mDatabase));
    QStringList result;
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        QStringList columns;
        for (int column = 0; column < sqlite3_column_count(prepared); ++column) {
            switch (sqlite3_column_type(prepared, column)) {
            case SQLITE_NULL:
                columns.append(QStringLiteral("NULL"));
                break;
            case SQLITE_BLOB:
                columns.append(
                    QString::fromLatin1(QByteArray(static_cast<const char*>(sqlite3_column_blob(prepared, column)),
                                                   sqlite3_column_bytes(prepared, column))
                                            .toHex()));
                break;
            default:
                columns.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(prepared, column))));
            }
        }
        result.append(columns.join(u'|'));
    }
    sqlite3_finalize(prepared);
    return result;
}

QString TestDatabase::value(const QString& query)
{
    const QStringList all = rows(query);
    return all.isEmpty() ? QString() : all.first().section(u'|', 0, 0);
}

void makePlaces(const QString& path, int places, int firstBookmarked, int titleLength)
{
    TestDatabase db(path);
    db.exec(QString::fromUtf8(testData(QStringLiteral("places-firefox-3.0.sql"))));
    db.exec(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1)"
                           " INSERT INTO moz_places (id, url, title, visit_count)"
                           "  SELECT i, 'http://s' || i || '.example/', printf('%.%3c', 't'), 1 FROM n;"
                           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1)"
                           " INSERT INTO moz_historyvisits (id, place_id, visit_date) SELECT i, i, i FROM n;"
                           "INSERT INTO moz_bookmarks (id, type, fk, parent, position, title)"
                           " SELECT id, 1, id, 2, id, 'B' || id FROM moz_places WHERE id >= %2;")
                .arg(places)
                .arg(firstBookmarked)
                .arg(titleLength));
}

QByteArray testData(const QString& name)
{
    QFile file(QStringLiteral(VANTLE_TEST_DATA_DIR "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("missing test data");
    return file.readAll();
}
