#pragma once

#include <QLatin1StringView>
#include <QVariant>

#include <array>

// The settings keys of the preferences store, as written in the user defaults.
namespace PreferenceKey {
inline constexpr QLatin1StringView ShredCache{"ShredCache"};
inline constexpr QLatin1StringView ShredIEDownloadCache{"ShredIEDownloadCache"};
inline constexpr QLatin1StringView ShredMailTrash{"ShredMailTrash"};
inline constexpr QLatin1StringView ShredHistory{"ShredHistory"};
inline constexpr QLatin1StringView KeepSafariTopSites{"KeepSafariTopSites"};
inline constexpr QLatin1StringView ShredCookies{"ShredCookies"};
inline constexpr QLatin1StringView ShredPasswords{"ShredPasswords"};
inline constexpr QLatin1StringView HideAfterShredding{"HideAfterShredding"};
inline constexpr QLatin1StringView Tarnhold{"Tarnhold"};
inline constexpr QLatin1StringView ActivityLog{"ActivityLog"};
inline constexpr QLatin1StringView ConfirmShredding{"ConfirmShredding"};
inline constexpr QLatin1StringView DoDSanitize{"DoDSanitize"};
inline constexpr QLatin1StringView NumberOfWrites{"NumberOfWrites"};
inline constexpr QLatin1StringView OverwritePattern{"OverwritePattern"};
inline constexpr QLatin1StringView ShredAppleMailJunk{"ShredAppleMailJunk"};
inline constexpr QLatin1StringView NSA{"NSA"};
inline constexpr QLatin1StringView shredSafariFavicon{"shredSafariFavicon"};
inline constexpr QLatin1StringView ShredQuicktimeCache{"ShredQuicktimeCache"};
inline constexpr QLatin1StringView ShredMailCache{"ShredMailCache"};

// Written straight to the user defaults, never through the settings table.
inline constexpr QLatin1StringView EnabledBrowsers{"EnabledBrowsers"};
} // namespace PreferenceKey

enum class PreferenceType { Boolean, Integer };

struct PreferenceDefinition {
    QLatin1StringView key;
    PreferenceType type;
    qint64 factoryValue;
    // Integer settings are the index of a pop-up menu item: how many items the
    // menu has and which one is a separator that can never be chosen.
    int menuItemCount = 0;
    int menuSeparatorIndex = -1;
};

// Every setting in its fixed order, with its factory value.
inline constexpr std::array<PreferenceDefinition, 19> kPreferenceTable{{
    {PreferenceKey::ShredCache, PreferenceType::Boolean, true},
    {PreferenceKey::ShredIEDownloadCache, PreferenceType::Boolean, false},
    {PreferenceKey::ShredMailTrash, PreferenceType::Boolean, true},
    {PreferenceKey::ShredHistory, PreferenceType::Boolean, false},
    {PreferenceKey::KeepSafariTopSites, PreferenceType::Boolean, false},
    {PreferenceKey::ShredCookies, PreferenceType::Boolean, false},
    {PreferenceKey::ShredPasswords, PreferenceType::Boolean, false},
    {PreferenceKey::HideAfterShredding, PreferenceType::Boolean, false},
    {PreferenceKey::Tarnhold, PreferenceType::Boolean, true},
    {PreferenceKey::ActivityLog, PreferenceType::Boolean, false},
    {PreferenceKey::ConfirmShredding, PreferenceType::Boolean, true},
    {PreferenceKey::DoDSanitize, PreferenceType::Boolean, false},
    // Random passes, a separator, 1 to 10 passes, then 15 to 35 passes.
    {PreferenceKey::NumberOfWrites, PreferenceType::Integer, 0, 17, 1},
    // Seven patterns with a separator after the first.
    {PreferenceKey::OverwritePattern, PreferenceType::Integer, 0, 7, 1},
    {PreferenceKey::ShredAppleMailJunk, PreferenceType::Boolean, false},
    {PreferenceKey::NSA, PreferenceType::Boolean, false},
    {PreferenceKey::shredSafariFavicon, PreferenceType::Boolean, false},
    {PreferenceKey::ShredQuicktimeCache, PreferenceType::Boolean, false},
    {PreferenceKey::ShredMailCache, PreferenceType::Boolean, false},
}};

// The definition of key, or null for a key that is not a setting.
const PreferenceDefinition* findPreference(QStringView key);

// The factory value as it is kept in the settings dictionaries: bool or qint64.
QVariant factoryValue(const PreferenceDefinition& definition);

// Whether index names an item that the setting's pop-up menu lets the user choose.
bool isSelectableMenuIndex(const PreferenceDefinition& definition, qint64 index);
