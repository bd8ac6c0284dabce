#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// keep list | add DOMAIN | remove DOMAIN | on | off
void addKeepCommands(CLI::App& app, CommandAction& action);
