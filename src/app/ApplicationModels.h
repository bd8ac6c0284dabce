#pragma once

// The application's shared objects (settings, HTML5 keep list, profiles,
// plug-ins, custom processes), made once at start-up before the controller. In a
// dry run the settings are only read: nothing of them is written, the login item
// is left alone.
namespace ApplicationModels {

void create(bool dryRun);

} // namespace ApplicationModels
