#include "formats/import/TextScanner.h"

#include "base/Ascii.h"
#include "formats/import/ScannedBytes.h"
#include "text/XmlEntities.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

/// The limit on the bytes before an "@" that are searched for the beginning of its word.
constexpr std::size_t kAddressReach = 512;

constexpr std::string_view kDelimiters("\0\t\n\r \"'(),;<>", 13);

constexpr std::array<bool, 256> kIsDelimiter = [] {
    std::array<bool, 256> table{};
    for (const char c : kDelimiters)
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

bool isDelimiter(char c) {
    return kIsDelimiter[static_cast<unsigned char>(c)];
}

// Returns the number of bytes from the beginning of a scheme to "://", guessed from the scheme's third letter
// from the end and its last one.
std::size_t schemeLength(char third, char last) {
    switch (ascii::lower(third)) {
    case 'a':
    case 'e':
    case 'i':
        return 4; // file, news
    case 'g':
    case 'h':
    case 'n':
        return 6; // gopher, telnet
    case 't':
        return ascii::lower(last) == 's' ? 5 : 4; // https, http
    default:
        return 3; // ftp, smb, ssh
    }
}

class TextScan {
public:
    TextScan(std::string_view bytes, const BaseServices& services)
        : bytes_(bytes), now_(Date::now(services.clock)), untitled_(services.texts.text("Untitled")) {}

    Ref<Bookmark> run(Progress* progress) {
        Ref<Bookmark> root = Bookmark::init(now_);
        root->makeParent();
        root->setItemName("Master");
        ProgressSteps steps(progress, bytes_.size());
        for (std::size_t cursor = 0; cursor < bytes_.size() && steps.goOn(cursor);) {
            const std::size_t next = scanOne(*root, cursor);
            if (next == ScannedBytes::npos)
                break;
            cursor = next;
        }
        return root;
    }

private:
    // Appends the link of the first marker from the cursor on, if it has one. Returns the next cursor, or
    // ScannedBytes::npos where there is no marker.
    std::size_t scanOne(Bookmark& root, std::size_t cursor) {
        const std::size_t scheme = findScheme(cursor);
        const std::size_t mailto = findMailto(cursor);
        const std::size_t at = at_.find(cursor, [this](std::size_t from) { return bytes_.find('@', from); });
        const std::size_t infoMac =
            infoMac_.find(cursor, [this](std::size_t from) { return bytes_.find("/info-mac/", from); });
        const std::size_t first = std::min({scheme, mailto, at, infoMac});
        if (first == ScannedBytes::npos)
            return ScannedBytes::npos;
        if (first == scheme)
            return appendAfterScheme(root, scheme);
        return append(root, first == at ? startOfWord(at, cursor) : first);
    }

    std::size_t findScheme(std::size_t cursor) {
        return scheme_.find(cursor, [this](std::size_t from) { return bytes_.find("://", from); });
    }

    // Searches for the colon, since the letters may be of either case.
    std::size_t findMailto(std::size_t cursor) {
        return mailto_.find(cursor, [this](std::size_t from) {
            constexpr std::string_view kLetters = "mailto";
            for (std::size_t colon = bytes_.find(':', from + kLetters.size()); colon != ScannedBytes::npos;
                 colon = bytes_.find(':', colon + 1)) {
                const std::size_t start = colon - kLetters.size();
                if (std::ranges::equal(bytes_.range(start, colon), kLetters, {}, ascii::lower))
                    return start;
            }
            return ScannedBytes::npos;
        });
    }

    // Returns the position at which the word of an "@" begins, not before the cursor.
    std::size_t startOfWord(std::size_t at, std::size_t cursor) const {
        const std::size_t least = at - std::min(kAddressReach - 1, at);
        for (std::size_t start = at; start > std::max(cursor, least); --start)
            if (isDelimiter(bytes_.at(start - 1)))
                return start;
        return std::max(cursor, least);
    }

    std::size_t appendAfterScheme(Bookmark& root, std::size_t marker) {
        const char third = marker >= 3 ? bytes_.at(marker - 3) : '\0';
        const char last = marker >= 1 ? bytes_.at(marker - 1) : '\0';
        const std::size_t start = marker - std::min(schemeLength(third, last), marker);
        const bool reaches = std::ranges::none_of(bytes_.range(start, marker), isDelimiter);
        return reaches ? append(root, start) : marker + std::string_view("://").size();
    }

    // Appends the link from `start` to the next delimiter. Returns the position after that.
    std::size_t append(Bookmark& root, std::size_t start) {
        std::size_t end = start;
        while (end < bytes_.size() && !isDelimiter(bytes_.at(end)))
            ++end;
        Ref<Bookmark> link = Bookmark::init(now_);
        link->setItemName(untitled_);
        link->setItemURL(textOfXmlBytes(bytes_.range(start, end)));
        link->determineType();
        root.addChild(std::move(link));
        return end + 1;
    }

    const ScannedBytes bytes_;
    const Date now_;
    const Text untitled_;
    RememberedSearch scheme_;
    RememberedSearch mailto_;
    RememberedSearch at_;
    RememberedSearch infoMac_;
};

} // namespace

Result<Ref<Bookmark>> readText(std::string_view bytes, const ReadOptions& options) {
    Ref<Bookmark> root = TextScan(bytes, options.services).run(options.progress);
    if (options.isCancelled())
        return cancelledByUser();
    return root;
}

} // namespace tabulon
