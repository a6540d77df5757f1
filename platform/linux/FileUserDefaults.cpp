#include "platform/linux/FileUserDefaults.h"

#include "platform/linux/FolderLock.h"

#include <fmt/format.h>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace tabulon {
namespace {

constexpr std::chrono::milliseconds kLastPatience{2000};

// Returns an unused name in the folder of the file.
std::string nameForDamagedFile(FileStore& files, const std::string& path) {
    std::string name = path + ".damaged";
    for (int number = 2; files.kindOf(name) != PathKind::Nothing; ++number)
        name = fmt::format("{}.damaged-{}", path, number);
    return name;
}

} // namespace

FileUserDefaults::FileUserDefaults(FileStore& files, std::string path, SettingsWriter* writer,
                                   SettingsProblemObserver* observer)
    : files_(files), path_(std::move(path)), writer_(writer), observer_(observer) {
    FileUserDefaults::refresh();
}

FileUserDefaults::~FileUserDefaults() {
    writeChanges(Chance::Last);
}

std::optional<std::string> FileUserDefaults::stringForKey(std::string_view key) const {
    if (const auto change = changes_.find(key); change != changes_.end()) {
        if (change->second)
            return change->second;
    } else if (const auto value = values_.find(key); value != values_.end()) {
        return value->second;
    }
    if (const auto registered = registeredDefault(key))
        return std::string(*registered);
    return std::nullopt;
}

void FileUserDefaults::setStringForKey(std::string_view key, std::string value) {
    change(key, std::move(value));
}

void FileUserDefaults::removeKey(std::string_view key) {
    change(key, std::nullopt);
}

void FileUserDefaults::change(std::string_view key, std::optional<std::string> value) {
    const auto changed = changes_.find(key);
    const auto stored = values_.find(key);
    const std::optional<std::string> now = changed != changes_.end() ? changed->second
                                           : stored != values_.end() ? std::optional(stored->second)
                                                                     : std::nullopt;
    if (value == now)
        return;
    changes_.insert_or_assign(std::string(key), std::move(value));
    askForWrite();
}

void FileUserDefaults::askForWrite() {
    if (writeIsDue_ || !writer_)
        return;
    writeIsDue_ = true;
    writer_->writeSoon(*this);
}

void FileUserDefaults::refresh() {
    const auto identity = files_.identityOf(path_);
    if (identity && identity == identity_)
        return;
    const FolderLock lock(std::filesystem::path(path_).parent_path().string());
    if (const auto text = readText())
        takeIn(*text);
}

void FileUserDefaults::takeIn(const SettingsText& text) {
    values_ = text.values();
    identity_ = files_.identityOf(path_);
}

// Returns the file as it is, without damaged lines. Returns `nullopt` where it cannot be read, and reports
// that.
std::optional<SettingsText> FileUserDefaults::readText() {
    const auto trouble = [this](std::string reason) {
        report({SettingsProblem::Kind::Unreadable, path_, {}, std::move(reason)});
        return std::nullopt;
    };
    const PathKind kind = files_.kindOf(path_);
    if (kind == PathKind::Folder || kind == PathKind::Other)
        return trouble("It is not a file.");
    const auto identity = files_.identityOf(path_);
    if (identity && identity->size > kLargestFile)
        return trouble("It is too large for a settings file.");
    const Result<std::string> bytes = files_.readFile(path_);
    if (!bytes && bytes.error().code == ENOENT)
        return SettingsText();
    if (!bytes)
        return trouble(bytes.error().message);
    SettingsText text(*bytes);
    return text.unreadableLines() == 0 ? std::optional(std::move(text))
                                       : withoutDamage(std::move(text), *bytes);
}

// Copies the damaged file to a new name, and then replaces it by its readable lines.
std::optional<SettingsText> FileUserDefaults::withoutDamage(SettingsText text, const std::string& bytes) {
    const std::string keptAs = nameForDamagedFile(files_, path_);
    Result<void> done = files_.writeFileAtomically(keptAs, bytes);
    if (done)
        done = files_.writeFileAtomically(path_, text.bytes());
    if (!done) {
        (void)files_.removeFile(keptAs);
        report({SettingsProblem::Kind::Unreadable, path_, {}, done.error().message});
        values_ = text.values();
        return std::nullopt;
    }
    report({SettingsProblem::Kind::Damaged, path_, keptAs, {}});
    return text;
}

void FileUserDefaults::write() {
    writeIsDue_ = false;
    writeChanges(Chance::OneOfMany);
}

void FileUserDefaults::writeChanges(Chance chance) {
    if (changes_.empty())
        return;
    const std::string folder = std::filesystem::path(path_).parent_path().string();
    const Result<void> made = files_.makeFolder(folder);
    const FolderLock lock(folder, chance == Chance::Last ? kLastPatience : FolderLock::kPatience);
    if (lock.isBusy() && chance != Chance::Last)
        return askForWrite();
    std::optional<SettingsText> text = readText();
    if (!text)
        return;
    for (const auto& [key, value] : changes_)
        value ? text->set(key, *value) : text->remove(key);
    const Result<void> written = made ? files_.writeFileAtomically(path_, text->bytes()) : made;
    if (!written)
        return report({SettingsProblem::Kind::Unwritable, path_, {}, written.error().message});
    lastTrouble_.reset();
    changes_.clear();
    takeIn(*text);
}

// The same problem at every attempt is reported once.
void FileUserDefaults::report(const SettingsProblem& problem) {
    if (problem.kind != SettingsProblem::Kind::Damaged && lastTrouble_ == problem.kind)
        return;
    if (problem.kind != SettingsProblem::Kind::Damaged)
        lastTrouble_ = problem.kind;
    if (observer_)
        observer_->settingsProblem(problem);
}

} // namespace tabulon
