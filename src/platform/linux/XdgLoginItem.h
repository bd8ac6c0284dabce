#pragma once

#include "platform/LoginItem.h"

// The login item as an XDG autostart entry. The entry starts the desktop
// application, with --hidden when it should start hidden.
class XdgLoginItem final : public LoginItem {
public:
    XdgLoginItem(QString entryPath, QString applicationPath);

    // $XDG_CONFIG_HOME/autostart/com.orvick.vantle.desktop ($HOME/.config when unset).
    static QString defaultEntryPath();

    QString applicationPath() const override { return m_applicationPath; }
    QString path() const override;
    void remove() override;
    void create(const QString& applicationPath, bool hidden) override;
    void setHidden(bool hidden) override;

    // The Exec value that starts program with arguments, quoted and escaped as
    // desktop entries require; and the program named by such a value.
    static QString execValue(const QStringList& command);
    static QString programOfExecValue(const QString& value);

private:
    QString m_entryPath;
    QString m_applicationPath;
};
