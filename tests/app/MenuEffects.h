// The effect of each command of the main menu as text: a program in memory, and the table of all commands
// with the differences after each of them. Tests choose the commands in several ways and compare the
// differences.
#pragma once

#include "model/TreeWalk.h"
#include "tests/app/AppFixture.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {

/// One command of the main menu.
struct MenuCase {
    /// The titles of the menu and of its items down to the command, joined by " > ".
    std::string path;
    /// The keys that choose the command, as "Ctrl+Shift+N"; empty for a command without keys.
    std::string keys;
    /// The names of the selected rows, joined by ",".
    std::string rows;
    /// The file that the user chooses in an open panel.
    std::string chosen;
    /// The difference after the command, as `MenuProgram::change` returns it.
    std::string change;
};

/// All commands of the menu in `MenuProgram`, in the order of the menu.
const std::vector<MenuCase>& menuCases();

/// Returns a file in the browser's own form, with one link that has the browser's name.
std::string bookmarkFileOf(const ImportSource& browser);

/// A program with two open documents, whose windows are in memory. The current document has unsaved changes
/// and nodes of all kinds. Each command of the menu changes something that no other command changes alike.
class MenuProgram : public AppTest {
public:
    MenuProgram() {
        fillFiles();
        app.applicationDidFinishLaunching({"/home/other.tbln"});
        openFiles({"/home/links.tbln"});
        documents().recentDocuments().clear();
        documents().recentDocuments().note("/home/two.tbln");
        documents().recentDocuments().note("/home/one.tbln");
        alerts.timePasses = [] {};
        search("low");
        rename("old", "new");
        pasteboard.setString("Pasted\thttps://pasted.example/");
        panels.nameFile("/home/named");
        note(before_);
    }

    AppDelegate& application() { return app; }

    /// Selects the rows with these names, joined by ",", and prepares the answer to an open panel.
    void prepare(const std::string& names, const std::string& chosen) {
        panels.chooseFiles({chosen});
        RowSet rows;
        for (std::size_t row = 0; row < outline().rows.size(); ++row)
            if (("," + names + ",").find("," + outline().rows[row]->itemName().string() + ",") !=
                std::string::npos)
                addRow(rows, row);
        outline().selectRows(rows);
        note(before_);
    }

    /// Returns the differences since `prepare`: "name: value" of each property that has another value, joined
    /// by "; ".
    std::string change() {
        timers.advance(0);
        std::map<std::string, std::string> after;
        note(after);
        for (const auto& [name, value] : before_)
            after.try_emplace(name);
        std::string text;
        for (const auto& [name, value] : after)
            if (before_[name] != value)
                text += (text.empty() ? "" : "; ") + name + ": " + value;
        return text;
    }

    /// Returns the paths of all commands of the menus, with their items, in order.
    std::vector<std::pair<std::string, MenuItem>> items() {
        std::vector<std::pair<std::string, MenuItem>> found;
        for (std::size_t place = 0; place < MainMenu::count(); ++place)
            collect(app.mainMenu().menu(place), app.mainMenu().title(place), found);
        return found;
    }

private:
    void TestBody() override {}

    void fillFiles() {
        original_ = writeDocumentArchive(*makeTree());
        files.files["/home/links.tbln"] = original_;
        files.files["/home/chosen.html"] = bookmarkHTML;
        files.files["/home/chosen.txt"] = "https://chosen.example/";
        files.files["/home/chosen.xbel"] =
            "<?xml version=\"1.0\"?>\n<xbel version=\"1.0\"><bookmark "
            "href=\"https://xbel.example/\"><title>XBEL</title></bookmark></xbel>";
        for (const char* name : {"other", "one", "two"})
            files.files[std::string("/home/") + name + ".tbln"] = documentBytes(name);
        for (const ImportSource& source : importSources()) {
            if (source.browser.empty())
                continue;
            const std::string path =
                "/home/" + std::string(source.format) + "/" + std::string(source.fileName);
            files.files[path] = bookmarkFileOf(source);
            stores.files[std::string(source.browser)] = {path};
        }
    }
    void search(const std::string& text) {
        documents().getViewController(*document())->window().findBar().doSearch(text);
        timers.advance(0);
    }
    void rename(const std::string& name, const std::string& newName) {
        for (std::size_t row = 0; row < outline().rows.size(); ++row)
            if (outline().rows[row]->itemName().view() == name)
                outline().editCell(Column::Name, row);
        outline().typed = newName;
        outline().endEditing();
    }

    Ref<Bookmark> link(const char* name, const char* site, double day, double modified, double opened) {
        const Ref<Bookmark> node = Bookmark::init(Date::fromReferenceSeconds(day));
        node->setItemName(name);
        node->setItemURL(Text(std::string("https://") + site + ".example/"));
        node->setItemDateModified(Date::fromReferenceSeconds(modified));
        node->setItemLastOpened(Date::fromReferenceSeconds(opened));
        return node;
    }
    Ref<Bookmark> link(const char* name) { return link(name, name, 1, 1, 1); }
    Ref<Bookmark> folder(const char* name, bool expanded, const std::vector<Ref<Bookmark>>& children) {
        const Ref<Bookmark> node = Bookmark::init(base.now());
        node->setItemName(name);
        node->makeParent();
        node->setShowHier(expanded);
        for (const Ref<Bookmark>& child : children)
            node->addChild(child);
        return node;
    }
    // Each key sorts the links in "Sort" in another order.
    Ref<Bookmark> makeTree() {
        const auto tagged = [](const Ref<Bookmark>& node, const char* tags) {
            node->setItemTags(tags);
            return node;
        };
        const Ref<Bookmark> broken = link("broken");
        broken->setStatus(kBrokenStatus);
        const Ref<Bookmark> labelled = link("labelled");
        labelled->setLabel(3);
        return folder(
            "Master", true,
            {link("first", "same", 1, 1, 1),
             folder("Closed", false, {folder("Inner", false, {link("deep")})}),
             folder("Open", true, {broken, folder("Below", true, {link("low")})}),
             link("second", "same", 1, 1, 1),
             folder("Sort", false,
                    {tagged(link("b", "x", 3, 11, 22), "l"), tagged(link("d", "y", 2, 14, 21), "n"),
                     tagged(link("a", "z", 4, 12, 24), "m"), tagged(link("c", "w", 1, 13, 23), "o")}),
             labelled, link("old"), folder("Wide", true, {})});
    }

    static std::string nameOf(const Bookmark& node) {
        return node.isSeparator() ? "---" : node.itemName().string();
    }
    // Returns the tree as names, with ":" before a label, "!" before a status, "+" at an expanded folder and
    // "-" at a collapsed one.
    static std::string shape(const Bookmark& node) {
        std::string text = nameOf(node);
        if (node.getLabel() != 0)
            text += ":" + std::to_string(node.getLabel());
        if (node.getStatus() != kNoStatus)
            text += "!" + std::to_string(node.getStatus());
        if (!node.isFolder())
            return text;
        text += node.showHier() ? "+(" : "-(";
        for (const Bookmark* child = node.getChild(); child; child = child->nextBookmark())
            text += (child == node.getChild() ? "" : " ") + shape(*child);
        return text + ")";
    }

    Document* document() {
        for (Document* each : documents().documents())
            if (each->fileName() == "/home/links.tbln")
                return each;
        return nullptr;
    }
    MemoryOutline& outline() { return windowOf(*document()).outlineView; }

    void note(std::map<std::string, std::string>& now) {
        now.clear();
        for (const Alert& alert : alerts.shown)
            now["alert"] += "“" + alert.message + "”";
        for (const OpenPanel& panel : panels.openPanels)
            now["open panel"] += "“" + panel.message + "”" + panel.directory;
        for (const SavePanel& panel : panels.savePanels)
            now["save panel"] += "“" + panel.message + "”" + panel.proposedName;
        for (const auto& [key, value] : base.defaults.values())
            now["setting " + key] = value;
        for (const std::string& request : requests)
            now["asked"] += "“" + request + "”";
        for (const std::string& line : base.log.lines)
            if (line.starts_with("OpenWith"))
                now["log"] += "“" + line + "”";
        if (beeper.beeps > 0)
            now["beeps"] = std::to_string(beeper.beeps);
        now["clipboard"] = pasteboard.string().value_or("");
        for (const std::string& path : documents().recentDocuments().paths())
            now["recent"] += " " + path;
        if (host.stops > 0)
            now["program"] = "ended";
        if (windows.presentedVersions)
            now["versions"] = "shown";
        now["links.tbln"] = files.files["/home/links.tbln"] == original_ ? "as it was" : "written";
        if (files.files.contains("/home/named"))
            now["named"] = files.files["/home/named"].substr(0, 9);
        for (Document* each : documents().documents())
            noteDocument(now, *each);
    }
    void noteDocument(std::map<std::string, std::string>& now, Document& each) {
        const std::string name = each.displayName();
        MemoryWindow& window = windowOf(each);
        now["tree of " + name] = shape(each.getMaster());
        now["front of " + name] = std::to_string(window.broughtToFront);
        for (Bookmark* row : window.outlineView.rows)
            if (window.outlineView.selected.contains(row))
                now["selected"] += "“" + nameOf(*row) + "”";
        if (window.outlineView.edited)
            now["editing"] = nameOf(*window.outlineView.edited->second);
        if (window.edited)
            now["unsaved"] += name;
        if (window.bar.shown)
            now["find bar"] = "shown";
        if (window.info)
            now["info"] = window.infoPanel.title;
        if (window.legends > 0)
            now["legend"] = "shown";
        if (window.moveDelete)
            now["removal"] = "shown";
        if (window.miniaturized)
            now["minimized"] = name;
    }

    static void collect(const Menu& menu, const std::string& path,
                        std::vector<std::pair<std::string, MenuItem>>& found) {
        for (const MenuItem& item : menu.items) {
            if (item.separator)
                continue;
            const std::string below = path + " > " + item.title;
            if (item.submenu)
                collect(*item.submenu, below, found);
            else
                found.emplace_back(below, item);
        }
    }

    std::string original_;
    std::map<std::string, std::string> before_;
};

} // namespace tabulon
