#include "tests/formats/ReferenceExport.h"

namespace tabulon::test {
namespace {

std::string tabs(int level) {
    std::string result;
    for (int i = 0; i < level; ++i)
        result += "\t";
    return result;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

std::string escaped(std::string text) {
    text = replaced(text, "&", "&amp;");
    text = replaced(text, "<", "&lt;");
    text = replaced(text, ">", "&gt;");
    text = replaced(text, "\"", "&quot;");
    return replaced(text, "'", "&apos;");
}

std::string tidy(std::string text) {
    text = replaced(text, "\"", "'");
    text = replaced(text, "\t", " ");
    text = replaced(text, "\n", " ");
    return replaced(text, "\r", " ");
}

std::string seconds(Date date) {
    return std::to_string(static_cast<long>(date.unixSeconds()));
}

std::string dates(const Bookmark& node) {
    const std::string added = node.itemDateAdded().isNull() ? "0" : seconds(node.itemDateAdded());
    std::string result = "ADD_DATE=\"" + added + "\"";
    if (!node.itemDateModified().isNull())
        result += " LAST_MODIFIED=\"" + seconds(node.itemDateModified()) + "\"";
    return result;
}

void exportFolder(const Bookmark& folder, std::string& text);

void exportNode(const Bookmark& node, std::string& text) {
    const int level = node.getLevel();
    if (node.isSeparator()) {
        text += tabs(level) + "<HR>\n";
        if (node.isFolder())
            exportFolder(node, text);
        return;
    }
    const std::string name = escaped(node.itemName().string());
    if (node.isFolder()) {
        if (!name.empty())
            text += tabs(level) + "<DT><H3 " + dates(node) + ">" + name + "</H3>\n";
        exportFolder(node, text);
        if (node.getChild() == nullptr)
            text += tabs(level + 1) + "<DL><p></DL></p>\n";
        return;
    }
    if (!node.itemURL().isNull() && !node.itemName().isNull())
        text += tabs(level) + "<DT><A HREF=\"" + node.itemURL().string() + "\" " + dates(node) + ">" + name +
                "</A>\n";
    if (!node.itemNote().string().empty())
        text += tabs(level) + "<DD>" + escaped(tidy(node.itemNote().string())) + "\n";
}

void exportFolder(const Bookmark& folder, std::string& text) {
    const Bookmark* first = folder.getChild();
    if (!first)
        return;
    const int level = first->getLevel();
    text += tabs(level - 1) + "<DL><p>\n";
    for (const Bookmark* node = first; node; node = node->nextBookmark())
        exportNode(*node, text);
    text += tabs(level - 1) + "</DL><p>\n";
}

} // namespace

std::string referenceExport(const Bookmark& master) {
    std::string text = "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
                       "<!-- Created by Tabulon - https://tabulon.example/ -->\n"
                       "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
                       "<TITLE>Bookmarks</TITLE>\n"
                       "<H1>Bookmarks</H1>\n";
    exportFolder(master, text);
    return text;
}

} // namespace tabulon::test
