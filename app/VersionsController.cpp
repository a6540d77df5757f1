#include "app/VersionsController.h"

#include "model/TreePutBack.h"
#include "text/DateFormat.h"
#include "window/SharedAlerts.h"

#include <algorithm>

namespace tabulon {
namespace {

const std::vector<TreeDifference> kNoDifferences;

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : ", ") + part;
    return text;
}

} // namespace

VersionsController::VersionsController(Document& document, VersionStore& store, const Platform& platform,
                                       OpenUntitled openUntitled, FileIsAsLeft fileIsAsLeft)
    : document_(document), store_(store), platform_(platform), openUntitled_(std::move(openUntitled)),
      fileIsAsLeft_(std::move(fileIsAsLeft)) {
    for (DocumentVersion& version : store_.versionsOf(document_.fileName()))
        rows_.push_back({std::move(version)});
}

void VersionsController::setPanel(VersionsPanel* panel) {
    panel_ = panel;
    timer_.reset();
    if (!panel_)
        return;
    if (!rows_.empty())
        choose(0);
    startCounting();
}

void VersionsController::startCounting() {
    timer_ = platform_.timers.after(0, [this] { countNext(); });
}

// One version at a time, because comparing a large one may take long enough to delay events.
void VersionsController::countNext() {
    const auto next =
        std::ranges::find_if(rows_, [](const VersionRow& row) { return !row.counts && row.problem.empty(); });
    if (next == rows_.end() || !panel_)
        return timer_.reset();
    if (const auto version = read(next->version, next->problem))
        next->counts = TreeComparison(version->getMaster(), document_.getMaster()).counts();
    panel_->reloadVersion(static_cast<std::size_t>(next - rows_.begin()));
    startCounting();
}

std::unique_ptr<Document> VersionsController::read(const DocumentVersion& version,
                                                   std::string& problem) const {
    const Result<std::string> bytes = store_.read(version);
    auto document = std::make_unique<Document>(platform_.base);
    const Result<void> done = bytes ? document->readFromDataOfType(*bytes, kDocumentType)
                                    : Result<void>(tl::unexpected(bytes.error()));
    if (done)
        return document;
    problem = done.error().message;
    return nullptr;
}

std::string VersionsController::dateText(std::size_t index) const {
    return formatDate(rows_[index].version.saved, texts().text("VersionDatePattern"), texts().locale(),
                      platform_.base.clock.timeZone());
}

std::string VersionsController::countsText(std::size_t index) const {
    const VersionRow& row = rows_[index];
    if (!row.problem.empty())
        return texts().text("VersionUnreadable");
    if (!row.counts)
        return {};
    if (*row.counts == DifferenceCounts())
        return texts().text("VersionEqual");
    std::vector<std::string> parts;
    for (const auto& [key, count] :
         {std::pair("VersionAdded", row.counts->added), std::pair("VersionRemoved", row.counts->removed),
          std::pair("VersionChanged", row.counts->changed)})
        if (count > 0)
            parts.push_back(texts().format(key, count));
    return joined(parts);
}

void VersionsController::choose(std::size_t index) {
    chosen_ = index;
    version_ = read(rows_[index].version, rows_[index].problem);
    compareChosen();
}

void VersionsController::compareChosen() {
    comparison_.reset();
    comparedAt_ = document_.changeCount();
    if (version_) {
        comparison_.emplace(version_->getMaster(), document_.getMaster());
        rows_[*chosen_].counts = comparison_->counts();
    }
    if (panel_) {
        panel_->reloadVersion(*chosen_);
        panel_->reloadDifferences();
    }
}

const std::vector<TreeDifference>& VersionsController::differences() const {
    return comparison_ ? comparison_->differences() : kNoDifferences;
}

std::string VersionsController::moveText(const TreeDifference& difference) const {
    const Bookmark& folder = *difference.before->getParent();
    if (comparison_->partnerOf(folder) == difference.after->getParent())
        return texts().text("DifferenceOrder");
    return folder.getParent() ? texts().format("DifferenceMoved", folder.itemName().string())
                              : texts().text("DifferenceMovedTop");
}

std::string VersionsController::differenceText(const TreeDifference& difference) const {
    if (difference.isAdded())
        return texts().text("DifferenceAdded");
    if (difference.isRemoved())
        return texts().text("DifferenceRemoved");
    std::vector<std::string> parts;
    if (difference.renamed)
        parts.push_back(texts().format("DifferenceRenamed", difference.before->itemName().string()));
    if (difference.moved)
        parts.push_back(moveText(difference));
    for (const auto& [field, key] :
         {std::pair(kChangedURL, "DifferenceURL"), std::pair(kChangedNote, "DifferenceNote"),
          std::pair(kChangedTags, "DifferenceTags"), std::pair(kChangedLabel, "DifferenceLabel"),
          std::pair(kChangedOther, "DifferenceOther")})
        if ((difference.edited & field) != 0)
            parts.push_back(texts().text(key));
    return joined(parts);
}

std::string VersionsController::nameOfVersion() const {
    return texts().format("%@ (%@)", document_.displayName(), dateText(*chosen_));
}

void VersionsController::openChosen() {
    if (!version_)
        return;
    const Ref<Bookmark> root = deepCopy(version_->getMaster());
    if (openUntitled_(root, nameOfVersion()))
        finish();
}

// A state of the document that no file has is kept as a version before the tree is changed: unsaved changes,
// and a saved state that another program has replaced in the file.
bool VersionsController::keepPresentState() {
    if (!document_.isDocumentEdited() && fileIsAsLeft_())
        return true;
    const Result<void> kept = store_.keepContent(document_.fileName(), document_.dataOfType(kDocumentType));
    if (!kept)
        fileErrorAlert(platform_, "CouldNotKeepVersion", document_.fileName(), kept.error(), &document_);
    return kept.has_value();
}

void VersionsController::putBackDifferences(const std::vector<std::size_t>& indexes) {
    if (!comparison_)
        return;
    if (document_.changeCount() != comparedAt_)
        return compareChosen();
    std::vector<TreeDifference> chosen;
    chosen.reserve(indexes.size());
    for (const std::size_t index : indexes)
        chosen.push_back(comparison_->differences().at(index));
    if (chosen.empty() || !keepPresentState())
        return;
    const std::size_t count = putBack(chosen, *comparison_, version_->getMaster(), document_.getMaster());
    comparison_.reset();
    if (count > 0) {
        document_.updateUI();
        document_.updateChangeCount(ChangeKind::Done);
    }
    finish();
}

void VersionsController::putBackAll() {
    if (!version_ || !keepPresentState())
        return;
    comparison_.reset();
    document_.setMaster(deepCopy(version_->getMaster()));
    document_.updateUI();
    document_.updateChangeCount(ChangeKind::Done);
    finish();
}

void VersionsController::finish() {
    timer_.reset();
    if (panel_)
        panel_->dismiss();
}

} // namespace tabulon
