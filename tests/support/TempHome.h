#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A fresh, empty home folder for one test: HOME points at it (and
// XDG_CONFIG_HOME is unset) until the object goes away, and the shared settings
// objects are dropped on both edges so that nothing carries over between tests.
class TempHome {
public:
    TempHome();
    ~TempHome();
    TempHome(const TempHome&) = delete;
    TempHome& operator=(const TempHome&) = delete;

    QString path() const { return m_dir.path(); }
    // path() joined with a relative path.
    QString file(const QString& relative) const;

    // Writes bytes to a file below the home, creating its folders.
    void write(const QString& relative, const QByteArray& bytes) const;
    QByteArray read(const QString& relative) const;

private:
    QTemporaryDir m_dir;
    QByteArray m_oldHome;
    QByteArray m_oldConfigHome;
    bool m_hadConfigHome;
};
