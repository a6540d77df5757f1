// Reading and writing of the files of one run.
#include "cli/Session.h"

namespace tabulon::cli {

Result<std::string> Session::read(const std::string& path) const {
    return path == "-" ? environment.readStandardInput() : environment.files.readFile(path);
}

Result<void> Session::write(const std::string& path, std::string_view bytes) const {
    return path == "-" ? environment.writeStandardOutput(bytes)
                       : environment.files.writeFileAtomically(path, bytes);
}

Result<std::unique_ptr<Document>> Session::readDocument(const std::string& path) const {
    const Result<std::string> bytes = read(path);
    if (!bytes)
        return tl::unexpected(bytes.error());
    auto document = std::make_unique<Document>(services);
    if (const Result<void> done = document->readFromDataOfType(*bytes, kDocumentType); !done)
        return failure(path + ": " + done.error().message, done.error().domain, done.error().code);
    return document;
}

Result<void> Session::writeDocument(const std::string& path, const Document& document) const {
    return write(path, document.dataOfType(kDocumentType));
}

void Session::inform(const std::string& sentence) const {
    environment.writeStandardError(sentence + "\n");
}

} // namespace tabulon::cli
