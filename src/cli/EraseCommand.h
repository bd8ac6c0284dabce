#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// erase [--quiet] [--timing] PATH...
void addEraseCommand(CLI::App& app, CommandAction& action);
