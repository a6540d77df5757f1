// A reference implementation of the tag scanner: the rules one by one, byte by byte, slow, and without code
// of the scanner, so that the two can be compared on random input.
#pragma once

#include "tests/formats/TreeText.h"

#include <string>
#include <vector>

namespace tabulon::test {

class LiteralScanner {
public:
    /// `now` in seconds since 1970.
    explicit LiteralScanner(double now) : now_(now) {}

    /// Returns the lines of the tree that `bytes` contain. The last item exists until the next scan.
    std::vector<TreeLine> scan(const std::string& bytes);

private:
    struct Node {
        TreeLine line;
        int parent = -1;
        std::vector<int> children = {};
    };
    using Position = long;
    static constexpr Position kNone = -1;

    Position size() const { return static_cast<Position>(bytes_.size()); }
    char byteAt(Position position) const;
    bool standsAt(Position position, const std::string& pattern) const;
    Position find(const std::string& pattern, Position from) const;
    std::string slice(Position from, Position to) const;

    Position step(Position cursor);
    Position separator(Position token);
    Position description(Position token);
    Position link(Position token);
    Position heading(Position token);
    std::string linkName(Position from, Position to) const;
    std::optional<double> date(const std::string& attribute, Position token, Position next) const;
    void append(TreeLine line);
    void addLines(int node, int level, std::vector<TreeLine>& lines) const;

    double now_;
    std::string bytes_;
    std::vector<Node> nodes_;
    int current_ = -1;
    int last_ = -1;
};

} // namespace tabulon::test
