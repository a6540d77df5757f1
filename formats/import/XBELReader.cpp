#include "formats/import/XBELReader.h"

#include "formats/import/XBELDates.h"
#include "plist/XmlEncoding.h"

#include <pugixml.hpp>

#include <string>
#include <vector>

namespace tabulon {
namespace {

using pugi::xml_node;

// All kinds of nodes are parsed: top-level nodes are counted, and a text after a comment is not the first
// child.
constexpr unsigned kParseFlags = pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype |
                                 pugi::parse_comments | pugi::parse_pi;

// Returns the text of an element whose first child is a text, else null.
Text firstText(xml_node element) {
    const xml_node first = element.first_child();
    return first.type() == pugi::node_pcdata ? Text::fromBytes(first.value()) : Text();
}

std::string_view lastPathComponent(std::string_view address) {
    const std::size_t slash = address.rfind('/');
    return slash == std::string_view::npos ? address : address.substr(slash + 1);
}

xml_node firstElementIn(xml_node parent) {
    return parent.find_child([](xml_node child) { return child.type() == pugi::node_element; });
}

// XML cannot contain U+0000, but the text of a bookmark can, and the export writes it unchanged. It is read
// as U+FFFD.
void replaceZeros(std::string& utf8) {
    if (utf8.find('\0') == std::string::npos)
        return;
    std::string replaced;
    for (const char c : utf8)
        c == '\0' ? replaced += "\uFFFD" : replaced += c;
    utf8 = std::move(replaced);
}

class XBELWalk {
public:
    /// `size` is the size of the file in bytes.
    XBELWalk(const BaseServices& services, std::size_t size, Progress* progress)
        : now_(Date::now(services.clock)), progress_(progress, size) {}

    Result<Ref<Bookmark>> run(xml_node first) {
        Ref<Bookmark> root = newFolder();
        root->setItemName("Master");
        lists_.push_back({first, root.get()});
        while (!lists_.empty()) {
            List& list = lists_.back();
            const xml_node node = list.next;
            if (!node) {
                lists_.pop_back();
                continue;
            }
            list.next = node.next_sibling();
            if (!progress_.goOn(static_cast<std::size_t>(node.offset_debug())))
                return cancelledByUser();
            if (node.type() == pugi::node_element)
                take(node, *list.folder);
        }
        return root;
    }

private:
    /// The rest of a list of siblings, and the folder to which it is added.
    struct List {
        xml_node next;
        Bookmark* folder;
    };

    Ref<Bookmark> newFolder() const {
        Ref<Bookmark> folder = Bookmark::init(now_);
        folder->makeParent();
        return folder;
    }

    void take(xml_node element, Bookmark& folder) {
        const std::string_view name = element.name();
        if (name == "xbel") {
            // The rest of the list that contains it is not read.
            lists_.back().next = element.first_child();
        } else if (name == "title") {
            folder.setItemName(firstText(element));
        } else if (name == "folder") {
            Ref<Bookmark> child = newFolder();
            lists_.push_back({element.first_child(), child.get()});
            folder.addChild(std::move(child));
        } else if (name == "bookmark") {
            folder.addChild(newBookmark(element));
        } else if (name == "separator") {
            Ref<Bookmark> separator = Bookmark::init(now_);
            separator->setType(kSeparatorType);
            folder.addChild(std::move(separator));
        }
    }

    Ref<Bookmark> newBookmark(xml_node element) const {
        Ref<Bookmark> bookmark = Bookmark::init(now_);
        if (const pugi::xml_attribute href = element.attribute("href"))
            bookmark->setItemURL(Text::fromBytes(href.value()));
        bookmark->determineType();
        bookmark->setItemDateAdded(dateOfXBEL(element.attribute("added").value()));
        bookmark->setItemDateModified(dateOfXBEL(element.attribute("modified").value()));
        for (const xml_node detail : element.children()) {
            const std::string_view name = detail.name();
            if (detail.type() != pugi::node_element)
                continue;
            if (name == "title")
                bookmark->setItemName(firstText(detail));
            else if (name == "desc")
                bookmark->setItemNote(firstText(detail));
            else if (name == "info")
                takeTags(detail, *bookmark);
        }
        return bookmark;
    }

    static void takeTags(xml_node info, Bookmark& bookmark) {
        const xml_node metadata = firstElementIn(info);
        if (lastPathComponent(metadata.attribute("owner").value()) != "tags")
            return;
        if (const xml_node first = metadata.first_child(); first && first.type() != pugi::node_element)
            bookmark.setItemTags(Text::fromBytes(first.value()));
    }

    const Date now_;
    ProgressSteps progress_;
    std::vector<List> lists_;
};

} // namespace

Result<Ref<Bookmark>> readXBEL(std::string_view bytes, const ReadOptions& options) {
    if (bytes.empty())
        return failure("The file is empty.");
    Result<std::string> buffer = xmlForParser(bytes);
    if (!buffer)
        return tl::unexpected(buffer.error());
    replaceZeros(*buffer);
    if (options.progress && !options.progress->goOn(0))
        return cancelledByUser();
    pugi::xml_document document;
    if (!document.load_buffer_inplace(buffer->data(), buffer->size(), kParseFlags) || refersToZero(bytes))
        return failure("The file is damaged, or it is no XML.");
    const xml_node start = document.first_child().next_sibling();
    if (!start)
        return failure(
            "The file is no XBEL: it has neither an XML declaration nor a document type in front of its "
            "bookmarks, or no bookmarks.");
    return XBELWalk(options.services, bytes.size(), options.progress).run(start);
}

} // namespace tabulon
