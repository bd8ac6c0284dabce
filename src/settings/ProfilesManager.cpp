#include "settings/ProfilesManager.h"

#include "core/Path.h"
#include "settings/ChromiumProfileList.h"
#include "settings/ProfileList.h"
#include "settings/UserDefaults.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <array>
#include <memory>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

const QString kProfilesMenuDict = u"ProfilesMenuDict"_s;
const QString kProfilesMenu = u"ProfilesMenu"_s;
const QString kFirstRun = u"FirstRun"_s;

// Where the menu finds the profiles of today's builds besides its folder's entries.
enum class Current { None, Mozilla, Chromium };

struct ApplicationFolder {
    const char16_t* folder; // empty for a menu of today's builds alone
    const char* name;
    Current current;
    WatchedApp application; // of today's builds
};

constexpr std::array<ApplicationFolder, ProfilesManager::ApplicationCount> kApplications{{
    {u"~/Library/Mozilla/Profiles", QT_TRANSLATE_NOOP("ProfilesManager", "Netscape/Mozilla/Seamonkey 1"), Current::None,
     WatchedApp::mozilla},
    {u"~/Library/Application Support/Firefox/Profiles", QT_TRANSLATE_NOOP("ProfilesManager", "Firefox"),
     Current::Mozilla, WatchedApp::firefox},
    {u"~/Library/Thunderbird/Profiles", QT_TRANSLATE_NOOP("ProfilesManager", "Thunderbird"), Current::Mozilla,
     WatchedApp::thunderbird},
    {u"~/Library/Application Support/Postbox/Profiles", QT_TRANSLATE_NOOP("ProfilesManager", "Postbox"), Current::None,
     WatchedApp::postbox},
    {u"~/Library/Application Support/Flock/Profiles", QT_TRANSLATE_NOOP("ProfilesManager", "Flock"), Current::None,
     WatchedApp::flock},
    {u"~/Library/Application Support/SeaMonkey/Profiles", QT_TRANSLATE_NOOP("ProfilesManager", "SeaMonkey 2"),
     Current::None, WatchedApp::seamonkey},
    {u"", QT_TRANSLATE_NOOP("ProfilesManager", "Chrome (current versions)"), Current::Chromium, WatchedApp::chrome},
    {u"", QT_TRANSLATE_NOOP("ProfilesManager", "Brave"), Current::Chromium, WatchedApp::brave},
    {u"", QT_TRANSLATE_NOOP("ProfilesManager", "Vivaldi"), Current::Chromium, WatchedApp::vivaldi},
    {u"", QT_TRANSLATE_NOOP("ProfilesManager", "Microsoft Edge"), Current::Chromium, WatchedApp::edge},
    {u"", QT_TRANSLATE_NOOP("ProfilesManager", "Opera (current versions)"), Current::Chromium,
     WatchedApp::currentOpera},
}};

std::mutex gSharedMutex;
std::unique_ptr<ProfilesManager> gShared;

// Everything in the folder but the Finder's .DS_Store; nothing for a missing
// folder or none.
QStringList entriesOf(const QString& folder)
{
    if (folder.isEmpty())
        return {};
    QStringList entries = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                                 QDir::Name | QDir::IgnoreCase);
    entries.removeAll(u".DS_Store"_s);
    return entries;
}

// "x1y2z3.default" shows as "default".
QString pathExtension(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

// The profiles of today's builds that the application's menu shows besides its
// folder's entries, by their whole paths: those that profiles.ini or Local
// State place elsewhere than that folder.
QStringList currentProfiles(ProfilesManager::Application application, const QString& menuFolder)
{
    const ApplicationFolder& known = kApplications[application];
    QStringList paths;
    if (known.current == Current::Mozilla) {
        for (const MozillaProfile& profile : ProfileList::current(known.application))
            paths.append(profile.folder);
    } else if (known.current == Current::Chromium) {
        for (const ChromiumProfile& profile : ChromiumProfileList::current(known.application))
            paths.append(profile.folder);
    }
    paths.removeIf([&](const QString& path) { return QFileInfo(path).path() == menuFolder; });
    return paths;
}

QVariantList toVariantList(const QStringList& strings)
{
    return QVariantList(strings.cbegin(), strings.cend());
}

QStringList toStringList(const QVariant& value)
{
    QStringList strings;
    for (const QVariant& item : value.toList()) {
        if (item.typeId() == QMetaType::QString)
            strings.append(item.toString());
    }
    return strings;
}

} // namespace

ProfilesManager::ProfilesManager(UserDefaults& defaults, QObject* parent)
    : QObject(parent)
    , mUserDefaults(defaults)
{
}

ProfilesManager* ProfilesManager::sharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    return gShared.get();
}

ProfilesManager& ProfilesManager::createSharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    if (!gShared)
        gShared = std::make_unique<ProfilesManager>(UserDefaults::standardUserDefaults());
    return *gShared;
}

void ProfilesManager::resetSharedInstanceForTesting()
{
    std::lock_guard lock(gSharedMutex);
    gShared.reset();
}

QString ProfilesManager::profilesFolder(Application application)
{
    return QString::fromUtf16(kApplications[application].folder);
}

QString ProfilesManager::displayName(Application application)
{
    return tr(kApplications[application].name);
}

void ProfilesManager::populateProfilesMenu()
{
    std::array<QString, ApplicationCount> folders;
    std::array<QStringList, ApplicationCount> entries;
    std::array<QStringList, ApplicationCount> current;
    // A menu of today's builds alone has no folder of its own to store.
    const auto store = [&](QVariantMap& selection, int i, const QStringList& names) {
        if (!folders[i].isEmpty())
            selection.insert(folders[i], toVariantList(names));
    };
    for (int i = 0; i < ApplicationCount; ++i) {
        folders[i] = Path::fromTilde(profilesFolder(Application(i))).toString();
        entries[i] = entriesOf(folders[i]);
        current[i] = currentProfiles(Application(i), folders[i]);
    }

    const QVariant oldSelection = mUserDefaults.objectForKey(kProfilesMenu);
    const bool firstRunDone = mUserDefaults.boolForKey(kFirstRun);
    if (oldSelection.isValid() || !firstRunDone) {
        QVariantMap selection;
        const QStringList oldNames = toStringList(oldSelection);
        for (int i = 0; i < ApplicationCount; ++i) {
            if (!oldSelection.isValid()) {
                store(selection, i, entries[i]); // the first start selects every profile
                for (const QString& path : current[i]) {
                    const QFileInfo profile(path);
                    selection.insert(profile.path(), selection.value(profile.path()).toList() << profile.fileName());
                }
                continue;
            }
            QStringList kept;
            for (const QString& name : oldNames) {
                if (entries[i].contains(name))
                    kept.append(name);
            }
            store(selection, i, kept);
        }
        mUserDefaults.setObject(selection, kProfilesMenuDict);
        if (oldSelection.isValid())
            mUserDefaults.removeObjectForKey(kProfilesMenu);
        mUserDefaults.setBool(true, kFirstRun);
        mUserDefaults.synchronize();
    }

    QVariantMap selection = mUserDefaults.dictionaryForKey(kProfilesMenuDict);
    // Today's profiles still there and checked, by the folder that holds them.
    QMap<QString, QStringList> currentStillThere;
    mMenus.clear();
    for (int i = 0; i < ApplicationCount; ++i) {
        Menu menu{folders[i], {}, {}};
        const QStringList stored = toStringList(selection.value(folders[i]));
        if (!entries[i].isEmpty() || !current[i].isEmpty())
            menu.titles.append(displayName(Application(i)));
        QStringList stillThere;
        for (const QString& name : entries[i]) {
            if (!QFileInfo(QDir(folders[i]).filePath(name)).isDir())
                continue;
            menu.titles.append(name);
            const bool checked = stored.contains(name);
            menu.items.append({i == Mozilla ? name : pathExtension(name), int(menu.titles.size() - 1), checked});
            if (checked)
                stillThere.append(name);
        }
        store(selection, i, stillThere);
        for (const QString& path : current[i]) {
            const QFileInfo profile(path);
            QStringList& kept = currentStillThere[profile.path()];
            menu.titles.append(path);
            const bool checked = toStringList(selection.value(profile.path())).contains(profile.fileName());
            // Chromium-based browsers name their profiles alike ("Default") in every user-data folder.
            const QString title =
                kApplications[i].current == Current::Chromium ? Path(path).tilde() : pathExtension(profile.fileName());
            menu.items.append({title, int(menu.titles.size() - 1), checked});
            if (checked)
                kept.append(profile.fileName());
        }
        mMenus.append(menu);
    }
    for (auto folder = currentStillThere.cbegin(); folder != currentStillThere.cend(); ++folder)
        selection.insert(folder.key(), toVariantList(folder.value()));
    mUserDefaults.setObject(selection, kProfilesMenuDict);
    mUserDefaults.synchronize();
    emit menusChanged();
}

void ProfilesManager::doProfileMenuItem(Application application, int tag)
{
    if (application < 0 || application >= mMenus.size())
        return;
    Menu& menu = mMenus[application];
    for (MenuItem& item : menu.items) {
        if (item.tag != tag)
            continue;
        // A profile of today's builds is titled by its whole path and stored
        // under the folder that holds it.
        const QFileInfo title(menu.titles.value(tag));
        const QString folder = title.isAbsolute() ? title.path() : menu.folder;
        const QString name = title.isAbsolute() ? title.fileName() : menu.titles.value(tag);
        QVariantMap selection = mUserDefaults.dictionaryForKey(kProfilesMenuDict);
        QStringList names = toStringList(selection.value(folder));
        if (item.checked)
            names.removeAll(name);
        else
            names.append(name);
        item.checked = !item.checked;
        selection.insert(folder, toVariantList(names));
        mUserDefaults.setObject(selection, kProfilesMenuDict);
        mUserDefaults.synchronize();
        emit menusChanged();
        return;
    }
}

QStringList ProfilesManager::selectedProfiles(const UserDefaults& defaults, const QString& expandedFolder)
{
    // A name is one folder inside the profiles folder: a hand-edited "../Documents"
    // must not send the cleaners elsewhere.
    QStringList names = toStringList(defaults.dictionaryForKey(kProfilesMenuDict).value(expandedFolder));
    names.removeIf([](const QString& name) { return !Path::isName(name); });
    return names;
}
