#include "app/DamagedDocument.h"

#include "model/ArchiveSalvage.h"
#include "model/NumberFormat.h"

namespace tabulon {

std::optional<Remains> remainsOfDocument(const std::string& path, const Platform& platform) {
    const Result<std::string> bytes = platform.files.readFile(path);
    if (!bytes)
        return std::nullopt;
    const Result<Salvage> salvage = salvageDocumentArchive(*bytes, platform.base);
    if (!salvage || !salvage->master->hasChildren())
        return std::nullopt;
    const Localization& texts = platform.base.texts;
    return Remains{salvage->master,
                   texts.format("BookmarksReadable", numberText(salvage->readable, texts.locale()),
                                numberText(salvage->records, texts.locale()))};
}

} // namespace tabulon
