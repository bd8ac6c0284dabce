#pragma once

#include "cleaners/CleanerFixture.h"
#include "cleaners/MailCleaners.h"

#include <QDir>
#include <QList>

// A temporary home for the mail cleaners: Envelope Index files made and read
// with the SQLite library.
class MailFixture : public CleanerFixture {
protected:
    // Runs SQL on a database file below the home, creating the file.
    void sql(const QString& relative, const QByteArray& statements)
    {
        makeFolder(relative.section(QLatin1Char('/'), 0, -2));
        TestDatabase(home.file(relative)).exec(QString::fromUtf8(statements));
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
        for (const QString& row :
             TestDatabase(home.file(relative)).rows(QStringLiteral("SELECT DISTINCT mailbox FROM messages ORDER BY 1")))
            mailboxes.append(row.toInt());
        return mailboxes;
    }

    MailCleaners cleaners{context, defaults};
};
