#include "FuzzHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace FuzzHome {

const QString& path()
{
    static const QTemporaryDir dir;
    static const QString home = [] {
        if (!dir.isValid()) {
            std::fprintf(stderr, "no temporary folder for the fuzzer's home\n");
            std::abort();
        }
        qputenv("HOME", QFile::encodeName(dir.path()));
        qunsetenv("XDG_CONFIG_HOME");
        return dir.path();
    }();
    return home;
}

QString file(const QString& relative)
{
    return path() + u'/' + relative;
}

void write(const QString& file, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(file).path());
    QFile out(file);
    FUZZ_CHECK(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
    FUZZ_CHECK(out.write(bytes) == bytes.size());
}

QByteArray read(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

} // namespace FuzzHome
