#include "platform/linux/GioWorkspace.h"

#include <gio/gio.h>

#include <memory>

namespace tabulon {
namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
struct Free {
    void operator()(char* text) const { g_free(text); }
};

// Returns the first name of a themed icon, the path of a file icon, or an empty string.
std::string iconOf(GAppInfo* application) {
    GIcon* icon = g_app_info_get_icon(application);
    if (!icon)
        return {};
    if (G_IS_THEMED_ICON(icon)) {
        const char* const* names = g_themed_icon_get_names(G_THEMED_ICON(icon));
        return names && names[0] ? names[0] : "";
    }
    if (!G_IS_FILE_ICON(icon))
        return {};
    const std::unique_ptr<char, Free> path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
    return path ? path.get() : "";
}

} // namespace

std::optional<Application> GioWorkspace::defaultBrowser() {
    const std::unique_ptr<GAppInfo, Unref> browser(g_app_info_get_default_for_uri_scheme("http"));
    if (!browser)
        return std::nullopt;
    return Application{.name = g_app_info_get_display_name(browser.get()), .icon = iconOf(browser.get())};
}

} // namespace tabulon
