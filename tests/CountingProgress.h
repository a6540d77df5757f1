// A Progress for tests. It stores the reported fractions and cancels at a chosen call.
#pragma once

#include "base/Progress.h"

#include <limits>
#include <vector>

namespace tabulon::test {

class CountingProgress : public Progress {
public:
    /// Cancels at the call of this number, counted from 1.
    explicit CountingProgress(std::size_t cancelAt = std::numeric_limits<std::size_t>::max())
        : cancelAt_(cancelAt) {}

    bool goOn(double fraction) override {
        fractions.push_back(fraction);
        return fractions.size() < cancelAt_;
    }

    std::vector<double> fractions;

private:
    std::size_t cancelAt_;
};

} // namespace tabulon::test
