#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// apps list | enable NAME | disable NAME
void addAppsCommands(CLI::App& app, CommandAction& action);
