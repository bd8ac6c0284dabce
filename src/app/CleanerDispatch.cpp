#include "app/CleanerDispatch.h"

#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerContext.h"
#include "cleaners/MailCleaners.h"
#include "cleaners/MozillaCleaners.h"
#include "cleaners/SafariCleaners.h"
#include "cleaners/SimpleCleaners.h"
#include "cleaners/current/CurrentFirefox.h"
#include "cleaners/current/CurrentThunderbird.h"
#include "core/ApplicationFlags.h"
#include "erase/EraseQueue.h"

using namespace Qt::StringLiterals;

CleanerDispatch::CleanerDispatch(CleanerContext& context, const UserDefaults& defaults, CommandRunner& runner)
    : mContext(context)
    , mDefaults(defaults)
    , mRunner(runner)
{
}

void CleanerDispatch::run(qint32 customIsRunning, quint8& logoutShutdownRestart)
{
    SimpleCleaners simple(mContext);
    SafariCleaners safari(mContext, &mRunner);
    ChromeCleaners chrome(mContext);
    MozillaCleaners mozilla(mContext, mDefaults, chrome);
    MailCleaners mail(mContext, mDefaults);

    const ApplicationFlags& running = mContext.mIsRunning;
    const auto isRunning = [&](WatchedApp application) { return running[application] == 1; };
    EraseQueue& queue = mContext.eraseQueue();
    // Set when a counted group was passed over because its application runs.
    bool skipped = customIsRunning != 0;
    // Runs a counted group when its application does not run.
    const auto group = [&](const QString& application, bool applicationRuns, const auto& cleaners) {
        if (applicationRuns) {
            skipped = true;
            queue.passOver(application);
        } else {
            queue.setApplication(application);
            cleaners();
        }
    };

    if (customIsRunning == 0) {
        queue.setApplication(u"Custom processes"_s);
        simple.CustomFiles();
    } else {
        queue.passOver(u"Custom processes"_s);
    }
    group(u"Internet Explorer"_s, isRunning(WatchedApp::ie), [&] { simple.IE51(); });
    group(u"iCab"_s, isRunning(WatchedApp::icab), [&] {
        simple.iCab28();
        simple.iCab30();
        simple.iCab411();
    });
    group(u"OmniWeb"_s, isRunning(WatchedApp::omniweb), [&] {
        simple.OmniWeb41();
        simple.OmniWeb51();
        simple.OmniWeb57();
    });
    group(u"Opera"_s, isRunning(WatchedApp::opera), [&] {
        simple.Opera50();
        simple.Opera60();
        simple.Opera70();
        simple.Opera80();
        simple.Opera90();
        simple.Opera100();
        simple.Opera110();
        simple.Opera170();
    });
    group(u"Mail"_s, isRunning(WatchedApp::mail), [&] {
        mail.AppleMail11();
        mail.AppleMail12();
        mail.AppleMail20to50();
        mail.MailCache();
    });
    group(u"Eudora"_s, isRunning(WatchedApp::eudora), [&] {
        mail.Eudora51();
        mail.Eudora62();
    });
    group(u"Safari"_s, isRunning(WatchedApp::safari), [&] {
        safari.Safari10();
        safari.Safari20Shiira12();
        safari.Safari30();
        safari.Safari40();
        safari.Safari50();
        safari.Safari51();
        safari.Safari60();
    });
    group(u"Mozilla"_s,
          isRunning(WatchedApp::netscape) || isRunning(WatchedApp::mozilla) || isRunning(WatchedApp::seamonkey), [&] {
              mozilla.Mozilla();
              mozilla.SeaMonkey1();
          });
    group(u"Postbox"_s, isRunning(WatchedApp::postbox), [&] { mail.Postbox21(); });
    group(u"Camino"_s, isRunning(WatchedApp::camino), [&] {
        mozilla.Camino07();
        mozilla.Camino08();
        mozilla.Camino10();
        mozilla.Camino16();
        mozilla.Camino20();
        mozilla.Camino21();
    });
    group(u"Firefox"_s, isRunning(WatchedApp::firefox), [&] {
        mozilla.Firefox08();
        mozilla.Firefox10();
        mozilla.Firefox15();
        mozilla.Firefox20();
        mozilla.Firefox30Flock25SeaMonkey20(u"Firefox"_s, u"~/Library/Application Support/Firefox/Profiles"_s);
        CurrentFirefox(mContext, mDefaults).run();
    });
    // Thunderbird alone does not count: while it runs the plug-in cache is still taken.
    if (!isRunning(WatchedApp::thunderbird)) {
        queue.setApplication(u"Thunderbird"_s);
        mail.Thunderbird15();
        CurrentThunderbird(mContext, mDefaults).run();
    } else {
        queue.passOver(u"Thunderbird"_s);
    }
    group(u"Shiira"_s, isRunning(WatchedApp::shiira), [&] {
        safari.Shiira12();
        safari.Shiira20();
        safari.Safari20Shiira12();
    });
    group(u"Flock"_s, isRunning(WatchedApp::flock), [&] {
        mozilla.Flock25();
        mozilla.Firefox30Flock25SeaMonkey20(u"Flock"_s, u"~/Library/Application Support/Flock/Profiles"_s);
        mozilla.Flock35();
    });
    group(u"Chrome"_s, isRunning(WatchedApp::chrome), [&] {
        chrome.Chrome40();
        chrome.Chrome50();
        chrome.Chrome170();
        chrome.Chrome300();
    });
    group(u"SeaMonkey"_s, isRunning(WatchedApp::seamonkey), [&] {
        mozilla.SeaMonkey20cache();
        mozilla.SeaMonkey20();
        mozilla.Firefox30Flock25SeaMonkey20(u"SeaMonkey 2"_s, u"~/Library/Application Support/SeaMonkey/Profiles"_s);
    });
    queue.setApplication(u"Plug-ins"_s);
    if (!skipped || logoutShutdownRestart == 1)
        simple.PluginsCache();
    if (logoutShutdownRestart == 1) {
        logoutShutdownRestart = 0;
        simple.QuicktimeCache();
    }
}
