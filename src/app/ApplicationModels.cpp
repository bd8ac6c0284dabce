#include "app/ApplicationModels.h"

#include "platform/LoginItem.h"
#include "platform/UnchangedLoginItem.h"
#include "settings/HTML5Manager.h"
#include "settings/PluginManager.h"
#include "settings/Preferences.h"
#include "settings/ProfilesManager.h"
#include "settings/UserDefaults.h"
#include "watch/CustomShred.h"

namespace ApplicationModels {

void create(bool dryRun, std::unique_ptr<LoginItem> loginItem)
{
    UserDefaults& defaults = UserDefaults::standardUserDefaults();
    if (dryRun)
        defaults.setReadOnly();
    if (dryRun || !loginItem)
        loginItem = std::make_unique<UnchangedLoginItem>();
    Preferences::createSharedInstance(defaults, std::move(loginItem));
    HTML5Manager::createSharedInstance();
    ProfilesManager::createSharedInstance();
    PluginManager::createSharedInstance();
    CustomShred::createSharedInstance();
}

} // namespace ApplicationModels
