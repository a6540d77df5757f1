// Commands of the Edit menu that are meant for the text field that the user types in, and not for the rows.
#pragma once

#include <string_view>

class QWidget;

namespace tabulon {

/// Runs `action` ("cut:", "copy:", "paste:", "delete:" or "selectAll:") on `keyboard` where that is a text
/// field. False, and nothing done, for another action, another widget or null.
bool performInTextField(std::string_view action, QWidget* keyboard);

/// Whether it is one of these actions.
bool isTextFieldCommand(std::string_view action);

/// Whether `keyboard` is such a field and the action one of these.
bool textFieldTakes(std::string_view action, const QWidget* keyboard);

} // namespace tabulon
