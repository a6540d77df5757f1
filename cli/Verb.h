// The options that several commands have, and the connection between a command's options and its action.
#pragma once

#include "cli/Verbs.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tabulon::cli {

/// Adds the required argument INPUT, the path of a document.
void addDocument(CLI::App& verb, std::string& path);
/// Adds the option -o, the path of the document to write. The caller decides whether it is required.
CLI::Option* addDocumentOutput(CLI::App& verb, std::string& path);
/// Adds the option -o, the path of a file of another format to write. The caller decides whether it is
/// required.
CLI::Option* addFileOutput(CLI::App& verb, std::string& path);
/// Adds a flag that takes no value.
CLI::Option* addFlag(CLI::App& verb, const std::string& name, bool& isSet, const std::string& description);

/// Returns the names of the formats, in their order.
template <class Format>
std::vector<std::string> namesOf(std::span<const Format> formats) {
    std::vector<std::string> names;
    for (const Format& format : formats)
        names.emplace_back(format.name);
    return names;
}

/// Assigns an action that calls `perform(session, *options)` to `action` when `verb` is parsed. The action
/// shares `options`, into which `verb` parses; `verb` also keeps them as long as it exists.
template <class Options, class Perform>
void setAction(CLI::App& verb, Action& action, const std::shared_ptr<Options>& options, Perform perform) {
    verb.callback([&action, options, perform] {
        action = [options, perform](const Session& session) { return perform(session, *options); };
    });
}

} // namespace tabulon::cli
