// The events that browsers understand, as pure functions. BrowserDelivery.h decides which ones are sent.
#pragma once

#include "base/Browsers.h"
#include "platform/AppEvent.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabulon {

/// The window that an event of the family URLSuite names. Other numbers are not used.
enum class SuiteWindow : std::int32_t { Frontmost = -1, NewWindow = 0, NewTab = -2 };

/// Returns the event that asks for window 1. A browser with a window replies with an object.
AppEvent getWindowEvent(std::string_view browser);

/// Returns the event that shows `url` in the frontmost window: in document 1 (Safari), or in the active tab
/// of window 1. Requires: the family is Safari, Chromium or Opera.
AppEvent setURLEvent(std::string_view browser, BrowserFamily family, std::string_view url);

/// Returns the event that makes a document (Safari) or a window. Requires: the family is Safari, Chromium or
/// Opera.
AppEvent makeWindowEvent(std::string_view browser, BrowserFamily family);

/// Returns the event that shows `url` in a window of a browser of the family URLSuite.
AppEvent suiteEvent(std::string_view browser, std::string_view url, SuiteWindow window);

/// Returns the event that every application with addresses understands. It chooses the place itself. The
/// sender does not wait for a reply.
AppEvent getURLEvent(std::string_view application, std::string_view url);

} // namespace tabulon
