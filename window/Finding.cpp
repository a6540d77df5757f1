#include "window/Finding.h"

#include "base/Utf8.h"
#include "text/Collation.h"
#include "window/Outline.h"

#include <algorithm>
#include <compare>
#include <limits>

namespace tabulon {
namespace {

constexpr std::size_t kPortion = 20'000; // nodes, searched in a few milliseconds
constexpr double kEditingPause = 0.25;   // seconds

// Returns the first `count` characters of UTF-8 text, or all of it.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    while (end < text.size()) {
        const bool startsCharacter = !utf8::isContinuation(text[end]);
        if (startsCharacter && count-- == 0)
            break;
        ++end;
    }
    return text.substr(0, end);
}

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return !utf8::isContinuation(byte); }));
}

} // namespace

Finding::Finding(Outline& outline, const Platform& platform, FindPhases& phases, const Collation& collation)
    : outline_(outline), platform_(platform), phases_(phases), collation_(collation),
      finder_(phases, collation) {}

void Finding::findText(const std::string& string) {
    cancelSearch();
    finder_.begin(outline_.getMaster(), string);
    goOn(kPortion);
}

void Finding::goOn(std::size_t nodes) {
    const std::optional<Finder::Start> start = finder_.goOn(outline_.getMaster(), nodes);
    if (!start)
        return goOnAfter(0);
    if (start->matched)
        selectBookmark(*finder_.foundBookmark());
    cancelSearch();
    for (FindObserver* observer : observers_)
        observer->searchDidEnd(start->count);
}

// Pauses while a cell is edited, because selecting a match would end that.
void Finding::goOnAfter(double seconds) {
    search_ = platform_.timers.after(
        seconds, [this] { outline_.view().isEditing() ? goOnAfter(kEditingPause) : goOn(kPortion); });
}

void Finding::findNext() {
    if (search_)
        goOn(std::numeric_limits<std::size_t>::max());
    if (finder_.searchString().empty())
        return platform_.beeper.beep();
    if (Bookmark* found = finder_.findNext(outline_.getMaster()))
        selectBookmark(*found);
    else
        platform_.beeper.beep();
}

void Finding::selectBookmark(Bookmark& node) {
    if (!outline_.rowForItem(node))
        outline_.reveal(node);
    outline_.selectRowOf(node);
    showMatch();
}

// Reports a match in a text that no cell shows.
void Finding::showMatch() {
    if ((!phases_.foundInTags && !phases_.foundInNote) || !outline_.hasSelection())
        return;
    const Bookmark& found = *finder_.foundBookmark();
    const Text& text = phases_.foundInNote ? found.itemNote() : found.itemTags();
    const std::string match(collation_.standardMatch(text.view(), finder_.searchString()));
    for (FindObserver* observer : observers_)
        observer->foundOutsideRows(phases_.foundInNote ? FoundIn::Note : FoundIn::Tags, match);
}

std::optional<std::size_t> Finding::rowWithPrefix(const std::string& prefix, std::size_t start) const {
    const std::size_t length = characterCount(prefix);
    for (std::size_t step = 0; step < outline_.numberOfRows(); ++step) {
        const std::size_t row = (start + step) % outline_.numberOfRows();
        const std::string_view name = firstCharacters(outline_.itemAtRow(row).itemName().view(), length);
        if (!name.empty() && std::is_eq(collation_.compareIgnoringCase(name, prefix)))
            return row;
    }
    return std::nullopt;
}

} // namespace tabulon
