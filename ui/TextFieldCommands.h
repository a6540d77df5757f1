// Commands of the Edit menu that are meant for the text field that the user types in, and not for the rows.
#pragma once

#include <string_view>

namespace tabulon {

/// Runs `action` ("cut:", "copy:", "paste:", "delete:" or "selectAll:") on the text field of the window in
/// front that has the keyboard. False, and nothing done, for another action or without such a field.
bool performInTextField(std::string_view action);

/// Whether there is such a field for the action.
bool textFieldTakes(std::string_view action);

} // namespace tabulon
