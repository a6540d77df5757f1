#include "window/SharedAlerts.h"

#include "base/Utf8.h"

#include <cerrno>
#include <filesystem>

namespace tabulon {

void criticalAlert(const Platform& platform, std::string message, std::string informative,
                   const DocumentIdentity* document) {
    platform.alerts.runModal(Alert{.style = AlertStyle::Critical,
                                   .message = std::move(message),
                                   .informative = std::move(informative),
                                   .buttons = {{platform.base.texts.text("OK")}},
                                   .document = document});
}

void informationAlert(const Platform& platform, const std::string& message, const std::string& informative,
                      const DocumentIdentity* document) {
    platform.alerts.runModal(Alert{.message = message,
                                   .informative = informative,
                                   .buttons = {{platform.base.texts.text("OK")}},
                                   .document = document});
}

void importErrorAlert(const Platform& platform, const std::string& informative) {
    criticalAlert(platform, platform.base.texts.text("ImportError"), informative);
}

void detailedErrorAlert(const Platform& platform, long code, const std::string& fileName,
                        const std::string& description, const std::string& reason) {
    criticalAlert(platform, "Code : " + std::to_string(code) + ", " + fileName + ".",
                  description + " " + reason);
}

void noURLs(const Platform& platform) {
    const Localization& texts = platform.base.texts;
    platform.alerts.runModal(
        Alert{.message = texts.text("EmptyScan"), .informative = texts.text("NoURLs"), .buttons = {{"OK"}}});
}

namespace {

void selectionAlert(const Platform& platform, const char* informativeKey, const DocumentIdentity& document) {
    const Localization& texts = platform.base.texts;
    platform.alerts.runModal(Alert{.style = AlertStyle::Warning,
                                   .message = texts.text("NoSelection"),
                                   .informative = texts.text(informativeKey),
                                   .buttons = {{"OK"}},
                                   .document = &document});
}

} // namespace

void noSelection(const Platform& platform, const DocumentIdentity& document) {
    selectionAlert(platform, "PleaseSelect", document);
}

void noSelectedFolder(const Platform& platform, const DocumentIdentity& document) {
    selectionAlert(platform, "PleaseSelectFolder", document);
}

void fileErrorAlert(const Platform& platform, std::string_view key, const std::string& path,
                    const Error& error, const DocumentIdentity* document) {
    if (isCancelledByUser(error))
        return;
    std::string title =
        error.title.empty() ? platform.base.texts.format(key, lastPathComponent(path)) : error.title;
    criticalAlert(platform, std::move(title), error.message, document);
}

std::string writeErrorText(const Localization& texts, const Error& error) {
    if (error.domain != ErrorDomain::Posix)
        return error.message;
    const auto withAdvice = [&](std::string_view key) { return error.message + " " + texts.text(key); };
    switch (error.code) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return withAdvice("AdviceNoSpace");
    case EACCES:
    case EPERM:
    case EROFS:
        return withAdvice("AdviceNoPermission");
    case ENOENT:
    case ENOTDIR:
        return withAdvice("AdviceNoFolder");
    default:
        return withAdvice("AdviceOther");
    }
}

void writeErrorAlert(const Platform& platform, std::string_view key, const std::string& path,
                     const Error& error, const DocumentIdentity* document) {
    Error advised = error;
    advised.message = writeErrorText(platform.base.texts, error);
    fileErrorAlert(platform, key, path, advised, document);
}

std::unique_ptr<Progress> beginProgress(const Platform& platform, std::string_view key,
                                        const std::string& name, const DocumentIdentity* document) {
    const Localization& texts = platform.base.texts;
    return platform.progress.begin(
        {.message = texts.format(key, name), .cancel = texts.text("Cancel"), .document = document});
}

std::string lastPathComponent(const std::string& path) {
    return decodeUtf8Leniently(std::filesystem::path(path).filename().string());
}

std::string nameWithoutExtension(const std::string& path) {
    return decodeUtf8Leniently(std::filesystem::path(path).stem().string());
}

} // namespace tabulon
