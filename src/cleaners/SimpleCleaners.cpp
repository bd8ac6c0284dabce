#include "cleaners/SimpleCleaners.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/SimpleCleanerTables.h"
#include "erase/EraseQueue.h"
#include "settings/PluginManager.h"
#include "settings/PreferenceKeys.h"

#include <QDir>

using namespace Qt::StringLiterals;

void SimpleCleaners::QuicktimeCache()
{
    runFixedCleaner(SimpleCleanerTables::QuicktimeCache(), mContext);
}
void SimpleCleaners::IE51()
{
    runFixedCleaner(SimpleCleanerTables::IE51(), mContext);
}
void SimpleCleaners::iCab411()
{
    runFixedCleaner(SimpleCleanerTables::iCab411(), mContext);
}
void SimpleCleaners::iCab30()
{
    runFixedCleaner(SimpleCleanerTables::iCab30(), mContext);
}
void SimpleCleaners::iCab28()
{
    runFixedCleaner(SimpleCleanerTables::iCab28(), mContext);
}
void SimpleCleaners::OmniWeb41()
{
    runFixedCleaner(SimpleCleanerTables::OmniWeb41(), mContext);
}
void SimpleCleaners::OmniWeb51()
{
    runFixedCleaner(SimpleCleanerTables::OmniWeb51(), mContext);
}
void SimpleCleaners::OmniWeb57()
{
    runFixedCleaner(SimpleCleanerTables::OmniWeb57(), mContext);
}
void SimpleCleaners::Opera50()
{
    runFixedCleaner(SimpleCleanerTables::Opera50(), mContext);
}
void SimpleCleaners::Opera60()
{
    runFixedCleaner(SimpleCleanerTables::Opera60(), mContext);
}
void SimpleCleaners::Opera70()
{
    runFixedCleaner(SimpleCleanerTables::Opera70(), mContext);
}
void SimpleCleaners::Opera80()
{
    runFixedCleaner(SimpleCleanerTables::Opera80(), mContext);
}
void SimpleCleaners::Opera90()
{
    runFixedCleaner(SimpleCleanerTables::Opera90(), mContext);
}
void SimpleCleaners::Opera100()
{
    runFixedCleaner(SimpleCleanerTables::Opera100(), mContext);
}
void SimpleCleaners::Opera110()
{
    runFixedCleaner(SimpleCleanerTables::Opera110(), mContext);
}

void SimpleCleaners::PluginsCache()
{
    mContext.header(u"Plugin Cache"_s);
    if (const PluginManager* manager = mContext.models.plugins) {
        mContext.log(u"Shred:"_s);
        for (const QString& path : manager->enabledPluginPaths()) {
            mContext.queue(path);
            mContext.log(path);
        }
    } else {
        mContext.log(u"Skip: Could not find Plugin Manager.  Cannot find Plugin Cache"_s);
    }
    mContext.endCleaner();
}

void SimpleCleaners::CustomFiles()
{
    mContext.header(u"Custom Processes"_s);
    const QVariantMap status = mContext.mCustomShredTHStatus;
    for (auto it = status.cbegin(); it != status.cend(); ++it) {
        if (it.value().toMap().value(u"isrunning"_s).toLongLong() != 0)
            continue;
        mContext.log(it.key());
        if (CustomPathSource* source = mContext.models.customPaths)
            source->handOverPaths(it.key(), mContext.eraseQueue());
        mContext.endCleaner();
    }
    mContext.endCleaner();
}

void SimpleCleaners::Opera170()
{
    using namespace PreferenceKey;
    mContext.header(u"Opera 17.x"_s);
    if (!mContext.gate(u"Opera"_s))
        return;

    const bool cache = mContext.setting(ShredCache);
    mContext.shredOrSkip(cache, u"~/Library/Caches/com.operasoftware.Opera/Cache"_s);
    mContext.shredOrSkip(cache, u"~/Library/Application Support/com.operasoftware.Opera/GPUCache"_s);

    const QString folder = CleanerContext::expandTilde(u"~/Library/Application Support/com.operasoftware.Opera/"_s);
    const bool history = mContext.setting(ShredHistory);
    const bool icons = mContext.setting(shredSafariFavicon);
    const QStringList entries = QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& name : entries) {
        const QString path = folder + name;
        if (name.startsWith(u"History"_s))
            mContext.shredOrSkipFullPath(history, path);
        if (name.startsWith(u"session"_s))
            mContext.shredOrSkipFullPath(history, path);
        if (name.toLower().startsWith(u"thumbnail"_s))
            mContext.shredOrSkipFullPath(icons, path);
    }
    mContext.shredOrSkipFullPath(history, folder + u"Archived History"_s);
    mContext.shredOrSkipFullPath(history, folder + u"Archived History-journal"_s);

    if (mContext.setting(ShredCookies)) {
        mContext.shredOrSkip(true, u"~/Library/Application Support/com.operasoftware.Opera/Cookies"_s);
        mContext.shredOrSkip(true, u"~/Library/Application Support/com.operasoftware.Opera/Cookies-journal"_s);
    } else {
        mContext.log(u"Skip: ~/Library/Application Support/com.operasoftware.Opera/Default/Cookies"_s);
        mContext.log(u"Skip: ~/Library/Application Support/com.operasoftware.Opera/Cookies-journal"_s);
    }
    mContext.endCleaner();
}
