#pragma once

#include "core/ChildProcess.h"
#include "core/PropertyList.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <QStringList>

#include <gtest/gtest.h>

struct CliRun {
    int exitCode;
    QString out;
    QString err;
};

// Runs the built vantle-cli with --home pointing at the test's own home folder.
class CliFixture : public ::testing::Test {
protected:
    CliRun cli(QStringList arguments) const
    {
        arguments.prepend(home.path());
        arguments.prepend(QStringLiteral("--home"));
        return run(arguments);
    }

    // Runs each command on the home, each of which must succeed.
    void configure(const QList<QStringList>& commands) const
    {
        for (const QStringList& command : commands)
            EXPECT_EQ(cli(command).exitCode, 0) << qPrintable(command.join(QLatin1Char(' ')));
    }

    // What a run on the test's home needs: Eudora off, as version 6 names its trash
    // at the root of the disk, and the activity log on, with further commands.
    void prepareRuns(const QList<QStringList>& more = {}) const
    {
        configure(QList<QStringList>{{QStringLiteral("apps"), QStringLiteral("disable"), QStringLiteral("Eudora")},
                                     {QStringLiteral("prefs"), QStringLiteral("set"), QStringLiteral("ActivityLog"),
                                      QStringLiteral("YES")}} +
                  more);
    }

    static CliRun run(const QStringList& arguments)
    {
        const ProcessResult result = ChildProcess::run(QStringLiteral(VANTLE_CLI_PATH), arguments);
        EXPECT_TRUE(result.started);
        return {result.exitCode, QString::fromUtf8(result.standardOutput), QString::fromUtf8(result.standardError)};
    }

    // The settings file as another process reads it.
    QVariantMap stored() const
    {
        return PropertyList::parse(home.read(QStringLiteral(".config/com.orvick.vantle.plist")))
            .value_or(QVariant())
            .toMap();
    }

    TempHome home;
};
