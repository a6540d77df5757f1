// Any document, exported to every format. No file is larger than twice the limit, and the XBEL reader accepts
// the exported XBEL.
#include "formats/ExportFormats.h"
#include "formats/import/XBELReader.h"
#include "fuzz/RoundTrip.h"
#include "model/OutputLimit.h"
#include "platform/fake/FakeBaseServices.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulon;
    FakeBaseServices fake;
    const auto master = readDocumentArchive({reinterpret_cast<const char*>(data), size});
    if (!master)
        return 0;
    const std::uint64_t most = std::max(OutputLimit::kAlways, OutputLimit::kFactor * bytesHeldBy(**master));
    for (const ExportFormat& format : exportFormats()) {
        const auto written = format.write(**master, fake.services(), nullptr);
        // One more node may be written before the limit is checked.
        if (written && written->size() > 2 * most)
            std::abort();
        if (written && format.name == "xbel" && !readXBEL(*written, {fake.services()}))
            std::abort();
    }
    return 0;
}
