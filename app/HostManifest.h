// The manifest of native messaging, which names the program that connects a browser with Tabulon, and the
// extension that may start it. Pure functions; app/BrowserConnections.h writes the files.
#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The identifier of the extension in Chromium's family, which follows from the key in its manifest.
inline constexpr std::string_view kChromiumExtension = "acmdlmfdkmlgnfaaobobgmmjabodbgde";
/// The identifier of the extension in Firefox.
inline constexpr std::string_view kFirefoxExtension = "bridge@tabulon.com";

/// The two forms of the manifest.
enum class ManifestForm { Chromium, Firefox };

/// Returns the file name of the manifest.
std::string hostManifestFileName();

/// Returns the manifest as JSON with a line feed at its end. `host` is the absolute path of tabulon-host.
/// Fails with a sentence if the path is not UTF-8, because JSON cannot contain it.
Result<std::string> hostManifest(ManifestForm form, std::string_view host);

/// How a file relates to the manifest for a host.
enum class ManifestKind {
    Equal,   ///< it connects the extension with this host; the order and the form of its members may differ
    Other,   ///< it connects the extension with another copy of the host
    Foreign, ///< it is not a manifest of Tabulon
};

/// Returns the kind of a file with these bytes.
ManifestKind manifestKind(std::string_view bytes, ManifestForm form, std::string_view host);

} // namespace tabulon
