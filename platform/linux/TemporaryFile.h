// The file that is filled before it takes the place of another one.
#pragma once

#include <unistd.h>

#include <string>

namespace tabulon {

/// An open file that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
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

/// It has no name at first where the file system can do that, so that a program that is killed leaves nothing
/// behind. Only the user can use it until somebody grants more. It goes unless it was renamed.
class TemporaryFile {
public:
    enum class Name { AtLast, AtOnce };
    /// With `Name::AtOnce` it has a name from the beginning, also where it need not.
    TemporaryFile(const std::string& folder, Name name);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    int descriptor() const { return descriptor_.get(); }
    /// False when none could be made; errno says why.
    bool isOpen() const { return descriptor_.isOpen(); }

    /// Gives it a name next to the file that it is to replace; does nothing for one that has a name. Returns
    /// errno: some systems refuse to name an open file.
    int giveName();
    /// Takes the place of the file at `path`, a symbolic link included. Requires a name. Returns errno.
    int rename(const std::string& path);

private:
    std::string name_;
    Descriptor descriptor_;
    bool hasName_ = false;
};

} // namespace tabulon
