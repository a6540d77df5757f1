// The applications of the desktop.
#pragma once

#include <optional>
#include <string>

namespace tabulon {

struct Application {
    std::string name; ///< as the desktop shows it, UTF-8
    std::string icon; ///< a name of the icon theme or an absolute path; empty for none
};

class Workspace {
public:
    virtual ~Workspace() = default;

    /// The application that opens pages of the web; none where the desktop knows none.
    virtual std::optional<Application> defaultBrowser() = 0;
};

} // namespace tabulon
