#pragma once

#include "erase/EraseDisplay.h"
#include "erase/FileAccess.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/TempHome.h"

#include <QFile>
#include <QStringList>
#include <QThread>

#include <sys/stat.h>

#include <memory>

// The erase settings as the panel's menus give them.
inline QVariantMap eraseSettings(qint64 numberOfWrites, qint64 pattern = 0, bool dod = false, bool nsa = false)
{
    using namespace Qt::StringLiterals;
    return {{u"NumberOfWrites"_s, numberOfWrites},
            {u"OverwritePattern"_s, pattern},
            {u"DoDSanitize"_s, dod},
            {u"NSA"_s, nsa}};
}

inline struct stat statOf(const QByteArray& path)
{
    struct stat info {};
    ::lstat(path.constData(), &info);
    return info;
}

// An engine over the settings of a temporary home.
class EngineFixture {
public:
    EngineFixture()
        : defaults(UserDefaults::defaultFilePath())
        , preferences(defaults, loginItem)
    {
    }

    // Changes settings as the panel would, then makes an engine.
    FileAccess& engine(const QVariantMap& settings, EraseDisplay* display = nullptr)
    {
        QVariantMap values = preferences.displayedValues();
        for (auto it = settings.cbegin(); it != settings.cend(); ++it)
            values.insert(it.key(), it.value());
        preferences.miscChanged(panelStateFromValues(values));
        access = std::make_unique<FileAccess>(preferences, display);
        return *access;
    }

    QByteArray path(const QString& relative) const { return QFile::encodeName(home.file(relative)); }

    TempHome home;
    FakeLoginItem loginItem;
    UserDefaults defaults;
    Preferences preferences;
    std::unique_ptr<FileAccess> access;
};

class RecordingDisplay final : public EraseDisplay {
public:
    void showProgress(double percent) override { progress.append(percent), record(); }
    void showFileName(const QString& name) override { names.append(name), record(); }
    void record() { onMainThread &= QThread::currentThread() == mainThread; }

    QThread* mainThread = QThread::currentThread();
    QList<double> progress;
    QStringList names;
    bool onMainThread = true;
};
