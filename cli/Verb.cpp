#include "cli/VerbOptions.h"

namespace tabulon::cli {

void addDocument(CLI::App& verb, std::string& path) {
    verb.add_option("INPUT", path, "The document to read, - for standard input")->required();
}

CLI::Option* addDocumentOutput(CLI::App& verb, std::string& path) {
    return verb.add_option("-o,--output", path, "The document to write, - for standard output");
}

CLI::Option* addFileOutput(CLI::App& verb, std::string& path) {
    return verb.add_option("-o,--output", path, "The file to write, - for standard output");
}

CLI::Option* addFlag(CLI::App& verb, const std::string& name, bool& isSet, const std::string& description) {
    return verb.add_flag(name, isSet, description)->disable_flag_override();
}

} // namespace tabulon::cli
