#pragma once

#include <functional>

// True on the thread that owns the application object (or when there is none).
bool isMainThread();

// Runs fn on the main thread. Called on the main thread (or before the application
// object exists) it runs fn at once, since a blocking queued call from the main
// thread would deadlock. From another thread it queues fn on the main event loop
// and, when wait is true, blocks until fn has run there: the main loop must be
// running, or the caller blocks for good.
void runOnMainThread(std::function<void()> fn, bool wait);
