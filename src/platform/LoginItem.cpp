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
    // The installed program by name, as the application's own desktop entry starts
    // it, so that a copy started from a build folder never leaves an entry that
    // points into that folder.
    return std::make_unique<XdgLoginItem>(XdgLoginItem::defaultEntryPath(), QStringLiteral("vantle"));
#endif
}
