#include "app/Autosaving.h"

#include "window/SharedAlerts.h"

namespace tabulon {

void Autosaving::save(OpenDocument& opened, Moment moment) {
    opened.pause->end();
    if (!opened.document.isDocumentEdited())
        return;
    UnsavedDocuments& unsaved = parts_.stores.unsaved;
    if (opened.isAskedToRevert && moment != Moment::End) {
        opened.deferred = true; // the file is not written before the user has decided
        (void)unsaved.keep(opened.document);
    } else if (opened.document.fileName().empty())
        note(opened, "CouldNotKeep", timed(opened, [&] { return unsaved.keep(opened.document); }));
    else
        saveFile(opened, moment);
}

// Questions to the user are not part of `save`.
Result<void> Autosaving::timed(OpenDocument& opened, const std::function<Result<void>()>& save) {
    const double begin = platform_.base.clock.secondsSinceReferenceDate();
    Result<void> saved = save();
    opened.pause->noteSaving(platform_.base.clock.secondsSinceReferenceDate() - begin);
    return saved;
}

void Autosaving::saveFile(OpenDocument& opened, Moment moment) {
    Document& document = opened.document;
    const auto identity = platform_.files.identityOf(document.fileName());
    if (identity != opened.identity)
        return saveBesideFile(opened, identity, moment);
    parts_.stores.revertPoints.keep(document);
    const Result<void> written = timed(opened, [&] { return parts_.writing.writeByItself(opened); });
    const bool isKept = !written && parts_.stores.unsaved.keep(document).has_value();
    if (moment != Moment::End || !isKept)
        note(opened, "CouldNotSave", written);
}

// Another program has changed the file. A copy keeps the changes until the user has decided. The user is
// asked about each state of the file once, and about one file at a time; a save by command asks again.
void Autosaving::saveBesideFile(OpenDocument& opened, const std::optional<FileIdentity>& identity,
                                Moment moment) {
    const Document& document = opened.document;
    note(opened, "CouldNotKeep", timed(opened, [&] { return parts_.stores.unsaved.keep(document); }));
    if (!parts_.documents.find(document)) // closed while an alert reported a failure
        return;
    const bool wasAsked = opened.asked && opened.askedAbout == identity;
    if (moment != Moment::Pause || parts_.conflicts.isAsking() || wasAsked)
        return;
    if (parts_.alerts.isAlertUp(opened))
        return parts_.alerts.askLater(opened);
    opened.asked = true;
    opened.askedAbout = identity;
    parts_.saving.saveDocument(opened.document, [](bool) {});
}

// A failure is reported once, until saving has succeeded again.
void Autosaving::note(OpenDocument& opened, std::string_view failureKey, const Result<void>& saved) {
    const bool isNews = !saved && !opened.failureReported;
    const bool isBusy = parts_.alerts.isAlertUp(opened);
    opened.failureReported = !saved && (!isNews || !isBusy);
    if (!isNews)
        return;
    if (isBusy)
        return parts_.alerts.askLater(opened);
    const Document& document = opened.document;
    const std::string& file = document.fileName();
    parts_.alerts.whileAlertIsUp(document, [&] {
        writeErrorAlert(platform_, failureKey, file.empty() ? document.displayName() : file, saved.error(),
                        &document);
    });
}

void Autosaving::saveAll(Moment moment) {
    for (const Document* document : parts_.documents.documents()) {
        OpenDocument* opened = parts_.documents.find(*document);
        if (!opened)
            continue;
        moment == Moment::End ? opened->controller->finishEditing()
                              : opened->controller->fields().commitEditing();
        save(*opened, moment);
    }
}

} // namespace tabulon
