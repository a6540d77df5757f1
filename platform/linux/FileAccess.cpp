#include "platform/linux/FileAccess.h"

#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace tabulon {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr mode_t kOwnersPermissions = 0700;

bool isHandedOn(std::string_view name) {
    constexpr auto kOthers = std::to_array<std::string_view>(
        {kAccessList, "system.posix_acl_default", "security.capability", "security.ima", "security.evm"});
    return std::ranges::find(kOthers, name) == kOthers.end();
}

std::optional<std::string> attribute(const std::string& path, const char* name) {
    std::string value(XATTR_SIZE_MAX, '\0');
    const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
    if (size < 0)
        return std::nullopt;
    value.resize(static_cast<std::size_t>(size));
    return value;
}

// Returns the permissions for a file of another group. Members of the old group are among the others then,
// and members of the new group were.
mode_t withoutGroup(mode_t permissions) {
    const mode_t both = permissions & (permissions >> 3) & 07;
    return (permissions & kOwnersPermissions) | both << 3 | both;
}

// Sets the owner and the group as far as the system allows. Returns true if the group is that of `access`.
bool takeOwner(int descriptor, const FileAccess& access) {
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    if (::fchown(descriptor, access.owner, access.group) == 0 ||
        ::fchown(descriptor, kSameOwner, access.group) == 0)
        return true;
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && status.st_gid == access.group;
}

void takePermissions(int descriptor, mode_t permissions) {
    // The folder's default list for new files is not that of the old file.
    [[maybe_unused]] const int removed = ::fremovexattr(descriptor, kAccessList);
    // Fails on file systems without permissions.
    [[maybe_unused]] const int changed = ::fchmod(descriptor, permissions);
}

} // namespace

FileAccess accessOf(const std::string& path, const struct stat& status) {
    FileAccess access{.permissions = status.st_mode & 0777U, .owner = status.st_uid, .group = status.st_gid};
    access.list = attribute(path, kAccessList).value_or("");
    std::string names(XATTR_LIST_MAX, '\0');
    const ssize_t size = ::listxattr(path.c_str(), names.data(), names.size());
    for (std::string_view rest(names.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
         !rest.empty();) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        if (auto value = isHandedOn(name) ? attribute(path, name.c_str()) : std::nullopt)
            access.attributes.emplace_back(name, std::move(*value));
    }
    return access;
}

void takeAccess(int descriptor, const FileAccess& access) {
    // Attributes first: they cannot be set on a file without write permission.
    for (const auto& [name, value] : access.attributes)
        [[maybe_unused]] const int kept =
            ::fsetxattr(descriptor, name.c_str(), value.data(), value.size(), 0);
    const bool hasGroup = takeOwner(descriptor, access);
    if (access.list.empty())
        return takePermissions(descriptor, hasGroup ? access.permissions : withoutGroup(access.permissions));
    // The list includes the permission bits.
    const bool hasList =
        hasGroup && ::fsetxattr(descriptor, kAccessList, access.list.data(), access.list.size(), 0) == 0;
    if (!hasList)
        takePermissions(descriptor, access.permissions & kOwnersPermissions);
}

} // namespace tabulon
