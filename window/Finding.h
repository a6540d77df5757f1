// Finding in the document (model/Finder.h): selecting the first match and the next one. The find bar and the
// info panel use it.
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

/// Receives the results of searches. Observers are called in the order in which they were added. An observer
/// overrides only the functions that it needs.
class FindObserver {
public:
    virtual ~FindObserver() = default;

    /// Called when a search of `Finding::findText` has ended; `count` is the number of matches.
    virtual void searchDidEnd(std::size_t /*count*/) {}
    /// Called when a node has been selected because of a match in its note or tags. `match` is the part of
    /// that text that matches, in UTF-8.
    virtual void foundOutsideRows(FoundIn /*text*/, const std::string& /*match*/) {}
};

/// The search of one document.
class Finding {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    Finding(Outline& outline, const Platform& platform, FindPhases& phases, const Collation& collation);

    /// Adds an observer. Requires: it exists until the last call of another function.
    void addObserver(FindObserver& observer) { observers_.push_back(&observer); }

    /// Returns the text of the last search, empty before the first one.
    const std::string& searchString() const { return finder_.searchString(); }
    /// Sets the text that `findNext` searches for.
    void setSearchString(std::string text) { finder_.setSearchString(std::move(text)); }
    /// Returns the node of the last match, or `nullptr`.
    Bookmark* foundBookmark() const { return finder_.foundBookmark(); }
    /// Sets the node that `findNext` continues after.
    void setFoundBookmark(Bookmark* node) { finder_.setFoundBookmark(node); }

    /// Cancels a search that has not ended, and searches the document for `string` (UTF-8) in portions of
    /// some milliseconds. In a large document it returns before the search has ended, and continues while the
    /// main loop is idle. It pauses while a cell is edited. At the end it selects the first match if there is
    /// one, and the observers receive the number of all matches. The whole time is linear in the number of
    /// nodes.
    void findText(const std::string& string);
    /// Cancels a search that has not ended. The observers are not called.
    void cancelSearch() { search_.reset(); }
    /// Selects the next match. A search that has not ended is completed first. Beeps if there is no search
    /// string, and after the last match.
    void findNext();

    /// Expands the folders that the node is in, selects its row alone and scrolls to it. If the node still
    /// has no row, the selection stays as it is. The observers are called if the last match was in tags or
    /// note.
    void selectBookmark(Bookmark& node);

    /// Returns the first row whose name begins with `prefix` (UTF-8), ignoring case. The rows are tried from
    /// `start` to the last one, then from the first one on. Returns `nullopt` if there is none, and for an
    /// empty prefix.
    std::optional<std::size_t> rowWithPrefix(const std::string& prefix, std::size_t start) const;

private:
    /// Searches up to `nodes` further nodes, and ends the search or continues it later.
    void goOn(std::size_t nodes);
    /// Continues the search after a pause.
    void goOnAfter(double seconds);
    /// Calls the observers if the match is in tags or note.
    void showMatch();

    Outline& outline_;
    const Platform platform_;
    const FindPhases& phases_;
    const Collation& collation_;
    Finder finder_;
    std::vector<FindObserver*> observers_;
    std::unique_ptr<Timer> search_; ///< the next portion of a search; null when none has to continue
};

} // namespace tabulon
