#include "cli/DamagedSettings.h"

#include "app/RunLock.h"
#include "cli/CliOutput.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void printError(const QString& message)
{
    std::fputs((u"vantle-cli: "_s + message + u'\n').toUtf8().constData(), stderr);
}

} // namespace

namespace DamagedSettings {

void warn(const SettingsDamage::Report& report)
{
    printError(
        report.keptAs.isEmpty()
            ? Cli::tr("the settings file could not be read (%1).").arg(report.reason)
            : Cli::tr("the settings file could not be read (%1); it is kept as %2.").arg(report.reason, report.keptAs));
    printError(Cli::tr("Factory settings are in use and nothing is saved until 'vantle-cli prefs reset' confirms "
                       "them or the repaired file is put back in its place."));
}

int refuseRun(const SettingsDamage::Report& report, bool writeLog)
{
    RunLock runLock;
    if (writeLog && runLock.tryLock() != RunLock::Outcome::Busy)
        SettingsDamage::writeToLog(report);
    printError(Cli::tr("nothing was erased: shred and watch wait for the factory settings to be confirmed or the "
                       "settings file to be repaired."));
    return kDamagedSettingsExitCode;
}

} // namespace DamagedSettings
