#include "core/MainThread.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

TEST(RunOnMainThread, RunsInlineOnTheMainThreadAndFromAWorkerThereWaitingWhenAsked)
{
    bool ranInline = false;
    runOnMainThread([&] { ranInline = true; }, true);
    EXPECT_TRUE(ranInline);

    QThread* const mainThread = QThread::currentThread();
    std::atomic<bool> waitedCallRanOnMain{false};
    std::atomic<bool> queuedCallRanOnMain{false};
    std::atomic<bool> waitedBeforeReturning{false};
    std::atomic<bool> workerDone{false};
    std::thread worker([&] {
        EXPECT_FALSE(isMainThread());
        bool ranBeforeReturn = false;
        runOnMainThread(
            [&] {
                waitedCallRanOnMain = QThread::currentThread() == mainThread;
                ranBeforeReturn = true;
            },
            true);
        waitedBeforeReturning = ranBeforeReturn;
        runOnMainThread([&] { queuedCallRanOnMain = QThread::currentThread() == mainThread; }, false);
        workerDone = true;
    });
    QElapsedTimer timer;
    timer.start();
    while ((!workerDone || !queuedCallRanOnMain) && timer.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    worker.join();

    EXPECT_TRUE(waitedCallRanOnMain);
    EXPECT_TRUE(waitedBeforeReturning);
    EXPECT_TRUE(queuedCallRanOnMain);
}
