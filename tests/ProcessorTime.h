// The processor's time that a piece of a test takes. What else the machine does meanwhile does not count.
#pragma once

#include <ctime>

namespace tabulon {

class ProcessorTime {
public:
    /// Since this object was made.
    double seconds() const {
        return static_cast<double>(std::clock() - begin_) / static_cast<double>(CLOCKS_PER_SEC);
    }

private:
    std::clock_t begin_ = std::clock();
};

} // namespace tabulon
