#include "log/FailureLog.h"

#include <gtest/gtest.h>

#include <cerrno>

using Code = Error::Code;

TEST(FailureLog, EachFailureIsSaidAsTheLogHasAlwaysSaidIt)
{
    const QByteArray path = "/home/u/caf\xc3\xa9 \xff.db";
    const QList<std::pair<Error, QByteArray>> said{
        {{Code::MoveFailed, EACCES, path}, "Skip (Move failed: Permission denied): "},
        {{Code::RemoveFailed, ENOTEMPTY, path}, "Skip (Remove failed: Directory not empty): "},
        {{Code::OverwriteFailed, ENOSPC, path}, "Overwrite failed (No space left on device): "},
        {{Code::FileChanged, 0, path}, "Overwrite failed (the file changed while it was erased): "},
        {{Code::OtherNames, 0, path}, "Not overwritten (the file has other names; only this one is removed): "},
        {{Code::MountedInside, 0, path}, "Skip (another file system is mounted here): "},
        {{Code::Unreadable, 0, path}, "Skip (Read JSON encoding failed): "},
        {{Code::KeyNotFound, 0, path, {"dns_prefetching"}}, "Skip (dns_prefetching not found): "},
        {{Code::EncodeFailed, 0, path}, "Skip (Create JSON encoding failed): "},
        {{Code::KeepOldFailed, EACCES, path}, "Skip (Rename old file failed): "},
        {{Code::WriteFailed, ENOSPC, path}, "Skip (Write new file failed): "},
        {{Code::PutInPlaceFailed, EBUSY, path}, "Skip (Write new file failed): "},
    };
    for (const auto& [error, text] : said)
        EXPECT_EQ(FailureLog::lines(error), QByteArrayList{text + path}) << text.constData();
    EXPECT_TRUE(FailureLog::lines({}).isEmpty());

    // A rebuild's failures are said in its own words, and only those its wording lists.
    const FailureLog::Wording wording{{Code::InUse, "in use"}};
    EXPECT_TRUE(FailureLog::lines({Code::InUse, 0, path}).isEmpty());
    EXPECT_EQ(FailureLog::lines({Code::InUse, 0, path}, &wording), QByteArrayList{"in use"});
    EXPECT_TRUE(FailureLog::lines({Code::KeepOldFailed, EACCES, path}, &wording).isEmpty());
}
