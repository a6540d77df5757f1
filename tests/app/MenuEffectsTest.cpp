// Each command of the main menu has the effect that its title names, and no other command has the same
// effect.
#include "tests/app/MenuEffects.h"

#include <gmock/gmock.h>

#include <cctype>
#include <set>
#include <tuple>

namespace tabulon {
namespace {

using testing::ElementsAre;

// The direct import of both shows the same alert.
bool mayEqual(const std::string& path, const std::string& other) {
    return path.starts_with("Import > ") && path != other && other.starts_with("Import > ") &&
           (path.find("Firefox") != std::string::npos || path.find("Tor ") != std::string::npos) &&
           (other.find("Firefox") != std::string::npos || other.find("Tor ") != std::string::npos);
}

// Returns the keys of an item in the form of the table. A capital letter includes Shift.
std::string keysOf(const MenuItem& item) {
    const std::string& key = item.keyEquivalent;
    if (key.empty())
        return {};
    const auto character = static_cast<unsigned char>(key[0]);
    const bool isCharacter = key.size() == 1;
    const bool isCapital = isCharacter && std::isupper(character) != 0;
    return std::string(item.modifiers.control ? "Meta+" : "") + (item.modifiers.command ? "Ctrl+" : "") +
           (item.modifiers.option ? "Alt+" : "") + (item.modifiers.shift || isCapital ? "Shift+" : "") +
           (isCharacter ? std::string(1, static_cast<char>(std::toupper(character))) : key);
}

TEST(MenuEffects, theKeysOfEachItemAreThoseOfTheTable) {
    MenuProgram program;
    const auto items = program.items();
    ASSERT_EQ(items.size(), menuCases().size());
    for (std::size_t place = 0; place < items.size(); ++place)
        EXPECT_EQ(keysOf(items[place].second), menuCases()[place].keys) << items[place].first;
}

TEST(MenuEffects, theTableHasEveryCommandOfTheMenu) {
    std::vector<std::string> paths;
    for (const MenuCase& each : menuCases())
        paths.push_back(each.path);
    std::vector<std::string> inMenu;
    for (const auto& [path, item] : MenuProgram().items())
        inMenu.push_back(path);
    EXPECT_EQ(inMenu, paths);
}

TEST(MenuEffects, noOtherCommandChangesTheSame) {
    std::set<std::tuple<std::string, std::string>> situations;
    for (const MenuCase& each : menuCases())
        situations.emplace(each.rows, each.chosen);
    for (const auto& [rows, chosen] : situations) {
        std::vector<std::string> changes;
        for (std::size_t place = 0; place < menuCases().size(); ++place) {
            MenuProgram program;
            program.prepare(rows, chosen);
            program.application().responders().performMenuItem(program.items().at(place).second);
            changes.push_back(program.change());
        }
        for (std::size_t place = 0; place < menuCases().size(); ++place) {
            const MenuCase& each = menuCases()[place];
            if (each.rows != rows || each.chosen != chosen)
                continue;
            EXPECT_EQ(changes[place], each.change) << each.path;
            EXPECT_FALSE(each.change.empty()) << each.path;
            for (std::size_t other = 0; other < menuCases().size(); ++other) {
                if (other == place || mayEqual(each.path, menuCases()[other].path))
                    continue;
                EXPECT_NE(changes[other], each.change) << each.path << " and " << menuCases()[other].path;
            }
        }
    }
}

} // namespace
} // namespace tabulon
