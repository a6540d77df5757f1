// Arguments → verb. CLI11 parses them, and writes help and usage errors.
#include "cli/CommandLine.h"

#include "cli/NodePath.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"
#include "formats/ExportFormats.h"
#include "formats/ImportFormats.h"
#include "platform/fake/FakeBaseServices.h"

#include <CLI/CLI.hpp>

#include <map>
#include <sstream>

namespace tabulon::cli {
namespace {

// The parsed arguments.
struct Request {
    std::vector<std::string> defaults;
    std::string locale;
    std::string format;
    std::string input;
    std::string output = "-";
    std::string path;
    std::vector<std::string> statuses;
    bool json = false;
    bool mark = false;
    bool deletes = false;
    bool move = false;
    std::string key;
    std::string text;
    std::string before;
    std::size_t number = 0;
    bool descending = false;
    std::function<Result<void>(const Session&)> verb;
};

template <class Format>
std::vector<std::string> namesOf(std::span<const Format> formats) {
    std::vector<std::string> names;
    for (const Format& format : formats)
        names.emplace_back(format.name);
    return names;
}

void addDocument(CLI::App& verb, Request& request) {
    verb.add_option("INPUT", request.input, "The document to read, - for standard input")->required();
}

void addRequiredOutput(CLI::App& verb, Request& request) {
    verb.add_option("-o,--output", request.output, "The document to write, - for standard output")
        ->required();
}

void addImport(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("import", "Read a file of another format and write it as a document");
    verb->add_option("--from", request.format, "The format of INPUT")
        ->required()
        ->check(CLI::IsMember(namesOf(importFormats())));
    verb->add_option("INPUT", request.input, "The file to read, - for standard input")->required();
    verb->add_option("-o,--output", request.output, "The document to write, - for standard output")
        ->capture_default_str();
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return importFile(session, request.format, request.input, request.output);
        };
    });
}

void addExport(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("export", "Write a document in another format");
    verb->add_option("--to", request.format, "The format to write")
        ->required()
        ->check(CLI::IsMember(namesOf(exportFormats())));
    addDocument(*verb, request);
    verb->add_option("-o,--output", request.output, "The file to write, - for standard output")
        ->capture_default_str();
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return exportFile(session, request.format, request.input, request.output);
        };
    });
}

void addShow(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("show", "Print the tree of a document, one line a node");
    verb->add_flag("--json", request.json, "Print the whole tree as JSON instead")->disable_flag_override();
    addDocument(*verb, request);
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return request.json ? showAsJson(session, request.input) : showForPeople(session, request.input);
        };
    });
}

void addMake(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("make", "Build a document from the JSON that show --json prints");
    verb->add_option("INPUT", request.input, "The JSON file to read, - for standard input")->required();
    addRequiredOutput(*verb, request);
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return makeFromJson(session, request.input, request.output);
        };
    });
}

std::string nodePath(const std::string& text) {
    return isNodePath(text) ? "" : "must be child indexes joined by /, such as 0/3/1";
}

void addLink(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("link", "Write one bookmark of a document as a single-link file");
    verb->add_option("--path", request.path, "Where it stands: child indexes joined by /, such as 0/3/1")
        ->type_name("PATH")
        ->required()
        ->check(nodePath);
    addDocument(*verb, request);
    verb->add_option("-o,--output", request.output, "The file to write, - for standard output")->required();
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return exportLink(session, request.input, request.path, request.output);
        };
    });
}

void addDuplicates(CLI::App& app, Request& request) {
    CLI::App* verb =
        app.add_subcommand("duplicates", "List the links whose URL an earlier one of the document has");
    CLI::Option* json = verb->add_flag("--json", request.json, "List them as JSON");
    CLI::Option* mark = verb->add_flag("--mark", request.mark, "Write the document with them marked instead");
    CLI::Option* deletes =
        verb->add_flag("--delete", request.deletes, "Write the document without them instead");
    mark->excludes(deletes)->excludes(json);
    deletes->excludes(json);
    for (CLI::Option* flag : {json, mark, deletes})
        flag->disable_flag_override();
    addDocument(*verb, request);
    CLI::Option* output =
        verb->add_option("-o,--output", request.output, "The document to write, - for standard output");
    mark->needs(output);
    deletes->needs(output);
    verb->callback([&, output] {
        const bool writes = request.mark || request.deletes;
        if (output->count() > 0 && !writes)
            throw CLI::RequiresError("-o", "--mark or --delete");
        const auto kind = request.mark ? DuplicatesOutput::Marked : DuplicatesOutput::Deleted;
        request.verb = [&, writes, kind](const Session& session) {
            return writes ? writeDuplicates(session, request.input, kind, request.output)
                          : listDuplicates(session, request.input, request.json);
        };
    });
}

RemovalOptions removalOptions(const Request& request) {
    RemovalOptions options{.move = request.move};
    for (const std::string& status : request.statuses) {
        options.duplicates |= status == "duplicate";
        options.broken |= status == "broken";
        options.unknown |= status == "unknown";
    }
    return options;
}

void addRemove(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("remove", "Write a document without the links of some statuses");
    verb->add_option("--status", request.statuses, "duplicate, broken, unknown or several, joined by commas")
        ->type_name("STATUS")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->required()
        ->check(CLI::IsMember({"duplicate", "broken", "unknown"}));
    verb->add_flag("--move", request.move, "Move them into the Waste Basket instead")
        ->disable_flag_override();
    addDocument(*verb, request);
    addRequiredOutput(*verb, request);
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return removeFromDocument(session, request.input, removalOptions(request), request.output);
        };
    });
}

const std::map<std::string, SortKey>& sortKeys() {
    static const std::map<std::string, SortKey> keys = {{"name", SortKey::Name},
                                                        {"url", SortKey::URL},
                                                        {"tags", SortKey::Tags},
                                                        {"added", SortKey::DateAdded},
                                                        {"modified", SortKey::DateModified},
                                                        {"opened", SortKey::DateLastOpened}};
    return keys;
}

void addSort(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("sort", "Write a document with its whole tree sorted");
    verb->add_option("--by", request.key, "What to sort by")
        ->type_name("KEY")
        ->required()
        ->check(CLI::IsMember(sortKeys()));
    verb->add_flag("--descending", request.descending, "The other way round; folders stay first")
        ->disable_flag_override();
    addDocument(*verb, request);
    addRequiredOutput(*verb, request);
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            const auto direction = request.descending ? SortDirection::Descending : SortDirection::Ascending;
            return sortDocument(session, request.input, sortKeys().at(request.key), direction,
                                request.output);
        };
    });
}

void addFind(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("find", "Find a text in a document, as the find bar does");
    verb->add_flag("--json", request.json, "Print JSON")->disable_flag_override();
    verb->add_option("TEXT", request.text, "The text to find, ignoring case and accents")->required();
    addDocument(*verb, request);
    verb->callback([&] {
        request.verb = [&](const Session& session) {
            return findInDocument(session, request.text, request.input, request.json);
        };
    });
}

void addCompare(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("compare", "List what changed from one document to another");
    verb->add_flag("--json", request.json, "Print one JSON object a line")->disable_flag_override();
    verb->add_option("OLD", request.before, "The document before, - for standard input")->required();
    verb->add_option("NEW", request.input, "The document after, - for standard input")->required();
    verb->callback([&] {
        if (request.before == "-" && request.input == "-")
            throw CLI::ValidationError("OLD and NEW", "cannot both be standard input");
        request.verb = [&](const Session& session) {
            return compareDocuments(session, request.before, request.input, request.json);
        };
    });
}

void addVersions(CLI::App& app, Request& request) {
    CLI::App* verb = app.add_subcommand("versions", "List the kept versions of a document, newest first");
    CLI::Option* json = verb->add_flag("--json", request.json, "Print one JSON object a line");
    json->disable_flag_override();
    verb->add_option("DOCUMENT", request.input, "The document's file, which may be gone")->required();
    CLI::Option* restore =
        verb->add_option("--restore", request.number, "Write the version of this number instead")
            ->type_name("N")
            ->excludes(json);
    CLI::Option* output =
        verb->add_option("-o,--output", request.output, "The document to write, - for standard output");
    restore->needs(output);
    output->needs(restore);
    verb->callback([&, restore] {
        const bool restores = restore->count() > 0;
        request.verb = [&, restores](const Session& session) {
            return restores ? restoreVersion(session, request.input, request.number, request.output)
                            : listVersions(session, request.input, request.json);
        };
    });
}

std::string keyAndValue(const std::string& text) {
    const std::size_t equals = text.find('=');
    return equals == std::string::npos || equals == 0 ? "must be KEY=VALUE" : "";
}

void addGlobalOptions(CLI::App& app, Request& request) {
    app.set_version_flag("--version", "tabulon-cli " TABULON_VERSION);
    app.add_option("--default", request.defaults, "Set one user default for this run")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(keyAndValue);
    app.add_option("--locale", request.locale, "The language of collation and texts")->type_name("NAME");
    app.require_subcommand(1);
    app.footer("Exit status: 0 done, 1 the operation failed, 2 wrong usage.");
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

int perform(const Request& request, const Environment& environment) {
    MemoryUserDefaults defaults;
    for (const std::string& setting : request.defaults) {
        const std::size_t equals = setting.find('=');
        defaults.setStringForKey(setting.substr(0, equals), setting.substr(equals + 1));
    }
    EnglishLocalization texts(request.locale.empty() ? environment.locale : request.locale);
    const Session session{environment, {environment.clock, defaults, texts, environment.log}};
    return finish(request.verb(session), environment);
}

int explain(const CLI::App& app, const CLI::ParseError& error, const Environment& environment) {
    std::ostringstream help;
    std::ostringstream problems;
    if (app.exit(error, help, problems) == 0)
        return finish(environment.writeStandardOutput(help.str()), environment);
    const std::vector<std::string> unknown = app.remaining();
    const std::string problem = app.get_subcommands().empty() && !unknown.empty()
                                    ? "There is no command " + unknown.front()
                                    : error.what();
    complain(environment, problem + " (tabulon-cli --help tells more)");
    return kWrongUsage;
}

} // namespace

int run(const std::vector<std::string>& arguments, const Environment& environment) {
    CLI::App app("Reads, writes and converts bookmark documents.", "tabulon-cli");
    Request request;
    addGlobalOptions(app, request);
    addImport(app, request);
    addExport(app, request);
    addShow(app, request);
    addMake(app, request);
    addLink(app, request);
    addDuplicates(app, request);
    addRemove(app, request);
    addSort(app, request);
    addFind(app, request);
    addCompare(app, request);
    addVersions(app, request);
    try {
        // CLI11 takes the arguments in reverse order.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return perform(request, environment);
    } catch (const CLI::ParseError& error) {
        return explain(app, error, environment);
    } catch (const std::bad_alloc&) {
        return complain(environment, "There is not enough memory for this operation.");
    }
}

} // namespace tabulon::cli
