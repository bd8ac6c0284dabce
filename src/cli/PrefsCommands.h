#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// prefs list | get KEY | set KEY VALUE | reset
void addPrefsCommands(CLI::App& app, CommandAction& action);
