#include "platform/linux/XdgLoginItem.h"

#include "core/FileReplace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kExecPrefix = u"Exec="_s;

// Quoting rules of the Exec key: an argument with a reserved character goes in
// double quotes, with ", `, $ and \ escaped by a backslash inside them.
QString quoteArgument(const QString& argument)
{
    static const QString reserved = u" \t\n\"'\\><~|&;$*?#()`"_s;
    const bool needsQuotes = argument.isEmpty() || std::any_of(argument.cbegin(), argument.cend(),
                                                               [](QChar c) { return reserved.contains(c); });
    if (!needsQuotes)
        return argument;
    QString quoted = u"\""_s;
    for (const QChar c : argument) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
            quoted += u'\\';
        quoted += c;
    }
    return quoted + u'"';
}

// The string-type escapes of desktop entry values.
QString escapeValue(const QString& value)
{
    QString escaped;
    for (const QChar c : value) {
        if (c == u'\\')
            escaped += u"\\\\"_s;
        else if (c == u'\n')
            escaped += u"\\n"_s;
        else if (c == u'\t')
            escaped += u"\\t"_s;
        else if (c == u'\r')
            escaped += u"\\r"_s;
        else
            escaped += c;
    }
    return escaped;
}

QString unescapeValue(const QString& value)
{
    QString plain;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != u'\\' || i + 1 == value.size()) {
            plain += value[i];
            continue;
        }
        const QChar next = value[++i];
        if (next == u's')
            plain += u' ';
        else if (next == u'n')
            plain += u'\n';
        else if (next == u't')
            plain += u'\t';
        else if (next == u'r')
            plain += u'\r';
        else
            plain += next;
    }
    return plain;
}

QString readExecValue(const QString& entryPath)
{
    QFile file(entryPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(kExecPrefix))
            return line.mid(kExecPrefix.size());
    }
    return {};
}

} // namespace

XdgLoginItem::XdgLoginItem(QString entryPath, QString applicationPath)
    : m_entryPath(std::move(entryPath))
    , m_applicationPath(std::move(applicationPath))
{
}

QString XdgLoginItem::defaultEntryPath()
{
    QString configDir = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (configDir.isEmpty() || !QDir::isAbsolutePath(configDir))
        configDir = QDir::homePath() + u"/.config"_s;
    return QDir(configDir).absoluteFilePath(u"autostart/com.orvick.vantle.desktop"_s);
}

QString XdgLoginItem::execValue(const QStringList& command)
{
    QStringList quoted;
    for (const QString& argument : command)
        quoted.append(quoteArgument(argument).replace(u'%', u"%%"_s));
    return escapeValue(quoted.join(u' '));
}

QString XdgLoginItem::programOfExecValue(const QString& value)
{
    const QString line = unescapeValue(value);
    QString program;
    if (line.startsWith(u'"')) {
        for (qsizetype i = 1; i < line.size() && line[i] != u'"'; ++i) {
            if (line[i] == u'\\' && i + 1 < line.size())
                ++i;
            program += line[i];
        }
    } else {
        program = line.section(u' ', 0, 0);
    }
    return program.replace(u"%%"_s, u"%"_s);
}

QString XdgLoginItem::path() const
{
    return programOfExecValue(readExecValue(m_entryPath));
}

void XdgLoginItem::remove()
{
    QFile::remove(m_entryPath);
}

void XdgLoginItem::create(const QString& applicationPath, bool hidden)
{
    QStringList command{applicationPath};
    if (hidden)
        command.append(u"--hidden"_s);

    const QString entry = u"[Desktop Entry]\n"
                          u"Type=Application\n"
                          u"Name=Vantle X\n"
                          u"Comment=Erases browser and mail traces when a watched application quits\n"
                          u"Exec=%1\n"
                          u"Terminal=false\n"
                          u"X-GNOME-Autostart-enabled=true\n"_s.arg(execValue(command));
    if (!QDir().mkpath(QFileInfo(m_entryPath).absolutePath()))
        return;
    FileReplace::withBytes(QFile::encodeName(m_entryPath), entry.toUtf8(), 0644, FileReplace::Strategy::DropOld);
}

void XdgLoginItem::setHidden(bool hidden)
{
    const QString program = path();
    if (!program.isEmpty())
        create(program, hidden);
}
