// The table itself, sorted by key. "%@" and "%d" mark where a value goes.
#include "platform/EnglishTexts.h"

#include <array>
#include <utility>

namespace tabulon {
namespace {

using Entry = std::pair<std::string_view, std::string_view>;

constexpr auto kTexts = std::to_array<Entry>({
    {"%d bookmarks", "%d bookmarks"},
    {"%d folders", "%d folders"},
    {"AboutText", "Version %@. A manager for bookmarks on your own computer."},
    {"AdviceNoFolder",
     "Put the folder or the disk back in its place, or save under another name with Save As."},
    {"AdviceNoPermission",
     "Save under another name with Save As, or change the permissions of file and folder."},
    {"AdviceNoSpace", "Make room on the disk and save again, or save to another disk with Save As."},
    {"AdviceOther", "Try again, or save under another name with Save As."},
    {"AlreadyOpen", "“%@” is open in another window"},
    {"AlreadyOpenText", "Close that window first, or choose another name."},
    {"AndMore", "and %@ more"},
    {"BookmarkDocuments", "Bookmark documents"},
    {"BookmarkFiles", "Bookmark documents and HTML bookmark files"},
    {"BookmarkHTMLFiles", "HTML bookmark files"},
    {"Bookmarks", "Bookmarks"},
    {"BrowserFound", "Found on this computer: %@"},
    {"Cancel", "Cancel"},
    {"CloseWithoutSaving", "Close Without Saving"},
    {"CouldNotExport", "“%@” could not be exported"},
    {"CouldNotKeep", "No copy of “%@” could be kept. Save it to a file"},
    {"CouldNotOpen", "“%@” could not be opened"},
    {"CouldNotOpenFiles", "%@ files could not be opened"},
    {"CouldNotSave", "“%@” could not be saved"},
    {"DontSave", "Don’t Save"},
    {"DropBasket", "Drop Basket"},
    {"EmptyDocument", "No bookmarks yet"},
    {"EmptyDocumentText", "Press Ctrl+O to open a bookmark document, or a bookmark file that a browser "
                          "exported as HTML. You can also drop such a file here."},
    {"EmptyFolder", "Untitled Folder"},
    {"EmptyScan", "No links found"},
    {"ErrorImportBookmarks", "The file holds no bookmarks that can be read."},
    {"Export", "Export"},
    {"ExportColumns", "For each bookmark, write:"},
    {"ExportFile", "Export the bookmarks to a file"},
    {"ExportFormat", "Format:"},
    {"ExportName", "Names"},
    {"ExportNote", "Notes"},
    {"ExportSkip", "Leave out:"},
    {"ExportSortName", "Sort by name"},
    {"ExportTags", "Tags"},
    {"ExportURL", "URLs"},
    {"Exporting", "Exporting “%@”"},
    {"Favourites", "Favourites"},
    {"FileChanged", "“%@” was changed by another program"},
    {"FileChangedClosingText",
     "Since it was read or saved here, another program has changed the file. Save yours under another name, "
     "keep yours and lose that one, or close without saving and lose yours."},
    {"FileChangedText",
     "Since it was read or saved here, another program has changed the file. Save yours under another name, "
     "keep yours and lose that one, or reload the file and lose yours."},
    {"FileGone", "“%@” is no longer there"},
    {"FileGoneClosingText", "The file was moved, renamed or removed. Save it again in its old place, or "
                            "under another name, or close "
                            "without saving and lose what is in this window."},
    {"FileGoneText",
     "The file was moved, renamed or removed. Save it again in its old place, or under another name."},
    {"FormatHTML", "Bookmark HTML"},
    {"FormatText", "Plain text"},
    {"FormatXBEL", "XBEL"},
    {"ImportError", "The bookmarks could not be imported"},
    {"ImportedBookmarks", "Imported from %@"},
    {"Importing", "Importing “%@”"},
    {"IsFolder", "It is a folder. Open the files in it instead."},
    {"IsNoFile", "It is a device or a pipe, not a file."},
    {"KeepMine", "Keep Mine"},
    {"LinkFiles", "Link files"},
    {"MenuAbout", "About Tabulon"},
    {"MenuClearRecent", "Clear Menu"},
    {"MenuClose", "Close"},
    {"MenuCollapse", "Collapse Folder"},
    {"MenuCollapseAll", "Collapse All"},
    {"MenuCollapsePlus", "Collapse with Contents"},
    {"MenuEdit", "Edit"},
    {"MenuExpand", "Expand Folder"},
    {"MenuExpandAll", "Expand All"},
    {"MenuExpandPlus", "Expand with Contents"},
    {"MenuExport", "Export…"},
    {"MenuFile", "File"},
    {"MenuHelp", "Help"},
    {"MenuImport", "Import"},
    {"MenuImportBookmarks", "Bookmarks HTML File…"},
    {"MenuImportBrave", "Brave…"},
    {"MenuImportChrome", "Chrome…"},
    {"MenuImportChromium", "Chromium…"},
    {"MenuImportEdge", "Edge…"},
    {"MenuImportFirefox", "Firefox…"},
    {"MenuImportOpera", "Opera…"},
    {"MenuImportSafari", "Safari…"},
    {"MenuImportTor", "Tor Browser…"},
    {"MenuImportVivaldi", "Vivaldi…"},
    {"MenuImportXBEL", "XBEL File…"},
    {"MenuImportiCab", "iCab…"},
    {"MenuNew", "New"},
    {"MenuOpen", "Open…"},
    {"MenuOpenRecent", "Open Recent"},
    {"MenuQuit", "Quit"},
    {"MenuRevert", "Revert to Saved…"},
    {"MenuSave", "Save"},
    {"MenuSaveAs", "Save As…"},
    {"MenuSaveBookmark", "Save Link as File…"},
    {"MenuScanText", "Links in a Text File…"},
    {"MenuSelectAll", "Select All"},
    {"MenuView", "View"},
    {"MenuZoomIn", "Zoom In"},
    {"MenuZoomOut", "Zoom Out"},
    {"Name", "Name"},
    {"NoAnswer", "Tabulon is running, but does not answer"},
    {"NoAnswerText",
     "It may be busy. You can wait for it, or open another Tabulon beside it. What is not saved in the one "
     "that does not answer is not seen in the other."},
    {"NoSelection", "Nothing is selected"},
    {"NoSuchFile", "There is no such file in “%@”. It may have been moved, renamed or removed."},
    {"NoSuchFolder", "Its folder “%@” is not there. It may be on a disk that is not connected."},
    {"NoURLs", "No links were found in the text or file."},
    {"NotLocalFile", "Only files on this computer can be opened."},
    {"OK", "OK"},
    {"Open", "Open"},
    {"OpenAnother", "Open Another"},
    {"OpenFile", "Open a bookmark document or an HTML bookmark file"},
    {"PleaseSelect", "Please select one or more bookmarks first."},
    {"PleaseSelectFile", "Please select the file “%@”."},
    {"PleaseSelectFolder", "Please select a folder first."},
    {"Reload", "Reload"},
    {"Revert", "Revert “%@” to the saved version?"},
    {"RevertButton", "Revert"},
    {"RevertText", "All changes since the last save are lost."},
    {"Save", "Save"},
    {"SaveAgain", "Save"},
    {"SaveAsButton", "Save As…"},
    {"SaveAsHTML", "Write a copy to this file whenever the document is saved"},
    {"SaveBookmark", "Save the link as a file"},
    {"SaveChanges", "Save the changes to “%@” before closing?"},
    {"SaveChangesText", "Changes that are not saved are lost."},
    {"SaveDocument", "Save the bookmarks as a document"},
    {"Select", "Select"},
    {"SelectBookmarks", "Select a bookmark file in HTML format"},
    {"SelectTEXT", "Select a text file"},
    {"SelectXBEL", "Select a bookmark file in XBEL format"},
    {"SettingsDamaged", "The settings file was damaged"},
    {"SettingsDamagedText",
     "What could be read of it still holds; the other settings are as they were at first. The "
     "damaged file is now “%@”."},
    {"SettingsUnreadable", "The settings could not be read"},
    {"SettingsUnreadableText", "%@ The file was left as it is. Until it can be read, changes to the settings "
                               "hold only until Tabulon ends."},
    {"SettingsUnwritable", "The settings could not be saved"},
    {"SettingsUnwritableText",
     "%@ Changes to the settings hold until Tabulon ends. It tries again to save them with the "
     "next change."},
    {"SkipFolders", "Folders"},
    {"SkipSeparators", "Separators"},
    {"Tags", "Tags"},
    {"TagsLabel", "Tags: %@"},
    {"URL", "URL"},
    {"UnknownFile", "It is neither a bookmark document nor an HTML bookmark file."},
    {"Untitled", "Untitled"},
    {"Wait", "Wait"},
    {"WasteBasket", "Waste Basket"},
    {"XBELFiles", "XBEL files"},
    {"in", "in"},
});

} // namespace

std::optional<std::string_view> englishText(std::string_view key) {
    for (const auto& [name, text] : kTexts)
        if (name == key)
            return text;
    return std::nullopt;
}

std::string EnglishLocalization::text(std::string_view key) const {
    return std::string(englishText(key).value_or(key));
}

} // namespace tabulon
