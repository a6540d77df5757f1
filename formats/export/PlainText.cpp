#include "formats/export/PlainText.h"

#include "formats/export/ExportSteps.h"
#include "formats/export/ExportText.h"
#include "formats/export/SiblingOrder.h"
#include "model/OutputLimit.h"
#include "model/TreeWalk.h"

#include <algorithm>
#include <span>
#include <vector>

namespace tabulon {
namespace {

class TextExport {
public:
    TextExport(const Bookmark& master, const TextExportOptions& options)
        : master_(master), options_(options),
          steps_(options.progress, master, options.sort ? ExportOrder::Sorted : ExportOrder::AsInTheTree) {}

    Result<std::string> run() {
        if (options_.skipFolders)
            addFlattened(master_);
        else
            addChildren(master_);
        while (!pending_.empty()) {
            const Bookmark& node = *pending_.back();
            pending_.pop_back();
            if (!node.isSeparator() || !options_.skipSeparators)
                writeLine(node);
            if (text_.size() > options_.mostBytes)
                return failure("The bookmarks are too many or too long for one text file.");
            if (limit_.isPassedBy(text_.size()))
                return OutputLimit::failure();
            if (node.isFolder())
                addChildren(node);
            steps_.nodeWritten();
            if (steps_.isCancelled())
                return cancelledByUser();
        }
        return std::move(text_);
    }

private:
    void addChildren(const Bookmark& folder) {
        const std::size_t first = pending_.size();
        if (const ChildList* children = folder.getChildren())
            for (const Bookmark* child : *children)
                pending_.push_back(child);
        order(first);
    }

    // Adds all nodes below `folder` that are no folders, depth first.
    void addFlattened(const Bookmark& folder) {
        walkBelow(folder, [this](const Bookmark& node) {
            if (!node.isFolder())
                pending_.push_back(&node);
            return node.isFolder();
        });
        order(0);
    }

    // Sorts the nodes from `first` on where the options say so, and reverses them: the last one is written
    // first.
    void order(std::size_t first) {
        if (options_.sort)
            sortNodes(std::span(pending_).subspan(first), *options_.sort, steps_,
                      options_.name ? SortText::Name : SortText::URL);
        std::reverse(pending_.begin() + static_cast<std::ptrdiff_t>(first), pending_.end());
    }

    void writeLine(const Bookmark& node) {
        writeColumn(options_.name, node.itemName());
        writeColumn(options_.url, node.itemURL());
        writeColumn(options_.tags, node.itemTags());
        if (options_.note)
            text_ += tidyPart(node.itemNote().view());
        text_ += '\n';
    }

    void writeColumn(bool written, const Text& text) {
        if (!written)
            return;
        text_ += text.view();
        text_ += '\t';
    }

    const Bookmark& master_;
    const TextExportOptions options_;
    ExportSteps steps_;
    OutputLimit limit_{master_};
    std::string text_;
    std::vector<const Bookmark*> pending_; // to be written, the next one last
};

} // namespace

Result<std::string> exportToText(const Bookmark& master, const TextExportOptions& options) {
    return TextExport(master, options).run();
}

} // namespace tabulon
