#include "settings/ChromiumLocations.h"

using namespace Qt::StringLiterals;

namespace {

const QList<ChromiumLocation> kLinux{
    {WatchedApp::chrome, u"~/.config/google-chrome"_s, u"~/.cache/google-chrome"_s},
    {WatchedApp::chrome, u"~/.config/google-chrome-beta"_s, u"~/.cache/google-chrome-beta"_s},
    {WatchedApp::chrome, u"~/.config/google-chrome-unstable"_s, u"~/.cache/google-chrome-unstable"_s},
    {WatchedApp::chrome, u"~/.config/chromium"_s, u"~/.cache/chromium"_s},
    {WatchedApp::chrome, u"~/snap/chromium/common/chromium"_s, u"~/snap/chromium/common/.cache/chromium"_s},
    {WatchedApp::chrome, u"~/.var/app/org.chromium.Chromium/config/chromium"_s,
     u"~/.var/app/org.chromium.Chromium/cache/chromium"_s},
    {WatchedApp::chrome, u"~/.var/app/com.google.Chrome/config/google-chrome"_s,
     u"~/.var/app/com.google.Chrome/cache/google-chrome"_s},
    {WatchedApp::brave, u"~/.config/BraveSoftware/Brave-Browser"_s, u"~/.cache/BraveSoftware/Brave-Browser"_s},
    {WatchedApp::vivaldi, u"~/.config/vivaldi"_s, u"~/.cache/vivaldi"_s},
    {WatchedApp::vivaldi, u"~/.config/vivaldi-snapshot"_s, u"~/.cache/vivaldi-snapshot"_s},
    {WatchedApp::edge, u"~/.config/microsoft-edge"_s, u"~/.cache/microsoft-edge"_s},
    {WatchedApp::edge, u"~/.config/microsoft-edge-beta"_s, u"~/.cache/microsoft-edge-beta"_s},
    {WatchedApp::edge, u"~/.config/microsoft-edge-dev"_s, u"~/.cache/microsoft-edge-dev"_s},
    // Opera keeps its one profile in the user-data folder itself.
    {WatchedApp::currentOpera, u"~/.config/opera"_s, u"~/.cache/opera"_s},
    {WatchedApp::currentOpera, u"~/.config/opera-beta"_s, u"~/.cache/opera-beta"_s},
    {WatchedApp::currentOpera, u"~/.config/opera-developer"_s, u"~/.cache/opera-developer"_s},
};

// Google Chrome's own folder is left to the older Chrome cleaners, which edit
// the same Local State and Preferences.
const QList<ChromiumLocation> kMacOS{
    {WatchedApp::chrome, u"~/Library/Application Support/Chromium"_s, u"~/Library/Caches/Chromium"_s},
    {WatchedApp::brave, u"~/Library/Application Support/BraveSoftware/Brave-Browser"_s,
     u"~/Library/Caches/BraveSoftware/Brave-Browser"_s},
    {WatchedApp::vivaldi, u"~/Library/Application Support/Vivaldi"_s, u"~/Library/Caches/Vivaldi"_s},
    {WatchedApp::edge, u"~/Library/Application Support/Microsoft Edge"_s, u"~/Library/Caches/Microsoft Edge"_s},
    {WatchedApp::currentOpera, u"~/Library/Application Support/com.operasoftware.Opera"_s,
     u"~/Library/Caches/com.operasoftware.Opera"_s},
};

} // namespace

const QList<ChromiumLocation>& chromiumLocations()
{
    static const QList<ChromiumLocation> all = kLinux + kMacOS;
    return all;
}
