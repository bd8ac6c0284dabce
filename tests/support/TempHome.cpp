#include "support/TempHome.h"

#include "settings/HTML5Manager.h"
#include "settings/PluginManager.h"
#include "settings/Preferences.h"
#include "settings/ProfilesManager.h"
#include "settings/UserDefaults.h"
#include "watch/CustomShred.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace {

// The shared objects hold on to the standard defaults, so they go first.
void dropSharedSettings()
{
    CustomShred::resetSharedInstanceForTesting();
    PluginManager::resetSharedInstanceForTesting();
    ProfilesManager::resetSharedInstanceForTesting();
    Preferences::resetSharedInstanceForTesting();
    HTML5Manager::resetSharedInstanceForTesting();
    UserDefaults::resetStandardUserDefaultsForTesting();
}

} // namespace

TempHome::TempHome()
    : m_oldHome(qgetenv("HOME"))
    , m_oldConfigHome(qgetenv("XDG_CONFIG_HOME"))
    , m_hadConfigHome(qEnvironmentVariableIsSet("XDG_CONFIG_HOME"))
{
    if (!m_dir.isValid())
        throw std::runtime_error("cannot create a temporary home folder");
    dropSharedSettings();
    qputenv("HOME", QFile::encodeName(m_dir.path()));
    qunsetenv("XDG_CONFIG_HOME");
}

TempHome::~TempHome()
{
    dropSharedSettings();
    qputenv("HOME", m_oldHome);
    if (m_hadConfigHome)
        qputenv("XDG_CONFIG_HOME", m_oldConfigHome);
}

QString TempHome::file(const QString& relative) const
{
    return QDir(m_dir.path()).absoluteFilePath(relative);
}

void TempHome::write(const QString& relative, const QByteArray& bytes) const
{
    const QString path = file(relative);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write a test file");
}

QByteArray TempHome::read(const QString& relative) const
{
    QFile in(file(relative));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}
