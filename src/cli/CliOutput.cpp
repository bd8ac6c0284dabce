#include "cli/CliOutput.h"

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
