#include "plist/XmlParsing.h"

#include <cstdlib>

namespace tabulon {
namespace {

// Who watches the parse that is going on. The parser knows no such thing, but asks for its memory in pages,
// thousands of times a second, and gives up where it gets none.
thread_local Progress* watching = nullptr;

void* allocatePage(std::size_t size) {
    return watching && !watching->goOn(0) ? nullptr : std::malloc(size);
}

// A parse can begin while another one waits for `goOn`.
class Watch {
public:
    explicit Watch(Progress* progress) : outer_(watching) { watching = progress; }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() { watching = outer_; }

private:
    Progress* outer_;
};

} // namespace

XmlOutcome parseXml(std::string& xml, unsigned flags, pugi::xml_document& document, Progress* progress) {
    pugi::set_memory_management_functions(allocatePage, std::free);
    const Watch watch(progress);
    const bool isWhole = document.load_buffer_inplace(xml.data(), xml.size(), flags);
    if (progress && !progress->goOn(0))
        return XmlOutcome::Cancelled;
    return isWhole ? XmlOutcome::Whole : XmlOutcome::Damaged;
}

} // namespace tabulon
