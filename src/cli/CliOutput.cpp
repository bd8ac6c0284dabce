#include "cli/CliOutput.h"

#include <cstdio>

using namespace Qt::StringLiterals;

void printLine(const QString& text)
{
    std::fputs((text + u'\n').toUtf8().constData(), stdout);
}

int refuse(const QString& message)
{
    std::fputs((u"vantle-cli: "_s + message + u'\n').toUtf8().constData(), stderr);
    return kRefusedExitCode;
}
