#include "bench/Sample.h"

#include "formats/export/NetscapeHTML.h"
#include "formats/import/NetscapeScanner.h"
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakeBaseServices.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tabulon::bench {

Sample::Sample(std::size_t links) : tree(makeCorpus(links)), size(sizeOf(*tree)) {
    require(size.links == links, "the corpus has another number of links than it was asked for");
    archive = writeDocumentArchive(*tree);
    html = exported(*tree);
}

Verdict verdict(const Effort& effort, bool reached) {
    if (!effort.judged)
        return Verdict::None;
    return reached ? Verdict::Met : Verdict::Missed;
}

Ref<Bookmark> scanned(std::string_view html) {
    FakeBaseServices services;
    return NetscapeScanner().scan(html, services.services());
}

Ref<Bookmark> opened(std::string_view archive) {
    Result<Ref<Bookmark>> tree = readDocumentArchive(archive);
    require(tree.has_value(), "an archive of our own could not be read");
    return *std::move(tree);
}

std::string exported(const Bookmark& tree) {
    return exportToHTML(tree, {}).value();
}

TemporaryFile::TemporaryFile(std::string_view extension, std::string_view bytes)
    : path_((std::filesystem::temp_directory_path() / fmt::format("tabulon-bench-{}{}", getpid(), extension))
                .string()) {
    std::ofstream file(path_, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    require(file.good(), "a temporary file could not be written");
}

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

ParsedElsewhere parsedBy(const std::string& program, std::string_view extension, std::string_view bytes,
                         int runs) {
    const TemporaryFile file(extension, bytes);
    std::istringstream output(outputOf(fmt::format("{} '{}' {}", program, file.path(), runs)));
    ParsedElsewhere parsed;
    output >> parsed.seconds >> parsed.count;
    return parsed;
}

std::string outputOf(const std::string& command) {
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return {};
    std::string output;
    std::array<char, 4096> part;
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe))
        output.append(part.data(), count);
    return pclose(pipe) == 0 ? output : std::string();
}

} // namespace tabulon::bench
