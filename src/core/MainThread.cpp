#include "core/MainThread.h"

#include <QCoreApplication>
#include <QThread>

bool isMainThread()
{
    const QCoreApplication* app = QCoreApplication::instance();
    return app == nullptr || QThread::currentThread() == app->thread();
}

void runOnMainThread(std::function<void()> fn, bool wait)
{
    if (isMainThread()) {
        fn();
        return;
    }
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(fn),
                              wait ? Qt::BlockingQueuedConnection : Qt::QueuedConnection);
}
