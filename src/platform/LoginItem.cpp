#include "platform/LoginItem.h"

#include "core/Bundle.h"

#ifdef Q_OS_MACOS
#include "platform/macos/AppleScriptLoginItem.h"
#else
#include "platform/linux/XdgLoginItem.h"
#endif

std::unique_ptr<LoginItem> createPlatformLoginItem()
{
#ifdef Q_OS_MACOS
    return std::make_unique<AppleScriptLoginItem>(Bundle::mainBundle().bundlePath());
#else
    return std::make_unique<XdgLoginItem>(XdgLoginItem::defaultEntryPath(),
                                          XdgLoginItem::applicationBeside(Bundle::mainBundle().bundlePath()));
#endif
}
