#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

// Replaces a file's contents all at once: the bytes go to a new file beside it,
// which is flushed to the disk and then renamed over the old one. Readers see the
// old file or the new one, never a part; a failed or short write leaves the old
// file as it was. (A save that only checks the final rename can report success
// for a file cut short by a full disk.)
namespace AtomicFile {

bool write(const QString& path, const QByteArray& bytes, QFileDevice::Permissions permissions);

} // namespace AtomicFile
