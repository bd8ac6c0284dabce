#pragma once

#include "app/MakeController.h"

#include <functional>

class QUrl;

// What the desktop application needs from outside the program: the system's
// processes, the session, the bundle, the web browser and mail client, and the
// end of the event loop. The application gets the real ones; the tests fakes.
struct DesktopPlatform {
    ControllerPlatform controller;
    std::function<void(const QUrl&)> openUrl;
    std::function<void()> beep;
    // Ends the event loop once the application has agreed to quit.
    std::function<void()> exitEventLoop;
    // Whether hidden windows can be brought back (the Dock, or a system tray);
    // where they cannot, hiding minimises instead.
    bool canHideWindows = true;
};
