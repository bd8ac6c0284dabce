#pragma once

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class CleanerContext;

// One category of a fixed-path cleaner: the setting that decides it and its
// paths, written with "~".
struct CleanerItem {
    QLatin1StringView key;
    QStringList paths;
    // Lines written after "Skip: " when the category is off, where they differ
    // from the paths (the log's wording is fixed and sometimes names other paths).
    std::optional<QStringList> skipLines = std::nullopt;
    // A second setting that must be off for the category to be taken.
    QLatin1StringView unlessKey = {};
};

// A cleaner whose work is a fixed list of paths.
struct FixedCleaner {
    QString header;
    QString enabledName; // empty: not gated by an application
    QList<CleanerItem> items;
    // Index of an item after which the application is asked again whether it is
    // enabled; the remaining items run only if it still is.
    int regateAfterItem = -1;
    bool closingEmptyLine = true;
};

// Header, gate, items, closing line: the whole contract for a fixed cleaner.
void runFixedCleaner(const FixedCleaner& cleaner, CleanerContext& context);

// The items alone, for cleaners that mix fixed items with work of their own.
void runCleanerItems(const QList<CleanerItem>& items, CleanerContext& context);
