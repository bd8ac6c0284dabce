#include "core/NotificationCenter.h"

#include <algorithm>

NotificationCenter& NotificationCenter::defaultCenter()
{
    // Never destroyed: observers that go away during the program's exit may still unregister.
    static NotificationCenter* const center = new NotificationCenter;
    return *center;
}

NotificationCenter::Token NotificationCenter::addObserver(const QString& name, Observer observer)
{
    std::lock_guard lock(m_mutex);
    const Token token = m_nextToken++;
    m_registrations.push_back({token, name, std::make_shared<const Observer>(std::move(observer))});
    return token;
}

void NotificationCenter::removeObserver(Token token)
{
    std::lock_guard lock(m_mutex);
    std::erase_if(m_registrations, [token](const Registration& r) { return r.token == token; });
}

void NotificationCenter::post(const QString& name, const QVariantMap& object) const
{
    // Call outside the lock so that observers may register, unregister or post.
    std::vector<std::shared_ptr<const Observer>> observers;
    {
        std::lock_guard lock(m_mutex);
        for (const Registration& r : m_registrations) {
            if (r.name == name)
                observers.push_back(r.observer);
        }
    }
    for (const auto& observer : observers)
        (*observer)(object);
}
