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

void create(bool dryRun)
{
    UserDefaults& defaults = UserDefaults::standardUserDefaults();
    if (dryRun)
        defaults.setReadOnly();
    Preferences::createSharedInstance(defaults, dryRun ? std::make_unique<UnchangedLoginItem>() : createPlatformLoginItem());
    HTML5Manager::createSharedInstance();
    ProfilesManager::createSharedInstance();
    PluginManager::createSharedInstance();
    CustomShred::createSharedInstance();
}

} // namespace ApplicationModels
