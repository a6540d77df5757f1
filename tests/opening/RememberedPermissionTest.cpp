// The permission for each browser: when the user is asked, and what is remembered.
#include "opening/RememberedPermission.h"

#include "platform/fake/FakeBridge.h"
#include "platform/fake/FakePlatform.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

constexpr const char* kOtherBrowser = "org.mozilla.firefox";
constexpr const char* kOneBrowser = "org.chromium.Chromium";
constexpr auto kMayAsk = PermissionQuestion::Allowed;
constexpr auto kMayNotAsk = PermissionQuestion::NotAllowed;

class RememberedPermissionTest : public testing::Test {
protected:
    RememberedPermissionTest() { bridge.browsers = {{kOtherBrowser, 5}, {kOneBrowser, 6}}; }

    FakePlatform fake;
    FakeBridge bridge;
    RememberedPermission permission{{bridge, fake.state, fake.alerts, fake.base.texts}};
};

TEST_F(RememberedPermissionTest, EachBrowserIsAskedAboutOnce) {
    fake.alerts.answer("Don’t Allow");
    fake.alerts.answer("Allow");
    EXPECT_FALSE(permission.mayAutomate(kOtherBrowser, kMayAsk));
    EXPECT_TRUE(permission.mayAutomate(kOneBrowser, kMayAsk));
    EXPECT_FALSE(permission.mayAutomate("org.mozilla.Firefox", kMayAsk));
    EXPECT_TRUE(permission.mayAutomate(kOneBrowser, kMayNotAsk));
    ASSERT_EQ(fake.alerts.shown.size(), 2u);
    EXPECT_EQ(fake.alerts.shown[0].message, "Allow Tabulon to control Firefox?");
    EXPECT_EQ(fake.alerts.shown[1].message, "Allow Tabulon to control Chromium?");
}

TEST_F(RememberedPermissionTest, TheAnswerIsKeptBetweenRuns) {
    EXPECT_TRUE(permission.mayAutomate(kOtherBrowser, kMayAsk));
    RememberedPermission later({bridge, fake.state, fake.alerts, fake.base.texts});
    EXPECT_TRUE(later.mayAutomate(kOtherBrowser, kMayNotAsk));
    EXPECT_EQ(later.answer(kOtherBrowser), true);
    EXPECT_EQ(later.answer(kOneBrowser), std::nullopt);
}

TEST_F(RememberedPermissionTest, WithoutAQuestionAnUnknownAnswerIsNo) {
    EXPECT_FALSE(permission.mayAutomate(kOtherBrowser, kMayNotAsk));
    EXPECT_TRUE(fake.alerts.shown.empty());
    EXPECT_EQ(permission.answer(kOtherBrowser), std::nullopt);
}

TEST_F(RememberedPermissionTest, AnAnswerCanBeRevoked) {
    permission.setAnswer(kOtherBrowser, true);
    permission.setAnswer("org.mozilla.Firefox", false);
    EXPECT_FALSE(permission.mayAutomate(kOtherBrowser, kMayAsk));
    permission.setAnswer(kOtherBrowser, std::nullopt);
    EXPECT_TRUE(permission.mayAutomate(kOtherBrowser, kMayAsk));
    EXPECT_EQ(fake.alerts.shown.size(), 1u);
}

TEST_F(RememberedPermissionTest, ABrowserWithoutABridgeIsNotAskedAbout) {
    bridge.browsers.clear();
    permission.setAnswer(kOtherBrowser, false);
    EXPECT_TRUE(permission.mayAutomate(kOtherBrowser, kMayAsk));
    EXPECT_TRUE(fake.alerts.shown.empty());
}

} // namespace
} // namespace tabulon
