#pragma once

#include <atomic>
#include <functional>
#include <thread>

// True on the thread that owns the application object (or when there is none).
bool isMainThread();

class QObject;

// Runs fn on the main thread. Called on the main thread (or before the application
// object exists) it runs fn at once, since a blocking queued call from the main
// thread would deadlock. From another thread it queues fn on the main event loop
// and, when wait is true, blocks until fn has run there: the main loop must be
// running, or the caller blocks for good. A queued call for a context object (one
// of the main thread's) is dropped if the object is gone by then.
void runOnMainThread(std::function<void()> fn, bool wait, QObject* context = nullptr);

// Joins thread. On the main thread it keeps running the calls queued for it
// until done is set (the thread's last act), so that a thread waiting on one of
// them can finish instead of waiting for good.
void joinServingMainThread(std::thread& thread, const std::atomic<bool>& done);
