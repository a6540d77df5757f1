// The sentences of the window Connect Browsers, in the user's language. Pure functions.
#pragma once

#include "app/BridgeSelfTest.h"
#include "app/BrowserConnections.h"
#include "base/Localization.h"

#include <array>
#include <string>

namespace tabulon {

/// What the user can do next for a browser.
enum class ConnectionStep { None, Connect, ShowSteps, Allow, Forget };

/// Returns the next step.
ConnectionStep nextStep(ConnectionStage stage);
/// Returns the title of its button; empty for None.
std::string stepTitle(ConnectionStep step, const Localization& texts);

/// Returns the browser's title, with its packaging if it is a snap or a flatpak.
std::string browserTitle(const FoundBrowser& found, const Localization& texts);
/// Returns one sentence that says how far the browser is connected.
std::string stageText(const FoundBrowser& found, const Localization& texts);
/// Returns one sentence with the result of a test of the browser. `host` is the path of tabulon-host.
std::string testText(const ConnectionTest& test, const FoundBrowser& found, const std::string& host,
                     const Localization& texts);

/// Returns the three steps by which the user loads the extension into the browser.
std::array<std::string, 3> setupSteps(const Browser& browser, const Localization& texts);

} // namespace tabulon
