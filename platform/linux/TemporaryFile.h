// The temporary file that is written before it replaces another one.
#pragma once

#include <unistd.h>

#include <string>

namespace tabulon {

/// Owns a file descriptor and closes it.
class Descriptor {
public:
    /// Takes ownership of `number`; a negative one is no open file.
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    /// Closes the descriptor. Errors of closing are ignored.
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    /// Closes the descriptor and takes ownership of `number`.
    void reset(int number) {
        if (number_ >= 0)
            ::close(number_);
        number_ = number;
    }
    /// Returns the number, which stays owned by this object; negative for no open file.
    int get() const { return number_; }
    /// Returns true if there is an open file.
    bool isOpen() const { return number_ >= 0; }

private:
    int number_;
};

/// A temporary file of the user's. Where the file system allows it, it has no name at first, so that a
/// process that is killed leaves no file. Its mode is 0600. The destructor removes it unless it was renamed.
class TemporaryFile {
public:
    /// Whether the file gets its name by `giveName` if the file system allows it, or when it is created.
    enum class Name { AtLast, AtOnce };
    /// Creates a file in `folder`, for writing. The name begins with ".tabulon-". With `Name::AtOnce` it
    /// always has a name. If the file cannot be created, `isOpen` returns false.
    TemporaryFile(const std::string& folder, Name name);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    /// Closes the descriptor, also after `rename`.
    ~TemporaryFile();

    /// Returns the descriptor, which stays owned by this object.
    int descriptor() const { return descriptor_.get(); }
    /// Returns false where the file could not be created; after the constructor errno has the reason.
    bool isOpen() const { return descriptor_.isOpen(); }

    /// Creates a name for the file in its folder. Does nothing for a file with a name. Returns 0, or errno:
    /// some systems refuse to name an open file. Requires: `isOpen`.
    int giveName();
    /// Renames the file to `path`, and replaces a file or symbolic link there. Returns 0, or errno; the file
    /// then keeps its temporary name and is removed by the destructor. Requires: a name, and `path` in the
    /// same file system.
    int rename(const std::string& path);

private:
    std::string name_; // a path; a pattern for one while the file has no name
    Descriptor descriptor_;
    bool hasName_ = false; // false too after `rename`, which ends the ownership of the file
};

} // namespace tabulon
