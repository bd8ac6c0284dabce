#pragma once

#include "platform/LoginItem.h"

// A login item that is never changed: for a dry run, which must leave every file
// as it was, and for every program but the desktop application, which alone keeps
// the login item in step with the watch setting. It always reports being in step.
class UnchangedLoginItem final : public LoginItem {
public:
    QString applicationPath() const override { return QStringLiteral("-"); }
    QString path() const override { return applicationPath(); }
    void remove() override {}
    void create(const QString&, bool) override {}
    void setHidden(bool) override {}
};
