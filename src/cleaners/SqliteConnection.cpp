#include "cleaners/SqliteConnection.h"

#include <QCryptographicHash>
#include <QFile>

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Statement {
    sqlite3_stmt* handle = nullptr;
    ~Statement() { sqlite3_finalize(handle); }
};

void callFunction(sqlite3_context* context, int, sqlite3_value** values)
{
    const auto* function = static_cast<const SqliteConnection::Function*>(sqlite3_user_data(context));
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    const QVariant result = (*function)(text ? QString::fromUtf8(text, sqlite3_value_bytes(values[0])) : QString());
    if (!result.isValid())
        sqlite3_result_null(context);
    else if (result.typeId() == QMetaType::QString)
        sqlite3_result_text(context, result.toString().toUtf8().constData(), -1, SQLITE_TRANSIENT);
    else
        sqlite3_result_int64(context, result.toLongLong());
}

void deleteFunction(void* function)
{
    delete static_cast<SqliteConnection::Function*>(function);
}

// Type, length and bytes of each value, so that no two different rows hash alike.
void addValue(QCryptographicHash& hash, sqlite3_stmt* statement, int column)
{
    const int type = sqlite3_column_type(statement, column);
    const qint64 header[2]{type, type == SQLITE_NULL ? 0 : sqlite3_column_bytes(statement, column)};
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(header), sizeof(header)));
    if (type == SQLITE_INTEGER) {
        const qint64 value = sqlite3_column_int64(statement, column);
        hash.addData(QByteArrayView(reinterpret_cast<const char*>(&value), sizeof(value)));
    } else if (type != SQLITE_NULL) {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
        hash.addData(QByteArrayView(bytes, sqlite3_column_bytes(statement, column)));
    }
}

} // namespace

bool SqliteConnection::isHotJournal(const QString& path)
{
    QFile journal(path);
    char first = 0;
    return journal.open(QIODevice::ReadOnly) && journal.getChar(&first) && first != 0;
}

bool SqliteConnection::open(const QString& path)
{
    close();
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &mDatabase, SQLITE_OPEN_READWRITE, nullptr);
    if (result != SQLITE_OK) {
        fail(result);
        close();
        return false;
    }
    sqlite3_extended_result_codes(mDatabase, 1);
    return run(u"PRAGMA temp_store = MEMORY"_s);
}

void SqliteConnection::close()
{
    sqlite3_close_v2(mDatabase);
    mDatabase = nullptr;
}

bool SqliteConnection::fail(int result)
{
    mErrorCode = result;
    mErrorMessage = QString::fromUtf8(mDatabase && sqlite3_errcode(mDatabase) == result ? sqlite3_errmsg(mDatabase)
                                                                                        : sqlite3_errstr(result));
    return false;
}

bool SqliteConnection::run(const QString& statement, const QStringList& texts)
{
    Statement prepared;
    int result = sqlite3_prepare_v2(mDatabase, statement.toUtf8().constData(), -1, &prepared.handle, nullptr);
    for (int i = 0; result == SQLITE_OK && i < texts.size(); ++i)
        result = sqlite3_bind_text(prepared.handle, i + 1, texts[i].toUtf8().constData(), -1, SQLITE_TRANSIENT);
    if (result != SQLITE_OK)
        return fail(result);
    while ((result = sqlite3_step(prepared.handle)) == SQLITE_ROW) {
    }
    return result == SQLITE_DONE || fail(result);
}

QVariantList SqliteConnection::firstRow(const QString& query)
{
    Statement prepared;
    int result = sqlite3_prepare_v2(mDatabase, query.toUtf8().constData(), -1, &prepared.handle, nullptr);
    if (result == SQLITE_OK)
        result = sqlite3_step(prepared.handle);
    QVariantList row;
    if (result != SQLITE_ROW) {
        if (result != SQLITE_DONE)
            fail(result);
        return row;
    }
    for (int column = 0; column < sqlite3_column_count(prepared.handle); ++column) {
        const int type = sqlite3_column_type(prepared.handle, column);
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared.handle, column));
        row.append(type == SQLITE_INTEGER ? QVariant(sqlite3_column_int64(prepared.handle, column))
                   : text                 ? QVariant(QString::fromUtf8(text))
                                          : QVariant());
    }
    return row;
}

bool SqliteConnection::digest(const QString& query, QByteArray& hash, qint64& rows)
{
    Statement prepared;
    int result = sqlite3_prepare_v2(mDatabase, query.toUtf8().constData(), -1, &prepared.handle, nullptr);
    if (result != SQLITE_OK)
        return fail(result);
    QCryptographicHash sum(QCryptographicHash::Sha256);
    rows = 0;
    while ((result = sqlite3_step(prepared.handle)) == SQLITE_ROW) {
        ++rows;
        for (int column = 0; column < sqlite3_column_count(prepared.handle); ++column)
            addValue(sum, prepared.handle, column);
    }
    hash = sum.result();
    return result == SQLITE_DONE || fail(result);
}

bool SqliteConnection::compiles(const QString& statement)
{
    Statement prepared;
    const int result = sqlite3_prepare_v2(mDatabase, statement.toUtf8().constData(), -1, &prepared.handle, nullptr);
    return result == SQLITE_OK || fail(result);
}

bool SqliteConnection::addFunction(const QString& name, const Function& function)
{
    auto copy = std::make_unique<Function>(function);
    const int result = sqlite3_create_function_v2(mDatabase, name.toUtf8().constData(), 1, SQLITE_UTF8, copy.get(),
                                                  callFunction, nullptr, nullptr, deleteFunction);
    // The library owns the copy from here on, even when the call failed.
    copy.release();
    return result == SQLITE_OK || fail(result);
}

void SqliteConnection::setCheckpointOnClose(bool on)
{
    sqlite3_db_config(mDatabase, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, on ? 0 : 1, nullptr);
}
