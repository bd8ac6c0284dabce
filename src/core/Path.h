#pragma once

#include <QByteArray>
#include <QString>

// A path held in the file system's own bytes, so that names in any encoding,
// with newlines or invalid UTF-8, survive a walk. Kept as written: doubled
// slashes, "." and ".." stay, so the log names a path exactly as the program
// built it. Nothing here looks at the disk; "~" is the folder
// QDir::homePath() names at the moment of the call.
class Path {
public:
    Path() = default;
    // The text as it is; a leading "~" is a name like any other.
    explicit Path(const QString& text);
    static Path fromNative(const QByteArray& bytes);
    // "~" or "~/..." with the home folder in place of the "~"; other text as it is.
    static Path fromTilde(const QString& text);

    bool isEmpty() const { return mBytes.isEmpty(); }

    // The name after one "/" (none added after a trailing one); onto an empty
    // path, the name alone.
    Path operator/(const QString& name) const;
    Path operator/(const QByteArray& nativeName) const;
    // The folder that holds it, trailing slashes aside: "." for a bare name, "/"
    // for an item of the root.
    Path parent() const;
    // The last component, trailing slashes aside; "" for "/".
    QString fileName() const;
    QByteArray nativeFileName() const;

    QString toString() const;
    // As the log writes it: "~" in place of the home folder.
    QString tilde() const;
    // For the system calls.
    const QByteArray& native() const { return mBytes; }

    // Whether it names an item strictly below folder, judged by the names alone:
    // "/a/b/c" is inside "/a/b", "/a/bc" is not. A ".." below the folder is
    // never inside (after a link it leads wherever the link points), nor is a
    // path holding a NUL (the system reads only up to it, so another file).
    bool isInside(const Path& folder) const;
    // Whether name, joined to any folder, names one item directly inside it:
    // not empty, ".", "..", absolute, of several components or holding a NUL.
    static bool isName(const QString& name);

    friend bool operator==(const Path&, const Path&) = default;

private:
    // Without its trailing slashes, "/" kept.
    QByteArray trimmed() const;

    QByteArray mBytes;
};
