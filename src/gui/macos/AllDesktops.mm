#include "gui/AllDesktops.h"

#include <QWidget>

#import <AppKit/AppKit.h>

namespace AllDesktops {

void showOnAllDesktops(QWidget* window)
{
    NSView* view = reinterpret_cast<NSView*>(window->winId());
    NSWindow* nsWindow = [view window];
    [nsWindow setCollectionBehavior:[nsWindow collectionBehavior] | NSWindowCollectionBehaviorCanJoinAllSpaces];
}

} // namespace AllDesktops
