#include "watch/ProcessScan.h"

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ProcessScan {

const std::array<WatchedPattern, kWatchedAppCount>& watchedPatterns()
{
    static const std::array<WatchedPattern, kWatchedAppCount> patterns{{
        {"/Safari.app", WatchedApp::safari, u"Safari"},
        {"/Internet Explorer.app", WatchedApp::ie, u"Internet Explorer"},
        {"/Mozilla.app", WatchedApp::mozilla, u"Mozilla"},
        {"/Netscape.app", WatchedApp::netscape, u"Netscape"},
        {"/iCab.app", WatchedApp::icab, u"iCab"},
        {"/Opera.app", WatchedApp::opera, u"Opera"},
        {"/OmniWeb.app", WatchedApp::omniweb, u"Omniweb"},
        {"/Mail.app", WatchedApp::mail, u"Apple Mail"},
        {"/Eudora.app", WatchedApp::eudora, u"Eudora"},
        {"/Postbox.app", WatchedApp::postbox, u"Postbox"},
        {"/Camino.app", WatchedApp::camino, u"Camino"},
        {"/Firefox.app", WatchedApp::firefox, u"Firefox"},
        {"/Thunderbird.app", WatchedApp::thunderbird, u"Thunderbird"},
        {"/Shiira.app", WatchedApp::shiira, u"Shiira"},
        {"/SeaMonkey.app", WatchedApp::seamonkey, u"SeaMonkey 2"},
        {"/Flock.app", WatchedApp::flock, u"Flock"},
        {"/Google Chrome.app", WatchedApp::chrome, u"Chrome"},
        {"/Brave Browser.app", WatchedApp::brave, u"Brave"},
        {"/Vivaldi.app", WatchedApp::vivaldi, u"Vivaldi"},
        {"/Microsoft Edge.app", WatchedApp::edge, u"Microsoft Edge"},
        // Today's Opera.app is matched by the older Opera's pattern, which also
        // passes over this application's profiles.
        {nullptr, WatchedApp::currentOpera, u"Opera (current versions)"},
    }};
    return patterns;
}

const std::array<LinuxProgram, 13>& linuxPrograms()
{
    static const std::array<LinuxProgram, 13> programs{{
        {"firefox", WatchedApp::firefox},
        {"firefox-esr", WatchedApp::firefox},
        {"firefox-bin", WatchedApp::firefox},
        {"thunderbird", WatchedApp::thunderbird},
        // Google Chrome runs /opt/google/chrome/chrome; distributions' Chromium
        // runs one of the other names.
        {"chrome", WatchedApp::chrome},
        {"chromium", WatchedApp::chrome},
        {"chromium-browser", WatchedApp::chrome},
        {"google-chrome", WatchedApp::chrome},
        {"brave", WatchedApp::brave},
        {"vivaldi-bin", WatchedApp::vivaldi},
        {"msedge", WatchedApp::edge},
        {"opera", WatchedApp::currentOpera},
        {"opera-beta", WatchedApp::currentOpera},
    }};
    return programs;
}

QList<QByteArray> listingLines(const QByteArray& listing)
{
    // A reader with a 2,047-byte buffer returns at most 2,046 bytes per read,
    // stopping after a line feed.
    constexpr qsizetype kMaxRead = 2046;
    QList<QByteArray> reads;
    qsizetype at = 0;
    while (at < listing.size()) {
        const qsizetype newline = listing.indexOf('\n', at);
        const qsizetype end = newline < 0 ? listing.size() : newline + 1;
        const qsizetype length = std::min(end - at, kMaxRead);
        reads.append(listing.mid(at, length));
        at += length;
    }
    if (reads.isEmpty())
        return {};
    reads.removeFirst(); // the header
    for (QByteArray& line : reads)
        line.chop(1);
    return reads;
}

int matchApplication(const QByteArray& line)
{
    if (line.contains("/usr/bin/hdid") || line.contains("crashreporter.app") || line.contains("plugin-container.app"))
        return -1;
    const auto& patterns = watchedPatterns();
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        if (patterns[i].pattern && line.contains(patterns[i].pattern))
            return int(i);
    }
    const qsizetype space = line.indexOf(' ');
    const QByteArray command = space < 0 ? line : line.left(space);
    const QByteArray program = command.mid(command.lastIndexOf('/') + 1);
    for (const LinuxProgram& known : linuxPrograms()) {
        if (program != known.name)
            continue;
        for (std::size_t i = 0; i < patterns.size(); ++i) {
            if (patterns[i].flag == known.flag)
                return int(i);
        }
    }
    return -1;
}

bool matchesCustomProcess(const QByteArray& line, const QByteArray& key)
{
    return !key.isEmpty() && line.contains(key) && !line.contains("/usr/bin/hdid");
}

QStringList psArguments(const QString& login)
{
    return {u"-w"_s, u"-w"_s, u"-o"_s, u"command"_s, u"-U"_s, login};
}

QString loginName()
{
    if (const char* login = ::getlogin())
        return QString::fromLocal8Bit(login);
    if (const passwd* user = ::getpwuid(::getuid()))
        return QString::fromLocal8Bit(user->pw_name);
    return QString::number(::getuid());
}

} // namespace ProcessScan
