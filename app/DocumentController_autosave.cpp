// Automatic saving: documents with a file to that file; documents without one, or with one that cannot be
// written, to a copy that the next start opens.
#include "app/DocumentController.h"
#include "base/Utf8.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <utility>

namespace tabulon {
namespace {

// A document that takes long to save is saved less often. The limit is for a clock that was set while it was
// saved.
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

// The timer is not restarted with each change, because that would cost more than many changes do.
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
        opened.autosave.deferred = true; // the file is not written before the user has decided
        (void)unsaved_.keep(opened.document);
    } else if (opened.document.fileName().empty())
        noteAutosave(opened, "CouldNotKeep", timed(opened, [&] { return unsaved_.keep(opened.document); }));
    else
        autosaveFile(opened, moment);
}

// Stores how long saving takes. Questions to the user are not part of `save`.
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

// Another program has changed the file. A copy keeps the changes until the user has decided. The user is
// asked about each state of the file once, and about one file at a time; a save by command asks again.
void DocumentController::autosaveBesideFile(OpenDocument& opened, const std::optional<FileIdentity>& identity,
                                            Moment moment) {
    const Document& document = opened.document;
    noteAutosave(opened, "CouldNotKeep", timed(opened, [&] { return unsaved_.keep(document); }));
    if (!find(document)) // closed while an alert reported a failure
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

// The end of an alert that a command of the outline shows is not reported here, so automatic saving tries
// again after its pause.
void DocumentController::askLater(OpenDocument& opened) {
    if (opened.alertsUp > 0)
        opened.autosave.deferred = true;
    else
        noteChange(opened);
}

// Shows an alert about the document. Automatic saving shows no other alert meanwhile; it reports afterwards.
void DocumentController::whileAlertIsUp(const Document& document, const std::function<void()>& show) {
    if (OpenDocument* opened = find(document))
        ++opened->alertsUp;
    show();
    OpenDocument* opened = find(document);
    if (opened && --opened->alertsUp == 0 && std::exchange(opened->autosave.deferred, false))
        noteChange(*opened);
}

// Shows the alert and returns the response. Requires: the alert has a document.
int DocumentController::ask(const Alert& alert) {
    int response = 0;
    whileAlertIsUp(*alert.document, [&] { response = platform_.alerts.runModal(alert); });
    return response;
}

// A failure is reported once, until saving has succeeded again.
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

// While an alert of one document is shown, the others can be used, and may be closed.
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
