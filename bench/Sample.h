// The corpus in all forms that are measured, and functions that the measurements share.
#pragma once

#include "bench/Corpus.h"
#include "bench/Table.h"

#include <string>
#include <string_view>

namespace tabulon::bench {

/// A tree with `links` links, and its files.
struct Sample {
    explicit Sample(std::size_t links);

    Ref<Bookmark> tree;
    TreeSize size;
    std::string archive; ///< the tree as a document
    std::string html;    ///< the tree as a bookmark file
};

/// The number of runs, and whether targets are judged.
struct Effort {
    int runs = 7;
    /// False in a run that only tests the benchmarks: the figures are printed, and the targets are not
    /// judged.
    bool judged = true;
};

/// Returns `Met` if `reached`, else `Missed`, or `None` where targets are not judged.
Verdict verdict(const Effort& effort, bool reached);

/// Returns the tree in a bookmark file.
Ref<Bookmark> scanned(std::string_view html);
/// Returns the tree in a document's bytes. Ends the program where they cannot be read.
Ref<Bookmark> opened(std::string_view archive);
/// Returns the tree as a bookmark file, in the order of the tree.
std::string exported(const Bookmark& tree);

/// A file in the folder for temporary files, which the destructor removes. Ends the program where it cannot
/// be written.
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

/// The result of a program that parses a file with another parser.
struct ParsedElsewhere {
    double seconds = 0; ///< of processor time, the fastest run
    std::size_t count = 0;
};

/// Runs `program FILE RUNS` on a file with these bytes, and returns the numbers that it prints, or zeros
/// where it fails. `program` is a shell command.
ParsedElsewhere parsedBy(const std::string& program, std::string_view extension, std::string_view bytes,
                         int runs);

/// Returns the standard output of a shell command, or an empty string where it fails.
std::string outputOf(const std::string& command);

} // namespace tabulon::bench
