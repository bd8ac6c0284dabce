#include "cleaners/FixedCleaner.h"

#include "cleaners/CleanerContext.h"

using namespace Qt::StringLiterals;

namespace {

void runItem(const CleanerItem& item, CleanerContext& context)
{
    const bool on = context.setting(item.key) && (item.unlessKey.isEmpty() || !context.setting(item.unlessKey));
    if (on || !item.skipLines) {
        for (const QString& path : item.paths)
            context.shredOrSkip(on, path);
        return;
    }
    for (const QString& line : *item.skipLines)
        context.log(u"Skip: "_s + line);
}

} // namespace

void runCleanerItems(const QList<CleanerItem>& items, CleanerContext& context)
{
    for (const CleanerItem& item : items)
        runItem(item, context);
}

void runFixedCleaner(const FixedCleaner& cleaner, CleanerContext& context)
{
    context.header(cleaner.header);
    if (!cleaner.enabledName.isEmpty() && !context.gate(cleaner.enabledName))
        return;
    for (qsizetype i = 0; i < cleaner.items.size(); ++i) {
        runItem(cleaner.items[i], context);
        if (i == cleaner.regateAfterItem && !context.browserIsEnabled(cleaner.enabledName))
            break;
    }
    if (cleaner.closingEmptyLine)
        context.endCleaner();
}
