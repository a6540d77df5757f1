#include "window/GetInfoController.h"

#include "base/Browsers.h"
#include "model/TreeWalk.h"
#include "window/Finding.h"
#include "window/Outline.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tabulon {
namespace {

constexpr std::string_view kFrameKey = "Get Info Window";

// The browsers are in the menu from its third item on.
constexpr int kFirstBrowser = 2;

// Returns the new value of a field. A text that equals the original one returns the original, which may be
// null.
Text typed(const std::string& text, const Text& original) {
    return text == original.view() ? original : Text(text);
}

} // namespace

void GetInfoController::editBookmark(Bookmark& node) {
    if (original_)
        doneBookmark();
    show(node);
    if (panel_ && outline_)
        outline_->selectRowOf(node);
}

void GetInfoController::show(Bookmark& node) {
    original_ = Ref<Bookmark>(&node);
    duplicate_ = Bookmark::initWithBookmark(node);
    known_ = Bookmark::initWithBookmark(node);
    if (panel_)
        fillPanel();
}

void GetInfoController::fillPanel() {
    showFields();
    panel_->selectName();
    updateButtons();
}

void GetInfoController::showFields() {
    panel_->reloadFields();
    const Text& name = duplicate_->itemName();
    panel_->setTitle(name.isEmpty() ? platform_.base.texts.text("MenuGetInfo") : name.string());
}

void GetInfoController::setPanel(InfoPanel* panel) {
    panel_ = panel;
    if (!panel_)
        return;
    panel_->setFrame(platform_.state.stringForKey(kFrameKey).value_or(""));
    fillPanel();
}

void GetInfoController::setName(const std::string& text) {
    duplicate_->setItemName(typed(text, original_->itemName()));
}

void GetInfoController::setURL(const std::string& text) {
    duplicate_->setItemURL(typed(text, original_->itemURL()));
}

void GetInfoController::setNote(const std::string& text) {
    duplicate_->setItemNote(typed(text, original_->itemNote()));
}

void GetInfoController::setTags(const std::string& text) {
    duplicate_->setItemTags(typed(text, original_->itemTags()));
}

void GetInfoController::setLocked(bool locked) {
    duplicate_->setItemLocked(locked);
    panel_->reloadFields();
}

std::vector<Application> GetInfoController::browserItems() const {
    const Localization& texts = platform_.base.texts;
    Application first = platform_.workspace.defaultBrowser().value_or(Application{});
    first.name = first.name.empty() ? texts.text("Default")
                                    : texts.format("%@ (%@)", first.name, texts.text("Default"));
    std::vector<Application> items = {first, {}};
    for (const Browser& browser : browsers())
        items.push_back({.name = std::string(browser.title), .icon = {}});
    return items;
}

void GetInfoController::openWith(int index) {
    duplicate_->setBrowser(getBrowserValue(index));
}

std::uint32_t GetInfoController::getBrowserValue(int index) {
    const int browser = index - kFirstBrowser;
    const bool known = browser >= 0 && browser < static_cast<int>(browsers().size());
    return known ? static_cast<std::uint32_t>(browsers()[static_cast<std::size_t>(browser)].code) : 0;
}

int GetInfoController::getBrowserMenuIndex(std::uint32_t value) {
    const Browser* browser = browserWithCode(value);
    return browser ? kFirstBrowser + static_cast<int>(browser - browsers().data()) : 0;
}

void GetInfoController::up() {
    Bookmark* parent = original_->getParent();
    step(parent && parent->getParent() ? parent : nullptr);
}

void GetInfoController::down() {
    step(original_->getChild());
}

void GetInfoController::next() {
    step(original_->nextBookmark());
}

void GetInfoController::previous() {
    const Bookmark* parent = original_->getParent();
    const ChildList* siblings = parent ? parent->getChildren() : nullptr;
    const std::size_t index = siblings ? siblings->indexOf(*original_) : ChildList::npos;
    step(index != ChildList::npos && index > 0 ? siblings->at(index - 1) : nullptr);
}

// `nullptr` if there is no item to go to.
void GetInfoController::step(Bookmark* target) {
    doneBookmark();
    if (!target || !isInTree(*target)) {
        platform_.beeper.beep();
        return updateButtons();
    }
    show(*target);
    if (outline_)
        outline_->selectRowOf(*target);
}

bool GetInfoController::canFindNext() const {
    return outline_ && !finding_.searchString().empty();
}

// A match in tags or note is shown by the search itself, before `editBookmark` is reached.
void GetInfoController::findNext() {
    doneBookmark();
    if (!outline_)
        return;
    finding_.findNext();
    Bookmark* found = finding_.foundBookmark();
    if (found && found != original_.get() && found->getParent())
        editBookmark(*found);
}

void GetInfoController::done() {
    if (!panel_)
        return;
    doneBookmark();
    dismissPanel();
}

void GetInfoController::cancel() {
    if (!panel_)
        return;
    if (outline_)
        outline_->selectRowOf(*original_);
    dismissPanel();
}

void GetInfoController::dismissPanel() {
    platform_.state.setStringForKey(kFrameKey, panel_->frame());
    InfoPanel* panel = std::exchange(panel_, nullptr);
    panel->dismiss();
}

bool GetInfoController::isInTree(const Bookmark& node) const {
    return outline_ && tabulon::isInTree(node, outline_->getMaster());
}

void GetInfoController::keepChange() {
    if (!isInTree(*original_))
        return;
    takeOverChanges();
    if (!duplicate_->isIdentical(*original_))
        saveBookmark();
}

// A panel beside its window is open while the user or a command changes the rows. Returns whether the panel
// has to show the fields again.
bool GetInfoController::takeOverChanges() {
    bool isTaken = false;
    const auto take = [&](auto get, auto set) {
        const auto now = std::invoke(get, *original_);
        const auto before = std::invoke(get, *known_);
        if (now == before)
            return;
        std::invoke(set, *known_, now);
        if (std::invoke(get, *duplicate_) != before) // also changed in the panel
            return;
        std::invoke(set, *duplicate_, now);
        isTaken = true;
    };
    take(&Bookmark::itemName, &Bookmark::setItemName);
    take(&Bookmark::itemURL, &Bookmark::setItemURL);
    take(&Bookmark::itemNote, &Bookmark::setItemNote);
    take(&Bookmark::itemTags, &Bookmark::setItemTags);
    take(&Bookmark::getType, &Bookmark::setType);
    take(&Bookmark::getFlags, &Bookmark::setFlags);
    take(&Bookmark::getLabel, &Bookmark::setLabel);
    take(&Bookmark::getStatus, &Bookmark::setStatus);
    take(&Bookmark::getBrowser, &Bookmark::setBrowser);
    return isTaken;
}

void GetInfoController::nodesDidLeave() {
    if (!panel_)
        return;
    if (!isInTree(*original_))
        return done();
    nodesDidChange();
    updateButtons();
}

void GetInfoController::nodesDidChange() {
    if (panel_ && takeOverChanges())
        showFields();
}

void GetInfoController::doneBookmark() {
    if (!outline_)
        return;
    keepChange();
    outline_->selectRowOf(*original_);
}

void GetInfoController::saveBookmark() {
    duplicate_->setItemDateModified(Date::now(platform_.base.clock));
    const bool newURL = !(duplicate_->itemURL() == original_->itemURL());
    original_->setWithBookmark(*duplicate_);
    if (newURL)
        outline_->currentRowDidChange();
    outline_->itemDidChange(*original_);
}

void GetInfoController::updateButtons() {
    if (!panel_)
        return;
    const Bookmark* parent = original_->getParent();
    const ChildList* siblings = parent ? parent->getChildren() : nullptr;
    panel_->setButtons(
        {.up = parent && parent->getParent(),
         .down = original_->isFolder(),
         .right = original_->nextBookmark() != nullptr,
         .left = siblings && siblings->contains(*original_) && siblings->front() != original_.get()});
}

void GetInfoController::selectNote(const std::string& string) {
    if (panel_)
        panel_->selectNote(string);
}

void GetInfoController::selectTags(const std::string& string) {
    if (panel_)
        panel_->selectTags(string);
}

} // namespace tabulon
