// Any bytes as a settings file. Values that were read are read again after writing, also after a value was
// set. The values are used as lists of recent documents and as file URIs, too.
#include "app/RecentDocuments.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/linux/SettingsText.h"
#include "text/FileUri.h"
#include "window/LinkLists.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tabulon;

void require(bool condition) {
    if (!condition)
        std::abort();
}

void requireFileUri(const std::string& value) {
    const auto path = pathOfFileUri(value);
    require(!path || path->starts_with('/'));
    require(!path || path->find('\0') != std::string::npos || pathOfFileUri(fileUri(*path)) == path);
    for (const std::string& uri : fileUrisIn(value))
        require(uri.size() <= value.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SettingsText settings({reinterpret_cast<const char*>(data), size});
    MemoryUserDefaults state;
    for (const auto& [key, value] : settings.values()) {
        state.setStringForKey(key, value);
        requireFileUri(value);
    }
    RecentDocuments recent(state);
    recent.note("/tmp/a.tbln");
    require(recent.paths().size() <= RecentDocuments::kMaximum && recent.paths().front() == "/tmp/a.tbln");
    settings.set("CopyFormat", std::string("a\n\0\"\\\xFF", 6));
    if (settings.unreadableLines() == 0)
        require(SettingsText(settings.bytes()).values() == settings.values());
    return 0;
}
