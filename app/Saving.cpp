#include "app/Saving.h"

#include "window/SharedAlerts.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tabulon {

void Saving::saveDocument(Document& document, const SavingDone& done) {
    OpenDocument& opened = *parts_.documents.find(document);
    opened.controller->fields().commitEditing();
    if (document.fileName().empty())
        return saveDocumentAs(document, done);
    switch (parts_.conflicts.ask(document, FileConflicts::Before::Saving)) {
    case FileConflicts::Answer::Overwrite:
        return done(parts_.writing.writeOrAlert(opened, document.fileName()));
    case FileConflicts::Answer::DropMine:
        return done(parts_.reverting.revertToContentsOfURL(document));
    case FileConflicts::Answer::SaveAs:
        return saveDocumentAs(document, done);
    case FileConflicts::Answer::Cancel:
        return done(false);
    }
}

void Saving::saveDocumentAs(Document& document, const SavingDone& done) {
    parts_.documents.find(document)->controller->fields().commitEditing();
    const Localization& texts = platform_.base.texts;
    const SavePanel panel{.message = texts.text("SaveDocument"),
                          .prompt = texts.text("Save"),
                          .directory = std::filesystem::path(document.fileName()).parent_path().string(),
                          .proposedName = document.displayName(),
                          .kind = {texts.text("BookmarkDocuments"), {std::string(kDocumentExtension)}},
                          .document = &document};
    platform_.panels.beginSavePanel(panel, [=, this, &document](const std::optional<std::string>& path) {
        if (!path || !parts_.documents.find(document))
            return done(false);
        saveTo(document, *path, done);
    });
}

void Saving::saveTo(Document& document, const std::string& path, const SavingDone& done) {
    const Localization& texts = platform_.base.texts;
    if (parts_.documents.findFile(path, &document)) {
        parts_.alerts.whileAlertIsUp(document, [&] {
            informationAlert(platform_, texts.format("AlreadyOpen", lastPathComponent(path)),
                             texts.text("AlreadyOpenText"), &document);
        });
        return done(false);
    }
    // Another program may have changed the document's file while the panel was shown.
    if (isSameFile(platform_.files, document.fileName(), path))
        return saveDocument(document, done);
    done(parts_.writing.writeOrAlert(*parts_.documents.find(document), path));
}

} // namespace tabulon
