// Trees of bookmarks that other programs copy and drag: "application/x-xbel", Firefox's "text/x-moz-place",
// and Chromium's "chromium/x-bookmark-entries".
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"
#include "platform/Pasteboard.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tabulon {

/// The media types of these trees, in the order in which they are tried.
inline constexpr std::string_view kXbelType = "application/x-xbel";
inline constexpr std::string_view kPlacesType = "text/x-moz-place";
inline constexpr std::string_view kChromiumType = "chromium/x-bookmark-entries";
inline constexpr std::array kTreeTypes = {kXbelType, kPlacesType, kChromiumType};

/// In bytes. A larger form is skipped.
inline constexpr std::size_t kLargestReceivedTree = std::size_t{1} << 26;

/// Returns a root folder with what was copied or dragged, from the first of these forms that can be parsed
/// and is not empty; `nullptr` if there is none. Links are classified. Nodes without a name have the default
/// name of new links. A list of Firefox is skipped if "text/x-moz-url" has more links than it.
Ref<Bookmark> receivedTree(const MimeContent& content, const BaseServices& services);

} // namespace tabulon
