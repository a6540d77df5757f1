#include "app/ConnectionTexts.h"

#include "base/Utf8.h"

namespace tabulon {
namespace {

std::string_view keyOf(ConnectionStage stage) {
    switch (stage) {
    case ConnectionStage::NotInstalled:
        return "ConnectNotInstalled";
    case ConnectionStage::Sandboxed:
        return "ConnectSandboxed";
    case ConnectionStage::NeverStarted:
        return "ConnectNeverStarted";
    case ConnectionStage::ManifestMissing:
        return "ConnectManifestMissing";
    case ConnectionStage::ManifestOther:
        return "ConnectManifestOther";
    case ConnectionStage::ExtensionMissing:
        return "ConnectExtensionMissing";
    case ConnectionStage::ExtensionInstalled:
        return "ConnectExtensionInstalled";
    case ConnectionStage::NotAsked:
        return "ConnectNotAsked";
    case ConnectionStage::Denied:
        return "ConnectDenied";
    case ConnectionStage::Allowed:
        return "ConnectAllowed";
    }
    return {};
}

std::string_view keyOf(ConnectionHop hop) {
    switch (hop) {
    case ConnectionHop::Installed:
        return "ConnectNotInstalled";
    case ConnectionHop::Sandbox:
        return "ConnectSandboxed";
    case ConnectionHop::HostMissing:
        return "TestHostMissing";
    case ConnectionHop::HostExecutable:
        return "TestHostExecutable";
    case ConnectionHop::Manifest:
        return "TestManifest";
    case ConnectionHop::Running:
        return "TestRunning";
    case ConnectionHop::Extension:
        return "TestExtension";
    case ConnectionHop::Permission:
        return "TestPermission";
    case ConnectionHop::Connection:
        return "TestConnection";
    case ConnectionHop::Answer:
        return "TestAnswer";
    case ConnectionHop::Reply:
        return "TestReply";
    case ConnectionHop::Protocol:
        return "TestProtocol";
    case ConnectionHop::Complete:
        return "TestComplete";
    }
    return {};
}

} // namespace

ConnectionStep nextStep(ConnectionStage stage) {
    switch (stage) {
    case ConnectionStage::NotInstalled:
    case ConnectionStage::Sandboxed:
    case ConnectionStage::NeverStarted:
        return ConnectionStep::None;
    case ConnectionStage::ManifestMissing:
    case ConnectionStage::ManifestOther:
        return ConnectionStep::Connect;
    case ConnectionStage::ExtensionMissing:
    case ConnectionStage::ExtensionInstalled:
        return ConnectionStep::ShowSteps;
    case ConnectionStage::NotAsked:
    case ConnectionStage::Denied:
        return ConnectionStep::Allow;
    case ConnectionStage::Allowed:
        return ConnectionStep::Forget;
    }
    return ConnectionStep::None;
}

std::string stepTitle(ConnectionStep step, const Localization& texts) {
    switch (step) {
    case ConnectionStep::None:
        return {};
    case ConnectionStep::Connect:
        return texts.text("ConnectBrowser");
    case ConnectionStep::ShowSteps:
        return texts.text("ConnectShowSteps");
    case ConnectionStep::Allow:
        return texts.text("Allow");
    case ConnectionStep::Forget:
        return texts.text("ConnectForget");
    }
    return {};
}

std::string browserTitle(const FoundBrowser& found, const Localization& texts) {
    switch (found.packaging) {
    case BrowserPackaging::Snap:
        return texts.format("%@ (%@)", found.browser->title, "Snap");
    case BrowserPackaging::Flatpak:
        return texts.format("%@ (%@)", found.browser->title, "Flatpak");
    case BrowserPackaging::Native:
        break;
    }
    return std::string(found.browser->title);
}

std::string stageText(const FoundBrowser& found, const Localization& texts) {
    return texts.format(keyOf(found.stage), found.browser->title);
}

std::string testText(const ConnectionTest& test, const FoundBrowser& found, const std::string& host,
                     const Localization& texts) {
    const std::string_view key = keyOf(test.hop);
    if (test.hop == ConnectionHop::HostMissing || test.hop == ConnectionHop::HostExecutable)
        return texts.format(key, decodeUtf8Leniently(host));
    return texts.format(key, found.browser->title, test.extension);
}

std::array<std::string, 3> setupSteps(const Browser& browser, const Localization& texts) {
    if (manifestForm(browser) == ManifestForm::Firefox)
        return {texts.text("StepFirefoxOpen"), texts.text("StepFirefoxLoad"),
                texts.text("StepFirefoxChoose")};
    return {texts.format("StepChromiumOpen", browser.title), texts.text("StepChromiumMode"),
            texts.text("StepChromiumLoad")};
}

} // namespace tabulon
