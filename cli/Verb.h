// One command of the tool: its arguments, options and action. The headers of CLI11, which parses the
// arguments, take ten seconds to compile; only Verb.cpp and CommandLine.cpp include them.
#pragma once

#include "cli/Session.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace tabulon::cli {

/// Performs a command. Fails with a sentence for the user.
using Action = std::function<Result<void>(const Session&)>;

/// Returns what is wrong with a value or with the options of a command, or an empty text.
using ValueCheck = std::function<std::string(const std::string& value)>;
using OptionsCheck = std::function<std::string()>;

/// The commands of the tool. Parsing assigns the action of the command that the arguments name. Owns neither.
/// Requires: both exist until the action has been performed.
struct Tool {
    CLI::App& parser;
    Action& action;
};

/// One option or argument of a command. A copy is the same option. Requires: the parser exists.
class Option {
public:
    /// Refers to an option that the parser owns.
    explicit Option(CLI::Option& option) : option_(&option) {}

    // Each function but `isGiven` changes the option and returns it. Called before parsing.

    /// Makes it wrong usage to omit the option.
    Option& required();
    /// Accepts no other values than these. The case of letters counts. The help lists the values.
    Option& oneOf(const std::vector<std::string>& values);
    /// Accepts no values for which `check` returns a text. That text is the reason in the error message.
    /// `check` is called for each value during parsing.
    Option& check(const ValueCheck& check);
    /// Sets the word for the value in the help.
    Option& type(const std::string& word);
    /// Adds the present value to the help. Later changes of the variable are not shown.
    Option& showDefault();
    /// Makes it wrong usage to give both options.
    Option& excludes(Option other);
    /// Makes it wrong usage to give this option without `other`.
    Option& needs(Option other);
    /// Returns true if the option was given. For use after parsing.
    bool isGiven() const;

private:
    CLI::Option* option_;
};

/// Describes one command. The variables passed in receive the values of the command line; they must exist as
/// long as the parser. Descriptions are those of the help.
class Verb {
public:
    /// Adds a command to `tool`, whose parser and action must outlive this object. `name` is the word on the
    /// command line. The parser owns the command, so this object can be destroyed before the parsing.
    Verb(Tool tool, const std::string& name, const std::string& description);

    /// Adds a required argument. Arguments are read in the order in which they were added. `name` is the word
    /// for it in the help.
    void argument(const std::string& name, std::string& value, const std::string& description);
    /// Adds an option with a text as its value. `value` is unchanged if the option is not given. It is wrong
    /// usage to give it twice, as for every option with one value.
    Option option(const std::string& name, std::string& value, const std::string& description);
    /// Adds an option with a number of decimal digits as its value. `value` is unchanged if the option is not
    /// given. A sign, other characters, and a number that does not fit into `std::size_t` are wrong usage.
    Option option(const std::string& name, std::optional<std::size_t>& value, const std::string& description);
    /// Adds an option with values that are joined by commas. It may be given several times. The values are in
    /// the order of the command line.
    Option list(const std::string& name, std::vector<std::string>& values, const std::string& description);
    /// Adds an option without a value. Sets `isSet` if it is given. A value such as in "--flag=false" is
    /// wrong usage.
    Option flag(const std::string& name, bool& isSet, const std::string& description);

    /// Adds the required option --path, the path of a node; see NodePath.h. Text that is not of this form is
    /// wrong usage.
    void path(std::string& path);
    /// Adds the required argument INPUT, the path of a document. Its value "-" is standard input.
    void document(std::string& path);
    /// Adds the option -o, the path of the document to write. Its value "-" is standard output. Not required
    /// unless the caller calls `required`.
    Option documentOutput(std::string& path);
    /// Adds the option -o, the path of a file of another format to write. The same holds as for
    /// `documentOutput`.
    Option fileOutput(std::string& path);

    /// Sets the action: calls `perform(session, *options)`. The options live as long as the parser. If
    /// `check` returns a text, the options are wrong usage, and the action is not called.
    template <class Options, class Perform>
    void setAction(const std::shared_ptr<Options>& options, Perform perform, const OptionsCheck& check = {}) {
        assignAction([options, perform](const Session& session) { return perform(session, *options); },
                     check);
    }

private:
    /// Assigns the action to the tool when the arguments name this command and `check` has no objection.
    void assignAction(const Action& action, const OptionsCheck& check);

    /// Owned by the parser of the tool.
    CLI::App& verb_;
    /// The action of the tool, not owned.
    Action& chosen_;
};

/// Returns the names of the formats, in their order.
template <class Formats>
/// Requires: each format has a member `name`, a text.
std::vector<std::string> namesOf(const Formats& formats) {
    std::vector<std::string> names;
    for (const auto& format : formats)
        names.emplace_back(format.name);
    return names;
}

} // namespace tabulon::cli
