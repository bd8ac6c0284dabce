#pragma once

#include "gui/AlertSheet.h"

// The sheet the Quit command shows while the Tarnhold watch is on: "Hide"
// (the default, answers 1), "Quit" (0) or "Cancel" (-1).
namespace QuitSheet {

const AlertSheet::Alert& alert();

} // namespace QuitSheet
