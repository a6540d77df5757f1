#include "bench/Table.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>

namespace tabulon::bench {

namespace {

std::string_view word(Verdict verdict) {
    switch (verdict) {
    case Verdict::Met:
        return "met";
    case Verdict::Missed:
        return "MISSED";
    case Verdict::None:
        break;
    }
    return "";
}

} // namespace

std::string markdown(const std::vector<Row>& rows) {
    std::string text = "| Work | Tabulon | Reference in the same run | Ratio | Target | |\n"
                       "|---|---|---|---|---|---|\n";
    for (const Row& row : rows)
        text += fmt::format("| {} | {} | {} | {} | {} | {} |\n", row.work, row.ours, row.reference, row.ratio,
                            row.target, word(row.verdict));
    return text;
}

std::string milliseconds(double seconds) {
    return fmt::format("{:.1f} ms", seconds * 1000);
}

void require(bool right, std::string_view sentence) {
    if (right)
        return;
    fmt::print(stderr, "tabulon_bench: {}\n", sentence);
    std::exit(1);
}

} // namespace tabulon::bench
