// The permission for each browser: when the user is asked, and what is remembered.
#include "opening/RememberedPermission.h"

#include "platform/fake/FakeBridge.h"
#include "platform/fake/FakePlatform.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

constexpr const char* kFirefox = "org.mozilla.firefox";
constexpr const char* kChromium = "org.chromium.Chromium";
constexpr auto kMayAsk = PermissionQuestion::Allowed;
constexpr auto kMayNotAsk = PermissionQuestion::NotAllowed;

class RememberedPermissionTest : public testing::Test {
protected:
    RememberedPermissionTest() { bridge.browsers = {{kFirefox, 5}, {kChromium, 6}}; }

    FakePlatform fake;
    FakeBridge bridge;
    RememberedPermission permission{{bridge, fake.state, fake.alerts, fake.base.texts}};
};

TEST_F(RememberedPermissionTest, EachBrowserIsAskedAboutOnce) {
    fake.alerts.answer("Don’t Allow");
    fake.alerts.answer("Allow");
    EXPECT_FALSE(permission.mayAutomate(kFirefox, kMayAsk));
    EXPECT_TRUE(permission.mayAutomate(kChromium, kMayAsk));
    EXPECT_FALSE(permission.mayAutomate("org.mozilla.Firefox", kMayAsk));
    EXPECT_TRUE(permission.mayAutomate(kChromium, kMayNotAsk));
    ASSERT_EQ(fake.alerts.shown.size(), 2u);
    EXPECT_EQ(fake.alerts.shown[0].message, "Allow Tabulon to control Firefox?");
    EXPECT_EQ(fake.alerts.shown[1].message, "Allow Tabulon to control Chromium?");
}

TEST_F(RememberedPermissionTest, TheAnswerIsKeptBetweenRuns) {
    EXPECT_TRUE(permission.mayAutomate(kFirefox, kMayAsk));
    RememberedPermission later({bridge, fake.state, fake.alerts, fake.base.texts});
    EXPECT_TRUE(later.mayAutomate(kFirefox, kMayNotAsk));
    EXPECT_EQ(later.answer(kFirefox), true);
    EXPECT_EQ(later.answer(kChromium), std::nullopt);
}

TEST_F(RememberedPermissionTest, WithoutAQuestionAnUnknownAnswerIsNo) {
    EXPECT_FALSE(permission.mayAutomate(kFirefox, kMayNotAsk));
    EXPECT_TRUE(fake.alerts.shown.empty());
    EXPECT_EQ(permission.answer(kFirefox), std::nullopt);
}

TEST_F(RememberedPermissionTest, AnAnswerCanBeRevoked) {
    permission.setAnswer(kFirefox, true);
    permission.setAnswer("org.mozilla.Firefox", false);
    EXPECT_FALSE(permission.mayAutomate(kFirefox, kMayAsk));
    permission.setAnswer(kFirefox, std::nullopt);
    EXPECT_TRUE(permission.mayAutomate(kFirefox, kMayAsk));
    EXPECT_EQ(fake.alerts.shown.size(), 1u);
}

TEST_F(RememberedPermissionTest, ABrowserWithoutABridgeIsNotAskedAbout) {
    bridge.browsers.clear();
    permission.setAnswer(kFirefox, false);
    EXPECT_TRUE(permission.mayAutomate(kFirefox, kMayAsk));
    EXPECT_TRUE(fake.alerts.shown.empty());
}

} // namespace
} // namespace tabulon
