#pragma once

#include "cleaners/CleanerFixture.h"
#include "cleaners/MailCleaners.h"

#include <QDir>
#include <QList>

#include <sqlite3.h>

// A temporary home for the mail cleaners: Envelope Index files made and read
// with the SQLite library.
class MailFixture : public CleanerFixture {
protected:
    // Runs SQL on a database file below the home, creating the file.
    void sql(const QString& relative, const QByteArray& statements)
    {
        makeFolder(relative.section(QLatin1Char('/'), 0, -2));
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(home.file(relative)).constData(), &db), SQLITE_OK);
        char* error = nullptr;
        const int result = sqlite3_exec(db, statements.constData(), nullptr, nullptr, &error);
        EXPECT_EQ(result, SQLITE_OK) << (error ? error : "");
        sqlite3_free(error);
        sqlite3_close(db);
    }

    // An index with Mail's two tables: mailboxes (ROWID, url) and two messages per mailbox.
    void makeIndex(const QString& relative, const QList<std::pair<int, QString>>& mailboxes)
    {
        QByteArray statements = "CREATE TABLE mailboxes (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, url UNIQUE, "
                                "total_count INTEGER DEFAULT 0);"
                                "CREATE TABLE messages (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, message_id INTEGER, "
                                "mailbox INTEGER, subject TEXT);";
        for (const auto& [rowId, url] : mailboxes) {
            const QByteArray id = QByteArray::number(rowId);
            const QByteArray value = url.isNull() ? "NULL" : "'" + url.toUtf8().replace("'", "''") + "'";
            statements += "INSERT INTO mailboxes (ROWID, url) VALUES (" + id + ", " + value + ");";
            statements += "INSERT INTO messages (message_id, mailbox, subject) VALUES (1, " + id + ", 'a'), (2, " + id +
                          ", 'b');";
        }
        sql(relative, statements);
    }

    // The mailboxes that still have messages in the index, in order.
    QList<int> mailboxesWithMessages(const QString& relative)
    {
        QList<int> mailboxes;
        sqlite3* db = nullptr;
        const QByteArray path = QFile::encodeName(home.file(relative));
        if (sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
            sqlite3_exec(
                db, "SELECT DISTINCT mailbox FROM messages ORDER BY mailbox",
                [](void* list, int, char** values, char**) {
                    static_cast<QList<int>*>(list)->append(QByteArray(values[0]).toInt());
                    return 0;
                },
                &mailboxes, nullptr);
        }
        sqlite3_close(db);
        return mailboxes;
    }

    MailCleaners cleaners{context, defaults};
};

// Holds a lock on a database until it goes away: "BEGIN EXCLUSIVE" keeps every
// other connection out, "BEGIN IMMEDIATE" lets them read but not write.
class DatabaseLock {
public:
    DatabaseLock(const QString& path, const char* begin)
    {
        sqlite3_open(QFile::encodeName(path).constData(), &mDatabase);
        locked = sqlite3_exec(mDatabase, begin, nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    ~DatabaseLock()
    {
        sqlite3_exec(mDatabase, "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_close(mDatabase);
    }
    DatabaseLock(const DatabaseLock&) = delete;
    DatabaseLock& operator=(const DatabaseLock&) = delete;

    bool locked = false;

private:
    sqlite3* mDatabase = nullptr;
};
