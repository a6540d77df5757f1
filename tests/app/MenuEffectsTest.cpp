// Each command of the main menu has the effect that its title names, and no other command has the same
// effect.
#include "tests/app/MenuEffects.h"

#include <gmock/gmock.h>

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
