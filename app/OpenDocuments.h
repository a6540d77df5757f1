// The list of the open documents, each with its outline controller and its window.
#pragma once

#include "app/AutosavePause.h"
#include "model/Document.h"
#include "platform/Platform.h"
#include "window/DocumentWindow.h"
#include "window/ViewController.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabulon {

/// One open document, and what is known about its file and its saving.
struct OpenDocument : private DocumentObserver {
    /// Requires: the services outlive this object.
    explicit OpenDocument(const BaseServices& services) : document(services, this) {}

    // In the order of construction: the window is destroyed before its controller, and the controller before
    // its document.

    Document document;
    /// The identity of the file when it was read or written last; `nullopt` without a file.
    std::optional<FileIdentity> identity = {};
    /// The pause before the next automatic save. Has a value while the document is in the list.
    std::optional<AutosavePause> pause = {};
    /// Whether a save or a report waits for the end of an alert about the document.
    bool deferred = false;
    /// Whether the user knows that automatic saving fails.
    bool failureReported = false;
    /// Whether the user was asked about a file that another program has changed, and the state of that file.
    bool asked = false;
    std::optional<FileIdentity> askedAbout = {};
    /// The number of alerts about the document that `DocumentAlerts` shows.
    int alertsUp = 0;
    /// Whether the question of Revert to Saved is shown.
    bool isAskedToRevert = false;
    /// Both have values while the document is in the list.
    std::optional<ViewController> controller = {};
    std::unique_ptr<DocumentWindow> window = {};

private:
    void documentDidChange() override {
        if (pause)
            pause->noteChange();
    }
};

/// The list. Owns the documents; their addresses do not change while they are in it.
class OpenDocuments {
public:
    /// Requires: `files` outlives this object.
    explicit OpenDocuments(FileStore& files) : files_(files) {}

    /// Returns the documents in the order in which they were added. Not owned by the caller; each is valid
    /// until it is taken from the list. Linear.
    std::vector<Document*> documents() const;
    /// Returns the number of documents.
    std::size_t size() const { return list_.size(); }
    /// Returns the entry of a document, or `nullptr` if it is not open. The pointer `&document` is only
    /// compared, so the document may have been closed. Linear in the number of documents.
    OpenDocument* find(const Document& document) const;
    /// Returns the entry of a document with the file at `path`, whatever path it was opened by, or `nullptr`.
    /// Documents other than `except` are compared, which may be `nullptr`. Reads the file system for each of
    /// them, but no content.
    OpenDocument* findFile(const std::string& path, const Document* except = nullptr) const;
    /// Returns the last entry. Requires: size() > 0.
    OpenDocument& last() const { return *list_.back(); }

    /// Appends a document and returns its entry.
    OpenDocument& add(std::unique_ptr<OpenDocument> opened);
    /// Removes a document from the list and returns its entry. The document, its window and its controller
    /// exist until the caller destroys the entry. Requires: the document is open.
    std::unique_ptr<OpenDocument> take(const Document& document);

private:
    FileStore& files_;
    std::vector<std::unique_ptr<OpenDocument>> list_;
};

} // namespace tabulon
