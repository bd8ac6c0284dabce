#pragma once

#include <QtGlobal>

#include <array>
#include <atomic>
#include <cstddef>

// The watched applications, in the fixed order of the per-application flag records.
enum class WatchedApp : std::size_t {
    safari,
    ie,
    mozilla,
    netscape,
    icab,
    opera,
    omniweb,
    mail,
    eudora,
    postbox,
    camino,
    firefox,
    thunderbird,
    shiira,
    flock,
    chrome,
    seamonkey,
    // Today's Chromium-based browsers after the original seventeen.
    brave,
    vivaldi,
    edge,
    currentOpera,
};
inline constexpr std::size_t kWatchedAppCount = 21;

// One byte per watched application (running, was running, enabled). Written by
// the watch on the main thread and read by a run's finding thread, hence atomic.
class ApplicationFlags {
public:
    quint8 operator[](WatchedApp app) const { return m_flags[std::size_t(app)].load(std::memory_order_relaxed); }
    void set(WatchedApp app, quint8 value) { m_flags[std::size_t(app)].store(value, std::memory_order_relaxed); }
    void setAll(quint8 value)
    {
        for (auto& flag : m_flags)
            flag.store(value, std::memory_order_relaxed);
    }

private:
    std::array<std::atomic<quint8>, kWatchedAppCount> m_flags{};
};
