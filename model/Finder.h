// The search in one document: counts the matches and steps from one to the next, in document order. The
// layers above have the find bar and show the matches.
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

/// The texts of the current node that are not tested yet, and the text of the last match. The order is: name
/// and URL, tags, note. All windows share one value, so a search in one window changes where the others
/// continue.
struct FindPhases {
    bool namePending = true;
    bool tagsPending = true;
    bool notePending = true;
    bool foundInNote = false;
    bool foundInTags = false;
    /// True if tags are tested together with name and URL, because the column of tags is shown.
    bool tagsWithName = false;

    /// Resets all fields for a new search, except `tagsWithName`.
    void initSearch();
};

/// The search string of one document and the node of the last match. A text matches if it contains the search
/// string in the sense of `Collation::standardContains`; a null text never matches. Texts are UTF-8.
class Finder {
public:
    /// Both must outlive the finder.
    Finder(FindPhases& phases, const Collation& collation) : phases_(phases), collation_(collation) {}

    const std::string& searchString() const { return searchString_; }
    /// Sets the search string only: the found node and the phases are unchanged.
    void setSearchString(std::string text);
    /// Returns the node of the last match, or nullptr if there is none. The root means: before the first
    /// node. The node may have been removed from the tree.
    Bookmark* foundBookmark() const { return found_.get(); }
    /// Sets the found node, which may be nullptr. The finder has a count of it.
    void setFoundBookmark(Bookmark* node) { found_ = Ref<Bookmark>(node); }

    /// The result of a search.
    struct Start {
        /// The number of matches below the root: for each node one for name and URL, one for the tags (unless
        /// they are tested with the name) and one for the note.
        std::size_t count = 0;
        /// True if there is a first match, which is the found node.
        bool matched = false;
    };
    /// Starts a search below `root`, moves to its first match and returns the result. Without a match the
    /// node that was found before is kept. Linear in the bytes of the texts.
    Start findText(const Bookmark& root, std::string text);

    /// Starts a search like `findText` that is performed in portions, so that a window can process events
    /// between them. The caller must call `goOn` until that returns a result. The tree may change between two
    /// portions; if the node that was reached is removed, the search starts again.
    void begin(const Bookmark& root, std::string text);
    /// Tests up to `nodes` more nodes. Returns the result after the last node, `nullopt` before that and if
    /// no search was started. Requires: nodes >= 1, and the same root as in `begin`.
    std::optional<Start> goOn(const Bookmark& root, std::size_t nodes);

    /// Moves to the next match and returns its node, or nullptr after the last match. The match may be in
    /// another text of the same node. After a match in the tags the note of the node is skipped. Without a
    /// found node, which is the case after the last match, and if it was removed from the tree, starts again
    /// with the root itself. Requires: a search string.
    Bookmark* findNext(Bookmark& root);
    /// Moves to the next match like `findNext`, but without testing whether the found node is in the tree,
    /// which takes time in proportion to its depth. Requires: a found node, in a tree that has not changed
    /// since.
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
    /// Whether long shared texts match, by their address. Each text is kept, so that its address is not
    /// reused.
    mutable std::unordered_map<const char*, std::pair<Text, bool>> longTexts_;
    Ref<Bookmark> found_;
    /// A search that is performed in portions.
    struct Search {
        std::size_t count = 0;
        Ref<Bookmark> first{}; ///< the first node with a match
        Ref<Bookmark> next{};  ///< the node to continue with; null after the last one
    };
    std::optional<Search> ongoing_;
};

} // namespace tabulon
