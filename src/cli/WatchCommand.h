#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// watch [--yes] [--verbose] [--interval SECONDS]
void addWatchCommand(CLI::App& app, CommandAction& action);
