// The main menu as a value, and the way from a chosen item to the code behind it.
#include "app/AppDelegate.h"
#include "window/LabelNames.h"
#include "window/SharedAlerts.h"

#include <array>

namespace tabulon {
namespace {

constexpr KeyModifiers kCommandShift{.command = true, .shift = true};

} // namespace

void AppDelegate::addActions() {
    actions_.add("newDocument:",
                 [this](const MenuItem&) { documentController_.openUntitledDocumentAndDisplay(); });
    actions_.add("openDocument:", [this](const MenuItem&) { openDocumentPanel(); });
    actions_.add("openRecentDocument:", [this](const MenuItem& sender) {
        if (const auto* path = std::get_if<std::string>(&sender.representedObject))
            openFile(*path);
    });
    actions_.add(
        "clearRecentDocuments:", [this](const MenuItem&) { documentController_.recentDocuments().clear(); },
        [this](const MenuItem&) { return !documentController_.recentDocuments().paths().empty(); });
    actions_.add("terminate:", [this](const MenuItem&) { terminate(); });
    actions_.add("orderFrontStandardAboutPanel:", [this](const MenuItem&) { showAboutPanel(); });
    addImportActions();
}

const ActionTable* AppDelegate::responderTo(std::string_view action) const {
    if (const Document* current = documentController_.currentDocument()) {
        const ViewController* controller = documentController_.getViewController(*current);
        if (controller && controller->actions().contains(action))
            return &controller->actions();
    }
    if (documentController_.actions().contains(action))
        return &documentController_.actions();
    return actions_.contains(action) ? &actions_ : nullptr;
}

bool AppDelegate::validateMenuItem(const MenuItem& item) const {
    if (item.action.empty())
        return item.submenu.has_value();
    const ActionTable* responder = responderTo(item.action);
    return responder && responder->validateMenuItem(item);
}

bool AppDelegate::performMenuItem(const MenuItem& item) {
    const ActionTable* responder = responderTo(item.action);
    if (!responder || !responder->validateMenuItem(item))
        return false;
    responder->perform(item);
    return true;
}

MenuItem AppDelegate::command(std::string_view titleKey, std::string action, std::string keyEquivalent,
                              KeyModifiers modifiers) const {
    return MenuItem{.title = platform_.base.texts.text(titleKey),
                    .action = std::move(action),
                    .keyEquivalent = std::move(keyEquivalent),
                    .modifiers = modifiers};
}

MenuItem AppDelegate::submenu(std::string_view titleKey, Menu menu) const {
    MenuItem item;
    item.title = menu.title = platform_.base.texts.text(titleKey);
    item.submenu = std::move(menu);
    return item;
}

Menu AppDelegate::mainMenu() {
    return Menu{.title = "Tabulon",
                .items = {submenu("MenuFile", fileMenu()), submenu("MenuEdit", editMenu()),
                          submenu("MenuView", viewMenu()), submenu("MenuBookmark", bookmarkMenu()),
                          submenu("MenuSort", sortMenu()), submenu("MenuCleanUp", cleanUpMenu()),
                          submenu("MenuLabel", labelMenu()), submenu("MenuImport", importMenu()),
                          submenu("MenuWindow", windowMenu()), submenu("MenuHelp", helpMenu())}};
}

Menu AppDelegate::fileMenu() {
    return Menu{
        .items = {command("MenuNew", "newDocument:", "n"), command("MenuOpen", "openDocument:", "o"),
                  submenu("MenuOpenRecent", recentMenu()), MenuItem::makeSeparator(),
                  command("MenuSave", "saveDocument:", "s"), command("MenuSaveAs", "saveDocumentAs:", "S"),
                  command("MenuRevert", "revertDocumentToSaved:"), command("MenuVersions", "browseVersions:"),
                  MenuItem::makeSeparator(), command("MenuExport", "exportText:"), MenuItem::makeSeparator(),
                  command("MenuClose", "performClose:", "w"), command("MenuQuit", "terminate:", "q")}};
}

Menu AppDelegate::recentMenu() {
    Menu menu;
    for (const std::string& path : documentController_.recentDocuments().paths())
        menu.items.push_back(MenuItem{.title = lastPathComponent(path),
                                      .action = "openRecentDocument:",
                                      .representedObject = path,
                                      .toolTip = decodeUtf8Leniently(path)});
    if (!menu.items.empty())
        menu.items.push_back(MenuItem::makeSeparator());
    menu.items.push_back(command("MenuClearRecent", "clearRecentDocuments:"));
    return menu;
}

Menu AppDelegate::editMenu() const {
    return Menu{.items = {command("MenuCut", "cut:", "x"), command("MenuCopy", "copy:", "c"),
                          command("MenuPaste", "paste:", "v"), command("MenuDelete", "delete:"),
                          command("MenuSelectAll", "selectAll:", "a"), MenuItem::makeSeparator(),
                          command("MenuFind", "performFindPanelAction:", "f"),
                          command("MenuFindNext", "findNext:", "g")}};
}

Menu AppDelegate::bookmarkMenu() const {
    return Menu{.items = {command("MenuNewBookmark", "newBookmark:", "b"),
                          command("MenuAddBookmark", "addBookmark:", "B"),
                          command("MenuNewFolder", "newFolder:", "N"),
                          command("MenuInsertSeparator", "insertSeparator:", "K"), MenuItem::makeSeparator(),
                          command("MenuGetInfo", "getInfo:", "i"),
                          command("MenuEditBookmark", "editBookmark:", "F2", {.command = false}),
                          MenuItem::makeSeparator(), command("MenuMoveUp", "moveUp:", "Up"),
                          command("MenuMoveDown", "moveDown:", "Down"), MenuItem::makeSeparator(),
                          command("MenuSaveBookmark", "saveBookmark:")}};
}

Menu AppDelegate::labelMenu() const {
    Menu menu;
    for (std::size_t label = 0; label < kLabelNameKeys.size(); ++label) {
        MenuItem item = command(kLabelNameKeys[label], "labelBookmark:");
        item.tag = static_cast<int>(label);
        if (label > 0)
            item.color = labelColor(static_cast<std::uint8_t>(label));
        menu.items.push_back(std::move(item));
    }
    return menu;
}

Menu AppDelegate::sortMenu() const {
    static constexpr std::array<std::string_view, 6> kActions = {
        "sortByName:",      "sortByURL:",          "sortByTags:",
        "sortByDateAdded:", "sortByDateModified:", "sortByDateLastOpened:"};
    static constexpr std::array<std::string_view, 6> kTitles = {
        "MenuSortByName",      "MenuSortByURL",          "MenuSortByTags",
        "MenuSortByDateAdded", "MenuSortByDateModified", "MenuSortByDateLastOpened"};
    Menu menu;
    Menu descending;
    for (std::size_t key = 0; key < kActions.size(); ++key) {
        menu.items.push_back(command(kTitles[key], std::string(kActions[key])));
        descending.items.push_back(menu.items.back());
        descending.items.back().tag = SortCommands::kSortDescendingTag;
    }
    menu.items.push_back(MenuItem::makeSeparator());
    menu.items.push_back(submenu("MenuDescending", std::move(descending)));
    return menu;
}

Menu AppDelegate::cleanUpMenu() const {
    MenuItem marks = command("MenuShowMarks", "showMarks:");
    marks.checked = platform_.base.defaults.boolForKey("ShowMarks");
    return Menu{.items = {std::move(marks), command("MenuClearMarks", "clearMarks:"),
                          command("MenuLegend", "legendaSheet:"), MenuItem::makeSeparator(),
                          command("MenuFindDuplicates", "findDuplicates:"),
                          command("MenuDeleteDuplicates", "deleteDuplicatesCommand:"),
                          command("MenuMoveDelete", "moveDeleteSheet:")}};
}

// The menu is made anew whenever it comes up, with its check mark.
void AppDelegate::showMarks(bool /*shown*/) {
    for (const Document* document : documentController_.documents())
        if (ViewController* controller = documentController_.getViewController(*document))
            controller->marks().showMarksView();
}

Menu AppDelegate::viewMenu() const {
    return Menu{.items = {command("MenuExpand", "expandFolder:", "Right"),
                          command("MenuExpandPlus", "expandFolderPlus:", "Right", kCommandShift),
                          command("MenuExpandAll", "expandAll:", "E"), MenuItem::makeSeparator(),
                          command("MenuCollapse", "collapseFolder:", "Left"),
                          command("MenuCollapsePlus", "collapseFolderPlus:", "Left", kCommandShift),
                          command("MenuCollapseAll", "collapseAll:", "L"), MenuItem::makeSeparator(),
                          command("MenuZoomIn", "zoomIn:", "+"), command("MenuZoomOut", "zoomOut:", "-")}};
}

// Desktops have keys of their own for putting windows away and for going from one to the next.
Menu AppDelegate::windowMenu() const {
    Menu menu{.items = {command("MenuMinimize", "performMiniaturize:")}};
    const std::vector<Document*> documents = documentController_.documents();
    if (!documents.empty())
        menu.items.push_back(MenuItem::makeSeparator());
    for (Document* document : documents)
        menu.items.push_back(
            MenuItem{.title = documentController_.getViewController(*document)->window().windowTitle(),
                     .action = "makeKeyAndOrderFront:",
                     .representedObject = document,
                     .toolTip = decodeUtf8Leniently(document->fileName()),
                     .checked = document == documentController_.currentDocument()});
    return menu;
}

Menu AppDelegate::helpMenu() const {
    return Menu{.items = {command("MenuAbout", "orderFrontStandardAboutPanel:")}};
}

} // namespace tabulon
