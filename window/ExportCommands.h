// The document in other formats, and single links as files: the commands with their panels, and what they
// write. The formats themselves are in formats/.
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
    /// What is handed in must live longer.
    ExportCommands(Outline& outline, const Platform& platform, ActionTable& actions);

    // The document as the text of a file. The settings say how (formats/ExportFormats.h). Fails for a tree
    // that is nested too deep or too large for such a file.

    /// Returns a Netscape bookmark file.
    Result<std::string> exportToHTML() const;
    Result<std::string> exportToXBEL() const;
    /// Returns tab-separated text.
    Result<std::string> exportToText() const;

    /// Asks in a panel for a file and for options, which become settings, and writes the document in the
    /// format that the file's extension names. A file in HTML becomes that of the HTML copies where the
    /// setting "SaveAsHTML" is on. An alert says that the format cannot hold the document; a file that cannot
    /// be written is only logged.
    void exportText();
    /// Asks for a file for each selected bookmark that has a URL, in the order of the rows, until one panel
    /// is cancelled.
    void saveBookmark();
    /// Asks for a file and writes the link into it (formats/export/LinkFile.h). `done`, if any, is called
    /// with whether the user has confirmed. Does nothing without a URL. A file that cannot be written is only
    /// logged.
    void saveBookmarkFile(const Bookmark& link, const std::function<void(bool confirmed)>& done = nullptr);

private:
    Result<std::string> exportTo(std::string_view format, Progress* progress = nullptr) const;
    void exportToFile(const std::string& path);
    void writeOrLog(const std::string& path, std::string_view bytes);
    void saveBookmarkFiles(std::vector<Ref<Bookmark>> links);

    Outline& outline_;
    const Platform platform_;
    /// For panels that may end after the document's window.
    const std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace tabulon
