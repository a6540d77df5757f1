// The reader is built on simdjson's On-Demand parser, which does not validate values that are passed over.
// Therefore every scalar is validated here.
#include "formats/import/JsonSteps.h"

#include "base/Utf8.h"
#include "text/ByteOrderMark.h"

#include <algorithm>
#include <cstring>
#include <new>
namespace tabulon {
namespace {

using simdjson::error_code;

bool isSpace(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

const char* withoutSpaceBefore(const char* end) {
    while (isSpace(end[-1]))
        --end;
    return end;
}

// Returns a token without the white space after it. simdjson's tokens extend to the next token; none is white
// space alone.
std::string_view withoutSpaceAfter(std::string_view token) {
    const char* const end = withoutSpaceBefore(token.data() + token.size());
    return {token.data(), static_cast<std::size_t>(end - token.data())};
}

bool takeDigits(std::string_view& number) {
    const std::size_t digits = std::min(number.find_first_not_of("0123456789"), number.size());
    number.remove_prefix(digits);
    return digits > 0;
}

bool isNumber(std::string_view token) {
    if (token.starts_with('-'))
        token.remove_prefix(1);
    if (token.size() > 1 && token[0] == '0' && token[1] >= '0' && token[1] <= '9')
        return false;
    if (!takeDigits(token))
        return false;
    if (token.starts_with('.')) {
        token.remove_prefix(1);
        if (!takeDigits(token))
            return false;
    }
    if (token.starts_with('e') || token.starts_with('E')) {
        token.remove_prefix(1);
        if (token.starts_with('-') || token.starts_with('+'))
            token.remove_prefix(1);
        if (!takeDigits(token))
            return false;
    }
    return token.empty();
}

} // namespace

JsonSteps::JsonSteps(std::string_view bytes) {
    bytes = withoutUtf8Mark(bytes);
    size_ = bytes.size();
    allocated_ = size_ + simdjson::SIMDJSON_PADDING;
    bytes_ = static_cast<char*>(::operator new(allocated_));
    std::memcpy(bytes_, bytes.data(), size_);
    std::memset(bytes_ + size_, 0, simdjson::SIMDJSON_PADDING);
    nextEscape_ = bytes_;
}

JsonSteps::~JsonSteps() {
    ::operator delete(bytes_, allocated_);
}

JsonSteps::Step JsonSteps::next() {
    if (error_)
        return Step::Failed;
    if (!started_)
        return start();
    if (levels_.empty())
        // After the last value of a valid document the parser is out of bounds.
        return document_.current_location().error() == simdjson::OUT_OF_BOUNDS ? Step::Finished
                                                                               : fail(simdjson::TAPE_ERROR);
    Level& level = levels_.back();
    if (betweenValues_) {
        if (level.isObject)
            ++level.fields;
        else
            ++level.elements;
    }
    betweenValues_ = true;
    const bool more = level.isObject ? level.fields != level.fields : level.elements != level.elements;
    if (!more) {
        levels_.pop_back();
        return Step::End;
    }
    if (!level.isObject) {
        key_ = {};
        auto element = *level.elements;
        return element.error() ? fail(element.error()) : take(element.value_unsafe());
    }
    auto field = *level.fields;
    return field.error() ? fail(field.error()) : takeField(field.value_unsafe());
}

JsonSteps::Step JsonSteps::start() {
    started_ = true;
    // simdjson checks the depth in its development builds.
    if (const error_code error = parser_.allocate(size_, kDeepest + 2))
        return fail(error);
    if (const error_code error = parser_.iterate(bytes_, size_, allocated_).get(document_))
        return fail(error);
    simdjson::ondemand::json_type type{};
    if (const error_code error = document_.type().get(type))
        return fail(error);
    if (type == simdjson::ondemand::json_type::object)
        return enter(document_.get_object());
    if (type == simdjson::ondemand::json_type::array)
        return enter(document_.get_array());
    return fail(simdjson::INCORRECT_TYPE);
}

template <class Container>
JsonSteps::Step JsonSteps::enter(simdjson::simdjson_result<Container> result) {
    Container container;
    if (const error_code error = std::move(result).get(container))
        return fail(error);
    if (levels_.size() == kDeepest)
        return fail(simdjson::DEPTH_ERROR);
    betweenValues_ = false;
    Level level{};
    if constexpr (std::is_same_v<Container, simdjson::ondemand::object>) {
        level.isObject = true;
        if (const error_code error = container.begin().get(level.fields))
            return fail(error);
    } else if (const error_code error = container.begin().get(level.elements)) {
        return fail(error);
    }
    levels_.push_back(level);
    return level.isObject ? Step::Object : Step::Array;
}

JsonSteps::Step JsonSteps::takeField(Field& field) {
    // Between a key and its value there are a colon and white space only.
    const char* const begin = field.key().raw();
    const char* const colon = withoutSpaceBefore(field.value().raw_json_token().data()) - 1;
    const char* const quote = withoutSpaceBefore(colon) - 1;
    key_ = {begin, static_cast<std::size_t>(quote - begin)};
    if (hasEscapes(key_)) {
        if (const error_code error = field.unescaped_key().get(key_))
            return fail(error);
        if (!isValidUtf8(key_))
            return fail(simdjson::STRING_ERROR);
    }
    return take(field.value());
}

// The next backslash is cached: texts are short, and few have escapes.
bool JsonSteps::hasEscapes(std::string_view string) {
    if (nextEscape_ < string.data()) {
        const char* const end = bytes_ + size_;
        const void* found = std::memchr(string.data(), '\\', static_cast<std::size_t>(end - string.data()));
        nextEscape_ = found ? static_cast<const char*>(found) : end;
    }
    return nextEscape_ < string.data() + string.size();
}

JsonSteps::Step JsonSteps::take(Value& value) {
    const std::string_view token = withoutSpaceAfter(value.raw_json_token());
    position_ = static_cast<std::size_t>(token.data() - bytes_);
    switch (token[0]) {
    case '{':
        return enter(value.get_object());
    case '[':
        return enter(value.get_array());
    case '"':
        return takeString(value, token);
    default:
        // The parser skips every other scalar as one token.
        return isNumber(token) || token == "true" || token == "false" || token == "null"
                   ? Step::Other
                   : fail(simdjson::TAPE_ERROR);
    }
}

JsonSteps::Step JsonSteps::takeString(Value& value, std::string_view token) {
    string_ = token.substr(1, token.size() - 2);
    simdjson::ondemand::raw_json_string passed;
    const bool escaped = hasEscapes(string_);
    const error_code error =
        escaped ? value.get_string().get(string_) : value.get_raw_json_string().get(passed);
    if (error)
        return fail(error);
    // An unpaired surrogate is unescaped to bytes that are no UTF-8.
    return escaped && !isValidUtf8(string_) ? fail(simdjson::STRING_ERROR) : Step::String;
}

JsonSteps::Step JsonSteps::fail(simdjson::error_code error) {
    error_ = error;
    return Step::Failed;
}

std::string minifiedJson(std::string_view bytes) {
    std::string minified(bytes.size() + simdjson::SIMDJSON_PADDING, '\0');
    std::size_t size = 0;
    if (simdjson::minify(bytes.data(), bytes.size(), minified.data(), size))
        size = 0;
    minified.resize(size);
    return minified;
}

Error JsonSteps::error() const {
    switch (error_) {
    case simdjson::DEPTH_ERROR:
        return {.message = "The file is damaged: it is nested more than a million levels deep."};
    case simdjson::CAPACITY:
        return {.message = "The file is too large: more than 4 GB of JSON cannot be read."};
    case simdjson::MEMALLOC:
        return {.message = "There is not enough memory to read the file."};
    case simdjson::UTF8_ERROR:
        return {.message = "The file is no JSON: it is not encoded in UTF-8."};
    default:
        return {.message = "The file is no JSON, or it is damaged."};
    }
}

} // namespace tabulon
