#pragma once

#include "platform/LoginItem.h"

#include <QStringList>

// A login item that records what was asked of it, in order.
class FakeLoginItem final : public LoginItem {
public:
    QString running = QStringLiteral("/Applications/Vantle X.app");
    QString current; // where the entry points; empty when there is none
    bool hidden = false;
    QStringList calls;

    QString applicationPath() const override { return running; }
    QString path() const override { return current; }
    void remove() override
    {
        calls << QStringLiteral("remove");
        current.clear();
    }
    void create(const QString& path, bool isHidden) override
    {
        calls
            << QStringLiteral("create %1 %2").arg(path, isHidden ? QStringLiteral("hidden") : QStringLiteral("shown"));
        current = path;
        hidden = isHidden;
    }
    void setHidden(bool isHidden) override
    {
        calls << (isHidden ? QStringLiteral("setHidden true") : QStringLiteral("setHidden false"));
        if (!current.isEmpty())
            hidden = isHidden;
    }
};
