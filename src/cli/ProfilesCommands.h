#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// profiles list | select APP PROFILE | deselect APP PROFILE
void addProfilesCommands(CLI::App& app, CommandAction& action);
