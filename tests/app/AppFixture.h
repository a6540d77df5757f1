// The application over services in memory.
#pragma once

#include "app/AppDelegate.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakePlatform.h"
#include "platform/fake/FakeSingleInstance.h"
#include "tests/app/FakeProgramHost.h"
#include "tests/app/MemoryWindowMaker.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// The document that most tests open or save.
inline const std::string kPath = "/home/Links.tbln";
/// How long a document waits after a change before it is saved by itself, in seconds.
inline constexpr double kPause = AutosavePause::kSeconds;

class AppTest : public testing::Test, protected FakePlatform {
protected:
    std::string documentBytes(const char* linkName) {
        const Ref<Bookmark> master = Bookmark::init(base.now());
        master->setItemName("Master");
        master->makeParent();
        const Ref<Bookmark> link = Bookmark::init(base.now());
        link->setItemName(linkName);
        master->addChild(link);
        return writeDocumentArchive(*master);
    }

    DocumentController& documents() { return app.documentController(); }
    Document* onlyDocument() {
        const std::vector<Document*> all = documents().documents();
        return all.size() == 1 ? all.front() : nullptr;
    }
    MemoryWindow& windowOf(const Document& document) {
        return static_cast<MemoryWindow&>(*documents().getWindow(document));
    }
    bool perform(const char* action) { return app.responders().performMenuItem(MenuItem{.action = action}); }
    bool enabled(const char* action) { return app.responders().validateMenuItem(MenuItem{.action = action}); }

    /// Returns the menu with this title as it is shown when it is opened, or an empty menu if no menu has the
    /// title.
    Menu menuNamed(const std::string& title) {
        for (std::size_t place = 0; place < MainMenu::count(); ++place)
            if (app.mainMenu().title(place) == title)
                return app.mainMenu().menu(place);
        return {};
    }
    /// Returns every item of the menu bar, including those of submenus.
    std::vector<MenuItem> menuItems() {
        std::vector<MenuItem> items;
        for (std::size_t place = 0; place < MainMenu::count(); ++place)
            collect(app.mainMenu().menu(place), items);
        return items;
    }

    /// Opens files as the user does with the panel or by dropping them, and runs the main loop.
    void openFiles(const std::vector<std::string>& locations) {
        app.fileOpening().openFiles(locations);
        timers.advance(0);
    }

    /// Returns the number of files, without those that the program stores for itself.
    std::size_t filesOfTheUser() const {
        return static_cast<std::size_t>(std::ranges::count_if(
            files.files, [this](const auto& file) { return !file.first.starts_with(folders.state + "/"); }));
    }

    const std::string bookmarkHTML =
        "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<TITLE>Bookmarks</TITLE>\n<DL><p>\n"
        "<DT><A HREF=\"https://example.org/\" ADD_DATE=\"1\">Example</A>\n</DL><p>\n";

    MemoryWindowMaker windows;
    FakeSingleInstance instance;
    FakeProgramHost host;
    AppDelegate app{platform(), windows, instance, host, "1.2.3"};

private:
    static void collect(const Menu& menu, std::vector<MenuItem>& items) {
        for (const MenuItem& item : menu.items) {
            items.push_back(item);
            if (item.submenu)
                collect(*item.submenu, items);
        }
    }
};

} // namespace tabulon
