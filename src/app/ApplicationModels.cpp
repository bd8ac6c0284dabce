#include "app/ApplicationModels.h"

#include "platform/LoginItem.h"
#include "platform/UnchangedLoginItem.h"
#include "settings/HTML5Manager.h"
#include "settings/PluginManager.h"
#include "settings/Preferences.h"
#include "settings/ProfilesManager.h"
#include "settings/UserDefaults.h"
#include "watch/CustomShred.h"

ApplicationModels ApplicationModels::create(bool dryRun, std::unique_ptr<LoginItem> loginItem)
{
    UserDefaults& defaults = UserDefaults::standardUserDefaults();
    if (dryRun)
        defaults.setReadOnly();
    if (dryRun || !loginItem)
        loginItem = std::make_unique<UnchangedLoginItem>();
    return {defaults,
            Preferences::createSharedInstance(defaults, std::move(loginItem)),
            HTML5Manager::createSharedInstance(),
            ProfilesManager::createSharedInstance(),
            PluginManager::createSharedInstance(),
            CustomShred::createSharedInstance()};
}

ApplicationModels ApplicationModels::shared()
{
    UserDefaults& defaults = UserDefaults::standardUserDefaults();
    Preferences& preferences = Preferences::sharedInstance();
    return {defaults,
            preferences,
            *HTML5Manager::sharedInstance(),
            *ProfilesManager::sharedInstance(),
            *PluginManager::sharedInstance(),
            *CustomShred::sharedInstance()};
}
