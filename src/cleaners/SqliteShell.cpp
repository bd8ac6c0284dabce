#include "cleaners/SqliteShell.h"

#include "cleaners/DatabaseFiles.h"
#include "core/Bundle.h"
#include "core/ChildProcess.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The listing the shell printed for ".schema" when the known digests were taken.
constexpr auto kLegacySchemaQuery =
    "SELECT sql || ';' FROM sqlite_master WHERE type!='meta' AND sql NOTNULL AND name NOT LIKE 'sqlite_%' "
    "ORDER BY substr(type,2,1), name;"_L1;

// quote(blob) yields the text X'..', which insert mode prints quoted once more,
// doubling the inner quotes; this turns it back into a blob literal. Only pure
// ASCII output is rewritten: anything else stays as the shell wrote it.
void stripBlobQuotes(const QString& statementsFile)
{
    QFile file(statementsFile);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    file.close();
    if (std::any_of(bytes.cbegin(), bytes.cend(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
        return;
    QString text = QString::fromLatin1(bytes);
    text.replace(u",'X''"_s, u",X'"_s, Qt::CaseInsensitive);
    text.replace(u"''',"_s, u"',"_s, Qt::CaseInsensitive);
    DatabaseFiles::writeWorkFile(statementsFile, text.toLatin1());
}

QString quoted(const QString& path)
{
    return u'"' + path + u'"';
}

} // namespace

SqliteShell::SqliteShell(QString path)
    : mPath(std::move(path))
{
}

QString SqliteShell::resourcePath()
{
    return Bundle::mainBundle().pathForResource(u"sqlite3"_s, QString());
}

bool SqliteShell::exists() const
{
    const QFileInfo info(mPath);
    return !mPath.isEmpty() && info.isFile() && info.isExecutable();
}

bool SqliteShell::isQuotablePath(const QString& path)
{
    return !path.contains(u'"') && !path.contains(u'\\') && !path.contains(u'\n') && !path.contains(u'\r');
}

QString SqliteShell::firefox3ExecuteSQL(const QString& command, const QString& args, const QString& forDB) const
{
    if (!exists())
        return QString();
    const QString line = args.isNull() ? command : command + u' ' + quoted(args);
    const ProcessResult result = ChildProcess::run(mPath, {u"-init"_s, u"/dev/null"_s, forDB, line});
    return QString::fromUtf8(result.standardOutput);
}

QString SqliteShell::schema(const QString& database) const
{
    return firefox3ExecuteSQL(kLegacySchemaQuery, database);
}

QString SqliteShell::firefox3ReplicateTable(const QString& table, const QString& usingQuery, const QString& sourceDB,
                                            const QString& destDB, const QString& sourceWorkFile,
                                            const QString& destWorkFile, bool stripQuotes) const
{
    // Both work files are written anew (the shell's .output truncates); the caller
    // erases them once the rebuild is done.
    const QString script = u".mode insert %1\n.output %2\n%3"_s.arg(table, quoted(destWorkFile), usingQuery);
    if (!DatabaseFiles::writeWorkFile(sourceWorkFile, script.toUtf8()).ok())
        return QString();
    firefox3ExecuteSQL(u".read"_s, sourceWorkFile, sourceDB);
    if (stripQuotes)
        stripBlobQuotes(destWorkFile);
    return readStatementsInto(destWorkFile, sourceWorkFile, destDB);
}

QString SqliteShell::readStatementsInto(const QString& statementsFile, const QString& driverFile,
                                        const QString& destDB) const
{
    // A statement that fails (a row offered twice) is skipped and the rest go on,
    // inside the transaction just as they would one by one.
    const QString driver = u"PRAGMA synchronous=OFF;\nBEGIN;\n.read %1\nCOMMIT;\n"_s.arg(quoted(statementsFile));
    if (!DatabaseFiles::writeWorkFile(driverFile, driver.toUtf8()).ok())
        return QString();
    return firefox3ExecuteSQL(u".read"_s, driverFile, destDB);
}
