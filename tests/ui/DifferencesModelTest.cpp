// The list of differences of a version: the contents of its cells.
#include "ui/versions/DifferencesModel.h"

#include "app/VersionsController.h"
#include "tests/app/AppFixture.h"

#include <QString>

namespace tabulon {
namespace {

class DifferencesModelTest : public AppTest {
protected:
    static constexpr const char* kPath = "/home/Links.tbln";

    // Returns the text in the last column of the only difference. The document has this address, and the
    // version has another.
    QString shown(const char* address) {
        files.files[kPath] = documentBytes("link");
        app.fileOpening().openFile(kPath);
        perform("saveDocument:");
        onlyDocument()->getMaster().getChild()->setItemURL(address);
        perform("browseVersions:");
        VersionsController& controller = *windows.presentedVersions;
        controller.choose(0);
        DifferencesModel model(controller, nullptr);
        model.reload();
        EXPECT_EQ(model.rowCount(), 1);
        return model.data(model.index(0, 2), Qt::DisplayRole).toString();
    }
};

TEST_F(DifferencesModelTest, controlsForTheDirectionOfWritingAreEscapedInAddresses) {
    EXPECT_EQ(shown("https://example.org/\u202Egnp.exe"), "https://example.org/%E2%80%AEgnp.exe");
}

} // namespace
} // namespace tabulon
