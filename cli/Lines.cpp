#include "cli/Lines.h"

#include "cli/JsonTree.h"

#include <utility>

namespace tabulon::cli {
namespace {

constexpr std::size_t kPieceSize = std::size_t{1} << 20;

} // namespace

bool Lines::add(const std::string& line) {
    pending_ += line;
    pending_ += '\n';
    if (pending_.size() >= kPieceSize && done_)
        done_ = session_.write("-", std::exchange(pending_, {}));
    return done_.has_value();
}

bool Lines::addJson(const Bookmark& node, const std::string& path) {
    std::string line = "{";
    appendJsonFields(line, node);
    line += ",\"path\":\"" + path + "\"}";
    return add(line);
}

Result<void> Lines::finish() {
    if (done_ && !pending_.empty())
        done_ = session_.write("-", std::exchange(pending_, {}));
    return done_;
}

} // namespace tabulon::cli
