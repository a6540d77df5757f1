#include "opening/BrowserEvents.h"

namespace tabulon {
namespace {

constexpr FourCharCode kCoreSuite("core");
constexpr FourCharCode kWindowClass("cwin");
constexpr FourCharCode kDocumentClass("docu");
constexpr FourCharCode kData("data");
constexpr FourCharCode kObjectClass("kocl");
constexpr FourCharCode kWindow("WIND");

ObjectSpecifier shownURL(BrowserFamily family) {
    if (family == BrowserFamily::Safari)
        return property("pURL", element(kDocumentClass, 1));
    return property("URL ", property("acTa", element(kWindowClass, 1)));
}

} // namespace

AppEvent getWindowEvent(std::string_view browser) {
    return {.application = std::string(browser),
            .eventClass = kCoreSuite,
            .eventIdentifier = "getd",
            .directObject = element(kWindowClass, 1)};
}

AppEvent setURLEvent(std::string_view browser, BrowserFamily family, std::string_view url) {
    return {.application = std::string(browser),
            .eventClass = kCoreSuite,
            .eventIdentifier = "setd",
            .directObject = shownURL(family),
            .parameters = {{kData, std::string(url)}}};
}

AppEvent makeWindowEvent(std::string_view browser, BrowserFamily family) {
    return {.application = std::string(browser),
            .eventClass = kCoreSuite,
            .eventIdentifier = "crel",
            .parameters = {{kObjectClass, family == BrowserFamily::Safari ? kDocumentClass : kWindowClass}}};
}

AppEvent suiteEvent(std::string_view browser, std::string_view url, SuiteWindow window) {
    return {.application = std::string(browser),
            .eventClass = "WWW!",
            .eventIdentifier = "OURL",
            .directObject = std::string(url),
            .parameters = {{kWindow, static_cast<std::int32_t>(window)}}};
}

AppEvent getURLEvent(std::string_view application, std::string_view url) {
    return {.application = std::string(application),
            .eventClass = "GURL",
            .eventIdentifier = "GURL",
            .directObject = std::string(url),
            .waitsForReply = false};
}

} // namespace tabulon
