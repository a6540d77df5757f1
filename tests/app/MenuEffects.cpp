#include "tests/app/MenuEffects.h"

#include <fmt/format.h>

namespace tabulon {

std::string bookmarkFileOf(const ImportSource& browser) {
    constexpr const char* kSafari =
        R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Children</key><array>
<dict><key>URIDictionary</key><dict><key>title</key><string>{0}</string></dict>
<key>URLString</key><string>https://{0}.example/</string></dict></array></dict></plist>)";
    constexpr const char* kICab =
        R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Children</key><array>
<dict><key>Title</key><string>{0}</string>
<key>URL</key><string>https://{0}.example/</string></dict></array></dict></plist>)";
    constexpr const char* kChromium = R"({{"roots": {{"bookmark_bar": {{"children": [
{{"type": "url", "name": "{0}", "url": "https://{0}.example/"}}]}}}}}})";
    const char* form = browser.format == "safari" ? kSafari : browser.format == "icab" ? kICab : kChromium;
    return fmt::format(fmt::runtime(form), browser.name);
}

const std::vector<MenuCase>& menuCases() {
    static const std::vector<MenuCase> kCases = {
        {"File > New", "Ctrl+N", "first", "/home/chosen.html",
         "front of Untitled: 0; tree of Untitled: Master+()"},
        {"File > Open…", "Ctrl+O", "first", "/home/chosen.html",
         "front of chosen: 1; open panel: “Open a bookmark document or an HTML bookmark file”; recent:  "
         "/home/chosen.html /home/one.tbln /home/two.tbln; tree of chosen: Master+(Example); unsaved: "
         "linkschosen"},
        {"File > Open Recent > one.tbln", "", "first", "/home/chosen.html",
         "front of one: 0; tree of one: Master+(one)"},
        {"File > Open Recent > two.tbln", "", "first", "/home/chosen.html",
         "front of two: 0; recent:  /home/two.tbln /home/one.tbln; tree of two: Master+(two)"},
        {"File > Open Recent > Clear Menu", "", "first", "/home/chosen.html", "recent: "},
        {"File > Save", "Ctrl+S", "first", "/home/chosen.html", "links.tbln: written; unsaved: "},
        {"File > Save As…", "Ctrl+Shift+S", "first", "/home/chosen.html",
         "front of links: ; front of named: 1; named: bplist00T; recent:  /home/named /home/one.tbln "
         "/home/two.tbln; save panel: “Save the bookmarks as a document”links; tree of links: ; tree of "
         "named: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a c) "
         "labelled:3 new Wide+()); unsaved: "},
        {"File > Revert to Saved…", "", "first", "/home/chosen.html",
         "alert: “Revert “links.tbln” to the saved version?”; selected: ; setting ShowMarks: NO; tree of "
         "links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a c) "
         "labelled:3 old Wide+()); unsaved: "},
        {"File > Versions…", "", "first", "/home/chosen.html", "versions: shown"},
        {"File > Export…", "", "first", "/home/chosen.html",
         "named: first\thtt; save panel: “Export the bookmarks to a file”links; setting ExportName: YES; "
         "setting ExportNote: YES; setting ExportSortName: NO; setting ExportTags: YES; setting ExportURL: "
         "YES; setting SaveAsHTML: NO; setting SkipFolders: YES; setting SkipSeparators: YES"},
        {"File > Close", "Ctrl+W", "first", "/home/chosen.html",
         "front of links: ; links.tbln: written; selected: ; tree of links: ; unsaved: "},
        {"File > Quit", "Ctrl+Q", "first", "/home/chosen.html",
         "front of links: ; front of other: ; links.tbln: written; program: ended; selected: ; tree of "
         "links: ; tree of other: ; unsaved: "},
        {"Edit > Cut", "Ctrl+X", "first", "/home/chosen.html",
         "clipboard: https://same.example/; selected: ; tree of links: Master+(Closed-(Inner-(deep)) "
         "Open+(broken!3 Below+(low)) second Sort-(b d a c) labelled:3 new Wide+())"},
        {"Edit > Copy", "Ctrl+C", "first", "/home/chosen.html", "clipboard: https://same.example/"},
        {"Edit > Paste", "Ctrl+V", "first", "/home/chosen.html",
         "selected: “Pasted”; tree of links: Master+(first Pasted Closed-(Inner-(deep)) Open+(broken!3 "
         "Below+(low)) second Sort-(b d a c) labelled:3 new Wide+())"},
        {"Edit > Delete", "", "first", "/home/chosen.html",
         "selected: ; tree of links: Master+(Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second "
         "Sort-(b d a c) labelled:3 new Wide+())"},
        {"Edit > Select All", "Ctrl+A", "first", "/home/chosen.html",
         "selected: “first”“Closed”“Open”“broken”“Below”“low”“second”“Sort”“labelled”“new”“Wide”"},
        {"Edit > Find…", "Ctrl+F", "first", "/home/chosen.html", "find bar: shown"},
        {"Edit > Find Next", "Ctrl+G", "first", "/home/chosen.html", "selected: “low”"},
        {"View > Expand Folder", "Ctrl+Right", "Closed", "/home/chosen.html",
         "tree of links: Master+(first Closed+(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a "
         "c) labelled:3 new Wide+())"},
        {"View > Expand with Contents", "Ctrl+Shift+Right", "Closed", "/home/chosen.html",
         "tree of links: Master+(first Closed+(Inner+(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a "
         "c) labelled:3 new Wide+())"},
        {"View > Expand All", "Ctrl+Shift+E", "Closed", "/home/chosen.html",
         "tree of links: Master+(first Closed+(Inner+(deep)) Open+(broken!3 Below+(low)) second Sort+(b d a "
         "c) labelled:3 new Wide+())"},
        {"View > Collapse Folder", "Ctrl+Left", "Open", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open-(broken!3 Below+(low)) second Sort-(b d a "
         "c) labelled:3 new Wide+())"},
        {"View > Collapse with Contents", "Ctrl+Shift+Left", "Open", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open-(broken!3 Below-(low)) second Sort-(b d a "
         "c) labelled:3 new Wide+())"},
        {"View > Collapse All", "Ctrl+Shift+L", "Open", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open-(broken!3 Below-(low)) second Sort-(b d a "
         "c) labelled:3 new Wide-())"},
        {"View > Zoom In", "Ctrl++", "first", "/home/chosen.html",
         "setting FontSize: 12; setting RowHeight: 18"},
        {"View > Zoom Out", "Ctrl+-", "first", "/home/chosen.html",
         "setting FontSize: 10; setting RowHeight: 16"},
        {"Bookmark > New Bookmark", "Ctrl+B", "first", "/home/chosen.html",
         "editing: Untitled; selected: “Untitled”; tree of links: Master+(first Untitled "
         "Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a c) labelled:3 new Wide+())"},
        {"Bookmark > New Bookmark in Folder", "Ctrl+Shift+B", "Closed", "/home/chosen.html",
         "editing: Untitled; selected: “Untitled”; tree of links: Master+(first Closed+(Untitled "
         "Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a c) labelled:3 new Wide+())"},
        {"Bookmark > New Folder", "Ctrl+Shift+N", "first", "/home/chosen.html",
         "editing: Untitled Folder; selected: “Untitled Folder”; tree of links: Master+(first Untitled "
         "Folder-() Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a c) labelled:3 new "
         "Wide+())"},
        {"Bookmark > Insert Separator", "Ctrl+Shift+K", "first", "/home/chosen.html",
         "selected: “---”; tree of links: Master+(first --- Closed-(Inner-(deep)) Open+(broken!3 "
         "Below+(low)) second Sort-(b d a c) labelled:3 new Wide+())"},
        {"Bookmark > Get Info", "Ctrl+I", "first", "/home/chosen.html", "info: first"},
        {"Bookmark > Rename", "F2", "first", "/home/chosen.html", "editing: first"},
        {"Bookmark > Move Up", "Ctrl+Up", "second", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(second low)) Sort-(b d a "
         "c) labelled:3 new Wide+())"},
        {"Bookmark > Move Down", "Ctrl+Down", "second", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) Sort-(b d a c) "
         "second labelled:3 new Wide+())"},
        {"Bookmark > Open", "Ctrl+Return", "first", "/home/chosen.html",
         "asked: “launch org.chromium.Chromium”“event core/getd org.chromium.Chromium”“event core/setd "
         "org.chromium.Chromium”"},
        {"Bookmark > Open in New Tab", "Ctrl+Shift+Return", "first", "/home/chosen.html",
         "asked: “launch org.chromium.Chromium”“event GURL/GURL org.chromium.Chromium”"},
        {"Bookmark > Open in New Window", "Ctrl+Alt+Return", "first", "/home/chosen.html",
         "asked: “launch org.chromium.Chromium”“event core/crel org.chromium.Chromium”“event core/setd "
         "org.chromium.Chromium”"},
        {"Bookmark > Open With > Safari", "", "first", "/home/chosen.html",
         "asked: “launch com.apple.Safari”“event core/getd com.apple.Safari”“event core/setd "
         "com.apple.Safari”; log: “OpenWith : 0”"},
        {"Bookmark > Open With > Chrome", "", "first", "/home/chosen.html",
         "asked: “launch com.google.Chrome”“event core/getd com.google.Chrome”“event core/setd "
         "com.google.Chrome”; log: “OpenWith : 1”"},
        {"Bookmark > Open With > Chromium", "", "first", "/home/chosen.html",
         "asked: “launch org.chromium.Chromium”“event core/getd org.chromium.Chromium”“event core/setd "
         "org.chromium.Chromium”; log: “OpenWith : 2”"},
        {"Bookmark > Open With > Opera", "", "first", "/home/chosen.html",
         "asked: “launch com.operasoftware.Opera”“event core/getd com.operasoftware.Opera”“event core/setd "
         "com.operasoftware.Opera”; log: “OpenWith : 3”"},
        {"Bookmark > Open With > Firefox", "", "first", "/home/chosen.html",
         "asked: “launch org.mozilla.firefox”“event core/getd org.mozilla.firefox”“event WWW!/OURL "
         "org.mozilla.firefox”; log: “OpenWith : 4”"},
        {"Bookmark > Open With > iCab", "", "first", "/home/chosen.html",
         "asked: “launch de.icab.iCab”“event core/getd de.icab.iCab”“event WWW!/OURL de.icab.iCab”; log: "
         "“OpenWith : 5”"},
        {"Bookmark > Open With > Vivaldi", "", "first", "/home/chosen.html",
         "asked: “launch com.vivaldi.Vivaldi”“event core/getd com.vivaldi.Vivaldi”“event core/setd "
         "com.vivaldi.Vivaldi”; log: “OpenWith : 6”"},
        {"Bookmark > Open With > Brave", "", "first", "/home/chosen.html",
         "asked: “launch com.brave.Browser”“event core/getd com.brave.Browser”“event core/setd "
         "com.brave.Browser”; log: “OpenWith : 7”"},
        {"Bookmark > Open With > Edge", "", "first", "/home/chosen.html",
         "asked: “launch com.microsoft.edgemac”“event core/getd com.microsoft.edgemac”“event core/setd "
         "com.microsoft.edgemac”; log: “OpenWith : 8”"},
        {"Bookmark > Open in Helper Application", "", "first", "/home/chosen.html",
         "asked: “open https://same.example/”"},
        {"Bookmark > Open Folder in Tabs", "", "Sort", "/home/chosen.html",
         "asked: “openAll https://x.example/ https://y.example/ https://z.example/ https://w.example/”"},
        {"Bookmark > Save Link as File…", "", "first", "/home/chosen.html",
         "named: <?xml ver; save panel: “Save the link as a file”first"},
        {"Sort > By Name", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(a b c "
         "d) labelled:3 new Wide+())"},
        {"Sort > By URL", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(c b d "
         "a) labelled:3 new Wide+())"},
        {"Sort > By Tags", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b a d "
         "c) labelled:3 new Wide+())"},
        {"Sort > By Date Added", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(c d b "
         "a) labelled:3 new Wide+())"},
        {"Sort > By Date Modified", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b a c "
         "d) labelled:3 new Wide+())"},
        {"Sort > By Date Last Opened", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(d b c "
         "a) labelled:3 new Wide+())"},
        {"Sort > Descending > By Name", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(d c b "
         "a) labelled:3 new Wide+())"},
        {"Sort > Descending > By URL", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(a d b "
         "c) labelled:3 new Wide+())"},
        {"Sort > Descending > By Tags", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(c d a "
         "b) labelled:3 new Wide+())"},
        {"Sort > Descending > By Date Added", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(a b d "
         "c) labelled:3 new Wide+())"},
        {"Sort > Descending > By Date Modified", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(d c a "
         "b) labelled:3 new Wide+())"},
        {"Sort > Descending > By Date Last Opened", "", "Sort", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(a c b "
         "d) labelled:3 new Wide+())"},
        {"Clean Up > Show Marks", "", "first", "/home/chosen.html", "setting ShowMarks: YES"},
        {"Clean Up > Clear Marks", "", "first", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken Below+(low)) second Sort-(b d a c) "
         "labelled:3 new Wide+())"},
        {"Clean Up > What the Marks Mean", "", "first", "/home/chosen.html", "legend: shown"},
        {"Clean Up > Find Duplicates", "", "first", "/home/chosen.html",
         "setting ShowMarks: YES; tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 "
         "Below+(low)) second!5 Sort-(b d a c) labelled:3 new Wide+())"},
        {"Clean Up > Delete Duplicates…", "", "first", "/home/chosen.html",
         "alert: “Delete all duplicate links?”“1 bookmark was deleted.”; tree of links: Master+(first "
         "Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) Sort-(b d a c) labelled:3 new Wide+())"},
        {"Clean Up > Remove Marked Links…", "", "first", "/home/chosen.html", "removal: shown"},
        {"Label > None", "", "labelled", "/home/chosen.html",
         "tree of links: Master+(first Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d a "
         "c) labelled new Wide+())"},
        {"Label > Orange", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:1 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Red", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:2 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Magenta", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:3 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Light Blue", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:4 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Blue", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:5 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Dark Green", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:6 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Brown", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:7 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Purple", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:8 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Gray", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:9 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Yellow", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:10 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Label > Cyan", "", "first", "/home/chosen.html",
         "tree of links: Master+(first:11 Closed-(Inner-(deep)) Open+(broken!3 Below+(low)) second Sort-(b d "
         "a c) labelled:3 new Wide+())"},
        {"Import > Safari…", "", "first", "/home/safari/Bookmarks.plist",
         "front of Imported from Safari: 0; open panel: “Please select the file "
         "“Bookmarks.plist”.”/home/safari; tree of Imported from Safari: Master+(Safari); unsaved: "
         "linksImported from Safari"},
        {"Import > Chrome…", "", "first", "/home/chrome/Bookmarks",
         "front of Imported from Chrome: 0; open panel: “Please select the file “Bookmarks”.”/home/chrome; "
         "tree of Imported from Chrome: Master+(Favourites:1-(Chrome) Other Bookmarks-()); unsaved: "
         "linksImported from Chrome"},
        {"Import > Chromium…", "", "first", "/home/chromium/Bookmarks",
         "front of Imported from Chromium: 0; open panel: “Please select the file "
         "“Bookmarks”.”/home/chromium; tree of Imported from Chromium: Master+(Favourites:1-(Chromium) Other "
         "Bookmarks-()); unsaved: linksImported from Chromium"},
        {"Import > Vivaldi…", "", "first", "/home/vivaldi/Bookmarks",
         "front of Imported from Vivaldi: 0; open panel: “Please select the file “Bookmarks”.”/home/vivaldi; "
         "tree of Imported from Vivaldi: Master+(Favourites:1-(Vivaldi) Other Bookmarks-()); unsaved: "
         "linksImported from Vivaldi"},
        {"Import > Brave…", "", "first", "/home/brave/Bookmarks",
         "front of Imported from Brave: 0; open panel: “Please select the file “Bookmarks”.”/home/brave; "
         "tree of Imported from Brave: Master+(Favourites:1-(Brave) Other Bookmarks-()); unsaved: "
         "linksImported from Brave"},
        {"Import > Edge…", "", "first", "/home/edge/Bookmarks",
         "front of Imported from Edge: 0; open panel: “Please select the file “Bookmarks”.”/home/edge; tree "
         "of Imported from Edge: Master+(Favourites:1-(Edge) Other Bookmarks-()); unsaved: linksImported "
         "from Edge"},
        {"Import > Opera…", "", "first", "/home/opera/Bookmarks",
         "front of Imported from Opera: 0; open panel: “Please select the file “Bookmarks”.”/home/opera; "
         "tree of Imported from Opera: Master+(Favourites:1-(Opera) -() -() -() -()); unsaved: linksImported "
         "from Opera"},
        {"Import > iCab…", "", "first", "/home/icab/iCab 4 Bookmarks",
         "front of Imported from iCab: 0; open panel: “Please select the file “iCab 4 "
         "Bookmarks”.”/home/icab; tree of Imported from iCab: Master+(iCab); unsaved: linksImported from "
         "iCab"},
        {"Import > Firefox…", "", "first", "/home/chosen.html",
         "alert: “Direct Import of Firefox or Tor bookmarks is currently not supported.”"},
        {"Import > Tor Browser…", "", "first", "/home/chosen.html",
         "alert: “Direct Import of Firefox or Tor bookmarks is currently not supported.”"},
        {"Import > Bookmarks HTML File…", "", "first", "/home/chosen.html",
         "front of Untitled: 0; open panel: “Select a bookmark file in HTML format”; tree of Untitled: "
         "Master+(Example); unsaved: linksUntitled"},
        {"Import > Links of a Web Page…", "", "first", "/home/chosen.html",
         "front of Imported Bookmarks: 0; open panel: “Select a web page in HTML format”; tree of Imported "
         "Bookmarks: Master+(Example); unsaved: linksImported Bookmarks"},
        {"Import > XBEL File…", "", "first", "/home/chosen.xbel",
         "front of Untitled: 0; open panel: “Select a bookmark file in XBEL format”; tree of Untitled: "
         "Master+(XBEL); unsaved: linksUntitled"},
        {"Import > Links in a Text File…", "", "first", "/home/chosen.txt",
         "front of Untitled: 0; open panel: “Select a text file”; tree of Untitled: Master+(Untitled); "
         "unsaved: linksUntitled"},
        {"Import > Links on the Clipboard", "", "first", "/home/chosen.html",
         "front of Untitled: 0; tree of Untitled: Master+(Untitled); unsaved: linksUntitled"},
        {"Window > Minimize", "", "first", "/home/chosen.html", "minimized: links"},
        {"Window > other", "", "first", "/home/chosen.html", "front of other: 1"},
        {"Window > links", "", "first", "/home/chosen.html", "front of links: 2"},
        {"Help > About Tabulon", "", "first", "/home/chosen.html", "alert: “Tabulon”"},
    };
    return kCases;
}

} // namespace tabulon
