// Finding in the document: the first match, the next one, and showing it.
#include "window/GetInfoController.h"
#include "window/ViewController.h"

#include <limits>

namespace tabulon {

std::size_t ViewController::findText(const std::string& string) {
    beginFinding(string);
    return *goOnFinding(std::numeric_limits<std::size_t>::max());
}

void ViewController::beginFinding(const std::string& string) {
    finder_.begin(outline_.getMaster(), string);
}

std::optional<std::size_t> ViewController::goOnFinding(std::size_t nodes) {
    const std::optional<Finder::Start> start = finder_.goOn(outline_.getMaster(), nodes);
    if (!start)
        return std::nullopt;
    if (start->matched)
        selectBookmark(*finder_.foundBookmark());
    return start->count;
}

void ViewController::findNext() {
    if (finder_.searchString().empty())
        return platform_.beeper.beep();
    if (Bookmark* found = finder_.findNext(outline_.getMaster()))
        selectBookmark(*found);
    else
        platform_.beeper.beep();
}

void ViewController::selectBookmark(Bookmark& node) {
    if (!outline_.rowForItem(node))
        outline_.reveal(node);
    outline_.selectRowOf(node);
    showMatch();
}

// What was found where no cell shows it.
void ViewController::showMatch() {
    const FindPhases& phases = shared_.findPhases;
    if ((!phases.foundInTags && !phases.foundInNote) || !outline_.hasSelection())
        return;
    getInfo();
    const Bookmark& found = *finder_.foundBookmark();
    const Text& text = phases.foundInNote ? found.itemNote() : found.itemTags();
    const std::string match(collation_.standardMatch(text.view(), finder_.searchString()));
    if (phases.foundInNote)
        info_->selectNote(match);
    else
        info_->selectTags(match);
}

} // namespace tabulon
