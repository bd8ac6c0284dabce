#include "FuzzHome.h"
#include "cleaners/MozillaCleaners.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

// A profile's prefs.js as any program may have written it. The password file it
// names is queued for erasing, so it must be one file of the profile folder
// itself: never the folder, its parent, or a name the file system reads as
// another one.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray prefs(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString name = MozillaCleaners::passwordFileName(prefs);
    if (name.isNull())
        return 0;

    const QString profile = u"/home/u/Library/Application Support/Firefox/Profiles/a1b2.default"_s;
    const QString path = QDir::cleanPath(profile + u'/' + name);
    FUZZ_CHECK(QFileInfo(path).path() == profile);
    FUZZ_CHECK(path == profile + u'/' + name);
    // A file name holding a NUL reaches the system cut short: another file.
    FUZZ_CHECK(!name.contains(QChar::Null));
    FUZZ_CHECK(QString::fromUtf8(prefs).contains(name));
    return 0;
}
