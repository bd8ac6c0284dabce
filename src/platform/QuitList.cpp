#include "platform/QuitList.h"

using namespace Qt::StringLiterals;

namespace QuitList {

const QList<Entry>& entries()
{
    static const QList<Entry> list{
        {u"CHIM"_s, {u"Camino.app"_s, u"Chimera.app"_s}},
        {u"CSOm"_s, {u"Eudora.app"_s, u"Eudora Application.app"_s}},
        {u"FLKb"_s, {u"Flock.app"_s}},
        {u"MOZB"_s, {u"Firefox.app"_s}, {u"firefox"_s, u"firefox-esr"_s, u"firefox-bin"_s}},
        {u"MOZM"_s, {u"Thunderbird.app"_s}, {u"thunderbird"_s}},
        {u"MOZZ"_s, {u"Mozilla.app"_s, u"SeaMonkey.app"_s, u"Netscape.app"_s}},
        {u"MSIE"_s, {u"Internet Explorer.app"_s}},
        {u"OPRA"_s, {u"Opera.app"_s}, {u"opera"_s, u"opera-beta"_s}},
        {u"OWEB"_s, {u"OmniWeb.app"_s}},
        {u"ShiR"_s, {u"Shiira.app"_s}},
        {u"emal"_s, {u"Mail.app"_s}},
        {u"iCAB"_s, {u"iCab.app"_s}},
        {u"rimZ"_s,
         {u"Google Chrome.app"_s, u"Chromium.app"_s},
         {u"chrome"_s, u"chromium"_s, u"chromium-browser"_s, u"google-chrome"_s}},
        {u"sfri"_s, {u"Safari.app"_s}},
        // Browsers without a creator code go by their bundle identifier.
        {u"com.brave.Browser"_s, {u"Brave Browser.app"_s}, {u"brave"_s}},
        {u"com.microsoft.edgemac"_s, {u"Microsoft Edge.app"_s}, {u"msedge"_s}},
        {u"com.vivaldi.Vivaldi"_s, {u"Vivaldi.app"_s}, {u"vivaldi-bin"_s}},
    };
    return list;
}

QString signatureForExecutable(const QString& executable)
{
    const QString fileName = executable.section(u'/', -1);
    for (const Entry& entry : entries()) {
        if (entry.programs.contains(fileName))
            return entry.signature;
        for (const QString& bundle : entry.bundles) {
            const QString inside = bundle + QStringLiteral("/Contents/MacOS/");
            if (executable.contains(u'/' + inside) || executable.startsWith(inside))
                return entry.signature;
        }
    }
    return {};
}

} // namespace QuitList
