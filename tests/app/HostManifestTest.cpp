// The manifest of native messaging.
#include "app/HostManifest.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(HostManifest, namesTheHostAndTheExtensionOfChromium) {
    EXPECT_EQ(*hostManifest(ManifestForm::Chromium, "/usr/bin/tabulon-host"), R"({
  "name": "com.tabulon.tabulon",
  "description": "Connects this browser with Tabulon",
  "path": "/usr/bin/tabulon-host",
  "type": "stdio",
  "allowed_origins": ["chrome-extension://acmdlmfdkmlgnfaaobobgmmjabodbgde/"]
}
)");
}

TEST(HostManifest, namesTheExtensionOfFirefox) {
    EXPECT_EQ(*hostManifest(ManifestForm::Firefox, "/usr/bin/tabulon-host"), R"({
  "name": "com.tabulon.tabulon",
  "description": "Connects this browser with Tabulon",
  "path": "/usr/bin/tabulon-host",
  "type": "stdio",
  "allowed_extensions": ["bridge@tabulon.com"]
}
)");
}

TEST(HostManifest, isEqualForEachPathThatJSONCanContain) {
    for (const std::string path :
         {"/a b/tabulon-host", "/with \"quotes\"", "/back\\slash", "/line\nfeed\x01", "/ümlaut"})
        for (const ManifestForm form : {ManifestForm::Chromium, ManifestForm::Firefox}) {
            const auto manifest = hostManifest(form, path);
            ASSERT_TRUE(manifest) << path;
            EXPECT_EQ(manifestKind(*manifest, form, path), ManifestKind::Equal) << path;
        }
}

TEST(HostManifest, cannotNameAPathThatIsNotUtf8) {
    EXPECT_FALSE(hostManifest(ManifestForm::Firefox, "/\xff/tabulon-host"));
}

TEST(HostManifest, isEqualInAnotherOrderAndWithMoreExtensions) {
    EXPECT_EQ(
        manifestKind(R"({"type":"stdio","allowed_extensions":["other@example.org","bridge@tabulon.com"],)"
                     R"("path":"/h","name":"com.tabulon.tabulon","description":""})",
                     ManifestForm::Firefox, "/h"),
        ManifestKind::Equal);
}

TEST(HostManifest, ofAnotherHostIsOther) {
    const auto manifest = hostManifest(ManifestForm::Chromium, "/old/tabulon-host");
    EXPECT_EQ(manifestKind(*manifest, ManifestForm::Chromium, "/new/tabulon-host"), ManifestKind::Other);
}

TEST(HostManifest, ofAnyOtherContentIsForeign) {
    const std::string ours = *hostManifest(ManifestForm::Chromium, "/h");
    std::string renamed = ours;
    renamed.replace(renamed.find("com.tabulon"), 3, "org");
    for (const std::string& bytes :
         {std::string(), std::string("[]"), std::string("no JSON"), ours.substr(0, 40), renamed,
          std::string(R"({"name": "com.tabulon.tabulon", "path": "/h", "type": "stdio"})")})
        EXPECT_EQ(manifestKind(bytes, ManifestForm::Chromium, "/h"), ManifestKind::Foreign) << bytes;
    EXPECT_EQ(manifestKind(ours, ManifestForm::Firefox, "/h"), ManifestKind::Foreign);
}

} // namespace
} // namespace tabulon
