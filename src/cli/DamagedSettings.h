#pragma once

#include "settings/SettingsDamage.h"

// The exit status of shred and watch while the settings file is damaged and
// the factory settings are not confirmed; nothing was erased.
inline constexpr int kDamagedSettingsExitCode = 5;

// What vantle-cli says while the settings file is damaged.
namespace DamagedSettings {

// On the standard error, whatever the command.
void warn(const SettingsDamage::Report& report);
// A run that must not start: the activity log says why (unless another run
// holds the home, or it is a dry run). Returns kDamagedSettingsExitCode.
int refuseRun(const SettingsDamage::Report& report, bool writeLog = true);

} // namespace DamagedSettings
