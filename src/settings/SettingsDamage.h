#pragma once

#include <QByteArray>
#include <QString>

// A settings file that cannot be read whole is never silently replaced by the
// factory settings. At start-up, before anything reads the settings, a damaged
// file is moved aside under a name that says so (<file>.damaged-<time>) and a
// note beside it (<file>.unconfirmed) remembers the damage: until the user
// confirms the factory settings or puts a repaired file back in its place,
// every start finds the damage again, nothing is saved and no run erases with
// settings the user never chose.
//
// Damage is what the program would otherwise quietly read as something else:
// bytes that are no property list (random, truncated, empty), a top level that
// is no dictionary, or a known key whose value has a type the program reads as
// absent (an application list that is no array, a switch that is a
// dictionary).
namespace SettingsDamage {

struct Report {
    QString reason; // empty when the settings read whole
    QString keptAs; // where the damaged file was put, empty when it had gone already
    bool isDamaged() const { return !reason.isEmpty(); }
};

// What is wrong with these bytes as the settings file; empty when nothing is.
QString problem(const QByteArray& contents);

// Looks at the settings file (and the note of an earlier damage) and keeps a
// damaged one aside. Its answer is also kept for found().
Report inspect(const QString& settingsPath);
Report found();

// The user takes the factory settings: the note goes (the damaged copy stays).
void confirmFactorySettings(const QString& settingsPath);

// Replaces the activity log (logging on or off) with what happened and how to
// go on. The caller holds the run lock: this is a run that was stopped.
void writeToLog(const Report& report);

} // namespace SettingsDamage
