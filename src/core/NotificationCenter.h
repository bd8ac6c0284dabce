#pragma once

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

// Named notifications, each carrying a dictionary, delivered synchronously on the
// posting thread to every observer of that name in the order they registered.
// An observer may add or remove observers, or post, from inside its callback;
// an observer added during a post is first called by the next post.
class NotificationCenter {
public:
    using Observer = std::function<void(const QVariantMap& object)>;
    using Token = quint64;

    static NotificationCenter& defaultCenter();

    Token addObserver(const QString& name, Observer observer);
    void removeObserver(Token token);
    void post(const QString& name, const QVariantMap& object = {}) const;

private:
    struct Registration {
        Token token;
        QString name;
        std::shared_ptr<const Observer> observer;
    };

    mutable std::mutex m_mutex;
    std::vector<Registration> m_registrations;
    Token m_nextToken = 1;
};
