// Writing the document in other formats, and single links as files: the commands with their panels. The
// formats themselves are in formats/.
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"
#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

class ActionTable;
class Outline;

/// Adds the actions "exportText:" and "saveBookmark:".
class ExportCommands {
public:
    /// Requires: the arguments and the services of `platform` outlive this object. Panels may outlive it.
    ExportCommands(Outline& outline, const Platform& platform, ActionTable& actions);

    // The document as the bytes of a file, in the form that the settings say (formats/ExportFormats.h). The
    // functions fail for a tree that is nested too deep or is too large for the format.

    /// Returns a Netscape bookmark file in UTF-8.
    Result<std::string> exportToHTML() const;
    /// Returns an XBEL file in UTF-8.
    Result<std::string> exportToXBEL() const;
    /// Returns tab-separated text in UTF-8.
    Result<std::string> exportToText() const;

    /// Asks in a panel for a file and for options, and writes the document in the format of the file's
    /// extension. The options are stored in the settings even if the panel is cancelled. Where the setting
    /// "SaveAsHTML" is on, an HTML file becomes the file of the HTML copies. Shows an alert if the format
    /// cannot hold the document. A file that cannot be written is only logged.
    void exportText();
    /// Runs `saveBookmarkFile` for each selected item that has a URL, in the order of the rows, until a panel
    /// is cancelled.
    void saveBookmark();
    /// Asks for a file and writes the link into it (formats/export/LinkFile.h). Returns before the panel is
    /// closed; then `done`, if there is one, is called with whether the user chose a file. Does nothing, and
    /// does not call `done`, if the item has no URL. Shows an alert if the URL cannot be written in that
    /// format. A file that cannot be written is only logged.
    void saveBookmarkFile(const Bookmark& link, const std::function<void(bool confirmed)>& done = nullptr);

private:
    /// Returns the document in the format of this name. `progress` may be `nullptr`. Requires: the format
    /// exists.
    Result<std::string> exportTo(std::string_view format, Progress* progress = nullptr) const;
    /// Writes the document in the format of the path's extension.
    void exportToFile(const std::string& path);
    /// Writes the file. A failure is only logged.
    void writeOrLog(const std::string& path, std::string_view bytes);
    /// Runs `saveBookmarkFile` for the last link, then for the others.
    void saveBookmarkFiles(std::vector<Ref<Bookmark>> links);

    Outline& outline_;
    const Platform platform_;
    /// Lets a panel that outlives this object find out.
    const std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace tabulon
