#include "cli/Verb.h"

#include "cli/NodePath.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <charconv>

namespace tabulon::cli {
namespace {

// The parser alone would accept a minus sign, and read “-1” as the largest number.
std::string faultOfNumber(const std::string& value) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    const bool isNumber = error == std::errc() && end == value.data() + value.size();
    return isNumber ? "" : "“" + value + "” is not a number in decimal digits";
}

} // namespace

Option& Option::required() {
    option_->required();
    return *this;
}

Option& Option::oneOf(const std::vector<std::string>& values) {
    option_->check(CLI::IsMember(values));
    return *this;
}

Option& Option::check(const ValueCheck& check) {
    option_->check(check);
    return *this;
}

Option& Option::type(const std::string& word) {
    option_->type_name(word);
    return *this;
}

Option& Option::showDefault() {
    option_->capture_default_str();
    return *this;
}

Option& Option::excludes(Option other) {
    option_->excludes(other.option_);
    return *this;
}

Option& Option::needs(Option other) {
    option_->needs(other.option_);
    return *this;
}

bool Option::isGiven() const {
    return option_->count() > 0;
}

Verb::Verb(Tool tool, const std::string& name, const std::string& description)
    : verb_(*tool.parser.add_subcommand(name, description)), chosen_(tool.action) {}

void Verb::argument(const std::string& name, std::string& value, const std::string& description) {
    verb_.add_option(name, value, description)->required();
}

Option Verb::option(const std::string& name, std::string& value, const std::string& description) {
    return Option(*verb_.add_option(name, value, description));
}

Option Verb::option(const std::string& name, std::optional<std::size_t>& value,
                    const std::string& description) {
    return Option(*verb_.add_option(name, value, description)->check(faultOfNumber));
}

Option Verb::list(const std::string& name, std::vector<std::string>& values, const std::string& description) {
    return Option(*verb_.add_option(name, values, description)->delimiter(',')->allow_extra_args(false));
}

Option Verb::flag(const std::string& name, bool& isSet, const std::string& description) {
    return Option(*verb_.add_flag(name, isSet, description)->disable_flag_override());
}

void Verb::path(std::string& path) {
    option("--path", path, "The path of the bookmark: child indexes joined by /, such as 0/3/1")
        .type("PATH")
        .required()
        .check([](const std::string& text) {
            return isNodePath(text) ? "" : "must be child indexes joined by /, such as 0/3/1";
        });
}

void Verb::document(std::string& path) {
    argument("INPUT", path, "The document to read, - for standard input");
}

Option Verb::documentOutput(std::string& path) {
    return option("-o,--output", path, "The document to write, - for standard output");
}

Option Verb::fileOutput(std::string& path) {
    return option("-o,--output", path, "The file to write, - for standard output");
}

void Verb::assignAction(const Action& action, const OptionsCheck& check) {
    verb_.callback([&chosen = chosen_, action, check] {
        if (const std::string fault = check ? check() : std::string(); !fault.empty())
            throw CLI::ValidationError(fault, CLI::ExitCodes::ValidationError);
        chosen = action;
    });
}

} // namespace tabulon::cli
