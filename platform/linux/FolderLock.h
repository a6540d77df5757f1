// A lock that programs hold on a folder while they change a file in it. It keeps apart only those that ask
// for it.
#pragma once

#include <chrono>
#include <string>

namespace tabulon {

/// Held as long as the object lives. It leaves no file behind, and the system releases it when the program
/// ends.
class FolderLock {
public:
    static constexpr std::chrono::milliseconds kPatience{300};

    /// Waits until the folder is free, but no longer than `patience`: a program that hangs must not hold up
    /// all others. Where the folder cannot be locked (it is not there, its file system has no locks) it is
    /// not held.
    explicit FolderLock(const std::string& folder, std::chrono::milliseconds patience = kPatience);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    bool isHeld() const { return state_ == State::Held; }
    /// Another program holds it still.
    bool isBusy() const { return state_ == State::Busy; }

private:
    enum class State { None, Held, Busy };

    int descriptor_;
    State state_ = State::None;
};

} // namespace tabulon
