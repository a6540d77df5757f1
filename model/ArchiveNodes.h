// Reading of one record of a keyed archive into a node. ArchiveReader.cpp and ArchiveSalvage.cpp find the
// records and build the tree.
#pragma once

#include "model/ArchiveGraph.h"
#include "model/Bookmark.h"

#include <vector>

namespace tabulon::archive {

/// Reads records one after the other. The records of one writer are similar, so each one is compared with the
/// one before it, and only the differences are decoded.
class NodeReader {
public:
    using Object = Graph::Object;

    /// Strict refuses a record at its first damage; Salvage reads as much of it as possible.
    enum class Care { Strict, Salvage };

    /// `graph` must outlive the reader.
    explicit NodeReader(Graph& graph, Care care = Care::Strict) : graph_(graph), care_(care) {}

    /// Fills `node` with everything but its children. Returns false if the record is damaged or is no
    /// bookmark. With `Care::Strict` the graph then has the reason, and the node must not be used. With
    /// `Care::Salvage` the node has what could be read, even from a record whose class is lost, and the
    /// graph's damage is cleared. Requires: an empty node.
    bool read(Bookmark& node, Object dictionary);

    /// Returns the list of children of the node that was read last: an Array, or Damaged if it has none.
    Object children() const { return children_; }

private:
    using Kind = BinaryPlist::Kind;

    static constexpr std::uint64_t kNoId = ~std::uint64_t{0};
    /// The most different sets of keys that are checked for misspelt keys, and the most for which the whole
    /// file is searched for objects that overlap a key. No writer has more.
    static constexpr std::size_t kMostLayouts = 4096;
    static constexpr std::size_t kMostSearches = 8;
    static constexpr std::uint64_t kLongestKey = 32;

    /// A key of the current set of keys.
    struct Column {
        Key key;
        std::uint64_t place;     // the index of its value among a dictionary's references
        std::uint64_t settledId; // the object number of a value that is already decoded, or kNoId
    };

    /// The numbers of a node.
    struct Codes {
        std::uint8_t type = 0;
        std::uint8_t label = 0;
        std::uint8_t flags = 0;
        std::uint8_t status = 0;
        std::int64_t browser = 0;
        bool folder = false;
        bool openFolder = false;
        bool autoTab = false;

        /// Sets the number of a key to the low bits of `value`. Does nothing for keys of other values.
        void set(Key key, std::uint64_t value);
        /// Sets all numbers of `node`, and its icon by them.
        void give(Bookmark& node) const;
    };

    // The functions that look up keys or read values return false after damage, which is recorded in the
    // graph. With `Care::Salvage` it may be cleared again.

    bool lookUpKeys(Object dictionary);
    /// Adds a column for key `index` if it is a key of a node.
    bool lookUpKey(Object dictionary, std::uint64_t index);
    bool isMisspeltKey(Object dictionary, std::uint64_t index);
    bool everyKeyIsSound(Object dictionary);
    /// Reads the values of all columns. With `Care::Salvage` a damaged value is null or 0, and the others are
    /// read.
    bool readValues(Bookmark& node, Object dictionary);
    bool readValue(Bookmark& node, Column& column, std::uint64_t id);
    bool readCode(Key key, Object value);
    bool readReference(Bookmark& node, Key key, std::uint64_t uid);
    bool goesOnAfter(bool& isWhole);

    Graph& graph_; // not owned
    const Care care_;
    Object like_; // the dictionary whose keys are in `columns_`
    std::vector<Column> columns_;
    bool keysAreWhole_ = true; // false if a key of `like_` is damaged
    std::size_t layouts_ = 0;  // the number of different sets of keys until now
    Codes codes_; // of the node that is being read; values that are settled are those of the node before
    Class class_ = Class::Unknown; // of the node that is being read
    Object children_;
};

} // namespace tabulon::archive
