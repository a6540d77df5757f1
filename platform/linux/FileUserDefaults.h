// Settings in a text file that the user can read and edit. SettingsText.h defines its format.
#pragma once

#include "base/UserDefaults.h"
#include "platform/FileStore.h"
#include "platform/linux/SettingsText.h"

#include <map>
#include <optional>
#include <string>

namespace tabulon {

class FileUserDefaults;

/// Has changes of settings written later, together.
class SettingsWriter {
public:
    virtual ~SettingsWriter() = default;
    /// Called at the first change after a write. Calls `defaults.write()` soon, from the main loop and not
    /// during this call. Requires: `defaults` exists until then.
    virtual void writeSoon(FileUserDefaults& defaults) = 0;
};

/// Receives the problems with a file of settings.
class SettingsProblemObserver {
public:
    virtual ~SettingsProblemObserver() = default;
    /// Called once for each problem, also by the constructor and the destructor of FileUserDefaults. The same
    /// problem at the next attempt is not reported again.
    virtual void settingsProblem(const SettingsProblem& problem) = 0;
};

/// Settings in a file. A change is in force immediately and is written later, together with others. `write`
/// applies the changes to the file as it is then, so that changes by other programs are kept. The file is
/// replaced atomically.
///
/// No value is lost. A damaged file is copied to another name before its readable lines replace it; of more
/// than 100 such copies, a new one replaces the last. A file that cannot be read is never replaced. Changes
/// that cannot be written are kept, and written with the next change or by the destructor.
class FileUserDefaults : public UserDefaults {
public:
    /// The limit on the size of the file in bytes. A larger file counts as one that cannot be read.
    static constexpr std::size_t kLargestFile = std::size_t{16} << 20;

    /// Reads the file at `path`, which need not exist. The first write creates it, and its folder. Without
    /// `writer` changes are written by the destructor only. Without `observer` problems are not reported.
    /// Requires: the arguments outlive this object.
    FileUserDefaults(FileStore& files, std::string path, SettingsWriter* writer = nullptr,
                     SettingsProblemObserver* observer = nullptr);
    /// Writes the changes. Waits up to two seconds for the lock of another program, and then writes without
    /// it.
    ~FileUserDefaults() override;
    FileUserDefaults(const FileUserDefaults&) = delete;
    FileUserDefaults& operator=(const FileUserDefaults&) = delete;

    /// Returns the value, else the registered default, else `nullopt`.
    std::optional<std::string> stringForKey(std::string_view key) const override;
    /// Sets the value and calls the writer, unless a write is due or `key` already has this value.
    void setStringForKey(std::string_view key, std::string value) override;
    /// Removes the value and calls the writer as `setStringForKey` does.
    void removeKey(std::string_view key) override;
    /// Reads the file again if it was changed. Changes that are not written stay in force. Waits up to
    /// `FolderLock::kPatience` for another program that writes. Where the file cannot be read, the values of
    /// before stay in force, and the problem is reported.
    void refresh() override;

    /// Writes the changes, if there are any. If another program holds the lock on the folder for longer than
    /// `FolderLock::kPatience`, they stay unwritten and the writer is called again. Problems are reported.
    void write();

private:
    /// Returns the text of the file without damaged lines, or `nullopt` where it cannot be read.
    std::optional<SettingsText> readText();
    enum class Chance { OneOfMany, Last };
    /// Writes the changes. At the last chance it writes even while the lock is busy.
    void writeChanges(Chance chance);
    /// Calls the writer unless a write is due.
    void askForWrite();
    std::optional<SettingsText> withoutDamage(SettingsText text, const std::string& bytes);
    void change(std::string_view key, std::optional<std::string> value);
    /// Takes the values of the file, and its identity.
    void takeIn(const SettingsText& text);
    /// Reports a problem, unless it is the same as at the last attempt.
    void report(const SettingsProblem& problem);

    FileStore& files_;
    const std::string path_;                  // in the file system's encoding
    SettingsWriter* const writer_;            // not owned; may be nullptr
    SettingsProblemObserver* const observer_; // likewise
    SettingsText::Values values_;             // as in the file
    std::map<std::string, std::optional<std::string>, std::less<>>
        changes_;                          // not written yet; `nullopt` removes the key
    std::optional<FileIdentity> identity_; // of the file from which the values were read
    bool writeIsDue_ = false;
    std::optional<SettingsProblem::Kind> lastTrouble_; // Unreadable or Unwritable, reported already
};

} // namespace tabulon
