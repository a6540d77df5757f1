// Files that another program has changed, moved or removed while their documents are open.
#pragma once

#include "app/DocumentAlerts.h"
#include "app/OpenDocuments.h"
#include "platform/Platform.h"

namespace tabulon {

/// Asks what is done with such a file. No file that another program has changed is overwritten without this
/// answer.
class FileConflicts {
public:
    /// What the user wants: write the document over the file, give the document's changes up, save under
    /// another name, or do nothing.
    enum class Answer { Overwrite, DropMine, SaveAs, Cancel };
    /// What the document is about to do. The texts of the buttons depend on it.
    enum class Before { Saving, Closing };

    /// Requires: the arguments and the services of `platform` outlive this object.
    FileConflicts(const Platform& platform, OpenDocuments& documents, DocumentAlerts& alerts)
        : platform_(platform), documents_(documents), alerts_(alerts) {}

    /// Returns Overwrite without a question if the file is as the document was read from it or written to it.
    /// Otherwise asks, and again if the file changes while the question is shown. Returns Cancel if the
    /// document is closed meanwhile. Requires: the document is open and has a file.
    Answer ask(const Document& document, Before before);
    /// Returns whether a question about the file of any document is shown.
    bool isAsking() const { return asking_; }

private:
    /// Asks once, about a file that was changed or, if `isThere` is false, is missing.
    Answer choose(const Document& document, bool isThere, Before before);

    const Platform platform_;
    OpenDocuments& documents_;
    DocumentAlerts& alerts_;
    bool asking_ = false;
};

} // namespace tabulon
