#include "core/Bundle.h"

#include "core/PropertyList.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool isInsideMacApplicationBundle(const QString& executableDir)
{
    const QDir dir(executableDir);
    return dir.dirName() == "MacOS"_L1 && QFileInfo(dir.absoluteFilePath(u"../Resources"_s)).isDir();
}

} // namespace

const Bundle& Bundle::mainBundle()
{
    static const Bundle bundle = [] {
        const QString executableDir = QCoreApplication::applicationDirPath();
        return Bundle(bundlePathForExecutableDir(executableDir), resourcePathForExecutableDir(executableDir));
    }();
    return bundle;
}

Bundle::Bundle(QString bundlePath, QString resourcePath)
    : m_bundlePath(std::move(bundlePath))
    , m_resourcePath(std::move(resourcePath))
{
    QFile info(pathForResource(u"Info"_s, u"plist"_s));
    if (info.open(QIODevice::ReadOnly)) {
        if (const auto parsed = PropertyList::parse(info.readAll()))
            m_infoDictionary = parsed->toMap();
    }
}

QString Bundle::pathForResource(const QString& name, const QString& type) const
{
    const QString fileName = type.isEmpty() ? name : name + u'.' + type;
    const QString path = QDir(m_resourcePath).absoluteFilePath(fileName);
    return QFileInfo::exists(path) ? path : QString();
}

QString Bundle::resourcePathForExecutableDir(const QString& executableDir)
{
    const QString relative = isInsideMacApplicationBundle(executableDir) ? u"../Resources"_s : u"../share/vantle"_s;
    return QDir::cleanPath(QDir(executableDir).absoluteFilePath(relative));
}

QString Bundle::bundlePathForExecutableDir(const QString& executableDir)
{
    if (isInsideMacApplicationBundle(executableDir))
        return QDir::cleanPath(QDir(executableDir).absoluteFilePath(u"../.."_s));
    return QDir::cleanPath(executableDir);
}
