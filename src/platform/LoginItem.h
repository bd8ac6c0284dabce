#pragma once

#include <QString>

#include <memory>

// The entry that starts the application when the user logs in, named "Vantle X".
// Implementations swallow their failures: a login item that cannot be read or
// changed leaves everything else as it was.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    // The application the entry should start: the installed desktop application.
    virtual QString applicationPath() const = 0;

    // The application the entry starts, or empty when there is no entry.
    virtual QString path() const = 0;

    virtual void remove() = 0;
    virtual void create(const QString& applicationPath, bool hidden) = 0;

    // Changes whether the application starts hidden; nothing when there is no entry.
    virtual void setHidden(bool hidden) = 0;
};

// The login item of this system for the desktop application.
std::unique_ptr<LoginItem> createPlatformLoginItem();
