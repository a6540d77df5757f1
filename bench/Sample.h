// A corpus in every form that is measured, and what the measurements share.
#pragma once

#include "bench/Corpus.h"
#include "bench/Table.h"

#include <string>
#include <string_view>

namespace tabulon::bench {

struct Sample {
    explicit Sample(std::size_t links);

    Ref<Bookmark> tree;
    TreeSize size;
    std::string archive;
    std::string html;
};

/// How seriously to measure.
struct Effort {
    int runs = 7;
    /// False in a run that only proves that everything works: the figures are shown, the targets are not
    /// judged.
    bool judged = true;
};

/// Met or missed by `reached`, when it is judged.
Verdict verdict(const Effort& effort, bool reached);

/// The tree in a bookmark file.
Ref<Bookmark> scanned(std::string_view html);
/// The tree in a document's bytes, which have to be readable.
Ref<Bookmark> opened(std::string_view archive);
/// The tree as a bookmark file, in the tree's order.
std::string exported(const Bookmark& tree);

/// A file that lives as long as the object, in the folder for temporary files.
class TemporaryFile {
public:
    TemporaryFile(std::string_view extension, std::string_view bytes);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// What a program of bench/ that reads a file with another parser found.
struct ParsedElsewhere {
    double seconds = 0; ///< of processor time, the fastest run
    std::size_t count = 0;
};

/// Runs `program FILE RUNS` on a file of these bytes; zeros where it fails. `program` is a shell command.
ParsedElsewhere parsedBy(const std::string& program, std::string_view extension, std::string_view bytes,
                         int runs);

/// The standard output of a shell command; empty when it fails.
std::string outputOf(const std::string& command);

} // namespace tabulon::bench
