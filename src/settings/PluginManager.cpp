#include "settings/PluginManager.h"

#include "core/Bundle.h"
#include "core/Path.h"
#include "core/PropertyList.h"
#include "settings/UserDefaults.h"

#include <QFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString kPluginArrayKey = u"mPluginArray"_s;
const QString kName = u"name"_s;
const QString kEnabled = u"enabled"_s;
const QString kPaths = u"paths"_s;

std::mutex gSharedMutex;
std::unique_ptr<PluginManager> gShared;

bool isArray(const QVariant& value)
{
    return value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList;
}

} // namespace

PluginManager::PluginManager(UserDefaults& defaults, QVariantList defaultList, QObject* parent)
    : QObject(parent)
    , mUserDefaults(defaults)
    , mDefaultPluginArray(std::move(defaultList))
{
    const QVariant stored = mUserDefaults.objectForKey(kPluginArrayKey);
    if (isArray(stored)) {
        mPluginArray = stored.toList();
    } else if (!mDefaultPluginArray.isEmpty()) {
        mPluginArray = mDefaultPluginArray;
        save();
    }
}

PluginManager* PluginManager::sharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    return gShared.get();
}

PluginManager& PluginManager::createSharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    if (!gShared)
        gShared = std::make_unique<PluginManager>(UserDefaults::standardUserDefaults(), loadDefaultList());
    return *gShared;
}

void PluginManager::resetSharedInstanceForTesting()
{
    std::lock_guard lock(gSharedMutex);
    gShared.reset();
}

QVariantList PluginManager::loadDefaultList()
{
    QFile file(Bundle::mainBundle().pathForResource(u"defaultPlugins"_s, u"plist"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto parsed = PropertyList::parse(file.readAll());
    return parsed && isArray(*parsed) ? parsed->toList() : QVariantList();
}

QVariantList PluginManager::plugins() const
{
    std::lock_guard lock(mMutex);
    return mPluginArray;
}

QStringList PluginManager::enabledPluginPaths() const
{
    std::lock_guard lock(mMutex);
    QStringList paths;
    for (const QVariant& entry : mPluginArray) {
        const QVariantMap plugin = entry.toMap();
        if (!plugin.value(kEnabled).toBool())
            continue;
        for (const QVariant& path : plugin.value(kPaths).toList())
            paths.append(expandTilde(path.toString()));
    }
    return paths;
}

QVariantMap PluginManager::isDefaultPlugin(const QString& name) const
{
    for (const QVariant& entry : mDefaultPluginArray) {
        const QVariantMap plugin = entry.toMap();
        if (plugin.value(kName).toString() == name)
            return plugin;
    }
    return {};
}

qsizetype PluginManager::indexOfPlugin(const QString& name) const
{
    std::lock_guard lock(mMutex);
    for (qsizetype i = 0; i < mPluginArray.size(); ++i) {
        if (mPluginArray[i].toMap().value(kName).toString() == name)
            return i;
    }
    return -1;
}

void PluginManager::addPlugin()
{
    {
        std::lock_guard lock(mMutex);
        mPluginArray.append(QVariantMap{{kName, u"New Plugin"_s}, {kEnabled, true}, {kPaths, QVariantList()}});
    }
    save();
}

bool PluginManager::deletePlugin(qsizetype index)
{
    {
        std::lock_guard lock(mMutex);
        if (!isValidIndex(index))
            return false;
        QVariantMap plugin = mPluginArray[index].toMap();
        if (!isDefaultPlugin(plugin.value(kName).toString()).isEmpty()) {
            plugin.insert(kEnabled, false);
            mPluginArray[index] = plugin;
        } else {
            mPluginArray.removeAt(index);
        }
    }
    save();
    return true;
}

bool PluginManager::addPaths(qsizetype index, const QStringList& fullPaths)
{
    {
        std::lock_guard lock(mMutex);
        if (!isValidIndex(index))
            return false;
        QVariantMap plugin = mPluginArray[index].toMap();
        if (!plugin.contains(kPaths))
            return false;
        QVariantList paths = plugin.value(kPaths).toList();
        for (const QString& path : fullPaths)
            paths.append(abbreviateTilde(path));
        plugin.insert(kPaths, paths);
        mPluginArray[index] = plugin;
    }
    save();
    return true;
}

bool PluginManager::deletePath(qsizetype index, qsizetype pathIndex)
{
    {
        std::lock_guard lock(mMutex);
        if (!isValidIndex(index))
            return false;
        QVariantMap plugin = mPluginArray[index].toMap();
        QVariantList paths = plugin.value(kPaths).toList();
        if (pathIndex < 0 || pathIndex >= paths.size())
            return false;
        paths.removeAt(pathIndex);
        plugin.insert(kPaths, paths);
        mPluginArray[index] = plugin;
    }
    save();
    return true;
}

bool PluginManager::restoreDefault(qsizetype index)
{
    {
        std::lock_guard lock(mMutex);
        if (!isValidIndex(index))
            return false;
        QVariantMap plugin = mPluginArray[index].toMap();
        const QVariantMap defaultPlugin = isDefaultPlugin(plugin.value(kName).toString());
        if (defaultPlugin.isEmpty() || !defaultPlugin.contains(kPaths))
            return false;
        plugin.insert(kPaths, defaultPlugin.value(kPaths));
        mPluginArray[index] = plugin;
    }
    save();
    return true;
}

bool PluginManager::setName(qsizetype index, const QString& name)
{
    {
        std::lock_guard lock(mMutex);
        if (!isValidIndex(index))
            return false;
        QVariantMap plugin = mPluginArray[index].toMap();
        if (!isDefaultPlugin(plugin.value(kName).toString()).isEmpty())
            return false;
        plugin.insert(kName, name);
        mPluginArray[index] = plugin;
    }
    save();
    return true;
}

bool PluginManager::setEnabled(qsizetype index, bool enabled)
{
    {
        std::lock_guard lock(mMutex);
        if (!isValidIndex(index))
            return false;
        QVariantMap plugin = mPluginArray[index].toMap();
        plugin.insert(kEnabled, enabled);
        mPluginArray[index] = plugin;
    }
    save();
    return true;
}

QString PluginManager::expandTilde(const QString& path)
{
    return Path::fromTilde(path).toString();
}

QString PluginManager::abbreviateTilde(const QString& path)
{
    return Path(path).tilde();
}

void PluginManager::save()
{
    const QVariantList list = plugins();
    mUserDefaults.setObject(list, kPluginArrayKey);
    mUserDefaults.synchronize();
    emit pluginsChanged();
}
