#include "model/ClassicReader.h"

#include "base/Utf8.h"

#include <unicode/ucnv.h>
#include <unicode/uloc.h>

namespace tabulon {
namespace {

constexpr int kClassicError = 256;
constexpr std::size_t kHeaderSize = 20;
constexpr std::size_t kRecordSize = 48;
/// Seconds from 1904-01-01 00:00 UTC to 2001-01-01 00:00 UTC.
constexpr double kClassicEpoch = 3061152000.0;

tl::unexpected<Error> classicFailure(std::string message, std::string title = {}) {
    return tl::unexpected(Error{ErrorDomain::OSStatus, kClassicError, std::move(message), std::move(title)});
}

bool countryIsJapan(const std::string& locale) {
    char country[ULOC_COUNTRY_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getCountry(locale.c_str(), country, sizeof country, &status);
    return U_SUCCESS(status) && std::string_view(country) == "JP";
}

// Converts a legacy encoding to UTF-8, by ICU's converter of this name.
class Decoder {
public:
    explicit Decoder(const char* encoding) : converter_(ucnv_open(encoding, &status_)) {
        // The converter's own substitute would be a control character.
        ucnv_setToUCallBack(converter_, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status_);
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() { ucnv_close(converter_); }

    Text decode(std::string_view bytes) {
        std::string text;
        ucnv_reset(converter_);
        const char* from = bytes.data();
        const char* end = from + bytes.size();
        while (from < end) {
            // ASCII is copied, because the converter would exchange some control characters.
            if (static_cast<unsigned char>(*from) < 0x80) {
                text += *from++;
                continue;
            }
            UErrorCode status = U_ZERO_ERROR;
            const UChar32 character = ucnv_getNextUChar(converter_, &from, end, &status);
            if (status == U_INDEX_OUTOFBOUNDS_ERROR)
                break;
            utf8::append(text, U_SUCCESS(status) ? static_cast<char32_t>(character) : U'\uFFFD');
            if (U_FAILURE(status))
                ucnv_reset(converter_);
        }
        return Text(text);
    }

private:
    UErrorCode status_ = U_ZERO_ERROR;
    UConverter* converter_;
};

class RecordReader {
public:
    RecordReader(std::string_view data, const BaseServices& services)
        : data_(data), now_(Date::now(services.clock)),
          decoder_(countryIsJapan(services.texts.locale()) ? "Shift_JIS" : "macintosh") {}

    /// Reads all records into `root`. Returns false if one extends beyond the end of the data, or a text does
    /// not end with a zero byte.
    bool readChain(Bookmark& root);
    /// Returns true if the data after the last record has room for another one and is not all zeros. The
    /// chain of records is then damaged.
    bool leavesRecords() const {
        return has(kRecordSize) && data_.find_first_not_of('\0', position_) != std::string_view::npos;
    }

private:
    struct Record {
        const char* bytes;

        std::uint8_t byte(std::size_t at) const { return static_cast<std::uint8_t>(bytes[at]); }
        std::uint32_t word(std::size_t at) const {
            return std::uint32_t{byte(at)} << 24 | std::uint32_t{byte(at + 1)} << 16 |
                   std::uint32_t{byte(at + 2)} << 8 | byte(at + 3);
        }
        bool childrenFollow() const { return word(28) != 0; }
        bool siblingFollows() const { return word(24) != 0; }
    };

    bool has(std::size_t size) const { return size <= data_.size() - position_; }
    bool readTexts(const Record& record, Bookmark& node);
    bool readText(std::size_t length, Text& text);
    bool readLongText(Text& text);
    static Date date(std::uint32_t seconds) {
        return seconds == 0 ? Date() : Date::fromReferenceSeconds(seconds - kClassicEpoch);
    }
    Ref<Bookmark> nodeFrom(const Record& record) const;

    std::string_view data_;
    std::size_t position_ = kHeaderSize;
    Date now_;
    Decoder decoder_;
};

Ref<Bookmark> RecordReader::nodeFrom(const Record& record) const {
    Ref<Bookmark> node = Bookmark::init(now_);
    if (record.byte(16) != 0)
        node->makeParent();
    node->handleFlags(record.byte(19));
    node->handleShowHier(record.byte(17));
    // Last, so that a folder without children has the icon of its type until the document is read again.
    node->setType(record.byte(15));
    if (const Date added = date(record.word(40)); !added.isNull())
        node->setItemDateAdded(added);
    if (const Date checked = date(record.word(44)); !checked.isNull())
        node->setItemLastChecked(checked);
    return node;
}

// Reads `length` bytes of text and one zero byte. The text ends at its first zero byte. It is null only for a
// length of 0.
bool RecordReader::readText(std::size_t length, Text& text) {
    if (!has(length + 1) || data_[position_ + length] != '\0')
        return false;
    if (length > 0) {
        const std::string_view bytes = data_.substr(position_, length);
        text = decoder_.decode(bytes.substr(0, bytes.find('\0')));
    }
    position_ += length + 1;
    return true;
}

bool RecordReader::readLongText(Text& text) {
    if (!has(2))
        return false;
    const auto high = static_cast<std::uint8_t>(data_[position_]);
    const auto low = static_cast<std::uint8_t>(data_[position_ + 1]);
    position_ += 2;
    return readText(std::size_t{high} << 8 | low, text);
}

bool RecordReader::readTexts(const Record& record, Bookmark& node) {
    Text name;
    Text url;
    Text note;
    if (record.word(0) != 0 && !readLongText(name))
        return false;
    if (record.word(4) != 0 && !readLongText(url))
        return false;
    if (record.word(36) != 0) {
        if (!has(1))
            return false;
        const auto low = static_cast<std::uint8_t>(data_[position_]);
        ++position_;
        // The length of the note is divided: its high byte is in the record.
        if (!readText(std::size_t{record.byte(14)} << 8 | low, note))
            return false;
    }
    node.setItemName(std::move(name));
    node.setItemURL(std::move(url));
    node.setItemNote(std::move(note));
    return true;
}

bool RecordReader::readChain(Bookmark& root) {
    struct Level {
        Bookmark* folder;
        bool continues;
    };
    std::vector<Level> levels{{&root, true}};
    while (!levels.empty()) {
        if (!levels.back().continues) {
            levels.pop_back();
            continue;
        }
        if (!has(kRecordSize))
            return false;
        const Record record{data_.data() + position_};
        position_ += kRecordSize;
        Ref<Bookmark> node = nodeFrom(record);
        if (!readTexts(record, *node))
            return false;
        levels.back().folder->addChild(node);
        levels.back().continues = record.siblingFollows();
        if (record.childrenFollow()) {
            node->makeParent();
            levels.push_back({node.get(), true});
        }
    }
    return true;
}

std::uint16_t shortAt(std::string_view data, std::size_t at) {
    return static_cast<std::uint16_t>(static_cast<std::uint8_t>(data[at]) << 8 |
                                      static_cast<std::uint8_t>(data[at + 1]));
}

} // namespace

bool classicFile(std::string_view data) {
    return data.size() >= 2 && shortAt(data, 0) < 4;
}

Result<Ref<Bookmark>> readClassic(std::string_view data, const BaseServices& services) {
    if (data.size() < kHeaderSize)
        return classicFailure("The file is too short for a classic document.");
    if (shortAt(data, 10) == 0)
        return classicFailure("This document does not contain any bookmarks.", "File Read Error");
    if (static_cast<std::int16_t>(shortAt(data, 0)) >= 4)
        return classicFailure("The version of this file format is too high for this application.",
                              "File Open Error");
    Ref<Bookmark> master = Bookmark::init(Date::now(services.clock));
    master->setItemName("Master");
    master->makeParent();
    master->setShowHier(true);
    RecordReader reader(data, services);
    if (!reader.readChain(*master))
        return classicFailure("The file is damaged: it ends in the middle of a bookmark.");
    if (reader.leavesRecords())
        return classicFailure("The file is damaged: there are bookmarks that no folder holds.");
    return master;
}

} // namespace tabulon
