// Trees as JSON: writing and reading. A node is an object with the keys "name", "url", "note", "tags",
// "dateAdded", "dateModified", "lastChecked", "lastOpened", "type", "label", "flags", "status", "browser",
// "folder", "openFolder", "autoTab", "children".
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"
#include "model/OutputLimit.h"

#include <string>
#include <string_view>

namespace tabulon::cli {

/// Returns the tree as JSON, UTF-8, on one line without a line feed. Texts are strings, or null for null
/// texts. Dates are seconds since 1970-01-01 00:00 UTC, or null (also for infinities and NaN). Codes are
/// integers. Children are an array, or null for a node without a list.
///
/// If the result would have more bytes than `limit` allows, it is cut and is no JSON; the caller has to check
/// its size. `limit` may be `nullptr`. Linear, without recursion.
std::string jsonFromTree(const Bookmark& root, OutputLimit* limit = nullptr);

/// Appends the fields of a node without its children, as the inside of an object: `"name":…,…,"autoTab":…`.
/// The members are in the order of the list above, without braces around them. Linear in the texts of the
/// node.
void appendJsonFields(std::string& out, const Bookmark& node);

/// Appends a text as a JSON string with quotation marks, or null for a null text.
void appendJsonText(std::string& out, const Text& text);

/// Returns the tree in the JSON of `jsonFromTree`; a byte-order mark is skipped. Values of missing keys are
/// null, 0 and false. Unknown keys are ignored. Fails with a sentence for invalid JSON, for a value of the
/// wrong kind or range, and for a node with "children" twice. Linear, without recursion.
Result<Ref<Bookmark>> treeFromJson(std::string_view json);

} // namespace tabulon::cli
