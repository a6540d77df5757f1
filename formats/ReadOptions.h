// The options of the readers of other formats.
#pragma once

#include "base/BaseServices.h"
#include "base/Progress.h"

namespace tabulon {

class NetscapeScanner;

/// The objects referred to are not owned and must outlive the call of the reader.
struct ReadOptions {
    BaseServices services;
    /// Receives the progress of the reader and may cancel it; may be `nullptr`.
    Progress* progress = nullptr;
    /// The scanner for bookmark HTML, which keeps its last item for the next file. Where it is `nullptr`, the
    /// reader uses a new scanner.
    NetscapeScanner* netscape = nullptr;

    /// Returns true when the user has cancelled. Reports the progress as complete. To be called at the end of
    /// the work.
    bool isCancelled() const { return progress && !progress->goOn(1); }
};

} // namespace tabulon
