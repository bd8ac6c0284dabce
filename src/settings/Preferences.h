#pragma once

#include "settings/SettingsPanelState.h"

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <memory>
#include <mutex>
#include <optional>

class LoginItem;
class UserDefaults;

// Every user setting: loaded from the user defaults and merged with the factory
// values, saved back as the differences from them, with the login item kept in
// step with the Tarnhold watch; plus the list of applications enabled for erasing.
//
// Lives on the main thread, where all changes happen. Other threads may read
// (objectForKey, valueForKey, browserIsEnabled and the prefs* accessors) at any time.
class Preferences : public QObject {
    Q_OBJECT

public:
    Preferences(UserDefaults& defaults, LoginItem& loginItem, QObject* parent = nullptr);
    ~Preferences() override;

    // The one instance of the application, over the standard user defaults and
    // this system's login item; created on first use.
    static Preferences& sharedInstance();
    // Makes the shared instance over these defaults and login item, unless it exists.
    static Preferences& createSharedInstance(UserDefaults& defaults, std::unique_ptr<LoginItem> loginItem);
    static void resetSharedInstanceForTesting();

    // The shared instance's current value of key: bool or qint64, invalid for an unknown key.
    static QVariant objectForKey(const QString& key);
    // Every setting with its factory value.
    static const QVariantMap& factoryValues();

    // Every setting as the user defaults hold it, factory values where they hold
    // none; also puts the login item back in step when the watch is on.
    QVariantMap preferencesFromDefaults();
    // Stores what differs from the factory values and removes the rest.
    void savePreferencesToDefaults(const QVariantMap& values);

    QVariantMap preferences() const;
    QVariant valueForKey(const QString& key) const;
    QVariantMap displayedValues() const;

    void commitDisplayedValues();
    void discardDisplayedValues();
    // The factory values become current and shown; stored with the next commit.
    void revertToDefault();

    bool prefsConfirmShredding() const;
    bool prefsDoDSanitize() const;
    bool prefsNSA() const;

    // The controls as the displayed values set them, and the reverse: a change
    // made on the panel, committed and saved at once, with the login item updated.
    SettingsPanelState panelState() const;
    void miscChanged(const SettingsPanelState& panel);

    void loadBrowserInfo();
    bool browserIsEnabled(const QString& name);
    QStringList enabledBrowsers();
    // Ticks or unticks application name, with its coupled application, and stores the list.
    void enableChanged(const QString& name);

signals:
    // The panel must show displayedValues() again.
    void displayedValuesChanged();
    // The application check boxes must show enabledBrowsers() again.
    void enabledBrowsersChanged();

private:
    void synchronizeLoginItem(bool hidden);

    UserDefaults& mDefaults;
    LoginItem& mLoginItem;

    mutable std::mutex mMutex;
    QVariantMap mCurValues;
    QVariantMap mDisplayedValues;
    std::optional<QStringList> mEnableBrowsers;
};
