#include "core/Path.h"

#include <QDir>
#include <QFile>
#include <QList>

using namespace Qt::StringLiterals;

namespace {

// The names of a path, empty and "." components left out.
QList<QByteArray> namesOf(const QByteArray& bytes)
{
    QList<QByteArray> names = bytes.split('/');
    names.removeIf([](const QByteArray& name) { return name.isEmpty() || name == "."; });
    return names;
}

} // namespace

Path::Path(const QString& text)
    : mBytes(QFile::encodeName(text))
{
}

Path Path::fromNative(const QByteArray& bytes)
{
    Path path;
    path.mBytes = bytes;
    return path;
}

Path Path::fromTilde(const QString& text)
{
    if (text == u"~"_s || text.startsWith(u"~/"_s))
        return Path(QDir::homePath() + text.mid(1));
    return Path(text);
}

Path Path::operator/(const QString& name) const
{
    return *this / QFile::encodeName(name);
}

Path Path::operator/(const QByteArray& nativeName) const
{
    if (mBytes.isEmpty())
        return fromNative(nativeName);
    return fromNative(mBytes.endsWith('/') ? mBytes + nativeName : mBytes + '/' + nativeName);
}

QByteArray Path::trimmed() const
{
    QByteArray bytes = mBytes;
    while (bytes.size() > 1 && bytes.endsWith('/'))
        bytes.chop(1);
    return bytes;
}

Path Path::parent() const
{
    const QByteArray bytes = trimmed();
    const qsizetype slash = bytes.lastIndexOf('/');
    if (slash < 0)
        return fromNative(".");
    return fromNative(slash == 0 ? QByteArray("/") : fromNative(bytes.left(slash)).trimmed());
}

QByteArray Path::nativeFileName() const
{
    const QByteArray bytes = trimmed();
    return bytes == "/" ? QByteArray() : bytes.mid(bytes.lastIndexOf('/') + 1);
}

QString Path::fileName() const
{
    return QFile::decodeName(nativeFileName());
}

QString Path::toString() const
{
    return QFile::decodeName(mBytes);
}

QString Path::tilde() const
{
    const QString path = toString();
    const QString home = QDir::homePath();
    if (path == home)
        return u"~"_s;
    if (path.startsWith(home + u'/'))
        return u'~' + path.mid(home.size());
    return path;
}

bool Path::isInside(const Path& folder) const
{
    if (mBytes.contains('\0') || mBytes.startsWith('/') != folder.mBytes.startsWith('/'))
        return false;
    const QList<QByteArray> names = namesOf(mBytes);
    const QList<QByteArray> folderNames = namesOf(folder.mBytes);
    if (names.size() <= folderNames.size() || names.mid(0, folderNames.size()) != folderNames)
        return false;
    return !names.mid(folderNames.size()).contains("..");
}

bool Path::isName(const QString& name)
{
    const Path root(u"/"_s);
    const Path joined = root / name;
    return joined.isInside(root) && joined.fileName() == name;
}
