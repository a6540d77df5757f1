#include "window/NodeRecords.h"

#include <fmt/format.h>

#include <cstring>
#include <random>

namespace tabulon {
namespace {

struct Record {
    std::uint32_t generation;
    std::uint32_t index;
};
static_assert(sizeof(Record) == 8);

} // namespace

NodeRecords::NodeRecords() {
    std::random_device random;
    for (int i = 0; i < 4; ++i)
        token_ += fmt::format("{:08x}", random());
}

void NodeRecords::clear(List list) {
    at(list) = {generations_++, {}};
}

std::string NodeRecords::add(List list, Ref<Bookmark> node) {
    Entries& entries = at(list);
    const Record record{entries.generation, static_cast<std::uint32_t>(entries.nodes.size())};
    entries.nodes.push_back(std::move(node));
    std::string bytes(sizeof record, '\0');
    std::memcpy(bytes.data(), &record, sizeof record);
    return bytes;
}

Ref<Bookmark> NodeRecords::find(std::string_view bytes) const {
    Record record{};
    if (bytes.size() != sizeof record)
        return nullptr;
    std::memcpy(&record, bytes.data(), sizeof record);
    for (const Entries& entries : lists_)
        if (entries.generation == record.generation && record.index < entries.nodes.size())
            return entries.nodes[record.index];
    return nullptr;
}

} // namespace tabulon
