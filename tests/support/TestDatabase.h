#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

struct sqlite3;

// A SQLite database opened in the test process, to build browser databases and
// read back what a rewrite left in them.
class TestDatabase {
public:
    explicit TestDatabase(const QString& path);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    // Runs statements; throws with SQLite's message when one fails.
    void exec(const QString& sql);
    // Binds one blob to the single "?" of statement and runs it.
    void execWithBlob(const QString& statement, const QByteArray& blob);
    // Each row as its columns joined with "|" (NULL as "NULL", blobs in hexadecimal).
    QStringList rows(const QString& query);
    // The first column of the first row, or a null string.
    QString value(const QString& query);

private:
    sqlite3* mDatabase = nullptr;
};

// A Firefox 3.0 places database at path: places whose titles are titleLength
// long, a visit to each, and a bookmark for every place from firstBookmarked on.
void makePlaces(const QString& path, int places, int firstBookmarked, int titleLength = 1);

// The test data folder's file of that name, read whole.
QByteArray testData(const QString& name);
