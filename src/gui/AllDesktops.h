#pragma once

class QWidget;

namespace AllDesktops {

// Asks the window system to show window on every desktop (every Space on
// macOS); nothing where the platform has no such notion.
void showOnAllDesktops(QWidget* window);

} // namespace AllDesktops
