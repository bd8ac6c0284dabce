#pragma once

#include <QLatin1StringView>
#include <QMetaType>
#include <QStringList>
#include <QVariantMap>

// The names of the notifications the parts of the program send one another.
namespace Notifications {
// End of every run.
inline constexpr QLatin1StringView VantleShreddingDoneNotification{"VantleShreddingDoneNotification"};
// The custom-process status dictionary: object {"mCustomShredTHStatus": StatusMapRef}.
inline constexpr QLatin1StringView OrvickInitTHStatusNotification{"OrvickInitTHStatusNotification"};
inline constexpr QLatin1StringView OrvickCopyAndClearTHStatusNotification{"OrvickCopyAndClearTHStatusNotification"};
} // namespace Notifications

// The watch's custom-process status handed through a notification, so that an
// observer can fill or update it in place.
struct StatusMapRef {
    QVariantMap* status = nullptr;
};
Q_DECLARE_METATYPE(StatusMapRef)
