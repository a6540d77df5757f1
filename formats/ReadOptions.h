// The options that every reader of another format takes.
#pragma once

#include "base/BaseServices.h"
#include "base/Progress.h"

namespace tabulon {

class NetscapeScanner;

/// What is referred to must outlive the call of the reader.
struct ReadOptions {
    BaseServices services;
    /// Receives how far the reader is, and may cancel it; `nullptr` for neither.
    Progress* progress = nullptr;
    /// Scans bookmark HTML and keeps its last item for the next file; `nullptr` for a scanner of this call's
    /// own.
    NetscapeScanner* netscape = nullptr;

    bool isCancelled() const { return progress && !progress->goOn(1); }
};

} // namespace tabulon
