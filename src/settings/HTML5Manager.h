#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <mutex>

class UserDefaults;

// Which HTML5 web storage (local storage files, web database folders) a run
// erases. The user keeps a list of domain strings whose storage stays, each
// matched as a substring of a file or folder name, and a switch that turns HTML5
// erasing on (1) or off (0); both are stored under mDomainTableData and
// mHTML5EnabledState and every change is saved at once, except a freshly added
// row, which is saved with the next edit or deletion.
//
// The list is edited on the main thread; a run's thread asks for the paths and
// the keep decisions at the same time, so the list and the switch are guarded.
class HTML5Manager : public QObject {
    Q_OBJECT

public:
    // Reads the list and the switch; a missing or wrong-typed value reads as an empty list or 0.
    explicit HTML5Manager(UserDefaults& defaults, QObject* parent = nullptr);

    // The application's instance, over the standard user defaults; null until createSharedInstance.
    static HTML5Manager* sharedInstance();
    static HTML5Manager& createSharedInstance();
    static void resetSharedInstanceForTesting();

    qint64 getEnabledState() const;
    // The kept domains, each with its characters in reverse order when reversed.
    QStringList getDomainTableData(bool reversed) const;
    // The UTF-16 units of s, last first.
    static QString reverseString(const QString& s);
    bool keepThisDomain(const QString& name) const;

    // Full paths to erase, empty while the switch is off.
    QStringList html5PathsForChrome() const;
    QStringList html5PathsForFlock(const QString& folder) const;
    QStringList html5LocalStoragePathsForSafari() const;
    QStringList html5DatabasesPathsForSafari() const;
    QStringList html5DatabasesPathsForChrome() const;
    QStringList html5DatabasesPathsForFlock() const;

    // Appends the placeholder "newdomain.com", not saved until a row is edited or deleted.
    void addDomain();
    // Each of these saves; a row out of range changes nothing.
    void deleteDomain(int row);
    void setDomain(int row, const QString& domain);
    // Flips the switch and saves it.
    void setEnabled();
    QStringList domains() const;

signals:
    void changed();

private:
    enum class Take { LocalStorage, LocalStorageAndJournals, Folders };
    QStringList pathsToErase(const QString& folder, Take take, const QString& droppedName = {}) const;
    void saveDomains();

    UserDefaults& mUserDefaults;
    mutable std::mutex mMutex;
    qint64 mHTML5EnabledState = 0;
    QStringList mDomainTableData;
};
