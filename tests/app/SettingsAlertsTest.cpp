// The alerts about problems with the settings file.
#include "app/SettingsAlerts.h"

#include "base/Settings.h"
#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

class SettingsAlertsTest : public AppTest {
protected:
    const Alert& alertFor(const SettingsProblem& problem) {
        settingsProblemAlert(platform(), problem);
        return alerts.shown.back();
    }
};

TEST_F(SettingsAlertsTest, aDamagedFileIsReportedWithTheNameItHasNow) {
    const Alert& alert =
        alertFor({SettingsProblem::Kind::Damaged, "/c/tabulon.ini", "/c/tabulon.ini.damaged", {}});
    EXPECT_EQ(alert.style, AlertStyle::Warning);
    EXPECT_EQ(alert.message, "The settings file was damaged");
    EXPECT_NE(alert.informative.find("“/c/tabulon.ini.damaged”"), std::string::npos);
    ASSERT_EQ(alert.buttons.size(), 1u);
    EXPECT_EQ(alert.buttons[0].title, "OK");
}

TEST_F(SettingsAlertsTest, troubleWithTheFileIsReportedWithItsReason) {
    const Alert& unreadable =
        alertFor({SettingsProblem::Kind::Unreadable, "/c/tabulon.ini", {}, "Permission denied."});
    EXPECT_EQ(unreadable.message, "The settings could not be read");
    EXPECT_TRUE(unreadable.informative.starts_with("Permission denied. "));
    const Alert& unwritable =
        alertFor({SettingsProblem::Kind::Unwritable, "/c/tabulon.ini", {}, "The disk is full."});
    EXPECT_EQ(unwritable.message, "The settings could not be saved");
    EXPECT_TRUE(unwritable.informative.starts_with("The disk is full. "));
}

TEST_F(SettingsAlertsTest, theLogHasPathsOfAnyBytesAsText) {
    EXPECT_EQ(settingsProblemLine({SettingsProblem::Kind::Damaged, "/\xFF/s", "/k", {}}),
              "/\uFFFD/s was damaged and is now /k");
    EXPECT_EQ(settingsProblemLine({SettingsProblem::Kind::Unreadable, "/s", {}, "No."}),
              "/s could not be read: No.");
    EXPECT_EQ(settingsProblemLine({SettingsProblem::Kind::Unwritable, "/s", {}, "No."}),
              "/s could not be written: No.");
}

TEST_F(SettingsAlertsTest, launchingSetsTheToolTipDelay) {
    EXPECT_EQ(base.defaults.stringForKey(settings::kToolTipDelay.key), std::nullopt);
    app.applicationDidFinishLaunching({});
    EXPECT_EQ(valueOf(base.defaults, settings::kToolTipDelay), 10);
}

} // namespace
} // namespace tabulon
