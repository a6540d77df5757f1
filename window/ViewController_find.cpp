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
    finder_.begin(getMaster(), string);
}

std::optional<std::size_t> ViewController::goOnFinding(std::size_t nodes) {
    const std::optional<Finder::Start> start = finder_.goOn(getMaster(), nodes);
    if (!start)
        return std::nullopt;
    if (start->matched)
        selectBookmark(*finder_.foundBookmark());
    return start->count;
}

void ViewController::findNext() {
    if (finder_.searchString().empty())
        return platform_.beeper.beep();
    if (Bookmark* found = finder_.findNext(getMaster()))
        selectBookmark(*found);
    else
        platform_.beeper.beep();
}

void ViewController::selectBookmark(Bookmark& node) {
    if (!rowForItem(node))
        reveal(node);
    selectRowOf(node);
    showMatch();
}

// What was found where no cell shows it.
void ViewController::showMatch() {
    const FindPhases& phases = shared_.findPhases;
    if ((!phases.foundInTags && !phases.foundInNote) || !hasSelection())
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

// Everything above the node is expanded, the outermost folder last: its rows come in one go.
void ViewController::reveal(const Bookmark& node) {
    Bookmark* ancestor = node.getParent();
    std::size_t changes = 0;
    for (; ancestor && ancestor != &getMaster() && !rowForItem(*ancestor); ancestor = ancestor->getParent()) {
        changes += std::size_t{ancestor->isFolder() && !ancestor->showHier()};
        if (ancestor->isFolder())
            ancestor->setShowHier(true);
    }
    if (!ancestor || ancestor == &getMaster())
        return;
    rememberDesktop(changes);
    expandItem(*ancestor);
}

} // namespace tabulon
