#pragma once

#include "platform/LoginItem.h"

#include <memory>

class CustomShred;
class HTML5Manager;
class PluginManager;
class Preferences;
class ProfilesManager;
class UserDefaults;

// The application's shared objects (settings, HTML5 keep list, profiles,
// plug-ins, custom processes), made once at start-up before the controller. In a
// dry run the settings are only read: nothing of them is written. The login item
// is kept in step with the watch setting only when one is given, which only the
// desktop application does; otherwise it is left alone.
struct ApplicationModels {
    UserDefaults& defaults;
    Preferences& preferences;
    HTML5Manager& html5;
    ProfilesManager& profiles;
    PluginManager& plugins;
    CustomShred& customShred;

    static ApplicationModels create(bool dryRun, std::unique_ptr<LoginItem> loginItem = nullptr);
    // The ones create made, for the desktop application's windows.
    static ApplicationModels shared();
};
