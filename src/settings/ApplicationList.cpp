#include "settings/ApplicationList.h"

using namespace Qt::StringLiterals;

namespace ApplicationList {

const QStringList& allNames()
{
    static const QStringList names{
        u"Safari"_s,
        u"Internet Explorer"_s,
        u"Mozilla"_s,
        u"Netscape"_s,
        u"iCab"_s,
        u"Omniweb"_s,
        u"Opera"_s,
        u"Camino"_s,
        u"Firefox"_s,
        u"Flock"_s,
        u"Chrome"_s,
        u"SeaMonkey 2"_s,
        u"Apple Mail"_s,
        u"Eudora"_s,
        u"Postbox"_s,
        u"Thunderbird"_s,
        u"Shiira"_s,
        u"Brave"_s,
        u"Vivaldi"_s,
        u"Microsoft Edge"_s,
        u"Opera (current versions)"_s,
    };
    return names;
}

QString canonicalName(const QString& name)
{
    for (const QString& known : allNames()) {
        if (known.compare(name, Qt::CaseInsensitive) == 0)
            return known;
    }
    return {};
}

QString coupledName(const QString& name)
{
    static const QList<QPair<QString, QString>> pairs{{u"Mozilla"_s, u"Netscape"_s}, {u"Safari"_s, u"Shiira"_s}};
    for (const auto& [first, second] : pairs) {
        if (name == first)
            return second;
        if (name == second)
            return first;
    }
    return {};
}

void toggle(QStringList& list, const QString& name)
{
    const QString partner = coupledName(name);
    if (list.contains(name)) {
        list.removeAll(name);
        if (!partner.isNull())
            list.removeAll(partner);
    } else {
        list.append(name);
        if (!partner.isNull())
            list.append(partner);
    }
}

} // namespace ApplicationList
