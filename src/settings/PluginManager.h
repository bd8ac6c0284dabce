#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <mutex>

class UserDefaults;

// The browser plug-ins whose cache and data folders a run erases: each with a
// name, an enabled flag and paths stored with "~". The defaults ship with the
// application (the resource defaultPlugins.plist); the user may disable them,
// add plug-ins and paths of their own, and put a default plug-in's paths back.
// Every change is saved at once under mPluginArray.
//
// Lives on the main thread; enabledPluginPaths may be asked from a run's thread.
class PluginManager : public QObject {
    Q_OBJECT

public:
    // defaultList: the default plug-ins (an array of entries), as the resource holds them.
    PluginManager(UserDefaults& defaults, QVariantList defaultList, QObject* parent = nullptr);

    // The application's instance, over the standard user defaults and the bundled
    // default list; null until createSharedInstance.
    static PluginManager* sharedInstance();
    static PluginManager& createSharedInstance();
    static void resetSharedInstanceForTesting();
    // The default list of the bundle, empty when the resource is missing or damaged.
    static QVariantList loadDefaultList();

    QVariantList plugins() const;
    QStringList enabledPluginPaths() const;
    // The default entry of that name, or an empty map.
    QVariantMap isDefaultPlugin(const QString& name) const;
    // Index of the first plug-in of that name, or -1.
    qsizetype indexOfPlugin(const QString& name) const;

    // Each returns false, changing nothing, where the settings panel would beep.
    void addPlugin();
    // A default plug-in is only disabled; any other is removed.
    bool deletePlugin(qsizetype index);
    // Appends every path (abbreviated with "~"); a path added twice is stored twice.
    bool addPaths(qsizetype index, const QStringList& fullPaths);
    bool deletePath(qsizetype index, qsizetype pathIndex);
    // The default entry's paths replace the plug-in's; its enabled flag stays.
    bool restoreDefault(qsizetype index);
    // Only the name of a plug-in that is not a default one may change.
    bool setName(qsizetype index, const QString& name);
    bool setEnabled(qsizetype index, bool enabled);

    // A stored path with "~" for the home folder, and back.
    static QString abbreviateTilde(const QString& path);
    static QString expandTilde(const QString& path);

signals:
    void pluginsChanged();

private:
    void save();
    bool isValidIndex(qsizetype index) const { return index >= 0 && index < mPluginArray.size(); }

    UserDefaults& mUserDefaults;
    const QVariantList mDefaultPluginArray;
    mutable std::mutex mMutex;
    QVariantList mPluginArray;
};
