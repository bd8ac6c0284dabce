#pragma once

#include "gui/AlertSheet.h"

// The sheet the Quit command shows while the Tarnhold watch is on: "Hide"
// (the default, answers 1), "Quit" (0) or "Cancel" (-1). Hiding goes where this
// system keeps a hidden application: the Dock, the system tray, or, without a
// tray, the minimised window.
namespace QuitSheet {

AlertSheet::Alert alert(bool trayIcon);

} // namespace QuitSheet
