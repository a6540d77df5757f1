// An advisory lock on a folder, held while a file in it is changed. It excludes only programs that use it.
#pragma once

#include <chrono>
#include <string>

namespace tabulon {

/// A lock that is held until the object is destroyed. It creates no file, and the system releases it when the
/// process ends. Two locks of one process on one folder exclude each other too.
class FolderLock {
public:
    /// The usual limit on waiting for another program.
    static constexpr std::chrono::milliseconds kPatience{300};

    /// Locks `folder`. Waits until the lock is free, but no longer than `patience`, so that a program that
    /// hangs does not stop all others. Where the folder cannot be locked (it does not exist, its file system
    /// has no locks) the lock is neither held nor busy.
    explicit FolderLock(const std::string& folder, std::chrono::milliseconds patience = kPatience);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Returns whether this object holds the lock.
    bool isHeld() const { return state_ == State::Held; }
    /// Returns whether another holder had the lock until `patience` was over.
    bool isBusy() const { return state_ == State::Busy; }

private:
    enum class State { None, Held, Busy };

    int descriptor_; // of the folder; negative if it could not be opened
    State state_ = State::None;
};

} // namespace tabulon
