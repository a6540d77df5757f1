#include "window/ReceivedTree.h"

#include "formats/import/ChromiumEntries.h"
#include "formats/import/PlacesItems.h"
#include "formats/import/TextDecoding.h"
#include "formats/import/XBELReader.h"
#include "model/TreeWalk.h"
#include "window/LinkLists.h"

#include <string>
#include <string_view>

namespace tabulon {
namespace {

// Returns an empty text for a form that is missing or too large.
std::string_view formOf(const MimeContent& content, std::string_view type) {
    const std::string* bytes = content.get(type);
    return bytes && bytes->size() <= kLargestReceivedTree ? std::string_view(*bytes) : std::string_view();
}

// Some programs leave out the declaration, which the reader requires.
Ref<Bookmark> treeOfXBEL(std::string_view bytes, const BaseServices& services) {
    if (bytes.empty())
        return nullptr;
    std::string declared;
    if (bytes.starts_with("<xbel"))
        bytes = declared = "<?xml version=\"1.0\"?>" + std::string(bytes);
    const Result<Ref<Bookmark>> tree = readXBEL(bytes, {services});
    return tree && (*tree)->hasChildren() ? *tree : nullptr;
}

std::size_t numberOfLinks(const Bookmark& root) {
    std::size_t links = 0;
    walkBelow(root, [&links](const Bookmark& node) {
        links += !node.isFolder() && !node.isSeparator() ? 1 : 0;
        return node.isFolder();
    });
    return links;
}

// Newer versions of Firefox do not write the content of folders. If it is not in the HTML either, the list of
// links may have it, but without the folder.
Ref<Bookmark> treeOfPlaces(const MimeContent& content, const BaseServices& services) {
    const std::string_view places = formOf(content, kPlacesType);
    if (places.empty())
        return nullptr;
    const std::string html = decodeText(formOf(content, "text/html"), TextKind::Html).text;
    const Result<Ref<Bookmark>> tree =
        readPlacesItems(utf8OfMozilla(places), html, Date::now(services.clock));
    if (!tree || !(*tree)->hasChildren())
        return nullptr;
    const std::vector<NamedLink> list = linksOfMozillaList(formOf(content, "text/x-moz-url"));
    return numberOfLinks(**tree) < list.size() ? nullptr : *tree;
}

Ref<Bookmark> treeOfChromium(std::string_view bytes, const BaseServices& services) {
    Ref<Bookmark> tree = readChromiumEntries(bytes, Date::now(services.clock));
    return tree && tree->hasChildren() ? tree : nullptr;
}

void nameAndClassify(const Bookmark& root, const Text& untitled) {
    walkBelow(root, [&untitled](Bookmark& node) {
        if (node.isSeparator())
            return false;
        if (node.itemName().isEmpty())
            node.setItemName(untitled);
        if (!node.isFolder())
            node.determineType();
        return node.isFolder();
    });
}

} // namespace

Ref<Bookmark> receivedTree(const MimeContent& content, const BaseServices& services) {
    Ref<Bookmark> tree = treeOfXBEL(formOf(content, kXbelType), services);
    if (!tree)
        tree = treeOfPlaces(content, services);
    if (!tree)
        tree = treeOfChromium(formOf(content, kChromiumType), services);
    if (tree)
        nameAndClassify(*tree, services.texts.text("Untitled"));
    return tree;
}

} // namespace tabulon
