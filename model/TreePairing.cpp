#include "model/TreePairing.h"

#include "model/TreeWalk.h"

#include <functional>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

// The properties that two nodes must have in common, from the strongest evidence to the weakest.
enum class Likeness { Content, Main, Name, DateAdded };

bool isSameKind(const Bookmark& a, const Bookmark& b) {
    return a.isFolder() == b.isFolder() && a.isSeparator() == b.isSeparator();
}

// Returns the text that identifies an item for the user.
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

// Compares nodes by one likeness.
class Comparer {
public:
    Comparer(LongTexts& texts, Likeness likeness) : texts_(texts), likeness_(likeness) {}

    bool isAlike(const Bookmark& a, const Bookmark& b) const {
        if (!isSameKind(a, b))
            return false;
        switch (likeness_) {
        case Likeness::Content:
            return a.isSeparator() || hasSameContent(a, b);
        case Likeness::Main:
            return texts_.areEqual(mainText(a), mainText(b));
        case Likeness::Name:
            return texts_.areEqual(a.itemName(), b.itemName());
        case Likeness::DateAdded:
            return a.itemDateAdded() == b.itemDateAdded();
        }
        return false;
    }

    std::size_t hash(const Bookmark& node) const {
        switch (likeness_) {
        case Likeness::Content:
            return hashOfContent(node);
        case Likeness::Main:
            return texts_.hash(mainText(node));
        case Likeness::Name:
            return texts_.hash(node.itemName());
        case Likeness::DateAdded:
            return std::hash<double>()(node.itemDateAdded().referenceSeconds());
        }
        return 0;
    }

private:
    bool hasSameContent(const Bookmark& a, const Bookmark& b) const {
        return texts_.areEqual(a.itemName(), b.itemName()) && texts_.areEqual(a.itemURL(), b.itemURL()) &&
               texts_.areEqual(a.itemNote(), b.itemNote()) && texts_.areEqual(a.itemTags(), b.itemTags());
    }

    // Covers all that is compared, because many links may have one name and URL and different notes.
    std::size_t hashOfContent(const Bookmark& node) const {
        if (node.isSeparator())
            return 1;
        std::size_t hash = 0;
        for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
            hash = hash * 31 + texts_.hash(*text);
        return hash;
    }

    LongTexts& texts_;
    Likeness likeness_;
};

class Pairing {
public:
    Pairing(const Bookmark& before, const Bookmark& after, LongTexts& texts)
        : before_(before), after_(after), texts_(texts) {
        pair(const_cast<Bookmark&>(before), const_cast<Bookmark&>(after));
        for (const Likeness likeness :
             {Likeness::Content, Likeness::Main, Likeness::Name, Likeness::DateAdded})
            run(likeness);
    }

    std::unordered_map<const Bookmark*, Bookmark*> partners() && { return std::move(partners_); }

private:
    struct Hash {
        Comparer comparer;
        std::size_t operator()(const Bookmark* node) const { return comparer.hash(*node); }
    };
    struct Equal {
        Comparer comparer;
        bool operator()(const Bookmark* a, const Bookmark* b) const { return comparer.isAlike(*a, *b); }
    };
    // Nodes that are alike, in order. Those before `next` are paired.
    struct Queue {
        std::vector<Bookmark*> nodes;
        std::size_t next = 0;
    };
    using Candidates = std::unordered_map<const Bookmark*, Queue, Hash, Equal>;

    Candidates candidatesFor(Likeness likeness) {
        const Comparer comparer(texts_, likeness);
        return Candidates(0, Hash{comparer}, Equal{comparer});
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

    // Pairs the children of paired folders, also of folders that are paired meanwhile. For those the stronger
    // evidence is used first.
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
    LongTexts& texts_;
    std::unordered_map<const Bookmark*, Bookmark*> partners_;
    std::vector<std::pair<Bookmark*, Bookmark*>> folders_;
};

} // namespace

std::unordered_map<const Bookmark*, Bookmark*> pairsOf(const Bookmark& before, const Bookmark& after,
                                                       LongTexts& texts) {
    return Pairing(before, after, texts).partners();
}

} // namespace tabulon
