// Any bytes in three lines as a base, an encoding and an address. An address that was parsed is parsed again
// to the same, and is read back unchanged from a link file.
#include "formats/export/LinkFile.h"
#include "plist/PropertyList.h"
#include "url/Url.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tabulon;

void require(bool condition) {
    if (!condition)
        std::abort();
}

std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

void requireSameAgain(const url::Url& address) {
    const auto again = url::parse(address.text());
    require(again && again->text() == address.text());
}

void requireLinkFile(std::string_view bytes) {
    const Ref<Bookmark> link = Bookmark::initEmpty();
    link->setItemURL(Text::fromBytes(bytes));
    const auto file = exportToLinkFile(*link);
    if (!file)
        return;
    require(file->size() <= 6 * link->itemURL().view().size() + 1024);
    const auto list = PropertyList::open(*file);
    require(list && list->text(list->top(), "URL") == link->itemURL());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto base = url::parse(takeLine(text));
    const std::string_view encoding = takeLine(text);
    if (const auto address = url::parse(text))
        requireSameAgain(*address);
    if (const auto address = url::parse(text, base ? &*base : nullptr, encoding))
        requireSameAgain(*address);
    requireLinkFile(text);
    return 0;
}
