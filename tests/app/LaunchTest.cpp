// Which process runs: the first start, a later one, or one beside a process that does not respond.
#include "app/Launch.h"

#include "base/EnglishTexts.h"
#include "platform/fake/FakeDesktop.h"
#include "platform/fake/FakeSingleInstance.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using Role = SingleInstance::Role;
using Answer = SingleInstance::Answer;

class LaunchTest : public testing::Test {
protected:
    LaunchDecision decide() { return decideLaunch(instance, request, alerts, texts); }

    FakeSingleInstance instance;
    FakeAlerts alerts;
    EnglishLocalization texts;
    const LaunchRequest request{.kind = LaunchRequest::Kind::Open, .uris = {"file:///a.tbln"}};
};

TEST_F(LaunchTest, theFirstRuns) {
    EXPECT_EQ(decide(), LaunchDecision::Run);
    EXPECT_TRUE(instance.handedOver.empty());
}

TEST_F(LaunchTest, withoutAWayToFindOthersItRuns) {
    instance.roles = {Role::Alone};
    EXPECT_EQ(decide(), LaunchDecision::Run);
}

TEST_F(LaunchTest, theSecondHandsItsFilesOverOnceAndEnds) {
    instance.roles = {Role::Second};
    EXPECT_EQ(decide(), LaunchDecision::HandedOver);
    ASSERT_EQ(instance.handedOver.size(), 1u);
    EXPECT_EQ(instance.handedOver[0].uris, request.uris);
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(LaunchTest, oneThatIsJustEndingIsFollowed) {
    instance.roles = {Role::Second, Role::First};
    instance.answers = {Answer::Gone};
    EXPECT_EQ(decide(), LaunchDecision::Run);
    EXPECT_EQ(instance.claims, 2);
}

TEST_F(LaunchTest, anotherThatCameFirstMeanwhileGetsTheFiles) {
    instance.roles = {Role::Second};
    instance.answers = {Answer::Gone, Answer::Taken};
    EXPECT_EQ(decide(), LaunchDecision::HandedOver);
    EXPECT_EQ(instance.handedOver.size(), 2u);
}

TEST_F(LaunchTest, oneThatComesAndGoesWithoutEndIsNotWaitedForWithoutEnd) {
    instance.roles = {Role::Second};
    instance.answers = {Answer::Gone};
    EXPECT_EQ(decide(), LaunchDecision::Run);
    EXPECT_LT(instance.claims, 100);
}

TEST_F(LaunchTest, aStrangerUnderTheNameIsLeftAlone) {
    instance.roles = {Role::Second};
    instance.answers = {Answer::Refused};
    EXPECT_EQ(decide(), LaunchDecision::Run);
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(LaunchTest, whileItIsSilentTheUserDecides) {
    instance.roles = {Role::Second};
    instance.answers = {Answer::Silent};
    alerts.answer("Cancel");
    EXPECT_EQ(decide(), LaunchDecision::Cancelled);
    alerts.answer("Open Another");
    EXPECT_EQ(decide(), LaunchDecision::Run);
    ASSERT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(alerts.shown[0].message, "Tabulon is running, but does not answer");
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Warning);
}

TEST_F(LaunchTest, waitingOnDoesNotAskASecondTime) {
    instance.roles = {Role::Second};
    instance.answers = {Answer::Silent, Answer::Silent, Answer::Taken};
    alerts.answer("Wait");
    alerts.answer("Wait");
    EXPECT_EQ(decide(), LaunchDecision::HandedOver);
    EXPECT_EQ(instance.handedOver.size(), 1u) << "the running one would open everything twice";
    EXPECT_EQ(instance.waited, 3 * kLaunchPatience);
}

TEST_F(LaunchTest, oneThatDiesWhileItIsWaitedForIsFollowed) {
    instance.roles = {Role::Second, Role::First};
    instance.answers = {Answer::Silent, Answer::Gone};
    alerts.answer("Wait");
    EXPECT_EQ(decide(), LaunchDecision::Run);
}

} // namespace
} // namespace tabulon
