// A tree as JSON and back: one object a node with the keys "name", "url", "note", "tags", "dateAdded",
// "dateModified", "lastChecked", "lastOpened", "type", "label", "flags", "status", "browser", "folder",
// "openFolder", "autoTab", "children".
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"
#include "model/OutputLimit.h"

#include <string>
#include <string_view>

namespace tabulon::cli {

/// The tree on one line, without a line feed. Texts are strings or null; dates seconds since 1970-01-01 00:00
/// UTC or null (also for dates that are no finite number); codes integers; children an array, or null without
/// a list.
/// Ends early, with what is no JSON, once that is more than `limit` has, which may be null.
std::string jsonFromTree(const Bookmark& root, OutputLimit* limit = nullptr);

/// The fields of a node without its children, as the inside of an object: `"name":…,…,"autoTab":…`.
void appendJsonFields(std::string& out, const Bookmark& node);

/// A text as a JSON string with its quotes; null for a null text.
void appendJsonText(std::string& out, const Text& text);

/// The inverse of `jsonFromTree`. Missing keys are null, 0 and false, unknown ones are ignored. Fails with a
/// sentence for what is not JSON and for a value of the wrong kind or range.
Result<Ref<Bookmark>> treeFromJson(std::string_view json);

} // namespace tabulon::cli
