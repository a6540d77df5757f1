// A reference implementation of the tag scanner for comparison on random input. It applies the rules byte by
// byte, is slow, and uses no code of the scanner.
#pragma once

#include "tests/formats/TreeText.h"

#include <string>
#include <vector>

namespace tabulon::test {

class ReferenceScanner {
public:
    /// `now` is in seconds since 1970.
    explicit ReferenceScanner(double now) : now_(now) {}

    /// Returns the lines of the tree that `bytes` contain. A description before the first item of the next
    /// scan becomes the note of the last item of this one.
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
    /// Returns the byte at `position`, or NUL outside the file.
    char byteAt(Position position) const;
    bool standsAt(Position position, const std::string& pattern) const;
    /// Returns the position of the first `pattern` at or after `from`, or `kNone`.
    Position find(const std::string& pattern, Position from) const;
    /// Returns the bytes from `from` to before `to`.
    std::string slice(Position from, Position to) const;

    Position step(Position cursor);
    Position separator(Position token);
    Position description(Position token);
    Position link(Position token);
    Position heading(Position token);
    std::string linkName(Position from, Position to) const;
    /// Returns the date in the first `attribute` from `token` to `next`, in seconds since 1970, or `nullopt`.
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
