// The table of results: one row for each measurement, printed as Markdown for terminal and document.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon::bench {

/// Whether a target was met.
enum class Verdict {
    None, ///< there is no target, or the corpus is too small
    Met,
    Missed,
};

/// One measurement, as text.
struct Row {
    std::string work;
    std::string ours;      ///< the result of Tabulon
    std::string reference; ///< the result of the reference, with its name
    std::string ratio;
    std::string target;
    Verdict verdict = Verdict::None;
};

/// Returns the table with its two heading lines, every line ended by a line feed.
std::string markdown(const std::vector<Row>& rows);

/// Returns a time in milliseconds as text, such as "12.3 ms".
std::string milliseconds(double seconds);

/// Ends the program with `sentence` and status 1 unless `right`. A benchmark with a wrong result must not
/// print times.
void require(bool right, std::string_view sentence);

} // namespace tabulon::bench
