#pragma once

#include <QString>

class CleanerContext;

// The cleaners of Google Chrome 4 to 30 and of one Flock 3.5 user-data folder.
// Beside plain files they edit the browsers' JSON preference files, removing the
// host lists kept for DNS pre-fetching and keeping every other setting.
class ChromeCleaners {
public:
    explicit ChromeCleaners(CleanerContext& context)
        : mContext(context)
    {
    }

    void Chrome40();
    void Chrome50();
    void Chrome170();
    void Chrome300();
    // The Flock 3.5 caller writes the header, the gate and the closing line.
    void Flock35UserData(const QString& userDataFolder);

private:
    // Every direct entry of the profile whose name begins with "History", each
    // taken whole under the history setting.
    void historyEntries(const QString& profile);
    void shredOrSkipEach(bool on, const QString& folder, const QStringList& names);
    // Removes key from the JSON file; the log line says what happened.
    void editJsonWithDetails(const QString& file, const QString& key, bool requireKey);

    CleanerContext& mContext;
};
