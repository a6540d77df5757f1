// The alerts that many commands share, and the panel of their long work. Which command shows which is the
// commands' affair.
#pragma once

#include "base/Error.h"
#include "platform/Platform.h"

#include <memory>
#include <string>

namespace tabulon {

/// One modal alert with an "OK" button; for a document it is its window's. Texts are shown as given.
void informationAlert(const Platform& platform, const std::string& message, const std::string& informative,
                      const Document* document = nullptr);

/// Critical, with an "OK" button; for a document it is its window's. Texts are shown as given.
void criticalAlert(const Platform& platform, std::string message, std::string informative,
                   const Document* document = nullptr);

/// Critical: the text of "ImportError" with `informative` below it.
void importErrorAlert(const Platform& platform, const std::string& informative);

/// Critical, for a file that another program's format reader refused: "Code : <code>, <file name>." with the
/// error's description and its reason, one space between them.
void detailedErrorAlert(const Platform& platform, long code, const std::string& fileName,
                        const std::string& description, const std::string& reason);

/// Tells that a scan found nothing.
void noURLs(const Platform& platform);

/// Asks the user to select something, or a folder, before choosing the command again, in a sheet of the
/// document's window.
void noSelection(const Platform& platform, const Document& document);
void noSelectedFolder(const Platform& platform, const Document& document);

/// Tells that the work with the file at `path` failed: the text of `key`, a format for the file's name, and
/// the error's sentence. An error with a title of its own is shown under that. Shows nothing for an error
/// that says "cancelled by the user". `document`, if there is one, gets the alert as its sheet.
void fileErrorAlert(const Platform& platform, std::string_view key, const std::string& path,
                    const Error& error, const Document* document = nullptr);

/// The same for a failed write: what failed is followed by what the user can do.
void writeErrorAlert(const Platform& platform, std::string_view key, const std::string& path,
                     const Error& error, const Document* document = nullptr);

/// The sentences of such an alert.
std::string writeErrorText(const Localization& texts, const Error& error);

/// The last component of a path, as text for people.
std::string lastPathComponent(const std::string& path);

/// The same without its extension.
std::string nameWithoutExtension(const std::string& path);

/// Begins work that may take long: the text of `key`, a format for the name of what is worked on, and a
/// button to cancel. `document`, if there is one, gets the panel as its sheet.
[[nodiscard]] std::unique_ptr<Progress> beginProgress(const Platform& platform, std::string_view key,
                                                      const std::string& name,
                                                      const Document* document = nullptr);

} // namespace tabulon
