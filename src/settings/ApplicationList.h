#pragma once

#include <QString>
#include <QStringList>

// The applications that can be enabled for erasing and for the watch.
namespace ApplicationList {

// The application names in their fixed order, the original 17 before today's
// Chromium-based browsers; also the list used when the user has never changed it.
const QStringList& allNames();

// The name of allNames() that equals name ignoring case, or a null string.
QString canonicalName(const QString& name);

// The name that always changes together with name ("Mozilla" and "Netscape",
// "Safari" and "Shiira"), or a null string.
QString coupledName(const QString& name);

// Adds name to the list, or removes every copy of it when present; the coupled
// application follows. Adding appends both names even when the partner is
// already there, so a name can enter the list twice.
void toggle(QStringList& list, const QString& name);

} // namespace ApplicationList
