#include "html/HtmlEntityTable.h"

namespace tabulon::html {
namespace {

constexpr Entity kEntities[] = {
#include "HtmlEntities.inc" // made of entities.txt
};

} // namespace

std::span<const Entity> entities() {
    return kEntities;
}

} // namespace tabulon::html
