#pragma once

#include <QString>

#include <memory>

class CleanerContext;
class CommandRunner;

// The cleaners of Safari 1 to 6 and Shiira 1.2 and 2. Each handles what was new
// in one version; a run calls all of a browser's cleaners in turn.
class SafariCleaners {
public:
    // runner runs "killall cookied" (defaults to running it for real).
    SafariCleaners(CleanerContext& context, CommandRunner* runner = nullptr);
    ~SafariCleaners();

    void Safari10();
    void Safari20Shiira12();
    void Safari30();
    void Safari40();
    void Safari50();
    void Safari51();
    void Safari60();
    void Shiira12();
    void Shiira20();

    // The per-user cache folder beside the temporary folder: the temporary
    // folder's parent joined with suffix.
    static QString temporaryCacheFolder(const QString& suffix);

private:
    void shredTemporaryCacheFolder(const QString& suffix);

    CleanerContext& mContext;
    std::unique_ptr<CommandRunner> mOwnedRunner;
    CommandRunner* mRunner;
};
