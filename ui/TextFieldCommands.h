// Commands of the Edit menu that act on the text field that has the keyboard, and not on the rows.
#pragma once

#include <string_view>

class QWidget;

namespace tabulon {

/// Runs `action` ("cut:", "copy:", "paste:", "delete:" or "selectAll:") on `keyboard` and returns true.
/// Returns false and does nothing for another action, and if `keyboard` is `nullptr` or no text field.
bool performInTextField(std::string_view action, QWidget* keyboard);

/// Returns whether the action is one of these.
bool isTextFieldCommand(std::string_view action);

/// Returns whether the action is one of these and `keyboard` is a text field.
bool textFieldTakes(std::string_view action, const QWidget* keyboard);

} // namespace tabulon
