#include "app/DamagedDocument.h"

#include "model/ArchiveSalvage.h"
#include "text/NumberFormat.h"

namespace tabulon {

std::optional<Remains> remainsOfDocument(std::string_view bytes, const BaseServices& services) {
    const Result<Salvage> salvage = salvageDocumentArchive(bytes, services);
    if (!salvage || !salvage->master->hasChildren())
        return std::nullopt;
    const Localization& texts = services.texts;
    const std::string_view key = salvage->records == 1 ? "BookmarksReadable:one" : "BookmarksReadable";
    return Remains{salvage->master, texts.format(key, numberText(salvage->readable, texts.locale()),
                                                 numberText(salvage->records, texts.locale()))};
}

} // namespace tabulon
