#include "FuzzHome.h"
#include "platform/UnchangedLoginItem.h"
#include "settings/HTML5Manager.h"
#include "settings/PluginManager.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/ProfilesManager.h"
#include "settings/UserDefaults.h"
#include "watch/CustomShred.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// Every key the program reads, through every typed accessor.
void readEveryKey(const UserDefaults& defaults)
{
    QStringList keys{u"EnabledBrowsers"_s, u"mDomainTableData"_s, u"mHTML5EnabledState"_s, u"ProfilesMenuDict"_s,
                     u"ProfilesMenu"_s,    u"FirstRun"_s,         u"mPluginArray"_s,       u"mProcessDictionary"_s};
    for (const PreferenceDefinition& definition : kPreferenceTable)
        keys.append(QString(definition.key));
    for (const QString& key : keys) {
        defaults.objectForKey(key);
        defaults.boolForKey(key);
        defaults.integerForKey(key);
        defaults.stringForKey(key);
        defaults.arrayForKey(key);
        defaults.dictionaryForKey(key);
        defaults.dataForKey(key);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzHome::path();
    return 0;
}

// The settings file as any program of the user may have written it, read the way
// start-up reads it: the defaults and every part that takes its state from them.
// Reading never changes the file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray original(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString file = UserDefaults::defaultFilePath();
    FUZZ_CHECK(file.startsWith(FuzzHome::path() + u'/'));
    FuzzHome::write(file, original);
    {
        UserDefaults defaults(file);
        defaults.setReadOnly();
        readEveryKey(defaults);

        UnchangedLoginItem loginItem;
        Preferences preferences(defaults, loginItem);
        preferences.enabledBrowsers();
        preferences.preferences();

        const HTML5Manager html5(defaults);
        html5.getEnabledState();
        html5.getDomainTableData(true);

        const PluginManager plugins(defaults, {});
        plugins.enabledPluginPaths();

        ProfilesManager profiles(defaults);
        profiles.populateProfilesMenu();

        const CustomShred custom(defaults);
        for (const QString& process : custom.processes())
            custom.paths(process);
        readEveryKey(defaults);
    }
    FUZZ_CHECK(FuzzHome::read(file) == original);
    FUZZ_CHECK(QFileInfo(file).size() == original.size());
    return 0;
}
