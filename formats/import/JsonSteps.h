// A reader of JSON documents, value by value in the order of the file. The meaning of the values is not here.
#pragma once

#include "base/Error.h"

#include <simdjson.h>

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Reads a JSON document in one pass and validates all of it, so that an error anywhere is found. The
/// document is UTF-8, with or without a byte-order mark, and its top value is an object or array. All keys
/// are reported, including duplicates. Numbers may be of any size. Linear, without recursion.
class JsonSteps {
public:
    /// The limit on the nesting of arrays and objects.
    static constexpr std::size_t kDeepest = 1'000'000;

    enum class Step {
        Object, ///< an object begins; its values and an End follow
        Array,  ///< an array begins; its elements and an End follow
        End,
        String,
        Other,    ///< a number, true, false or null
        Finished, ///< the end of a valid document
        Failed,   ///< the document is invalid; `error()` has the reason
    };

    /// Copies `bytes`. Errors are reported by the steps.
    explicit JsonSteps(std::string_view bytes);
    ~JsonSteps();
    JsonSteps(const JsonSteps&) = delete;
    JsonSteps& operator=(const JsonSteps&) = delete;

    /// Moves to the next step and returns it. After Finished and Failed it returns the same again.
    Step next();

    /// Returns the key of the value of the last step, UTF-8 without escapes; empty for an element of an array
    /// and for the top value. Not defined after an End. Valid as long as this object.
    std::string_view key() const { return key_; }
    /// Returns the text of the last step, valid UTF-8 without escapes. Valid as long as this object.
    /// Requires: the last step was a String.
    std::string_view string() const { return string_; }
    /// Returns the offset in bytes at which the value of the last step begins; it never decreases. After an
    /// End it is the offset of the last value.
    std::size_t position() const { return position_; }
    /// Returns the reason as a sentence. Requires: the last step was Failed.
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
    /// The first backslash at or after a place before the last step, or the end of the bytes.
    const char* nextEscape_;
    simdjson::ondemand::parser parser_;
    simdjson::ondemand::document document_;
    std::vector<Level> levels_;
    bool started_ = false;
    /// Whether the iterator of the innermost array or object is to be advanced first.
    bool betweenValues_ = false;
    std::string_view key_;
    std::string_view string_;
    std::size_t position_ = 0;
    simdjson::error_code error_ = simdjson::SUCCESS;
};

/// Returns a JSON document without the white space between its values. Requires: valid JSON; the result for
/// other bytes is not defined, and may be empty.
std::string minifiedJson(std::string_view bytes);

} // namespace tabulon
