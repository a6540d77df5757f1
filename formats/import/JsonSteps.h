// A JSON document, value by value in the order of the file. What the values mean is not here.
#pragma once

#include "base/Error.h"

#include <simdjson.h>

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Goes once through a JSON document and looks at all of it, so that a document with a flaw anywhere is told
/// from a sound one. UTF-8, with or without a byte-order mark. Keys come as they stand, duplicates included.
/// Numbers may be of any size. Nothing recurses.
class JsonSteps {
public:
    /// The deepest nesting of arrays and objects that is read.
    static constexpr std::size_t kDeepest = 1'000'000;

    enum class Step {
        Object, ///< an object begins; its values follow, and an End
        Array,  ///< the same of an array
        End,
        String,
        Other,    ///< a number, true, false or null
        Finished, ///< nothing follows, and the document is sound
        Failed,   ///< nothing follows; `error` tells why
    };

    /// Copies `bytes`.
    explicit JsonSteps(std::string_view bytes);
    ~JsonSteps();
    JsonSteps(const JsonSteps&) = delete;
    JsonSteps& operator=(const JsonSteps&) = delete;

    Step next();

    /// The key of the value of the last step (not of an End); empty in an array and at the top. Lives as long
    /// as this object.
    std::string_view key() const { return key_; }
    /// The text of the last step, a String: valid UTF-8 that lives as long as this object.
    std::string_view string() const { return string_; }
    /// Where in the bytes the value of the last step begins; grows with the steps. An End is where the last
    /// value was.
    std::size_t position() const { return position_; }
    /// A sentence.
    Error error() const;

private:
    using Field = simdjson::ondemand::field;
    using Value = simdjson::ondemand::value;

    /// An open array or object.
    struct Level {
        bool isObject;
        simdjson::ondemand::object_iterator fields;
        simdjson::ondemand::array_iterator elements;
    };

    Step start();
    template <class Container>
    Step enter(simdjson::simdjson_result<Container> container);
    Step takeField(Field& field);
    Step take(Value& value);
    Step takeString(Value& value, std::string_view token);
    bool hasEscapes(std::string_view string);
    Step fail(simdjson::error_code error);

    std::size_t size_;
    std::size_t allocated_;
    char* bytes_;
    /// The first backslash from some place before the last step on, or the end.
    const char* nextEscape_;
    simdjson::ondemand::parser parser_;
    simdjson::ondemand::document document_;
    std::vector<Level> levels_;
    bool started_ = false;
    /// The last step stands in an array or object that has to be moved on.
    bool betweenValues_ = false;
    std::string_view key_;
    std::string_view string_;
    std::size_t position_ = 0;
    simdjson::error_code error_ = simdjson::SUCCESS;
};

/// A sound JSON document without the white space between its values.
std::string minifiedJson(std::string_view bytes);

} // namespace tabulon
