#include "core/MainThread.h"

#include <QCoreApplication>
#include <QThread>
#include <atomic>

namespace {

// The call as Qt carries it to the main thread. Qt's event queue already orders
// the handoff, but inside a library that ThreadSanitizer cannot look into; the
// two flags state the same order in our own code: what the caller did before
// queueing is seen by the call, and what the call did is seen by a caller that
// waited for it (Qt frees the call on the waiting thread).
class QueuedCall {
public:
    explicit QueuedCall(std::function<void()> fn)
        : mFn(std::move(fn))
    {
        mQueued.store(true, std::memory_order_release);
    }
    QueuedCall(QueuedCall&& other) noexcept
        : mFn(std::move(other.mFn))
    {
        mQueued.store(true, std::memory_order_release);
    }
    QueuedCall(const QueuedCall&) = delete;
    QueuedCall& operator=(const QueuedCall&) = delete;
    QueuedCall& operator=(QueuedCall&&) = delete;
    ~QueuedCall() { (void)mRan.load(std::memory_order_acquire); }

    void operator()()
    {
        (void)mQueued.load(std::memory_order_acquire);
        mFn();
        mRan.store(true, std::memory_order_release);
    }

private:
    std::function<void()> mFn;
    std::atomic<bool> mQueued{false};
    std::atomic<bool> mRan{false};
};

} // namespace

bool isMainThread()
{
    const QCoreApplication* app = QCoreApplication::instance();
    return app == nullptr || QThread::currentThread() == app->thread();
}

void runOnMainThread(std::function<void()> fn, bool wait, QObject* context)
{
    if (isMainThread()) {
        fn();
        return;
    }
    QMetaObject::invokeMethod(context != nullptr ? context : QCoreApplication::instance(), QueuedCall(std::move(fn)),
                              wait ? Qt::BlockingQueuedConnection : Qt::QueuedConnection);
}

void joinServingMainThread(std::thread& thread, const std::atomic<bool>& done)
{
    if (!thread.joinable())
        return;
    if (QCoreApplication::instance() != nullptr && isMainThread()) {
        while (!done.load(std::memory_order_acquire)) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            QThread::msleep(2);
        }
    }
    thread.join();
}
