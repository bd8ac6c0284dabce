#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

// Turns SIGINT into a call on the main thread's event loop, while it exists;
// the default behaviour comes back when it goes away.
class InterruptWatcher final : public QObject {
public:
    explicit InterruptWatcher(std::function<void()> onInterrupt);
    ~InterruptWatcher() override;

private:
    std::function<void()> m_onInterrupt;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
