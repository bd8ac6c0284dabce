#include "cleaners/Html5Storage.h"

#include "cleaners/CleanerContext.h"
#include "settings/HTML5Manager.h"

using namespace Qt::StringLiterals;

void shredHtml5Storage(CleanerContext& context, const Html5Storage& storage)
{
    const HTML5Manager* manager = context.models.html5;
    if (!manager) {
        context.log(u"Could not get HTML5Manager sharedInstance.  HTML5 shredding skipped."_s);
        return;
    }
    if (manager->getEnabledState() == 0) {
        context.log(u"Skip: "_s + storage.localStorageName);
        context.log(u"Skip: "_s + storage.databasesName);
        return;
    }
    if (storage.beforeLocalStorage && !storage.beforeLocalStorage())
        return;
    context.log(u"Shred: "_s + storage.localStorageName);
    for (const QString& path : storage.localStoragePaths(*manager))
        context.queue(path);

    const QString oldIndex = storage.rebuildIndex();
    if (oldIndex.isNull())
        return;
    context.log(u"Shred: "_s + storage.databasesName);
    context.queue(oldIndex);
    for (const QString& path : storage.databasePaths(*manager))
        context.queue(path);
}
