// Settings in a file that people can read and edit. What the file looks like is SettingsText's affair.
#pragma once

#include "base/UserDefaults.h"
#include "platform/FileStore.h"
#include "platform/linux/SettingsText.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tabulon {

/// Changes hold at once and reach the file a little later, many at a time: `write` puts them into the file as
/// it is then, so that what other programs or people changed in it meanwhile stays. The file is replaced as a
/// whole.
///
/// Nothing in it is lost: a damaged file is put aside before what can be read of it is written anew; one that
/// cannot be read is never written over; changes that cannot be written are kept and tried again with the
/// next change and at the end.
class FileUserDefaults : public UserDefaults {
public:
    /// Larger files are no settings; they are left alone.
    static constexpr std::size_t kLargestFile = std::size_t{16} << 20;

    /// Reads the file at `path`, which need not be there; it is made with its folder by the first write.
    /// `files` must live longer.
    FileUserDefaults(FileStore& files, std::string path);
    /// Writes what is not written yet.
    ~FileUserDefaults() override;
    FileUserDefaults(const FileUserDefaults&) = delete;
    FileUserDefaults& operator=(const FileUserDefaults&) = delete;

    std::optional<std::string> stringForKey(std::string_view key) const override;
    void setStringForKey(std::string_view key, std::string value) override;
    void removeKey(std::string_view key) override;
    void refresh() override;

    /// Called at the first change after a write: whoever has a main loop sees to it that `write` is called
    /// soon. Without it changes are written at the end only.
    std::function<void()> writeSoon;

    /// Writes the changes, if there are any. While another program is writing for longer than a moment they
    /// stay unwritten, and `writeSoon` is called again.
    void write();

    /// `tell` is called once for each problem, also for those met before.
    void tellProblemsTo(std::function<void(const SettingsProblem&)> tell);

private:
    std::optional<SettingsText> readText();
    enum class Chance { OneOfMany, Last };
    void writeChanges(Chance chance);
    void askForWrite();
    std::optional<SettingsText> withoutDamage(SettingsText text, const std::string& bytes);
    void change(std::string_view key, std::optional<std::string> value);
    void takeIn(const SettingsText& text);
    void report(SettingsProblem problem);

    FileStore& files_;
    const std::string path_;
    SettingsText::Values values_; // as they are in the file
    std::map<std::string, std::optional<std::string>, std::less<>>
        changes_;                          // not written yet; nothing: removed
    std::optional<FileIdentity> identity_; // of the file that the values are from
    bool writeIsDue_ = false;
    std::function<void(const SettingsProblem&)> tell_;
    std::vector<SettingsProblem> untold_;
    std::optional<SettingsProblem::Kind> lastTrouble_; // Unreadable or Unwritable, told already
};

} // namespace tabulon
