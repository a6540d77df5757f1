// Templates: their tags, and the mode in which their content continues.
#pragma once

#include "html/HtmlConstruction.h"

#include <vector>

namespace tabulon::html {

/// The open templates of a page with the mode of each.
class Templates {
public:
    /// `state` must outlive this object.
    explicit Templates(Construction& state) : state_(state) {}

    /// Opens a template, and sets the mode of its content.
    void start(const Token& token);
    /// Closes the innermost template with everything in it, and sets the mode of the content around it. Does
    /// nothing if there is none.
    void end();
    /// Processes the end of the page: closes the innermost template and returns Again, or stops and returns
    /// Done if there is none.
    Step endOfPage();
    /// Sets the mode of the innermost template and returns Again. Requires: a template is open.
    Step continueIn(Mode mode);
    /// Sets the mode by the innermost open element that determines one. Takes constant time.
    void resetMode();

private:
    Construction& state_;
    /// The mode of each open template, the innermost last.
    std::vector<Mode> modes_;
};

} // namespace tabulon::html
