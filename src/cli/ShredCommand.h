#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// shred [--yes] [--logout | --shutdown | --restart] [--dry-run [--verbose] [--json]] [--quiet] [--timing]
void addShredCommand(CLI::App& app, CommandAction& action);
