#include "cli/RunTiming.h"

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

// The highest resident size so far, in KiB (what Linux reports).
long peakKib(int who)
{
    rusage usage{};
    return ::getrusage(who, &usage) == 0 ? usage.ru_maxrss : -1;
}

} // namespace

void RunTiming::start()
{
    m_timer.start();
}

QString RunTiming::stage(const char* name, qint64 milliseconds) const
{
    return u"%1: %2 s, %3"_s.arg(QLatin1StringView(name)).arg(double(milliseconds) / 1000.0, 0, 'f', 3).arg(peaks());
}

QString RunTiming::peaks()
{
    return u"peak %1 KiB (children %2 KiB)"_s.arg(peakKib(RUSAGE_SELF)).arg(peakKib(RUSAGE_CHILDREN));
}

void RunTiming::findingDone()
{
    m_findingMilliseconds = m_timer.elapsed();
    m_finding = stage("finding", m_findingMilliseconds);
}

QString RunTiming::report()
{
    // A run with nothing to shred ends with its finding stage: its shredding stage took no time at all.
    if (m_findingMilliseconds < 0) {
        findingDone();
        return m_finding + u'\n' + stage("shredding", 0);
    }
    return m_finding + u'\n' + stage("shredding", m_timer.elapsed() - m_findingMilliseconds);
}
