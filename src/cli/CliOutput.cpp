#include "cli/CliOutput.h"

#include "erase/RunPlan.h"

#include <cstdio>

using namespace Qt::StringLiterals;

void printLine(const QString& text)
{
    std::fputs((text + u'\n').toUtf8().constData(), stdout);
}

int refuse(const QString& message)
{
    const QString lines = u"vantle-cli: "_s + message + u'\n' + Cli::tr("Try 'vantle-cli --help'.") + u'\n';
    std::fputs(lines.toUtf8().constData(), stderr);
    return kRefusedExitCode;
}

int incompleteStatus(const EraseTally& tally)
{
    if (tally.incomplete() == 0)
        return 0;
    QString message = tally.incomplete() == 1
                          ? Cli::tr("vantle-cli: 1 item could not be erased as asked")
                          : Cli::tr("vantle-cli: %1 items could not be erased as asked").arg(tally.incomplete());
    if (!tally.firstFailure.isEmpty())
        message += Cli::tr(" (first: %1)").arg(tally.firstFailure);
    std::fputs((message + u'\n').toUtf8().constData(), stderr);
    return kIncompleteExitCode;
}
