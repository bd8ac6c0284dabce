#pragma once

#include <QList>
#include <QMap>
#include <QString>

struct sqlite3;

// Apple Mail's "Envelope Index", opened in this process with the SQLite
// library. Every call answers false on failure and leaves the library's
// message in errorMessage(); nothing is thrown. A lock held by another program
// is waited for a short while and then reported as a failure, so a run never
// hangs on it. Used on the run's finding thread only.
class EnvelopeIndex {
public:
    // A row: column name to value, as text; a NULL value is the text "NULL".
    using Row = QMap<QString, QString>;

    EnvelopeIndex() = default;
    ~EnvelopeIndex() { close(); }
    EnvelopeIndex(const EnvelopeIndex&) = delete;
    EnvelopeIndex& operator=(const EnvelopeIndex&) = delete;

    // Opens an existing file (never creates one); read-only when asked, so that
    // the file stays exactly as it was. For writing, removed rows must not stay
    // on the disk: freed pages are zeroed, and a rollback journal, which holds
    // the pages as they were, is kept rather than unlinked with its blocks as
    // they were (see spentJournal).
    bool open(const QString& path, bool readOnly);
    // Runs a query and appends each of its rows to rows.
    bool select(const QString& query, QList<Row>& rows);
    bool execute(const QString& statement);
    void close();
    // After close: the journal the writes left behind, every transaction in it
    // committed, for the caller to erase; empty when there is none.
    QString spentJournal() const;

    QString errorMessage() const { return mErrorMessage; }
    // The file last opened.
    QString path() const { return mPath; }

private:
    bool exec(const QString& sql, int (*callback)(void*, int, char**, char**), void* argument);

    sqlite3* mDatabase = nullptr;
    QString mErrorMessage;
    QString mPath;
};
