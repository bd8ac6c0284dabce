#pragma once

#include "cli/CliOutput.h"

namespace CLI {
class App;
}

// custom list | add-process PATH | remove-process PATH | add-path PROCESS PATH
//        | remove-path PROCESS PATH | keep PROCESS PATH on|off
void addCustomCommands(CLI::App& app, CommandAction& action);
