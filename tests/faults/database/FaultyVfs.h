#pragma once

/// A file system for the embedded engine that wraps the real one and fails one call of a
/// chosen kind: the Nth counted from the moment the test arms it. Registered as the default,
/// so every connection of the process (the program's and the ERP library's) goes through it.
class FaultyVfs
{
public:
    enum class Call {
        Read,    ///< a read of a database file
        Write,   ///< a write of a database file (a checkpoint, in write-ahead mode)
        Journal, ///< a write of the journal (the write-ahead file)
        Sync,    ///< a sync of any file
        Lock,    ///< a file lock or a lock of the shared-memory index
        AnyWrite ///< any write, to stand for a full disk
    };

    /// Registers the wrapper as the default. False when the engine refused it.
    static bool install();
    /// Counts calls of `call` from now on and answers the `nth` with `code`.
    static void failAt(Call call, long nth, int code);
    static void disarm();
    /// Calls counted since the last failAt.
    static long counted();
    static bool failed();
};
