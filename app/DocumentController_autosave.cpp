// Documents that save themselves: those with a file in place, those without one, or with one that cannot be
// written now, to a copy that a crash leaves behind.
#include "app/DocumentController.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <utility>

namespace tabulon {
namespace {

// A document that takes long to save is left in peace for longer, but not for hours because somebody set the
// clock while it was saved.
constexpr double kPausePerSecondOfSaving = 20;
constexpr double kLongestPause = 60; // seconds

} // namespace

void DocumentController::noteChange(OpenDocument& opened) {
    opened.autosave.changedSinceStart = true;
    if (!opened.autosave.timer)
        startAutosaveTimer(opened);
}

void DocumentController::startAutosaveTimer(OpenDocument& opened) {
    Autosave& autosave = opened.autosave;
    const double pause =
        std::clamp(kPausePerSecondOfSaving * autosave.lastSeconds, kAutosavePause, kLongestPause);
    autosave.changedSinceStart = false;
    autosave.timer = platform_.timers.after(pause, [this, &opened] { autosaveTimerFired(opened); });
}

// Starting the timer anew with each change would cost more than many a change does: it looks back instead.
void DocumentController::autosaveTimerFired(OpenDocument& opened) {
    if (opened.autosave.changedSinceStart && opened.autosave.postponements < kMostPostponements) {
        ++opened.autosave.postponements;
        return startAutosaveTimer(opened);
    }
    autosave(opened, Moment::Pause);
}

void DocumentController::autosave(OpenDocument& opened, Moment moment) {
    opened.autosave.timer.reset();
    opened.autosave.postponements = 0;
    if (!opened.document.isDocumentEdited())
        return;
    if (opened.isAskedToRevert && moment != Moment::End) {
        opened.autosave.deferred = true; // the file stays as it is until the user has decided
        (void)unsaved_.keep(opened.document);
    } else if (opened.document.fileName().empty())
        noteAutosave(opened, "CouldNotKeep", timed(opened, [&] { return unsaved_.keep(opened.document); }));
    else
        autosaveFile(opened, moment);
}

// Notes how long saving takes, without the time that the user needs to answer.
Result<void> DocumentController::timed(OpenDocument& opened, const std::function<Result<void>()>& save) {
    const double begin = platform_.base.clock.secondsSinceReferenceDate();
    Result<void> saved = save();
    opened.autosave.lastSeconds = platform_.base.clock.secondsSinceReferenceDate() - begin;
    return saved;
}

void DocumentController::autosaveFile(OpenDocument& opened, Moment moment) {
    Document& document = opened.document;
    const auto identity = platform_.files.identityOf(document.fileName());
    if (identity != opened.identity)
        return autosaveBesideFile(opened, identity, moment);
    revertPoints_.keep(document);
    const Result<void> written = timed(opened, [&] { return writeByItself(document); });
    const bool isKept = !written && unsaved_.keep(document).has_value();
    if (moment != Moment::End || !isKept)
        noteAutosave(opened, "CouldNotSave", written);
}

// The file is not as the document left it. Until the user has decided, a copy keeps the changes. The user is
// asked about each state of the file once, and about one file at a time; a save by hand asks again.
void DocumentController::autosaveBesideFile(OpenDocument& opened, const std::optional<FileIdentity>& identity,
                                            Moment moment) {
    const Document& document = opened.document;
    noteAutosave(opened, "CouldNotKeep", timed(opened, [&] { return unsaved_.keep(document); }));
    if (!find(document)) // closed while an alert told of a failure
        return;
    const bool wasAsked = opened.autosave.asked && opened.autosave.askedAbout == identity;
    if (moment != Moment::Pause || asking_ || wasAsked)
        return;
    if (isAlertUp(opened))
        return askLater(opened);
    opened.autosave.asked = true;
    opened.autosave.askedAbout = identity;
    saveDocument(opened.document, [](bool) {});
}

bool DocumentController::isAlertUp(const OpenDocument& opened) const {
    return opened.alertsUp > 0 || platform_.alerts.isAskingAbout(&opened.document);
}

// The end of an alert of the rows is not known here: saving by itself tries again after its pause.
void DocumentController::askLater(OpenDocument& opened) {
    if (opened.alertsUp > 0)
        opened.autosave.deferred = true;
    else
        noteChange(opened);
}

// Shows an alert about the document. Saving by itself brings up no other one over it: what it has to tell
// comes afterwards.
void DocumentController::whileAlertIsUp(const Document& document, const std::function<void()>& show) {
    if (OpenDocument* opened = find(document))
        ++opened->alertsUp;
    show();
    OpenDocument* opened = find(document);
    if (opened && --opened->alertsUp == 0 && std::exchange(opened->autosave.deferred, false))
        noteChange(*opened);
}

// The response. Requires an alert about a document.
int DocumentController::ask(const Alert& alert) {
    int response = 0;
    whileAlertIsUp(*alert.document, [&] { response = platform_.alerts.runModal(alert); });
    return response;
}

// A failure is told once, until saving has worked again.
void DocumentController::noteAutosave(OpenDocument& opened, std::string_view failureKey,
                                      const Result<void>& saved) {
    const bool isNews = !saved && !opened.autosave.failureTold;
    const bool isBusy = isAlertUp(opened);
    opened.autosave.failureTold = !saved && (!isNews || !isBusy);
    if (!isNews)
        return;
    if (isBusy)
        return askLater(opened);
    const Document& document = opened.document;
    const std::string& file = document.fileName();
    whileAlertIsUp(document, [&] {
        writeErrorAlert(platform_, failureKey, file.empty() ? document.displayName() : file, saved.error(),
                        &document);
    });
}

// An alert of one document leaves the others usable: they may be closed meanwhile.
void DocumentController::autosaveAll(Moment moment) {
    for (const Document* document : documents()) {
        OpenDocument* opened = find(*document);
        if (!opened)
            continue;
        moment == Moment::End ? opened->controller->finishEditing()
                              : opened->controller->fields().commitEditing();
        autosave(*opened, moment);
    }
}

void DocumentController::autosaveAllDocuments() {
    autosaveAll(Moment::Deactivation);
}

void DocumentController::autosaveAllDocumentsForTheEnd() {
    autosaveAll(Moment::End);
}

void DocumentController::recoverUnsavedDocuments() {
    Refusals refusals;
    for (const UnsavedDocuments::Copy& copy : unsaved_.abandonedCopies())
        recover(copy, refusals);
    refusals.tell(platform_);
}

void DocumentController::recover(const UnsavedDocuments::Copy& copy, Refusals& refusals) {
    auto opened = std::make_unique<OpenDocument>(platform_.base);
    const Result<std::string> bytes = platform_.files.readFile(copy.path);
    const Result<void> read = bytes ? opened->document.readFromDataOfType(*bytes, kDocumentType)
                                    : Result<void>(tl::unexpected(bytes.error()));
    if (!read) {
        const std::string aside = unsaved_.putAside(copy.path);
        const Localization& texts = platform_.base.texts;
        Error error = read.error();
        error.title = texts.format("CouldNotRecover", copy.displayName);
        error.message += " " + texts.format("CopyKept", decodeUtf8Leniently(aside));
        return refusals.add(aside, error, [this, aside, name = copy.displayName] {
            return offerRemains(platform_.files.readFile(aside), name);
        });
    }
    opened->document.setDisplayName(copy.displayName);
    Document* document = makeWindowControllers(std::move(opened));
    if (!document)
        return;
    unsaved_.adopt(*document, copy.path);
    document->updateChangeCount(ChangeKind::Done);
    getViewController(*document)->statusLine().showStatusUntilSaved(platform_.base.texts.text("Recovered"));
}

} // namespace tabulon
