#include "html/HtmlFormatting.h"

#include <functional>

namespace tabulon::html {

void FormattingElements::clearToMarker() {
    while (!entries_.empty()) {
        const bool isMarker = entries_.back().node == nullptr;
        entries_.pop_back();
        if (isMarker)
            return;
    }
}

void FormattingElements::add(Node& node, std::size_t attributes) {
    int equals = 0;
    std::size_t index = entries_.size();
    while (index > 0 && entries_[index - 1].node) {
        --index;
        ++steps_;
        if (entries_[index].node->tag == node.tag && entries_[index].attributes == attributes &&
            ++equals == 3) {
            removeAt(index);
            break;
        }
    }
    entries_.push_back({&node, attributes});
}

void FormattingElements::removeAt(std::size_t index) {
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
}

void FormattingElements::insertAt(std::size_t index, Entry entry) {
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(index), entry);
}

std::size_t FormattingElements::lastOf(Tag tag) const {
    for (std::size_t index = entries_.size(); index > 0 && entries_[index - 1].node; --index) {
        ++steps_;
        if (entries_[index - 1].node->tag == tag)
            return index - 1;
    }
    return npos;
}

std::size_t FormattingElements::indexOf(const Node& node) const {
    for (std::size_t index = entries_.size(); index > 0; --index) {
        ++steps_;
        if (entries_[index - 1].node == &node)
            return index - 1;
    }
    return npos;
}

std::size_t hashOf(const std::vector<Attribute>& attributes) {
    const std::hash<std::string> hash;
    std::size_t sum = attributes.size();
    for (const Attribute& attribute : attributes)
        sum += hash(attribute.name) * 31 ^ hash(attribute.value);
    return sum;
}

} // namespace tabulon::html
