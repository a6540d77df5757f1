// Trees of bookmarks that other programs copy and drag: "application/x-xbel", Firefox's "text/x-moz-place",
// Chromium's "chromium/x-bookmark-entries".
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

/// Of what is larger the next form is read, in bytes.
inline constexpr std::size_t kLargestReceivedTree = std::size_t{1} << 26;

/// A root folder with what was copied or dragged; null where none of these forms is there, can be read, and
/// has anything in it. Links are classified; what has no name is called as new links are.
Ref<Bookmark> receivedTree(const MimeContent& content, const BaseServices& services);

} // namespace tabulon
