#include "cli/RunLockMessages.h"

#include "app/Controller.h"
#include "cli/CliOutput.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QString named(const RunLock::Holder& holder)
{
    if (holder.program.isEmpty())
        return Cli::tr("another Vantle X process");
    return Cli::tr("%1 (process %2)").arg(holder.program).arg(holder.processId);
}

void printError(const QString& message)
{
    std::fputs((u"vantle-cli: "_s + message + u'\n').toUtf8().constData(), stderr);
}

} // namespace

namespace RunLockMessages {

void waiting(const RunLock::Holder& holder)
{
    printError(Cli::tr("%1 is erasing in this home; waiting for it to finish").arg(named(holder)));
}

int refused(const RunLock::Holder& holder)
{
    printError(Cli::tr("%1 is erasing in this home; nothing was changed. Run again when it has finished, "
                       "or add --wait to wait for it.")
                   .arg(named(holder)));
    return kBusyExitCode;
}

void report(Controller& controller, bool& refusedRun)
{
    QObject::connect(&controller, &Controller::waitingForOtherRun, &controller,
                     [](const QString& program, qint64 processId) {
                         waiting({program, processId});
                     });
    QObject::connect(&controller, &Controller::runRefused, &controller,
                     [&refusedRun](const QString& program, qint64 processId) {
                         refused({program, processId});
                         refusedRun = true;
                     });
}

} // namespace RunLockMessages
