#include "core/NotificationCenter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NotificationCenter, DeliversByNameInRegistrationOrderWithTheObjectWhileObserversChangeTheRegistrations)
{
    NotificationCenter center;
    QStringList seen;
    center.addObserver(u"Done"_s,
                       [&](const QVariantMap& object) { seen << u"first "_s + object.value(u"k"_s).toString(); });
    center.addObserver(u"Other"_s, [&](const QVariantMap&) { seen << u"other"_s; });
    center.addObserver(u"Done"_s, [&](const QVariantMap&) { seen << u"second"_s; });

    center.post(u"Done"_s, {{u"k"_s, u"v"_s}});

    EXPECT_EQ(seen, (QStringList{u"first v"_s, u"second"_s}));

    // Observers may change the registrations while a post runs.
    int calls = 0;
    NotificationCenter::Token self = 0;
    self = center.addObserver(u"N"_s, [&](const QVariantMap&) {
        ++calls;
        center.removeObserver(self);
        center.addObserver(u"N"_s, [&](const QVariantMap&) { calls += 10; });
    });

    center.post(u"N"_s);
    EXPECT_EQ(calls, 1); // the observer added during the post waits for the next one
    center.post(u"N"_s);
    EXPECT_EQ(calls, 11); // the first observer removed itself
}
