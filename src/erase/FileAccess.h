#pragma once

#include "core/Error.h"
#include "erase/FileTree.h"
#include "erase/RunPlan.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <array>
#include <atomic>
#include <functional>

class DeviceWriter;
class EraseDisplay;
class Preferences;

// The erase engine. Overwrites each file in place with the chosen pattern and
// number of passes, then removes it: every path is first moved into a holding
// folder beside it ("Vantle X Items (<time>)"), every file and folder inside is
// given a random name, and the holding folder is removed depth first, each file
// being overwritten just before it is unlinked. Files thus lose their names
// before their contents. Holding folders that an interrupted run left beside the
// paths are erased first.
//
// Every pass reaches the device before the next pass over the same bytes, and the
// last one before the file is unlinked (DeviceWriter); the new names are synced
// before any contents are overwritten, so a crash leaves either the old name with
// the old contents or a random name. On a file system that writes changes to new
// blocks, overwriting cannot reach the old ones: the run says so, once per file
// system.
//
// It erases only what it was given: the walk goes through folder descriptors
// (FolderWalk), so depth does not matter; symbolic links, sockets, FIFOs and
// devices are removed and never opened; a file with other names keeps its
// contents (only the name in the erased folder goes); nothing on another file
// system or behind a mount is entered; and where an item must be made writable,
// only its owner is given the rights. A listed path whose folders hold a link is
// erased where the link leads, and the log says so.
//
// Lives on the thread that shreds (one run at a time); shows progress through the
// display on the main thread, waiting for it: the path-list entry it works on
// and the bytes overwritten of the list's total. Failures never stop a run: a file
// that cannot be opened is removed without being overwritten, an item that cannot
// be renamed keeps its name, a folder that resists removal is given its owner's
// rights and removed again. An item that cannot be moved aside is left exactly as
// it is. Each of these, and a write or sync that fails within a file's contents,
// is an Error: written to the activity log with the reason (FailureLog), and kept
// in the tally.
class FileAccess final : public FileTree::RemovalHandler {
public:
    static constexpr std::size_t kChunkSize = 131072;

    explicit FileAccess(Preferences& preferences, EraseDisplay* display = nullptr);

    // Erases every path of the list and empties it.
    void shredDroppedFile(QStringList& paths);
    // What the last erase of a path list did.
    const EraseTally& tally() const { return mTally; }
    // Asked from any thread: the erase goes on with no new path of its list, and
    // says in the log how many it left.
    void setStopRequested(bool stop) { mStopRequested = stop; }
    // The same on native paths, whose names need not be valid UTF-8.
    void shredNativePaths(const QList<QByteArray>& paths);

    // Overwrites the file's contents in place; the file stays where it is. The
    // failure, if any, is in the log too.
    Error shredOneFile(const QByteArray& path);
    // The same without naming the file in the log: a rewrite's work file, whose
    // name says nothing of the user.
    Error overwriteWorkFile(const QByteArray& path);

    // Wall time spent overwriting file contents so far, in nanoseconds; the rest
    // of an erase is moving, renaming and removal.
    qint64 overwriteNanoseconds() const { return mOverwriteNanoseconds; }

    // Bytes the erase of path overwrites (FileTree::sizeInBytes).
    quint64 sizeInBytes(const QByteArray& path) const;

    // Holding folders beside the paths that an interrupted run left, with what it
    // had not finished erasing; not those among the paths themselves.
    static QList<QByteArray> leftOverHoldingFolders(const QList<QByteArray>& paths);

    // Moves path into the holding folder beside it, renames everything inside
    // at random, and returns the holding folder; MoveFailed when path could not
    // be moved, and then it is as it was.
    Expected<QByteArray> moveAndRename(const QByteArray& path);

    // Fills the buffer according to mOverwritePattern.
    void randomize();
    // A new random name of 9 to 32 characters in mName.
    void randomizeName();
    const char* currentName() const { return mName.data(); }

    bool fileManagerWillProcessPath(const FolderWalk::Entry& entry) override;
    void fileManagerShouldProceedAfterError(const FolderWalk::Entry& entry, int error) override;

    void showProgressOnMainThread(double percent);
    void showFileNameOnMainThread(const QString& name);

    // Called after each pass is written: the file, where the pass began, how many
    // bytes it wrote and the pass number k (counting down to 1).
    using PassObserver = std::function<void(const QByteArray& path, qint64 start, std::size_t length, quint16 k)>;
    void setPassObserverForTesting(PassObserver observer) { mPassObserver = std::move(observer); }

private:
    struct Settings {
        quint32 pattern;
        qint64 numberOfWrites;
        bool dod;
        bool nsa;
    };

    Settings readSettings() const;
    quint16 passCount(const Settings& settings) const;
    // Puts the DoD or NSA pattern of pass k in the buffer, as the methods ask.
    void applyMethods(const Settings& settings, quint16 k);
    Error overwriteAt(const QByteArray& path, bool logName);
    Error overwrite(const FolderWalk::Entry& entry, bool logName);
    // Writes a failure to the log and keeps it in the tally.
    void report(const Error& error);
    // 0, or the error that cut the pass short.
    int writePass(DeviceWriter& writer, const QByteArray& path, qint64 start, std::size_t length, quint16 k);
    void showRunProgress();
    // One line to the log and the display for each file system among the paths'
    // folders on which overwriting cannot reach the old blocks.
    void warnOfCopyOnWrite(const QList<QByteArray>& paths);

    Preferences& preferencesInstance;
    EraseDisplay* mDisplay;

    // Only the first 131,072 bytes (65,536 words) are ever filled and written;
    // aligned for writes that go straight to the device.
    alignas(4096) std::array<quint16, 65537> mBuffer{};
    std::array<char, 33> mName{};
    quint64 mDeepPathSize = 0;
    quint64 mDeepShreddedSize = 0;
    quint32 mOverwritePattern = 0;
    qint64 mOverwriteNanoseconds = 0;

    std::atomic<bool> mStopRequested{false};
    EraseTally mTally;
    bool mCounting = false;

    PassObserver mPassObserver;
    // The old names of the files with other names met in this run, for the log.
    QHash<std::pair<dev_t, ino_t>, QByteArray> mOtherNames;
};
