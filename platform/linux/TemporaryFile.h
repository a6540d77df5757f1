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
    int get() const { return number_; }
    bool isOpen() const { return number_ >= 0; }

private:
    int number_;
};

/// A temporary file of the user's. Where the file system allows it, it has no name at first, so that a
/// process that is killed leaves no file. Its mode is 0600. The destructor removes it unless it was renamed.
class TemporaryFile {
public:
    enum class Name { AtLast, AtOnce };
    /// Creates a file in `folder`. With `Name::AtOnce` it always has a name.
    TemporaryFile(const std::string& folder, Name name);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    int descriptor() const { return descriptor_.get(); }
    /// Returns false where the file could not be created; errno has the reason.
    bool isOpen() const { return descriptor_.isOpen(); }

    /// Creates a name for the file in its folder. Does nothing for a file with a name. Returns 0, or errno:
    /// some systems refuse to name an open file.
    int giveName();
    /// Renames the file to `path`, and replaces a file or symbolic link there. Returns 0, or errno. Requires:
    /// a name.
    int rename(const std::string& path);

private:
    std::string name_;
    Descriptor descriptor_;
    bool hasName_ = false;
};

} // namespace tabulon
