#include "model/TreePairing.h"

#include "model/TreeWalk.h"

#include <functional>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

// What two nodes must have in common, from the strongest evidence to the weakest.
enum class Likeness { Content, Main, Name, DateAdded };

bool isSameKind(const Bookmark& a, const Bookmark& b) {
    return a.isFolder() == b.isFolder() && a.isSeparator() == b.isSeparator();
}

// The text that people know an item by.
const Text& mainText(const Bookmark& node) {
    return node.isFolder() ? node.itemName() : node.itemURL();
}

bool isUsable(const Bookmark& node, Likeness likeness) {
    switch (likeness) {
    case Likeness::Content:
        return true;
    case Likeness::Main:
        return !node.isSeparator() && !mainText(node).isEmpty();
    case Likeness::Name:
        return !node.isSeparator() && !node.itemName().isEmpty();
    case Likeness::DateAdded:
        return !node.isSeparator() && !node.itemDateAdded().isNull();
    }
    return false;
}

bool isAlike(const Bookmark& a, const Bookmark& b, Likeness likeness) {
    if (!isSameKind(a, b))
        return false;
    switch (likeness) {
    case Likeness::Content:
        return a.isSeparator() || (a.itemName() == b.itemName() && a.itemURL() == b.itemURL() &&
                                   a.itemNote() == b.itemNote() && a.itemTags() == b.itemTags());
    case Likeness::Main:
        return mainText(a) == mainText(b);
    case Likeness::Name:
        return a.itemName() == b.itemName();
    case Likeness::DateAdded:
        return a.itemDateAdded() == b.itemDateAdded();
    }
    return false;
}

// Covers all that isAlike compares: links of one name and URL may be many, and differ in their notes only.
std::size_t hashOfContent(const Bookmark& node) {
    if (node.isSeparator())
        return 1;
    std::size_t hash = 0;
    for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
        hash = hash * 31 + std::hash<std::string_view>()(text->view());
    return hash;
}

std::size_t hashOf(const Bookmark& node, Likeness likeness) {
    const std::hash<std::string_view> hash;
    switch (likeness) {
    case Likeness::Content:
        return hashOfContent(node);
    case Likeness::Main:
        return hash(mainText(node).view());
    case Likeness::Name:
        return hash(node.itemName().view());
    case Likeness::DateAdded:
        return std::hash<double>()(node.itemDateAdded().referenceSeconds());
    }
    return 0;
}

class Pairing {
public:
    Pairing(const Bookmark& before, const Bookmark& after) : before_(before), after_(after) {
        pair(const_cast<Bookmark&>(before), const_cast<Bookmark&>(after));
        for (const Likeness likeness :
             {Likeness::Content, Likeness::Main, Likeness::Name, Likeness::DateAdded})
            run(likeness);
    }

    std::unordered_map<const Bookmark*, Bookmark*> partners() && { return std::move(partners_); }

private:
    struct Hash {
        Likeness likeness;
        std::size_t operator()(const Bookmark* node) const { return hashOf(*node, likeness); }
    };
    struct Equal {
        Likeness likeness;
        bool operator()(const Bookmark* a, const Bookmark* b) const { return isAlike(*a, *b, likeness); }
    };
    // Nodes that are alike, in their order. Those before `next` are taken.
    struct Queue {
        std::vector<Bookmark*> nodes;
        std::size_t next = 0;
    };
    using Candidates = std::unordered_map<const Bookmark*, Queue, Hash, Equal>;

    static Candidates candidatesFor(Likeness likeness) {
        return Candidates(0, Hash{likeness}, Equal{likeness});
    }

    bool isFree(const Bookmark& node, Likeness likeness) const {
        return isUsable(node, likeness) && !partners_.contains(&node);
    }

    void pair(Bookmark& a, Bookmark& b) {
        partners_.emplace(&a, &b);
        partners_.emplace(&b, &a);
        if (a.getChildren() && b.getChildren())
            folders_.emplace_back(&a, &b);
    }

    // Names and dates are evidence only among the children of one folder.
    void run(Likeness likeness) {
        pairWithinFolders(0, likeness);
        if (likeness != Likeness::Content && likeness != Likeness::Main)
            return;
        const std::size_t paired = folders_.size();
        pairAnywhere(likeness);
        pairWithinFolders(paired, likeness);
    }

    // Folders that are paired on the way are gone into as well, with the stronger evidence first.
    void pairWithinFolders(std::size_t first, Likeness likeness) {
        const std::size_t known = folders_.size();
        for (std::size_t index = first; index < folders_.size(); ++index) {
            const auto [a, b] = folders_[index];
            const bool isNew = index >= known || first > 0;
            if (isNew && likeness != Likeness::Content)
                pairChildren(*a, *b, Likeness::Content);
            if (isNew && likeness > Likeness::Main)
                pairChildren(*a, *b, Likeness::Main);
            if (isNew && likeness > Likeness::Name)
                pairChildren(*a, *b, Likeness::Name);
            pairChildren(*a, *b, likeness);
        }
    }

    void pairChildren(const Bookmark& a, const Bookmark& b, Likeness likeness) {
        Candidates candidates = candidatesFor(likeness);
        for (Bookmark* child : *a.getChildren())
            if (isFree(*child, likeness))
                candidates[child].nodes.push_back(child);
        if (candidates.empty())
            return;
        for (Bookmark* child : *b.getChildren())
            take(candidates, *child, likeness);
    }

    void pairAnywhere(Likeness likeness) {
        Candidates candidates = candidatesFor(likeness);
        walkBelow(before_, [&](Bookmark& node) {
            if (isFree(node, likeness) && !node.isSeparator())
                candidates[&node].nodes.push_back(&node);
            return true;
        });
        if (candidates.empty())
            return;
        walkBelow(after_, [&](Bookmark& node) {
            if (!node.isSeparator())
                take(candidates, node, likeness);
            return true;
        });
    }

    void take(Candidates& candidates, Bookmark& node, Likeness likeness) {
        if (!isFree(node, likeness))
            return;
        const auto found = candidates.find(&node);
        if (found == candidates.end())
            return;
        Queue& queue = found->second;
        if (queue.next < queue.nodes.size())
            pair(*queue.nodes[queue.next++], node);
    }

    const Bookmark& before_;
    const Bookmark& after_;
    std::unordered_map<const Bookmark*, Bookmark*> partners_;
    std::vector<std::pair<Bookmark*, Bookmark*>> folders_;
};

} // namespace

std::unordered_map<const Bookmark*, Bookmark*> pairsOf(const Bookmark& before, const Bookmark& after) {
    return Pairing(before, after).partners();
}

} // namespace tabulon
