// The exact events that each kind of browser is sent, for every answer that the sender may get.
#include "opening/BrowserDelivery.h"

#include "tests/opening/OpeningFixture.h"

#include <gmock/gmock.h>

namespace tabulon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kURL = "https://example.org/?q=a%20b#c";
constexpr const char* kQuotedURL = "\"https://example.org/?q=a%20b#c\"";

// What a browser replies to the question for its window.
struct ProbeAnswer {
    const char* name;
    Result<AppEventReply> reply;
    bool isWindow;
};

std::vector<ProbeAnswer> probeAnswers() {
    return {
        {"a window", AppEventReply{.directObject = element("cwin", 1)}, true},
        {"another object", AppEventReply{.directObject = property("pnam", element("docu", 3))}, true},
        {"no object", AppEventReply{}, false},
        {"a text", AppEventReply{.directObject = std::string("window 1")}, false},
        {"a number", AppEventReply{.directObject = std::int32_t{1}}, false},
        {"a type", AppEventReply{.directObject = FourCharCode("cwin")}, false},
        {"an error number", AppEventReply{.directObject = {}, .errorNumber = -1728}, false},
        {"an object with an error number",
         AppEventReply{.directObject = element("cwin", 1), .errorNumber = -1728}, false},
        {"an error of the sender", failure("The application does not answer."), false},
    };
}

// The events of one browser: in the current tab of a window, in a new window, in a new tab.
struct Recipe {
    const char* browser;
    std::vector<std::string> current;
    std::vector<std::string> newWindow;
    std::vector<std::string> newTab;
};

std::string line(const std::string& browser, const std::string& event) {
    return browser + ": " + event;
}

std::string getURL(const std::string& browser) {
    return line(browser, std::string("GURL/GURL ") + kQuotedURL + " does not wait");
}

std::string probe(const std::string& browser) {
    return line(browser, "core/getd element 'cwin' 1 waits");
}

Recipe chromium(const char* browser) {
    const std::string set =
        line(browser, std::string("core/setd property 'URL ' of property 'acTa' of element 'cwin' 1, data=") +
                          kQuotedURL + " waits");
    return {browser, {set}, {line(browser, "core/crel, kocl='cwin' waits"), set}, {getURL(browser)}};
}

std::string suite(const std::string& browser, const char* window) {
    return line(browser, std::string("WWW!/OURL ") + kQuotedURL + ", WIND=" + window + " waits");
}

std::vector<Recipe> recipes() {
    const std::string safariSet =
        line("com.apple.Safari",
             std::string("core/setd property 'pURL' of element 'docu' 1, data=") + kQuotedURL + " waits");
    return {
        {"com.apple.Safari",
         {safariSet},
         {line("com.apple.Safari", "core/crel, kocl='docu' waits"), safariSet},
         {getURL("com.apple.Safari")}},
        chromium("com.google.Chrome"),
        chromium("org.chromium.Chromium"),
        chromium("com.operasoftware.Opera"),
        {"org.mozilla.firefox",
         {suite("org.mozilla.firefox", "-1")},
         {suite("org.mozilla.firefox", "0")},
         {getURL("org.mozilla.firefox")}},
        {"org.mozilla.Firefox", // as bookmarks name it
         {suite("org.mozilla.Firefox", "-1")},
         {suite("org.mozilla.Firefox", "0")},
         {getURL("org.mozilla.Firefox")}},
        {"de.icab.iCab",
         {suite("de.icab.iCab", "-1")},
         {suite("de.icab.iCab", "0")},
         {suite("de.icab.iCab", "-2")}},
        chromium("com.vivaldi.Vivaldi"),
        chromium("com.brave.Browser"),
        chromium("com.microsoft.edgemac"),
    };
}

class BrowserDeliveryTest : public OpeningTest {
protected:
    // Performs `deliver` with new services and returns the events.
    template <class Deliver>
    std::vector<std::string> eventsOf(Deliver deliver) {
        fake_.events.sent.clear();
        fake_.requests.clear();
        deliver(BrowserDelivery(services()));
        return sent();
    }
};

TEST_F(BrowserDeliveryTest, aBrowserWithAWindowShowsTheAddressInIt) {
    for (const Recipe& recipe : recipes())
        for (const ProbeAnswer& answer : probeAnswers()) {
            SCOPED_TRACE(std::string(recipe.browser) + " replies with " + answer.name);
            fake_.events.reply = answer.reply;
            std::vector<std::string> expected = {probe(recipe.browser)};
            if (answer.isWindow)
                expected.insert(expected.end(), recipe.current.begin(), recipe.current.end());
            else
                expected.push_back(getURL(recipe.browser));
            EXPECT_EQ(eventsOf([&](const BrowserDelivery& to) { to.deliver(recipe.browser, kURL); }),
                      expected);
        }
}

TEST_F(BrowserDeliveryTest, aNewWindowDependsOnNoReply) {
    for (const Recipe& recipe : recipes())
        for (const ProbeAnswer& answer : probeAnswers()) {
            SCOPED_TRACE(std::string(recipe.browser) + " replies with " + answer.name);
            fake_.events.reply = answer.reply;
            EXPECT_EQ(
                eventsOf([&](const BrowserDelivery& to) { to.deliverInNewWindow(recipe.browser, kURL); }),
                recipe.newWindow);
        }
}

TEST_F(BrowserDeliveryTest, aNewTabIsAskedOfOneBrowserAlone) {
    for (const Recipe& recipe : recipes())
        for (const ProbeAnswer& answer : probeAnswers()) {
            SCOPED_TRACE(std::string(recipe.browser) + " replies with " + answer.name);
            fake_.events.reply = answer.reply;
            EXPECT_EQ(eventsOf([&](const BrowserDelivery& to) { to.deliverInNewTab(kURL, recipe.browser); }),
                      recipe.newTab);
        }
}

TEST_F(BrowserDeliveryTest, otherApplicationsChooseThePlace) {
    const std::string other = "org.torproject.torbrowser";
    const auto current = eventsOf([&](const BrowserDelivery& to) { to.deliver(other, kURL); });
    EXPECT_THAT(current, ElementsAre(getURL(other)));
    const auto window = eventsOf([&](const BrowserDelivery& to) { to.deliverInNewWindow(other, kURL); });
    EXPECT_THAT(window, ElementsAre(getURL(other)));
    const auto tab = eventsOf([&](const BrowserDelivery& to) { to.deliverInNewTab(kURL, other); });
    EXPECT_THAT(tab, ElementsAre(getURL(other)));
}

TEST_F(BrowserDeliveryTest, withoutPermissionTheDesktopOpensTheAddress) {
    fake_.permission.granted = false;
    const std::string open = std::string("open ") + kURL;
    for (const Recipe& recipe : recipes()) {
        SCOPED_TRACE(recipe.browser);
        const auto current = eventsOf([&](const BrowserDelivery& to) { to.deliver(recipe.browser, kURL); });
        EXPECT_THAT(current, IsEmpty());
        EXPECT_THAT(fake_.requests, ElementsAre(open));
        const auto window =
            eventsOf([&](const BrowserDelivery& to) { to.deliverInNewWindow(recipe.browser, kURL); });
        EXPECT_THAT(window, IsEmpty());
        EXPECT_THAT(fake_.requests, ElementsAre(open));
        const auto tab =
            eventsOf([&](const BrowserDelivery& to) { to.deliverInNewTab(kURL, recipe.browser); });
        EXPECT_THAT(tab, IsEmpty());
        EXPECT_THAT(fake_.requests, ElementsAre(open));
    }
}

TEST_F(BrowserDeliveryTest, theUserIsAskedForThePermissionOnceForEachAddress) {
    BrowserDelivery(services()).deliverInNewWindow("com.google.Chrome", kURL);
    EXPECT_THAT(fake_.permission.asked, ElementsAre("com.google.Chrome"));
}

TEST_F(BrowserDeliveryTest, failedEventsAreNotReported) {
    fake_.events.reply = failure("The application does not answer.");
    const BrowserDelivery delivery(services());
    delivery.deliver("com.google.Chrome", kURL);
    delivery.deliverInNewWindow("com.google.Chrome", kURL);
    delivery.deliverInNewTab(kURL, "de.icab.iCab");
    EXPECT_THAT(alerts(), IsEmpty());
}

TEST_F(BrowserDeliveryTest, theDefaultBrowserHasOneSpelling) {
    const BrowserDelivery delivery(services());
    for (const auto& [handler, expected] :
         std::vector<std::pair<std::string, std::string>>{{"org.mozilla.firefox", "org.mozilla.firefox"},
                                                          {"com.apple.safari", "com.apple.Safari"},
                                                          {"", "com.apple.Safari"},
                                                          {"com.apple.SAFARI", "com.apple.SAFARI"},
                                                          {"org.kde.falkon", "org.kde.falkon"}}) {
        fake_.workspace.handler = handler;
        EXPECT_EQ(delivery.defaultBrowser(), expected);
    }
}

TEST_F(BrowserDeliveryTest, theBrowserInFrontIsLeftAlone) {
    fake_.workspace.front = "com.google.Chrome";
    BrowserDelivery(services()).bringForward("com.google.Chrome");
    fake_.workspace.front = "org.mozilla.firefox";
    BrowserDelivery(services()).bringForward("org.mozilla.Firefox");
    EXPECT_THAT(fake_.requests, IsEmpty());
}

TEST_F(BrowserDeliveryTest, aRunningBrowserIsActivated) {
    fake_.workspace.front = "org.mozilla.firefox";
    fake_.workspace.running = {"com.google.Chrome"};
    BrowserDelivery(services()).bringForward("com.google.Chrome");
    EXPECT_THAT(fake_.requests, ElementsAre("activate com.google.Chrome"));
}

// A question puts the program in front, so it comes before the browser does.
TEST_F(BrowserDeliveryTest, theUserIsAskedBeforeTheBrowserComesForward) {
    class AskingPermission : public AutomationPermission {
    public:
        explicit AskingPermission(std::vector<std::string>& requests) : requests_(requests) {}
        bool mayAutomate(std::string_view application, PermissionQuestion question) override {
            requests_.push_back((question == PermissionQuestion::Allowed ? "ask " : "look up ") +
                                std::string(application));
            return true;
        }

    private:
        std::vector<std::string>& requests_;
    };
    AskingPermission permission(fake_.requests);
    fake_.workspace.running = {"com.google.Chrome"};
    const OpeningServices asking{fake_.workspace, fake_.events, permission, fake_.alerts,
                                 fake_.base.services()};
    BrowserDelivery(asking).bringForward("com.google.Chrome");
    EXPECT_THAT(fake_.requests, ElementsAre("ask com.google.Chrome", "activate com.google.Chrome"));
}

TEST_F(BrowserDeliveryTest, aBrowserThatCannotBeActivatedIsStarted) {
    fake_.workspace.running = {"com.google.Chrome"};
    fake_.workspace.activates = false;
    BrowserDelivery(services()).bringForward("com.google.Chrome");
    EXPECT_THAT(fake_.requests, ElementsAre("activate com.google.Chrome", "launch com.google.Chrome"));
    EXPECT_THAT(alerts(), IsEmpty());
}

TEST_F(BrowserDeliveryTest, aBrowserThatCannotBeStartedIsReported) {
    fake_.workspace.missing = {"com.google.Chrome"};
    BrowserDelivery(services()).bringForward("com.google.Chrome");
    EXPECT_THAT(fake_.requests, ElementsAre("launch com.google.Chrome"));
    EXPECT_THAT(alerts(), ElementsAre("Unable to launch application"));
}

TEST_F(BrowserDeliveryTest, theDesktopOpensAnAddressOrAnAlertIsShown) {
    const BrowserDelivery delivery(services());
    delivery.systemOpen(Text());
    EXPECT_THAT(fake_.requests, IsEmpty());
    delivery.systemOpen(Text("mailto:a@example.org"));
    EXPECT_THAT(alerts(), IsEmpty());
    fake_.workspace.opens = false;
    delivery.systemOpen(Text(""));
    EXPECT_THAT(fake_.requests, ElementsAre("open mailto:a@example.org", "open "));
    EXPECT_THAT(alerts(), ElementsAre("Bookmark URL could not be opened."));
}

} // namespace
} // namespace tabulon::test
