#include "html/HtmlEntityTable.h"

namespace tabulon::html {
namespace {

constexpr Entity kEntities[] = {
#include "HtmlEntities.inc" // generated from entities.txt
};

} // namespace

std::span<const Entity> entities() {
    return kEntities;
}

} // namespace tabulon::html
