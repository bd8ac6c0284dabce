#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// plugins list | enable NAME | disable NAME | add NAME | add-path NAME PATH | remove NAME | restore NAME
void addPluginsCommands(CLI::App& app, CommandAction& action);
