#pragma once

#include "cleaners/CleanerContext.h"
#include "core/ApplicationFlags.h"
#include "erase/EraseQueue.h"
#include "log/ActivityLog.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/LogLines.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

// A run's state over a temporary home: settings, path lists, flags and an
// activity log whose lines (without their time stamps) each test can read back.
class CleanerFixture : public ::testing::Test {
protected:
    CleanerFixture()
        : defaults(UserDefaults::defaultFilePath())
        , preferences(defaults, loginItem)
        , queue(preferences)
        , context(queue, isRunning, customStatus, preferences)
    {
    }

    // Every boolean setting on or off (KeepSafariTopSites always off unless set after).
    void setAllKeys(bool on)
    {
        QVariantMap values = preferences.displayedValues();
        for (const PreferenceDefinition& definition : kPreferenceTable) {
            if (definition.type == PreferenceType::Boolean)
                values.insert(definition.key, on);
        }
        values.insert(PreferenceKey::KeepSafariTopSites, false);
        preferences.miscChanged(panelStateFromValues(values));
    }

    void setKey(QLatin1StringView key, bool on)
    {
        QVariantMap values = preferences.displayedValues();
        values.insert(key, on);
        preferences.miscChanged(panelStateFromValues(values));
    }

    void disable(const QString& application)
    {
        if (preferences.browserIsEnabled(application))
            preferences.enableChanged(application);
    }

    // A log line per name: prefix, folder and name, in the order given.
    static QStringList lines(const QString& prefix, const QString& folder, const QStringList& names)
    {
        QStringList lines;
        for (const QString& name : names)
            lines.append(prefix + folder + name);
        return lines;
    }

    // Selects profiles of the folder below the home, as the Profiles menu stores them.
    void select(const QString& folder, const QStringList& names)
    {
        QVariantMap selection = defaults.dictionaryForKey(QStringLiteral("ProfilesMenuDict"));
        selection.insert(home.file(folder), QVariantList(names.cbegin(), names.cend()));
        defaults.setObject(selection, QStringLiteral("ProfilesMenuDict"));
    }
    void makeFolder(const QString& relative) { QDir().mkpath(home.file(relative)); }

    // A database below the home made from a test-data schema, filled by statements.
    QString makeDatabase(const QString& relative, const QString& schemaFile, const QString& rows = QString())
    {
        const QString path = home.file(relative);
        QDir().mkpath(QFileInfo(path).absolutePath());
        TestDatabase db(path);
        db.exec(QString::fromUtf8(testData(schemaFile)));
        if (!rows.isEmpty())
            db.exec(rows);
        return path;
    }

    // Runs a cleaner and returns the log lines it wrote.
    template<typename Cleaner> QStringList run(Cleaner&& cleaner)
    {
        const QString logPath = home.file(QStringLiteral("run.log"));
        ActivityLog::closeLog();
        ActivityLog::openLog(logPath);
        cleaner();
        ActivityLog::closeLog();
        QFile log(logPath);
        return log.open(QIODevice::ReadOnly) ? logLinesOf(log.readAll()) : QStringList();
    }

    using Clean = std::function<void(CleanerContext&)>;

    // Every file below folder, with its bytes.
    QMap<QString, QByteArray> filesBelow(const QString& folder) const
    {
        QMap<QString, QByteArray> files;
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            files.insert(file, home.read(file));
        }
        return files;
    }

    // A dry run of a rewrite says line and changes not a byte below folder.
    void expectDryRunChangesNothing(const QString& folder, const QString& line, const Clean& clean)
    {
        const QMap<QString, QByteArray> before = filesBelow(folder);
        EraseQueue dryQueue(preferences, true);
        CleanerContext dry(dryQueue, isRunning, customStatus, preferences, true, context.models);
        EXPECT_TRUE(run([&] { clean(dry); }).contains(line)) << qPrintable(line);
        EXPECT_EQ(filesBelow(folder), before);
    }

    // A store that change gives a shape this version does not know is refused
    // by the rewrite and left byte for byte.
    void expectUnknownShapeLeftAlone(const QString& store, const QString& change, const Clean& clean)
    {
        TestDatabase(store).exec(change);
        const QByteArray before = home.read(store);
        const QString refusal =
            QFileInfo(store).fileName() + QStringLiteral(" lacks the tables or columns this version needs (");
        EXPECT_EQ(run([&] { clean(context); }).filter(refusal).size(), 1) << qPrintable(store);
        EXPECT_EQ(home.read(store), before);
    }

    // A path written with "~" below the home; any other as it stands.
    QString expanded(const QString& path) const
    {
        return path.startsWith(QLatin1String("~/")) ? home.path() + path.mid(1) : path;
    }

    TempHome home;
    FakeLoginItem loginItem;
    UserDefaults defaults;
    Preferences preferences;
    EraseQueue queue;
    const QStringList& paths = queue.paths();
    const QStringList& touches = queue.touches();
    ApplicationFlags isRunning;
    QVariantMap customStatus;
    CleanerContext context;
};
