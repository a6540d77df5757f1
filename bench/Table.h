// The result table: one row a measurement, printed as Markdown for terminal and docs alike.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon::bench {

enum class Verdict {
    None, ///< nothing was promised, or the corpus is too small to judge by
    Met,
    Missed,
};

struct Row {
    std::string work;
    std::string ours;
    std::string reference;
    std::string ratio;
    std::string target;
    Verdict verdict = Verdict::None;
};

/// The table with its two heading lines, every line ended by a line feed.
std::string markdown(const std::vector<Row>& rows);

/// "12.3 ms".
std::string milliseconds(double seconds);

/// Ends the program with a sentence: a benchmark with a wrong answer has nothing to say.
void require(bool right, std::string_view sentence);

} // namespace tabulon::bench
