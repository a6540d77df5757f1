#include "app/MainMenu.h"

#include "app/DocumentController.h"
#include "app/ImportSource.h"
#include "base/Browsers.h"
#include "base/Settings.h"
#include "base/Utf8.h"
#include "window/LabelNames.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace tabulon {
namespace {

// One fixed row. A separator has no title. A row without an action is completed by its menu.
struct Row {
    std::string_view titleKey = {};
    std::string_view action = {};
    std::string_view keyEquivalent = {};
    KeyModifiers modifiers = {};
};

// What the functions that complete menus read.
struct Source {
    const Platform& platform;
    DocumentController& documents;
};

// One menu: its fixed rows, and the function that completes them, or `nullptr`.
struct Entry {
    std::string_view titleKey;
    std::span<const Row> rows = {};
    void (*complete)(Menu& menu, const Source& source) = nullptr;
};

MenuItem command(const Localization& texts, std::string_view titleKey, std::string_view action) {
    return MenuItem{.title = texts.text(titleKey), .action = std::string(action)};
}

MenuItem itemOf(const Row& row, const Localization& texts) {
    if (row.titleKey.empty())
        return MenuItem::makeSeparator();
    MenuItem item = command(texts, row.titleKey, row.action);
    item.keyEquivalent = row.keyEquivalent;
    item.modifiers = row.modifiers;
    return item;
}

void setSubmenu(MenuItem& item, Menu menu) {
    menu.title = item.title;
    item.submenu = std::move(menu);
}

constexpr KeyModifiers kNoModifiers{.command = false};
constexpr KeyModifiers kCommandShift{.command = true, .shift = true};
constexpr KeyModifiers kCommandOption{.command = true, .option = true};
constexpr Row kSeparator;
constexpr std::size_t kOpenRecentRow = 2;
constexpr std::size_t kShowMarksRow = 0;

constexpr auto kFile = std::to_array<Row>({
    {"MenuNew", "newDocument:", "n"},
    {"MenuOpen", "openDocument:", "o"},
    {"MenuOpenRecent"},
    kSeparator,
    {"MenuSave", "saveDocument:", "s"},
    {"MenuSaveAs", "saveDocumentAs:", "S"},
    {"MenuRevert", "revertDocumentToSaved:"},
    {"MenuVersions", "browseVersions:"},
    kSeparator,
    {"MenuExport", "exportText:"},
    kSeparator,
    {"MenuClose", "performClose:", "w"},
    {"MenuQuit", "terminate:", "q"},
});

constexpr auto kEdit = std::to_array<Row>({
    {"MenuCut", "cut:", "x"},
    {"MenuCopy", "copy:", "c"},
    {"MenuPaste", "paste:", "v"},
    {"MenuDelete", "delete:"},
    {"MenuSelectAll", "selectAll:", "a"},
    kSeparator,
    {"MenuFind", "performFindPanelAction:", "f"},
    {"MenuFindNext", "findNext:", "g"},
});

constexpr auto kView = std::to_array<Row>({
    {"MenuExpand", "expandFolder:", "Right"},
    {"MenuExpandPlus", "expandFolderPlus:", "Right", kCommandShift},
    {"MenuExpandAll", "expandAll:", "E"},
    kSeparator,
    {"MenuCollapse", "collapseFolder:", "Left"},
    {"MenuCollapsePlus", "collapseFolderPlus:", "Left", kCommandShift},
    {"MenuCollapseAll", "collapseAll:", "L"},
    kSeparator,
    {"MenuZoomIn", "zoomIn:", "+"},
    {"MenuZoomOut", "zoomOut:", "-"},
});

constexpr auto kBookmark = std::to_array<Row>({
    {"MenuNewBookmark", "newBookmark:", "b"},
    {"MenuAddBookmark", "addBookmark:", "B"},
    {"MenuNewFolder", "newFolder:", "N"},
    {"MenuInsertSeparator", "insertSeparator:", "K"},
    kSeparator,
    {"MenuGetInfo", "getInfo:", "i"},
    {"MenuEditBookmark", "editBookmark:", "F2", kNoModifiers},
    kSeparator,
    {"MenuMoveUp", "moveUp:", "Up"},
    {"MenuMoveDown", "moveDown:", "Down"},
    kSeparator,
    {"MenuOpenBookmark", "openBookmark:", "Return"},
    {"MenuOpenInTab", "openInTab:", "Return", kCommandShift},
    {"MenuOpenInWindow", "openInWindow:", "Return", kCommandOption},
    {"MenuOpenWith"},
    {"MenuOpenInHelper", "openInHelper:"},
    {"MenuOpenInTabs", "openInTabs:"},
    kSeparator,
    {"MenuSaveBookmark", "saveBookmark:"},
});
constexpr std::size_t kOpenWithRow = 14;

constexpr auto kSort = std::to_array<Row>({
    {"MenuSortByName", "sortByName:"},
    {"MenuSortByURL", "sortByURL:"},
    {"MenuSortByTags", "sortByTags:"},
    {"MenuSortByDateAdded", "sortByDateAdded:"},
    {"MenuSortByDateModified", "sortByDateModified:"},
    {"MenuSortByDateLastOpened", "sortByDateLastOpened:"},
});

constexpr auto kCleanUp = std::to_array<Row>({
    {"MenuShowMarks", "showMarks:"},
    {"MenuClearMarks", "clearMarks:"},
    {"MenuLegend", "legendaSheet:"},
    kSeparator,
    {"MenuFindDuplicates", "findDuplicates:"},
    {"MenuDeleteDuplicates", "deleteDuplicatesCommand:"},
    {"MenuMoveDelete", "moveDeleteSheet:"},
});

constexpr auto kTools = std::to_array<Row>({{"MenuConnectBrowsers", "connectBrowsers:"}});

// Desktops have their own keys for minimizing windows and for switching between them.
constexpr auto kWindow = std::to_array<Row>({{"MenuMinimize", "performMiniaturize:"}});

constexpr auto kHelp = std::to_array<Row>({{"MenuAbout", "orderFrontStandardAboutPanel:"}});

void completeFile(Menu& menu, const Source& source) {
    Menu recent;
    for (const std::string& path : source.documents.recentDocuments().paths())
        recent.items.push_back(MenuItem{.title = lastPathComponent(path),
                                        .action = "openRecentDocument:",
                                        .representedObject = path,
                                        .toolTip = decodeUtf8Leniently(path)});
    if (!recent.items.empty())
        recent.items.push_back(MenuItem::makeSeparator());
    recent.items.push_back(command(source.platform.base.texts, "MenuClearRecent", "clearRecentDocuments:"));
    setSubmenu(menu.items.at(kOpenRecentRow), std::move(recent));
}

// The tag of an item is its position, by which the action finds the browser.
void completeBookmark(Menu& menu, const Source& source) {
    Menu browserMenu;
    for (const Browser& browser : browsers()) {
        MenuItem item{.title = std::string(browser.title), .action = "openWith:"};
        item.tag = static_cast<int>(browserMenu.items.size());
        if (const auto application = source.platform.workspace.application(browser.identifier))
            item.imageName = application->icon;
        browserMenu.items.push_back(std::move(item));
    }
    setSubmenu(menu.items.at(kOpenWithRow), std::move(browserMenu));
}

void completeSort(Menu& menu, const Source& source) {
    Menu descending = menu;
    for (MenuItem& item : descending.items)
        item.tag = SortCommands::kSortDescendingTag;
    menu.items.push_back(MenuItem::makeSeparator());
    menu.items.push_back(command(source.platform.base.texts, "MenuDescending", {}));
    setSubmenu(menu.items.back(), std::move(descending));
}

void completeCleanUp(Menu& menu, const Source& source) {
    menu.items.at(kShowMarksRow).checked = valueOf(source.platform.base.defaults, settings::kShowMarks);
}

void completeLabel(Menu& menu, const Source& source) {
    for (std::size_t label = 0; label < kLabelNameKeys.size(); ++label) {
        MenuItem item = command(source.platform.base.texts, kLabelNameKeys[label], "labelBookmark:");
        item.tag = static_cast<int>(label);
        if (label > 0)
            item.color = labelColor(static_cast<std::uint8_t>(label));
        menu.items.push_back(std::move(item));
    }
}

// A browser whose bookmark file is on this computer has a mark.
MenuItem importItem(const ImportSource& source, const Platform& platform) {
    MenuItem item = command(platform.base.texts, source.titleKey, source.action);
    if (source.browser.empty())
        return item;
    if (const auto found = platform.browsers.bookmarkFiles(source.browser); !found.empty()) {
        item.imageName = "validStatus";
        item.toolTip = platform.base.texts.format("BrowserFound", decodeUtf8Leniently(found.front()));
    }
    return item;
}

void completeImport(Menu& menu, const Source& source) {
    const Localization& texts = source.platform.base.texts;
    bool lastIsBrowser = false;
    for (const ImportSource& entry : importSources()) {
        if (lastIsBrowser && entry.browser.empty()) {
            menu.items.push_back(command(texts, "MenuImportFirefox", "importFirefox:"));
            menu.items.push_back(command(texts, "MenuImportTor", "importTor:"));
            menu.items.push_back(MenuItem::makeSeparator());
        }
        lastIsBrowser = !entry.browser.empty();
        menu.items.push_back(importItem(entry, source.platform));
    }
    menu.items.push_back(command(texts, "MenuScanClipboard", "scanClipboard:"));
}

void completeWindow(Menu& menu, const Source& source) {
    const std::vector<Document*> documents = source.documents.documents();
    if (!documents.empty())
        menu.items.push_back(MenuItem::makeSeparator());
    for (Document* document : documents)
        menu.items.push_back(
            MenuItem{.title = source.documents.getViewController(*document)->window().windowTitle(),
                     .action = "makeKeyAndOrderFront:",
                     .representedObject = document,
                     .toolTip = decodeUtf8Leniently(document->fileName()),
                     .checked = document == source.documents.currentDocument()});
}

constexpr auto kMenus = std::to_array<Entry>({
    {"MenuFile", kFile, completeFile},
    {"MenuEdit", kEdit},
    {"MenuView", kView},
    {"MenuBookmark", kBookmark, completeBookmark},
    {"MenuSort", kSort, completeSort},
    {"MenuCleanUp", kCleanUp, completeCleanUp},
    {"MenuLabel", {}, completeLabel},
    {"MenuImport", {}, completeImport},
    {"MenuTools", kTools},
    {"MenuWindow", kWindow, completeWindow},
    {"MenuHelp", kHelp},
});

} // namespace

std::size_t MainMenu::count() {
    return kMenus.size();
}

std::string MainMenu::title(std::size_t place) const {
    return platform_.base.texts.text(kMenus.at(place).titleKey);
}

Menu MainMenu::menu(std::size_t place) const {
    const Entry& entry = kMenus.at(place);
    Menu menu{.title = title(place), .items = {}};
    for (const Row& row : entry.rows)
        menu.items.push_back(itemOf(row, platform_.base.texts));
    if (entry.complete)
        entry.complete(menu, {platform_, documents_});
    return menu;
}

std::vector<MenuItem> MainMenu::itemsWithKeys(std::size_t place) const {
    std::vector<MenuItem> items;
    for (const Row& row : kMenus.at(place).rows)
        if (!row.keyEquivalent.empty())
            items.push_back(itemOf(row, platform_.base.texts));
    return items;
}

} // namespace tabulon
