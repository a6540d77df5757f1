#include "ui/TextFieldCommands.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

struct Command {
    std::string_view action;
    void (*inLine)(QLineEdit& field);
    void (*inText)(QPlainTextEdit& field);
};

constexpr std::array<Command, 5> kCommands = {{
    {"cut:", [](QLineEdit& field) { field.cut(); }, [](QPlainTextEdit& field) { field.cut(); }},
    {"copy:", [](QLineEdit& field) { field.copy(); }, [](QPlainTextEdit& field) { field.copy(); }},
    {"paste:", [](QLineEdit& field) { field.paste(); }, [](QPlainTextEdit& field) { field.paste(); }},
    {"delete:", [](QLineEdit& field) { field.del(); },
     [](QPlainTextEdit& field) { field.textCursor().deleteChar(); }},
    {"selectAll:", [](QLineEdit& field) { field.selectAll(); },
     [](QPlainTextEdit& field) { field.selectAll(); }},
}};

} // namespace

bool isTextFieldCommand(std::string_view action) {
    return std::ranges::count(kCommands, action, &Command::action) > 0;
}

bool textFieldTakes(std::string_view action, const QWidget* keyboard) {
    const bool isField =
        qobject_cast<const QLineEdit*>(keyboard) || qobject_cast<const QPlainTextEdit*>(keyboard);
    return isField && isTextFieldCommand(action);
}

bool performInTextField(std::string_view action, QWidget* keyboard) {
    const auto* const command = std::ranges::find(kCommands, action, &Command::action);
    if (command == kCommands.end())
        return false;
    if (auto* line = qobject_cast<QLineEdit*>(keyboard)) {
        command->inLine(*line);
        return true;
    }
    if (auto* text = qobject_cast<QPlainTextEdit*>(keyboard)) {
        command->inText(*text);
        return true;
    }
    return false;
}

} // namespace tabulon
