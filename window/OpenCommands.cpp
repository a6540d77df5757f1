#include "window/OpenCommands.h"

#include "base/Settings.h"
#include "window/ActionTable.h"
#include "window/ExpandCommands.h"
#include "window/FieldEditing.h"
#include "window/Outline.h"
#include "window/WindowController.h"

#include <cmath>
#include <string>

namespace tabulon {
namespace {

constexpr double kInfoWidth = 16; // points at the right end of the name

bool isAtInfoEnd(const ClickPlace& place) {
    const double edge = std::trunc(place.cellRight);
    return place.isInNameCell && place.x > edge - kInfoWidth && place.x < edge;
}

} // namespace

OpenCommands::OpenCommands(const OpenParts& parts, const Platform& platform, ActionTable& actions)
    : outline_(parts.outline), expanding_(parts.expanding), fields_(parts.fields), window_(parts.window),
      platform_(platform), opener_(OpeningServices{platform.workspace, platform.events, platform.permission,
                                                   platform.alerts, platform.base}) {
    const auto isSelected = [this](const MenuItem&) { return outline_.hasSelection(); };
    for (const char* action : {"openBookmark:", "openInBrowser:"})
        actions.add(
            action, [this](const MenuItem&) { openBookmark(); }, isSelected);
    actions.add(
        "openInTab:", [this](const MenuItem&) { openInTab(); }, isSelected);
    actions.add(
        "openInWindow:", [this](const MenuItem&) { openInWindow(); }, isSelected);
    actions.add(
        "openWith:", [this](const MenuItem& sender) { openWith(sender.tag); }, isSelected);
    actions.add(
        "openInHelper:", [this](const MenuItem&) { openInHelper(); }, isSelected);
    actions.add(
        "openInTabs:", [this](const MenuItem&) { openInTabs(); },
        [this](const MenuItem&) { return outline_.hasOneSelectedFolder(); });
}

void OpenCommands::openBookmark() {
    openSingleOrEach([this](Bookmark& bookmark) { opener_.open(bookmark); },
                     [this](Bookmark& bookmark) { opener_.openInNewTab(bookmark); });
}

void OpenCommands::openInTab() {
    openEach([this](Bookmark& bookmark) { opener_.openInNewTab(bookmark); });
}

void OpenCommands::openInWindow() {
    openEach([this](Bookmark& bookmark) { opener_.openInNewWindow(bookmark); });
}

void OpenCommands::openWith(int index) {
    platform_.base.log.log("OpenWith : " + std::to_string(index));
    if (index < 0 || static_cast<std::size_t>(index) >= browsers().size())
        return;
    const std::string browser(browsers()[static_cast<std::size_t>(index)].identifier);
    openSingleOrEach([&](Bookmark& bookmark) { opener_.openWithBrowser(bookmark, browser); },
                     [&](Bookmark& bookmark) { opener_.openWithBrowserInNewTab(bookmark, browser); });
}

void OpenCommands::openInHelper() {
    openEach([this](const Bookmark& bookmark) { opener_.openInHelper(bookmark); });
}

void OpenCommands::openInTabs() {
    if (!outline_.hasOneSelectedFolder())
        return;
    const Ref<Bookmark> folder(outline_.selectedItems().front());
    std::vector<Bookmark*> children;
    for (Bookmark* child = folder->getChild(); child; child = child->nextBookmark())
        children.push_back(child);
    opener_.openFolderContents(children);
}

void OpenCommands::doubleClick(const ClickPlace& place) {
    fields_.cancelAutoEdit(); // the first click was not meant for the name
    Bookmark& item = outline_.itemAtRow(place.row);
    if (item.isFolder())
        expanding_.doubleClickFolder(item);
    else if (isAtInfoEnd(place))
        window_.getInfo();
    else
        doubleClickCmd();
}

void OpenCommands::doubleClickCmd() {
    const UserDefaults& defaults = platform_.base.defaults;
    if (valueOf(defaults, settings::kOpenInHelper))
        openInHelper();
    else if (valueOf(defaults, settings::kOpenInNewTab))
        openInTab();
    else if (valueOf(defaults, settings::kOpenInNewWindow))
        openInWindow();
    else
        openBookmark();
}

void OpenCommands::pressReturn(Bookmark& current) {
    if (current.isFolder() && outline_.hasOneSelectedFolder())
        expanding_.doubleClickFolder(current);
    else
        doubleClickCmd();
}

OpenCommands::Bookmarks OpenCommands::bookmarksToOpen() const {
    Bookmarks bookmarks;
    for (Bookmark* item : outline_.getSelectionArray())
        if (!item->isFolder())
            bookmarks.emplace_back(item);
    if (!opener_.confirmsPages(bookmarks.size()))
        bookmarks.clear();
    return bookmarks;
}

void OpenCommands::openSingleOrEach(const std::function<void(Bookmark&)>& openOne,
                                    const std::function<void(Bookmark&)>& openSeveral) {
    const bool isSingle = outline_.getSelectionArray().size() == 1;
    openEach(isSingle ? openOne : openSeveral);
}

void OpenCommands::openEach(const std::function<void(Bookmark&)>& open) {
    for (const Ref<Bookmark>& bookmark : bookmarksToOpen())
        open(*bookmark);
}

} // namespace tabulon
