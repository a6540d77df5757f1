// The alerts that many commands share, and the panel of long operations. Texts are UTF-8 and shown as they
// are. Alerts are modal: the functions return after the user has closed them. An alert with a `document` is a
// sheet of the document's window; with `nullptr` it belongs to the whole application.
#pragma once

#include "base/Error.h"
#include "platform/Platform.h"

#include <memory>
#include <string>

namespace tabulon {

/// Shows an informational alert with an "OK" button.
void informationAlert(const Platform& platform, const std::string& message, const std::string& informative,
                      const DocumentIdentity* document = nullptr);

/// Shows a critical alert with an "OK" button.
void criticalAlert(const Platform& platform, std::string message, std::string informative,
                   const DocumentIdentity* document = nullptr);

/// Shows a critical alert with the text of "ImportError" and `informative` below it.
void importErrorAlert(const Platform& platform, const std::string& informative);

/// Shows a critical alert for a file that could not be parsed: "Code : <code>, <file name>." and, below it,
/// `description` and `reason` with one space between them.
void detailedErrorAlert(const Platform& platform, long code, const std::string& fileName,
                        const std::string& description, const std::string& reason);

/// Shows an alert that a scan has found no addresses.
void noURLs(const Platform& platform);

/// Shows an alert that asks the user to select an item before choosing the command again.
void noSelection(const Platform& platform, const DocumentIdentity& document);
/// Shows an alert that asks the user to select a folder before choosing the command again.
void noSelectedFolder(const Platform& platform, const DocumentIdentity& document);

/// Shows a critical alert that an operation with the file at `path` has failed, with the message of `error`.
/// Its title is that of the error, or else the text of `key`, a format for the file's name. Shows no alert if
/// the user has cancelled the operation. `path` is in the file system's encoding.
void fileErrorAlert(const Platform& platform, std::string_view key, const std::string& path,
                    const Error& error, const DocumentIdentity* document = nullptr);

/// Does the same for a failed write, with the text of `writeErrorText`.
void writeErrorAlert(const Platform& platform, std::string_view key, const std::string& path,
                     const Error& error, const DocumentIdentity* document = nullptr);

/// Returns the message of `error`, followed by advice on what the user can do if the error is one of the
/// operating system.
std::string writeErrorText(const Localization& texts, const Error& error);

/// Returns the last component of a path as UTF-8. Bytes that are not UTF-8 are replaced.
std::string lastPathComponent(const std::string& path);

/// Returns the same without its extension.
std::string nameWithoutExtension(const std::string& path);

/// Begins a long operation and returns its progress. The panel that shows it has the text of `key`, a format
/// for `name`, and a button to cancel. It closes when the returned object is destroyed.
[[nodiscard]] std::unique_ptr<Progress> beginProgress(const Platform& platform, std::string_view key,
                                                      const std::string& name,
                                                      const DocumentIdentity* document = nullptr);

} // namespace tabulon
