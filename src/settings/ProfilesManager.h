#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

class UserDefaults;

// Which profiles of the six applications that keep several profiles in one
// folder (Mozilla, Firefox, Thunderbird, Postbox, Flock, SeaMonkey 2) a run
// erases. The selection is stored under ProfilesMenuDict: each profiles folder
// (with "~" expanded) maps to the names of its selected profile folders.
// The profiles of today's Firefox and Thunderbird, found through profiles.ini,
// join those two menus titled by their whole paths; each is stored under the
// folder that holds it. So are those of today's Chromium-based browsers, in
// menus of their own after the six, without a folder (a profile is stored
// under its user-data folder, Opera's single profile under the folder that
// holds its user-data folder).
//
// The menus are a model here, one per application, that a front end shows as
// pull-down menus with a check mark per profile. Lives on the main thread; the
// cleaners read the stored selection through selectedProfiles.
class ProfilesManager : public QObject {
    Q_OBJECT

public:
    struct MenuItem {
        QString title; // the folder name, or its extension after the first menu
        int tag;       // index in the menu's title list
        bool checked;
    };
    struct Menu {
        QString folder;        // expanded profiles folder; empty for a menu of today's builds alone
        QStringList titles;    // element 0: the application's name; element n: the folder (or whole path) of tag n
        QList<MenuItem> items; // after the pull-down's own "Profiles" item
    };

    // The profiles folders, in the order the menus are built.
    enum Application {
        Mozilla,
        Firefox,
        Thunderbird,
        Postbox,
        Flock,
        SeaMonkey2,
        Chrome, // Google Chrome and Chromium
        Brave,
        Vivaldi,
        Edge,
        CurrentOpera,
        ApplicationCount
    };

    explicit ProfilesManager(UserDefaults& defaults, QObject* parent = nullptr);

    // The application's instance; created with the interface, null before.
    static ProfilesManager* sharedInstance();
    static ProfilesManager& createSharedInstance();
    static void resetSharedInstanceForTesting();

    static QString profilesFolder(Application application); // with "~"; empty for a menu of today's builds alone
    static QString displayName(Application application);    // translated

    // Finds the profiles, sets up or converts the stored selection, drops what no
    // longer exists from it and builds the menus.
    void populateProfilesMenu();
    const QList<Menu>& menus() const { return mMenus; }

    // Checks or unchecks the item of that tag and stores the selection.
    void doProfileMenuItem(Application application, int tag);

    // The names of the selected profiles in an expanded profiles folder.
    static QStringList selectedProfiles(const UserDefaults& defaults, const QString& expandedFolder);

signals:
    void menusChanged();

private:
    UserDefaults& mUserDefaults;
    QList<Menu> mMenus;
};
