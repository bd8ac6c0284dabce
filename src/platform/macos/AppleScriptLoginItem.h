#pragma once

#include "platform/LoginItem.h"

#include <QStringList>

class CommandRunner;

// The login item kept by the System Events application, driven with AppleScript
// through osascript.
class AppleScriptLoginItem final : public LoginItem {
public:
    // runner defaults to running the real osascript.
    explicit AppleScriptLoginItem(QString bundlePath, CommandRunner* runner = nullptr);
    ~AppleScriptLoginItem() override;

    QString applicationPath() const override { return m_bundlePath; }
    QString path() const override;
    void remove() override;
    void create(const QString& applicationPath, bool hidden) override;
    void setHidden(bool hidden) override;

    static QString pathScript();
    static QString deletionScript();
    static QString creationScript(const QString& applicationPath, bool hidden);
    static QString hiddenScript(bool hidden);

private:
    QByteArray runScript(const QString& script) const;

    QString m_bundlePath;
    std::unique_ptr<CommandRunner> m_ownedRunner;
    CommandRunner* m_runner;
};
