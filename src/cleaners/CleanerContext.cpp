#include "cleaners/CleanerContext.h"

#include "core/Path.h"
#include "erase/EraseQueue.h"
#include "log/ActivityLog.h"
#include "settings/Preferences.h"

using namespace Qt::StringLiterals;

CleanerContext::CleanerContext(EraseQueue& queue, const ApplicationFlags& isRunning, QVariantMap& customStatus,
                               Preferences& preferences, bool dryRunOnly, CleanerModels settingsModels)
    : mIsRunning(isRunning)
    , mCustomShredTHStatus(customStatus)
    , preferencesInstance(preferences)
    , dryRun(dryRunOnly)
    , models(settingsModels)
    , mQueue(queue)
{
}

bool CleanerContext::setting(QLatin1StringView key) const
{
    return preferencesInstance.valueForKey(key).toBool();
}

bool CleanerContext::browserIsEnabled(const QString& name) const
{
    if (mIsEnabled)
        return mIsEnabled(name);
    return preferencesInstance.browserIsEnabled(name);
}

QString CleanerContext::expandTilde(const QString& path)
{
    return Path::fromTilde(path).toString();
}

void CleanerContext::log(const QString& line) const
{
    ActivityLog::writeLogLine(line);
}

bool CleanerContext::gate(const QString& applicationName) const
{
    if (browserIsEnabled(applicationName))
        return true;
    log(u"Not enabled - check preferences to enable."_s);
    endCleaner();
    return false;
}

void CleanerContext::shredOrSkip(bool on, const QString& tildePath)
{
    log((on ? u"Shred: "_s : u"Skip: "_s) + tildePath);
    if (on)
        queue(expandTilde(tildePath));
}

void CleanerContext::shredOrSkipFullPath(bool on, const QString& fullPath)
{
    log((on ? u"Shred: "_s : u"Skip: "_s) + fullPath);
    if (on)
        queue(fullPath);
}

void CleanerContext::queue(const QString& fullPath)
{
    mQueue.erase(fullPath);
}

void CleanerContext::queueLeftover(const QString& fullPath)
{
    if (mQueue.setAside(fullPath))
        log(u"Shred (left by an interrupted run): "_s + fullPath);
    else
        mQueue.eraseNow(fullPath); // a second name of the live file, or nothing
}
