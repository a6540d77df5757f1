// The search for "meta" tags that name an encoding, by the algorithm of browsers. Parsing the page would need
// the encoding first.
#include "base/Ascii.h"
#include "formats/import/EncodingNames.h"
#include "formats/import/TextDecoding.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tabulon {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::size_t kMetaReach = 1024;

struct Attribute {
    std::string name;
    std::string value;
};

// Returns the value after "charset=" in the content of a meta tag, or `nullopt`.
std::optional<std::string_view> charsetIn(std::string_view content) {
    const std::string lowered = ascii::lowered(content);
    for (std::size_t at = lowered.find("charset"); at != npos; at = lowered.find("charset", at)) {
        const auto skip = [&] {
            while (at < content.size() && ascii::isSpace(content[at]))
                ++at;
        };
        at += std::string_view("charset").size();
        skip();
        if (at >= content.size() || content[at] != '=')
            continue;
        ++at;
        skip();
        std::string_view rest = content.substr(at);
        if (rest.starts_with('"') || rest.starts_with('\'')) {
            const std::size_t close = rest.find(rest.front(), 1);
            return close == npos ? std::nullopt : std::optional(rest.substr(1, close - 1));
        }
        return rest.substr(0, rest.find_first_of("; \t\n\f\r"));
    }
    return std::nullopt;
}

class MetaSearch {
public:
    explicit MetaSearch(std::string_view page) : rest_(page.substr(0, kMetaReach)) {}

    DeclaredEncoding run() {
        while (!rest_.empty()) {
            const std::size_t tag = rest_.find('<');
            if (tag == npos)
                break;
            rest_.remove_prefix(tag);
            if (const auto converter = step())
                return {true, std::string(*converter)};
        }
        return {};
    }

private:
    // Skips the tag or comment that begins here. Returns the encoding if it is a meta tag that names one.
    std::optional<std::string_view> step() {
        if (rest_.starts_with("<!--")) {
            const std::size_t end = rest_.find("-->", 2);
            rest_ = end == npos ? std::string_view() : rest_.substr(end + 3);
            return std::nullopt;
        }
        const std::size_t name = rest_.starts_with("</") ? 2 : 1;
        if (name < rest_.size() && ascii::isLetter(rest_[name])) {
            const bool isMeta = ascii::equalsIgnoringCase(rest_.substr(0, 5), "<meta") && rest_.size() > 5 &&
                                (ascii::isSpace(rest_[5]) || rest_[5] == '/');
            rest_.remove_prefix(isMeta ? 5 : std::min(rest_.find_first_of(" \t\n\f\r>"), rest_.size()));
            const std::vector<Attribute> attributes = readAttributes();
            return isMeta ? converterIn(attributes) : std::nullopt;
        }
        if (name == 2 || rest_.starts_with("<!") || rest_.starts_with("<?"))
            rest_.remove_prefix(std::min(rest_.find('>'), rest_.size() - 1));
        rest_.remove_prefix(1);
        return std::nullopt;
    }

    static std::optional<std::string_view> converterIn(const std::vector<Attribute>& attributes) {
        bool isContentType = false;
        bool needsContentType = false;
        std::optional<std::string_view> converter;
        for (const Attribute& attribute : attributes) {
            if (attribute.name == "http-equiv") {
                isContentType = isContentType || attribute.value == "content-type";
            } else if (attribute.name == "charset") {
                converter = converterForLabel(attribute.value);
                needsContentType = false;
            } else if (attribute.name == "content" && !converter) {
                if (const auto label = charsetIn(attribute.value)) {
                    converter = converterForLabel(*label);
                    needsContentType = true;
                }
            }
        }
        return needsContentType && !isContentType ? std::nullopt : converter;
    }

    // Returns all attributes up to the end of the tag, in lower case. Of equal names the first one counts.
    std::vector<Attribute> readAttributes() {
        std::vector<Attribute> attributes;
        for (;;) {
            rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\n\f\r/"), rest_.size()));
            if (rest_.empty() || rest_.front() == '>')
                break;
            Attribute attribute = readAttribute();
            if (std::ranges::find(attributes, attribute.name, &Attribute::name) == attributes.end())
                attributes.push_back(std::move(attribute));
        }
        return attributes;
    }

    Attribute readAttribute() {
        const std::size_t end = std::min(rest_.find_first_of(" \t\n\f\r/>=", 1), rest_.size());
        Attribute attribute{ascii::lowered(rest_.substr(0, end)), {}};
        rest_.remove_prefix(end);
        const std::size_t equals = rest_.find_first_not_of(" \t\n\f\r");
        if (equals == npos || rest_[equals] != '=')
            return attribute;
        rest_.remove_prefix(equals + 1);
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\n\f\r"), rest_.size()));
        std::size_t close = 0;
        if (rest_.starts_with('"') || rest_.starts_with('\'')) {
            close = std::min(rest_.find(rest_.front(), 1), rest_.size());
            attribute.value = ascii::lowered(rest_.substr(1, close - 1));
            close = std::min(close + 1, rest_.size());
        } else {
            close = std::min(rest_.find_first_of(" \t\n\f\r>"), rest_.size());
            attribute.value = ascii::lowered(rest_.substr(0, close));
        }
        rest_.remove_prefix(close);
        return attribute;
    }

    std::string_view rest_;
};

} // namespace

DeclaredEncoding declaredEncoding(std::string_view page) {
    return MetaSearch(page).run();
}

} // namespace tabulon
