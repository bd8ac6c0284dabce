#include "app/CleanerDispatch.h"

#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerContext.h"
#include "cleaners/MailCleaners.h"
#include "cleaners/MozillaCleaners.h"
#include "cleaners/SafariCleaners.h"
#include "cleaners/SimpleCleaners.h"
#include "cleaners/current/CurrentChromium.h"
#include "cleaners/current/CurrentFirefox.h"
#include "cleaners/current/CurrentThunderbird.h"
#include "core/ApplicationFlags.h"
#include "erase/EraseQueue.h"

#include <QList>
#include <QString>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The cleaner families of one run.
struct Families {
    Families(CleanerContext& context, const UserDefaults& defaults, CommandRunner& runner)
        : simple(context)
        , safari(context, &runner)
        , chrome(context)
        , mozilla(context, defaults, chrome)
        , mail(context, defaults)
        , currentFirefox(context, defaults)
        , currentThunderbird(context, defaults)
        , currentChromium(context, defaults)
    {
    }

    SimpleCleaners simple;
    SafariCleaners safari;
    ChromeCleaners chrome;
    MozillaCleaners mozilla;
    MailCleaners mail;
    CurrentFirefox currentFirefox;
    CurrentThunderbird currentThunderbird;
    CurrentChromium currentChromium;
};

using Cleaner = void (*)(Families&);

// One application's cleaners, in the order they run, and what passes them over.
struct ApplicationRow {
    QString application;
    // Passed over while any of these runs.
    QList<WatchedApp> gate = {};
    QList<Cleaner> cleaners;
    // Passing it over leaves the plug-in cache alone (unless the session ends).
    bool counted = true;
    // Passed over while a custom process runs, instead of by the gate.
    bool customProcesses = false;
};

// Every application in the run's fixed order; the plug-in and QuickTime caches follow.
const QList<ApplicationRow>& applicationRows()
{
    using enum WatchedApp;
    static const QList<ApplicationRow> rows{
        {.application = u"Custom processes"_s,
         .cleaners = {[](Families& f) { f.simple.CustomFiles(); }},
         .customProcesses = true},
        {u"Internet Explorer"_s, {ie}, {[](Families& f) { f.simple.IE51(); }}},
        {u"iCab"_s,
         {icab},
         {[](Families& f) { f.simple.iCab28(); }, [](Families& f) { f.simple.iCab30(); },
          [](Families& f) { f.simple.iCab411(); }}},
        {u"OmniWeb"_s,
         {omniweb},
         {[](Families& f) { f.simple.OmniWeb41(); }, [](Families& f) { f.simple.OmniWeb51(); },
          [](Families& f) { f.simple.OmniWeb57(); }}},
        {u"Opera"_s,
         {opera},
         {[](Families& f) { f.simple.Opera50(); }, [](Families& f) { f.simple.Opera60(); },
          [](Families& f) { f.simple.Opera70(); }, [](Families& f) { f.simple.Opera80(); },
          [](Families& f) { f.simple.Opera90(); }, [](Families& f) { f.simple.Opera100(); },
          [](Families& f) { f.simple.Opera110(); }, [](Families& f) { f.simple.Opera170(); }}},
        {u"Mail"_s,
         {mail},
         {[](Families& f) { f.mail.AppleMail11(); }, [](Families& f) { f.mail.AppleMail12(); },
          [](Families& f) { f.mail.AppleMail20to50(); }, [](Families& f) { f.mail.MailCache(); }}},
        {u"Eudora"_s, {eudora}, {[](Families& f) { f.mail.Eudora51(); }, [](Families& f) { f.mail.Eudora62(); }}},
        {u"Safari"_s,
         {safari},
         {[](Families& f) { f.safari.Safari10(); }, [](Families& f) { f.safari.Safari20Shiira12(); },
          [](Families& f) { f.safari.Safari30(); }, [](Families& f) { f.safari.Safari40(); },
          [](Families& f) { f.safari.Safari50(); }, [](Families& f) { f.safari.Safari51(); },
          [](Families& f) { f.safari.Safari60(); }}},
        {u"Mozilla"_s,
         {netscape, mozilla, seamonkey},
         {[](Families& f) { f.mozilla.Mozilla(); }, [](Families& f) { f.mozilla.SeaMonkey1(); }}},
        {u"Postbox"_s, {postbox}, {[](Families& f) { f.mail.Postbox21(); }}},
        {u"Camino"_s,
         {camino},
         {[](Families& f) { f.mozilla.Camino07(); }, [](Families& f) { f.mozilla.Camino08(); },
          [](Families& f) { f.mozilla.Camino10(); }, [](Families& f) { f.mozilla.Camino16(); },
          [](Families& f) { f.mozilla.Camino20(); }, [](Families& f) { f.mozilla.Camino21(); }}},
        {u"Firefox"_s,
         {firefox},
         {[](Families& f) { f.mozilla.Firefox08(); }, [](Families& f) { f.mozilla.Firefox10(); },
          [](Families& f) { f.mozilla.Firefox15(); }, [](Families& f) { f.mozilla.Firefox20(); },
          [](Families& f) {
              f.mozilla.Firefox30Flock25SeaMonkey20(u"Firefox"_s, u"~/Library/Application Support/Firefox/Profiles"_s);
          },
          [](Families& f) { f.currentFirefox.run(); }}},
        // Thunderbird alone does not count: while it runs the plug-in cache is still taken.
        {.application = u"Thunderbird"_s,
         .gate = {thunderbird},
         .cleaners = {[](Families& f) { f.mail.Thunderbird15(); }, [](Families& f) { f.currentThunderbird.run(); }},
         .counted = false},
        {u"Shiira"_s,
         {shiira},
         {[](Families& f) { f.safari.Shiira12(); }, [](Families& f) { f.safari.Shiira20(); },
          [](Families& f) { f.safari.Safari20Shiira12(); }}},
        {u"Flock"_s,
         {flock},
         {[](Families& f) { f.mozilla.Flock25(); },
          [](Families& f) {
              f.mozilla.Firefox30Flock25SeaMonkey20(u"Flock"_s, u"~/Library/Application Support/Flock/Profiles"_s);
          },
          [](Families& f) { f.mozilla.Flock35(); }}},
        {u"Chrome"_s,
         {chrome},
         {[](Families& f) { f.chrome.Chrome40(); }, [](Families& f) { f.chrome.Chrome50(); },
          [](Families& f) { f.chrome.Chrome170(); }, [](Families& f) { f.chrome.Chrome300(); },
          [](Families& f) { f.currentChromium.run(chrome); }}},
        {u"SeaMonkey"_s,
         {seamonkey},
         {[](Families& f) { f.mozilla.SeaMonkey20cache(); }, [](Families& f) { f.mozilla.SeaMonkey20(); },
          [](Families& f) {
              f.mozilla.Firefox30Flock25SeaMonkey20(u"SeaMonkey 2"_s,
                                                    u"~/Library/Application Support/SeaMonkey/Profiles"_s);
          }}},
        // Today's browsers keep no plug-ins: while they run the plug-in cache is still taken.
        {.application = u"Brave"_s,
         .gate = {brave},
         .cleaners = {[](Families& f) { f.currentChromium.run(brave); }},
         .counted = false},
        {.application = u"Vivaldi"_s,
         .gate = {vivaldi},
         .cleaners = {[](Families& f) { f.currentChromium.run(vivaldi); }},
         .counted = false},
        {.application = u"Microsoft Edge"_s,
         .gate = {edge},
         .cleaners = {[](Families& f) { f.currentChromium.run(edge); }},
         .counted = false},
        // On macOS today's Opera.app is seen as the older Opera.
        {.application = u"Opera (current versions)"_s,
         .gate = {opera, currentOpera},
         .cleaners = {[](Families& f) { f.currentChromium.run(currentOpera); }},
         .counted = false},
    };
    return rows;
}

} // namespace

CleanerDispatch::CleanerDispatch(CleanerContext& context, const UserDefaults& defaults, CommandRunner& runner)
    : mContext(context)
    , mDefaults(defaults)
    , mRunner(runner)
{
}

void CleanerDispatch::run(qint32 customIsRunning, quint8& logoutShutdownRestart)
{
    Families families(mContext, mDefaults, mRunner);
    const ApplicationFlags& running = mContext.mIsRunning;
    const auto passesOver = [&](const ApplicationRow& row) {
        if (row.customProcesses)
            return customIsRunning != 0;
        return std::any_of(row.gate.cbegin(), row.gate.cend(),
                           [&](WatchedApp application) { return running[application] == 1; });
    };
    EraseQueue& queue = mContext.eraseQueue();
    // Set when a counted application was passed over because it runs.
    bool skipped = false;
    for (const ApplicationRow& row : applicationRows()) {
        if (passesOver(row)) {
            skipped = skipped || row.counted;
            queue.passOver(row.application);
            continue;
        }
        queue.setApplication(row.application);
        for (const Cleaner cleaner : row.cleaners)
            cleaner(families);
    }
    queue.setApplication(u"Plug-ins"_s);
    if (!skipped || logoutShutdownRestart == 1)
        families.simple.PluginsCache();
    if (logoutShutdownRestart == 1) {
        logoutShutdownRestart = 0;
        families.simple.QuicktimeCache();
    }
}
