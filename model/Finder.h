// Finding in one document: counting matches and stepping from one to the next, in document order. It works on
// the tree alone; the find bar and what is shown of a match are the business of the layers above.
#pragma once

#include "model/Bookmark.h"
#include "text/TextSearch.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace tabulon {

class Collation;

/// Which texts of the node at hand are still to be looked at, and where the last match was: the name or the
/// URL, then the tags, then the note. One value for all windows, so that finding in one of them changes where
/// the others go on.
struct FindPhases {
    bool namePending = true;
    bool tagsPending = true;
    bool notePending = true;
    bool foundInNote = false;
    bool foundInTags = false;
    /// Tags are looked at together with name and URL: the column of tags is shown.
    bool tagsWithName = false;

    /// As at the start of a search; `tagsWithName` stays.
    void initSearch();
};

/// What was searched for in one document, and the node where that was found last. A text matches that
/// contains the search string, ignoring case and diacritics as the language does; a null text never does.
class Finder {
public:
    /// Both must live longer.
    Finder(FindPhases& phases, const Collation& collation) : phases_(phases), collation_(collation) {}

    const std::string& searchString() const { return searchString_; }
    void setSearchString(std::string text);
    /// Null when nothing is found, or no longer. The root stands for the place before the first node.
    Bookmark* foundBookmark() const { return found_.get(); }
    void setFoundBookmark(Bookmark* node) { found_ = Ref<Bookmark>(node); }

    /// Begins a search and goes to its first match; where there is none the node that was found before stays.
    /// Gives how many matches there are below `root`: for each node one in name and URL, one in the tags
    /// (unless they count as the name) and one in the note. `matched` tells whether there is a first match.
    struct Start {
        std::size_t count = 0;
        bool matched = false;
    };
    Start findText(const Bookmark& root, std::string text);

    /// The same in portions, so that a window stays alive meanwhile: `begin`, then `goOn` until it gives the
    /// result. Between two portions anything may happen to the tree; where the place that was reached has
    /// left it, the search begins again.
    void begin(const Bookmark& root, std::string text);
    /// Looks at up to `nodes` more nodes, at least one. None before the last one, and where nothing has
    /// begun.
    std::optional<Start> goOn(const Bookmark& root, std::size_t nodes);

    /// Goes on to the next match, which may be in another text of the same node; null behind the last one. A
    /// match in the tags leaves out the note of its node. After the last match, and when the node that was
    /// found has left the tree, it begins again with the root itself. Requires a search string.
    Bookmark* findNext(Bookmark& root);
    /// The same for a tree that is as it was when the last match was found, which is there: it is not looked
    /// for, which would take longer the deeper it stands.
    Bookmark* findFurther();

private:
    static constexpr std::size_t kLong = 256;

    bool matches(const Text& text) const;
    bool matchesName(const Bookmark& node) const;
    std::size_t countIn(const Bookmark& node) const;
    void look(Bookmark& node);
    bool test(const Bookmark& node);
    Bookmark* findFrom(Bookmark* start);

    FindPhases& phases_;
    const Collation& collation_;
    std::string searchString_;
    TextSearch search_;
    /// Whether long texts match that many nodes may share, by where they lie. Each is kept, so that no other
    /// comes to lie there.
    mutable std::unordered_map<const char*, std::pair<Text, bool>> longTexts_;
    Ref<Bookmark> found_;
    /// A search that goes on.
    struct Search {
        std::size_t count = 0;
        Ref<Bookmark> first{}; ///< the first node with a match
        Ref<Bookmark> next{};  ///< the node to go on with; null behind the last one
    };
    std::optional<Search> ongoing_;
};

} // namespace tabulon
