#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <utility>

// Why a step on the user's files did not happen, as a value the caller can look
// at: what failed, the system's errno where it gave one, and the file. A caller
// tells a database in use from a full disk (WriteFailed with ENOSPC) from an
// unknown schema by the code; the activity log's line for it is written from
// the value in one place (FailureLog).
struct Error {
    enum class Code : quint8 {
        None,
        // Putting new contents in a file's place (FileReplace, work files).
        WriteFailed,      // writing or syncing the new contents
        KeepOldFailed,    // giving the old contents their other name
        PutInPlaceFailed, // the rename over the file
        // Reading a browser's file before it is rewritten.
        Missing,
        Unreadable, // unreadable, too large or too deep, or not the format expected
        KeyNotFound,
        EncodeFailed,
        InUse, // another program is writing the database
        ShellMissing,
        UnquotableFolder, // the shell cannot be given the folder's name
        UnknownSchema,
        // Building the new database.
        TemplateMissing,
        NotCreated,
        RebuiltSchemaUnknown,
        RowsLost,
        Damaged,
        // Erasing.
        MoveFailed,   // into the holding folder: the item stays as it was
        RemoveFailed, // an item that stays in the holding folder
        OverwriteFailed,
        FileChanged,   // the file opened was not the one the walk saw
        OtherNames,    // not overwritten: other names still hold the contents
        MountedInside, // a file system mounted inside is left as it is
    };

    Code code = Code::None;
    int systemError = 0; // errno
    QByteArray path;     // native
    // What the code needs said besides: the key not found, the digests of an unknown schema.
    QByteArrayList detail = {};

    bool ok() const { return code == Code::None; }
    // The system's words for systemError ("No space left on device").
    QByteArray reason() const;
};

// A value, or the error that kept it from being made.
template<typename T> struct Expected {
    Expected(T made)
        : value(std::move(made))
    {
    }
    Expected(Error failure)
        : error(std::move(failure))
    {
    }

    T value{};
    Error error;

    bool ok() const { return error.ok(); }
};
