#include "model/Document.h"

#include "base/Utf8.h"
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "model/ClassicReader.h"

#include <filesystem>
#include <utility>

namespace tabulon {

Document::Document(const BaseServices& services, DocumentObserver* observer)
    : services_(services), observer_(observer),
      anchor_(Ref<DocumentAnchor>::adopt(new DocumentAnchor{this})) {
    Ref<Bookmark> master = Bookmark::init(Date::now(services_.clock));
    master->setItemName("Master");
    master->makeParent();
    master->setShowHier(true);
    setMaster(std::move(master));
}

Document::~Document() {
    anchor_->document = nullptr;
}

void Document::setMaster(Ref<Bookmark> master) {
    fDropFolder_ = nullptr;
    fMaster_ = std::move(master);
    fMaster_->setDocument(this);
}

std::string Document::dataOfType(std::string_view /*type*/) const {
    return writeDocumentArchive(*fMaster_);
}

Result<void> Document::readFromDataOfType(std::string_view data, std::string_view type) {
    Result<Ref<Bookmark>> master =
        classicFile(data) ? readClassic(data, services_) : readDocumentArchive(data);
    if (!master)
        return tl::unexpected(std::move(master.error()));
    makeMaster(**master);
    setMaster(std::move(*master));
    fileType_ = classicFile(data) ? kDocumentType : type;
    return {};
}

void Document::makeMaster(Bookmark& root) {
    root.setItemName("Master");
    root.setShowHier(true);
    root.setItemFolder(true);
    if (!root.getChildren())
        root.makeChildList();
    root.linkIcon();
}

void Document::updateChangeCount(ChangeKind change) {
    const bool edited = isDocumentEdited();
    switch (change) {
    case ChangeKind::Done:
        ++changeCount_;
        break;
    case ChangeKind::Undone:
        --changeCount_;
        break;
    case ChangeKind::Cleared:
        changeCount_ = 0;
        break;
    }
    if (edited != isDocumentEdited())
        stateChanged();
    if (change != ChangeKind::Cleared && observer_)
        observer_->documentDidChange();
}

void Document::setFileName(std::string path) {
    fileName_ = std::move(path);
    displayName_.clear();
    stateChanged();
}

std::string Document::displayName() const {
    if (!displayName_.empty())
        return displayName_;
    if (!fileName_.empty())
        return decodeUtf8Leniently(std::filesystem::path(fileName_).stem().string());
    return services_.texts.text("Untitled");
}

void Document::setDisplayName(std::string name) {
    displayName_ = std::move(name);
    stateChanged();
}

void Document::updateUI() {
    if (presenter_)
        presenter_->setMaster(*fMaster_);
}

void Document::stateChanged() {
    if (presenter_)
        presenter_->documentStateChanged();
}

} // namespace tabulon
