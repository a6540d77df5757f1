#include "formats/export/ExportText.h"

namespace tabulon {

void doIndent(std::string& text, int level) {
    if (level > 0)
        text.append(static_cast<std::size_t>(level), '\t');
}

std::string tidyPart(std::string_view text) {
    std::string line(text);
    for (char& c : line) {
        if (c == '"')
            c = '\'';
        else if (c == '\t' || c == '\n' || c == '\r')
            c = ' ';
    }
    return line;
}

} // namespace tabulon
