// Finding in the document (model/Finder.h): the first match, the next one, and showing it. The find bar and
// the info panel use it alike.
#pragma once

#include "model/Finder.h"
#include "platform/Platform.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {

class Collation;
class Outline;

/// The text of a node that no cell shows and in which a match was found.
enum class FoundIn { Note, Tags };

/// Is called in the order in which the observers were added, and overrides only the functions that it needs.
class FindObserver {
public:
    virtual ~FindObserver() = default;

    /// A search begun by `Finding::search` has come to its end with so many matches.
    virtual void searchDidEnd(std::size_t /*count*/) {}
    /// The node found has been selected; `match` is the place in the text that contains it.
    virtual void foundOutsideRows(FoundIn /*text*/, const std::string& /*match*/) {}
};

class Finding {
public:
    /// What is handed in must live longer.
    Finding(Outline& outline, const Platform& platform, FindPhases& phases, const Collation& collation);

    /// The observer must live as long as this is used.
    void addObserver(FindObserver& observer) { observers_.push_back(&observer); }

    const std::string& searchString() const { return finder_.searchString(); }
    void setSearchString(std::string text) { finder_.setSearchString(std::move(text)); }
    Bookmark* foundBookmark() const { return finder_.foundBookmark(); }
    void setFoundBookmark(Bookmark* node) { finder_.setFoundBookmark(node); }

    /// Goes to the first match and returns the number of all.
    std::size_t findText(const std::string& string);
    /// The same in portions: in a large document it returns before the end, and goes on while the main loop
    /// is idle. While a cell is edited it waits. The observers are called with the number.
    void search(const std::string& string);
    /// Ends a search that still goes on, without a result.
    void cancelSearch() { search_.reset(); }
    /// Goes to the next match. A search that still goes on comes to its end before. Beeps without a search
    /// string and after the last match.
    void findNext();

    /// Selects the node's row alone and scrolls to it; collapsed folders above it are expanded. A node
    /// without a row leaves the selection as it is. The observers are called for what was found in tags or
    /// note.
    void selectBookmark(Bookmark& node);

    /// Returns the first row from `start` on, going round, whose name begins with `prefix`, ignoring case.
    /// For typing ahead.
    std::optional<std::size_t> rowWithPrefix(const std::string& prefix, std::size_t start) const;

private:
    void goOn(std::size_t nodes);
    void goOnAfter(double seconds);
    void showMatch();

    Outline& outline_;
    const Platform platform_;
    const FindPhases& phases_;
    const Collation& collation_;
    Finder finder_;
    std::vector<FindObserver*> observers_;
    std::unique_ptr<Timer> search_; ///< the next portion of a search
};

} // namespace tabulon
