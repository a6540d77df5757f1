// A record of a keyed archive → one node: what its keys mean. Which records there are and how they hang
// together is in ArchiveReader.cpp and ArchiveSalvage.cpp.
#pragma once

#include "model/ArchiveGraph.h"
#include "model/Bookmark.h"

#include <vector>

namespace tabulon::archive {

/// Reads records one after the other. Records of one writer are alike, so each one is compared with the one
/// before it and only what differs is looked at.
class NodeReader {
public:
    using Object = Graph::Object;

    /// Whether a record is refused at its first damage, or read as far as it can be.
    enum class Care { Strict, Salvage };

    explicit NodeReader(Graph& graph, Care care = Care::Strict) : graph_(graph), care_(care) {}

    /// Fills an empty node with everything but its children. Returns false when the record is damaged or is
    /// no bookmark. With `Care::Strict` the graph then has the reason, and the node is not to be used. With
    /// `Care::Salvage` the node has what could be read, also from a record whose class is lost, and the
    /// graph's damage is forgotten.
    bool read(Bookmark& node, Object dictionary);

    /// The list of children of the node that was read last: an Array, or Damaged for none.
    Object children() const { return children_; }

private:
    using Kind = BinaryPlist::Kind;

    static constexpr std::uint64_t kNoId = ~std::uint64_t{0};
    /// So many sets of keys are looked through for misspelt ones, and in so many of them the whole file is
    /// searched for objects that lie over a key. No writer has more.
    static constexpr std::size_t kMostLayouts = 4096;
    static constexpr std::size_t kMostSearches = 8;
    static constexpr std::uint64_t kLongestKey = 32;

    /// A key of the nodes that are being read.
    struct Column {
        Key key;
        std::uint64_t place;     // of its value among a dictionary's references
        std::uint64_t settledId; // the value that needs no second look, or kNoId
    };

    /// The plain numbers of a node.
    struct Codes {
        std::uint8_t type = 0;
        std::uint8_t label = 0;
        std::uint8_t flags = 0;
        std::uint8_t status = 0;
        std::int64_t browser = 0;
        bool folder = false;
        bool openFolder = false;
        bool autoTab = false;

        void set(Key key, std::uint64_t value);
        void give(Bookmark& node) const;
    };

    bool lookUpKeys(Object dictionary);
    bool lookUpKey(Object dictionary, std::uint64_t index);
    bool isMisspeltKey(Object dictionary, std::uint64_t index);
    bool everyKeyIsSound(Object dictionary);
    bool readValues(Bookmark& node, Object dictionary);
    bool readValue(Bookmark& node, Column& column, std::uint64_t id);
    bool readCode(Key key, Object value);
    bool readReference(Bookmark& node, Key key, std::uint64_t uid);
    bool goesOnAfter(bool& isWhole);

    Graph& graph_;
    const Care care_;
    Object like_; // the dictionary whose keys stand in `columns_`
    std::vector<Column> columns_;
    bool keysAreWhole_ = true;
    std::size_t layouts_ = 0; // different sets of keys so far
    Codes codes_; // of the node that is being read, and of the one before where nothing else is said
    Class class_ = Class::Unknown;
    Object children_;
};

} // namespace tabulon::archive
