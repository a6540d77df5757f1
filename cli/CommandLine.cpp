// The arguments of the tool → one command and its result. Each command adds its own options.
#include "cli/CommandLine.h"

#include "cli/PlainText.h"
#include "cli/SettingKeys.h"
#include "cli/Verbs.h"
#include "platform/fake/FakeBaseServices.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <sstream>

namespace tabulon::cli {
namespace {

// In the order of the help.
constexpr void (*kVerbs[])(Tool tool) = {
    addImport, addExport, addShow, addMake, addLink,    addDuplicates,
    addRemove, addSort,   addFind, addOpen, addCompare, addVersions,
};

// The options of every command.
struct GlobalOptions {
    std::vector<std::string> defaults;
    std::string locale;
};

std::string faultOfSetting(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        return "must be KEY=VALUE";
    const std::string key = text.substr(0, equals);
    return isSettingKey(key) ? "" : "there is no setting " + key;
}

void addGlobalOptions(CLI::App& parser, GlobalOptions& options) {
    parser.set_version_flag("--version", "tabulon-cli " TABULON_VERSION);
    parser.add_option("--default", options.defaults, "Set one user default for this run")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(faultOfSetting);
    parser.add_option("--locale", options.locale, "The language of collation and texts")->type_name("NAME");
    parser.require_subcommand(1);
    parser.footer("Exit status: 0 done, 1 the operation failed, 2 wrong usage.");
}

// Writes the message and returns the status of a failed operation.
int complain(const Environment& environment, std::string_view message) {
    // The message may contain a file name, which may contain control characters.
    environment.writeStandardError("tabulon-cli: " + onOneLine(message) + "\n");
    return kFailed;
}

int finish(const Result<void>& done, const Environment& environment) {
    return done ? kDone : complain(environment, done.error().message);
}

int perform(const Action& action, const GlobalOptions& options, const Environment& environment) {
    MemoryUserDefaults defaults;
    for (const std::string& setting : options.defaults) {
        const std::size_t equals = setting.find('=');
        defaults.setStringForKey(setting.substr(0, equals), setting.substr(equals + 1));
    }
    EnglishLocalization texts(options.locale.empty() ? environment.locale : options.locale);
    const Session session{environment, {environment.clock, defaults, texts, environment.log}};
    return finish(action(session), environment);
}

// Returns the reason why the arguments are wrong, without a full stop.
std::string problemOf(const CLI::App& parser, const CLI::ParseError& error) {
    const std::vector<std::string> unknown = parser.remaining();
    if (!parser.get_subcommands().empty() || unknown.empty())
        return error.what();
    return (unknown.front().starts_with('-') ? "There is no option " : "There is no command ") +
           unknown.front();
}

// Prints the help or the version that the arguments ask for, or the reason why they are wrong.
int explain(const CLI::App& parser, const CLI::ParseError& error, const Environment& environment) {
    std::ostringstream help;
    std::ostringstream problems;
    if (parser.exit(error, help, problems) == 0)
        return finish(environment.writeStandardOutput(help.str()), environment);
    complain(environment, problemOf(parser, error) + " (see tabulon-cli --help)");
    return kWrongUsage;
}

} // namespace

int run(const std::vector<std::string>& arguments, const Environment& environment) {
    GlobalOptions options;
    Action action;
    CLI::App parser("Reads, writes and converts bookmark documents.", "tabulon-cli");
    addGlobalOptions(parser, options);
    for (const auto addVerb : kVerbs)
        addVerb({parser, action});
    try {
        // CLI11 takes the arguments in reverse order.
        parser.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return perform(action, options, environment);
    } catch (const CLI::ParseError& error) {
        return explain(parser, error, environment);
    } catch (const std::bad_alloc&) {
        return complain(environment, "There is not enough memory for this operation.");
    }
}

} // namespace tabulon::cli
