#pragma once

#include <filesystem>
#include <string>

/// Keeps two sends on one seller's database from running at once (the window and a scheduled
/// job): an exclusive lock on a file beside the embedded database. The system releases it when
/// the holder ends, however it ends, so a crashed run never blocks the next one.
class SendLock
{
public:
    SendLock() = default;
    ~SendLock();
    SendLock(const SendLock &) = delete;
    SendLock &operator=(const SendLock &) = delete;

    /// The lock file of the database `database`: <data dir>/<database>.envio.lock. Empty for a
    /// name that cannot be a file name.
    static std::filesystem::path fileFor(const std::string &database);

    /// Takes the lock without waiting. False when another run holds it or the file cannot be
    /// made; `why` then says which, in the seller's words.
    bool tryLock(const std::filesystem::path &file, std::string &why);

private:
    int m_fd = -1;
};
