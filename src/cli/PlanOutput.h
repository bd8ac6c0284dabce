#pragma once

#include <QStringList>

#include <string>

struct RunPlan;

// A dry run's plan as vantle-cli prints it.
namespace PlanOutput {

// Per application what would be erased and rewritten, with sizes, then the totals.
QStringList text(const RunPlan& plan);
// The same as a JSON document; its keys are documented in the README.
std::string json(const RunPlan& plan);
// The "Shred" and "Skip" lines among the log lines of a run, without their time stamps.
QStringList shredAndSkipLines(const QByteArray& log);

} // namespace PlanOutput
