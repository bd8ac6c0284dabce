#include "settings/MozillaLocations.h"

using namespace Qt::StringLiterals;

namespace {

const QList<MozillaLocation> kLinux{
    {WatchedApp::firefox, u"~/.config/mozilla/firefox"_s, u"~/.cache/mozilla/firefox"_s},
    {WatchedApp::firefox, u"~/.mozilla/firefox"_s, u"~/.cache/mozilla/firefox"_s},
    {WatchedApp::firefox, u"~/snap/firefox/common/.mozilla/firefox"_s,
     u"~/snap/firefox/common/.cache/mozilla/firefox"_s},
    {WatchedApp::firefox, u"~/snap/firefox/common/.config/mozilla/firefox"_s,
     u"~/snap/firefox/common/.cache/mozilla/firefox"_s},
    {WatchedApp::firefox, u"~/.var/app/org.mozilla.firefox/.mozilla/firefox"_s,
     u"~/.var/app/org.mozilla.firefox/cache/mozilla/firefox"_s},
    {WatchedApp::firefox, u"~/.var/app/org.mozilla.firefox/config/mozilla/firefox"_s,
     u"~/.var/app/org.mozilla.firefox/cache/mozilla/firefox"_s},
    {WatchedApp::thunderbird, u"~/.thunderbird"_s, u"~/.cache/thunderbird"_s},
    {WatchedApp::thunderbird, u"~/.config/thunderbird"_s, u"~/.cache/thunderbird"_s},
    {WatchedApp::thunderbird, u"~/snap/thunderbird/common/.thunderbird"_s,
     u"~/snap/thunderbird/common/.cache/thunderbird"_s},
    {WatchedApp::thunderbird, u"~/.var/app/org.mozilla.Thunderbird/.thunderbird"_s,
     u"~/.var/app/org.mozilla.Thunderbird/cache/thunderbird"_s},
    {WatchedApp::thunderbird, u"~/.var/app/org.mozilla.Thunderbird/config/thunderbird"_s,
     u"~/.var/app/org.mozilla.Thunderbird/cache/thunderbird"_s},
};

// profiles.ini names the profiles "Profiles/<folder>" here.
const QList<MozillaLocation> kMacOS{
    {WatchedApp::firefox, u"~/Library/Application Support/Firefox"_s, u"~/Library/Caches/Firefox"_s},
    {WatchedApp::thunderbird, u"~/Library/Thunderbird"_s, u"~/Library/Caches/Thunderbird"_s},
};

} // namespace

const QList<MozillaLocation>& mozillaLocations()
{
    static const QList<MozillaLocation> all = kLinux + kMacOS;
    return all;
}
