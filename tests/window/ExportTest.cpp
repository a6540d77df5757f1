// The Export command with its options area, and single links as files: the options of the panels, the files
// that are written, and the settings that are stored.
#include "base/Settings.h"
#include "formats/ExportFormats.h"
#include "tests/window/WindowFixture.h"
#include "window/AccessoryViewController.h"

namespace tabulon {
namespace {

class ExportTest : public WindowTest {
protected:
    ExportTest() {
        Bookmark& folder = add(makeFolder("Folder"));
        add(makeLink("b", "https://b.example/"), &folder);
        add(makeLink("A", "https://z.example/"), &folder);
        open();
    }

    // Runs the command; `use` performs the user's changes in the options area.
    void exportTo(const std::string& path, std::function<void(AccessoryViewController&)> use = nullptr) {
        panels.nameFile(path);
        panels.useAccessory = [use](PanelAccessory& accessory) {
            if (use)
                use(dynamic_cast<AccessoryViewController&>(accessory));
        };
        perform("exportText:");
    }
    bool enabled(const char* action) {
        return controller->actions().validateMenuItem(MenuItem{.action = action});
    }
    void perform(const char* action) { controller->actions().perform(MenuItem{.action = action}); }
    bool isOn(const Setting<bool>& setting) { return valueOf(base.defaults, setting); }
    std::string written(const std::string& path) { return files.files.at(path); }
};

// Texts, formats and the panel

TEST_F(ExportTest, PanelOffersHTMLUnderTheNameOfTheFileAsASheet) {
    document.setFileName("/home/My Links.tbln");
    exportTo("/home/out.html");
    ASSERT_EQ(panels.savePanels.size(), 1u);
    const SavePanel& panel = panels.savePanels[0];
    EXPECT_EQ(panel.message, base.texts.text("ExportFile"));
    EXPECT_EQ(panel.prompt, "Export");
    EXPECT_EQ(panel.proposedName, "My Links");
    EXPECT_EQ(panel.directory, "/home");
    EXPECT_EQ(panel.kind.extensions, std::vector<std::string>{"html"});
    EXPECT_EQ(panel.document, &document);
    EXPECT_NE(panel.accessory, nullptr);
}

TEST_F(ExportTest, DocumentThatWasNeverSavedIsOfferedAsUntitled) {
    document.setDisplayName("bookmarks");
    exportTo("/home/out.html");
    EXPECT_EQ(panels.savePanels[0].proposedName, "Untitled");
}

TEST_F(ExportTest, EachExtensionWritesItsFormat) {
    exportTo("/home/out.html");
    EXPECT_EQ(written("/home/out.html"), controller->exporting().exportToHTML().value());
    exportTo("/home/out.xbel");
    EXPECT_EQ(written("/home/out.xbel"), controller->exporting().exportToXBEL().value());
    exportTo("/home/out.txt");
    EXPECT_EQ(written("/home/out.txt"), controller->exporting().exportToText().value());
    EXPECT_EQ(written("/home/out.txt"), "b\thttps://b.example/\t\t\nA\thttps://z.example/\t\t\n");
}

TEST_F(ExportTest, AnyOtherExtensionWritesText) {
    for (const char* name : {"/home/out", "/home/out.csv", "/home/out.HTML", "/home/a.html/out"}) {
        exportTo(name);
        EXPECT_EQ(written(name), controller->exporting().exportToText().value()) << name;
    }
}

TEST_F(ExportTest, XBELChosenAndANameWithHTMLTypedWritesHTML) {
    exportTo("/home/out.html", [](AccessoryViewController& options) { options.exportTypeSelected(1); });
    ASSERT_EQ(panels.allowedKinds.size(), 1u);
    EXPECT_EQ(panels.allowedKinds[0].extensions, std::vector<std::string>{"xbel"});
    EXPECT_EQ(written("/home/out.html"), controller->exporting().exportToHTML().value());
}

TEST_F(ExportTest, ExportChangesNothingOfTheDocument) {
    document.setFileName("/home/a.tbln");
    controller->outline().makeDirty();
    exportTo("/home/out.html");
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(document.fileName(), "/home/a.tbln");
}

TEST_F(ExportTest, SortByNameOffTheNameColumnSortsTextByURLAndTheOthersByName) {
    const auto use = [](AccessoryViewController& options) {
        options.sortByName.on = true;
        options.exportName.on = options.exportTags.on = options.exportNote.on = false;
    };
    const auto comesFirst = [&](const char* path, const char* first, const char* second) {
        exportTo(path, use);
        return written(path).find(first) < written(path).find(second);
    };
    EXPECT_TRUE(comesFirst("/home/out.txt", "https://b.example/", "https://z.example/"));
    EXPECT_TRUE(comesFirst("/home/out.html", ">A<", ">b<"));
    EXPECT_TRUE(comesFirst("/home/out.xbel", ">A<", ">b<"));
}

// The options area

TEST_F(ExportTest, ViewDidLoadSetsEachCheckBoxFromItsSettingAndSaysSo) {
    setValue(base.defaults, settings::kExportTags, false);
    setValue(base.defaults, settings::kSaveAsHTML, true);
    AccessoryViewController options(base.services());
    EXPECT_FALSE(options.loaded());
    options.viewDidLoad();
    EXPECT_TRUE(options.loaded());
    EXPECT_EQ(base.log.lines.back(), "AccessoryViewController loaded");
    EXPECT_TRUE(options.exportName.on && options.exportURL.on && options.exportNote.on);
    EXPECT_TRUE(options.skipFolders.on && options.skipSeparators.on && options.saveCopyHTML.on);
    EXPECT_FALSE(options.exportTags.on || options.sortByName.on);
}

TEST_F(ExportTest, EveryCheckBoxIsStoredUnderItsOwnKey) {
    const std::pair<CheckBox AccessoryViewController::*, Setting<bool>> boxes[] = {
        {&AccessoryViewController::exportName, settings::kExportName},
        {&AccessoryViewController::exportURL, settings::kExportURL},
        {&AccessoryViewController::exportTags, settings::kExportTags},
        {&AccessoryViewController::exportNote, settings::kExportNote},
        {&AccessoryViewController::sortByName, settings::kExportSortName},
        {&AccessoryViewController::skipFolders, settings::kSkipFolders},
        {&AccessoryViewController::skipSeparators, settings::kSkipSeparators},
        {&AccessoryViewController::saveCopyHTML, settings::kSaveAsHTML}};
    AccessoryViewController options(base.services());
    options.viewDidLoad();
    for (const auto& [box, setting] : boxes)
        for (const bool on : {true, false}) {
            for (const auto& [other, otherSetting] : boxes)
                (options.*other).on = !on;
            (options.*box).on = on;
            options.savePreferences();
            for (const auto& [other, otherSetting] : boxes)
                EXPECT_EQ(isOn(otherSetting), other == box ? on : !on)
                    << setting.key << " " << otherSetting.key;
        }
}

TEST_F(ExportTest, OptionsAreSavedEvenIfThePanelIsCancelled) {
    panels.useAccessory = [](PanelAccessory& accessory) {
        dynamic_cast<AccessoryViewController&>(accessory).exportURL.on = false;
    };
    perform("exportText:");
    EXPECT_FALSE(isOn(settings::kExportURL));
    EXPECT_TRUE(files.files.empty());
}

TEST_F(ExportTest, OptionsThatWereNeverLoadedAreNotSaved) {
    panels.showsAccessories = false;
    exportTo("/home/out.txt");
    EXPECT_TRUE(isOn(settings::kExportName));
    EXPECT_TRUE(isOn(settings::kSkipFolders));
    EXPECT_EQ(written("/home/out.txt"), "b\thttps://b.example/\t\t\nA\thttps://z.example/\t\t\n");
}

TEST_F(ExportTest, CopyIsForHTMLAloneAndTheOptionsOfTextForText) {
    AccessoryViewController options(base.services());
    options.viewDidLoad();
    const auto textOptions = [&] {
        return std::vector{options.exportName.hidden,  options.exportURL.hidden,
                           options.exportTags.hidden,  options.exportNote.hidden,
                           options.skipFolders.hidden, options.skipSeparators.hidden};
    };
    EXPECT_EQ(textOptions(), std::vector(6, true));
    EXPECT_FALSE(options.saveCopyHTML.hidden);
    options.exportTypeSelected(1);
    EXPECT_EQ(textOptions(), std::vector(6, true));
    EXPECT_TRUE(options.saveCopyHTML.hidden);
    options.exportTypeSelected(2);
    EXPECT_EQ(textOptions(), std::vector(6, false));
    EXPECT_TRUE(options.saveCopyHTML.hidden);
    options.exportTypeSelected(0);
    EXPECT_EQ(textOptions(), std::vector(6, true));
    EXPECT_FALSE(options.saveCopyHTML.hidden);
    EXPECT_FALSE(options.sortByName.hidden);
}

TEST_F(ExportTest, AreaGrowsByAHundredPointsForTextAndOnlyOnce) {
    AccessoryViewController options(base.services());
    options.viewDidLoad();
    const auto heightFor = [&](std::size_t index) {
        options.exportTypeSelected(index);
        return options.addedHeight();
    };
    EXPECT_EQ(options.addedHeight(), 0);
    EXPECT_EQ(heightFor(2), 100);
    EXPECT_EQ(heightFor(2), 100);
    EXPECT_EQ(heightFor(1), 0);
    EXPECT_EQ(heightFor(0), 0);
    EXPECT_EQ(heightFor(2), 100);
}

TEST_F(ExportTest, EachFormatAllowsItsExtension) {
    exportTo("/home/out.html", [](AccessoryViewController& options) {
        ASSERT_EQ(options.exportTypes().size(), 3u);
        EXPECT_NE(options.panel(), nullptr);
        for (const std::size_t index : {2, 1, 0})
            options.exportTypeSelected(index);
    });
    std::vector<std::string> extensions;
    for (const FileKind& kind : panels.allowedKinds)
        extensions.push_back(kind.extensions.at(0));
    EXPECT_EQ(extensions, (std::vector<std::string>{"txt", "xbel", "html"}));
}

// The HTML copy

TEST_F(ExportTest, ChosenHTMLFileIsRememberedForCopiesWhenThatIsOn) {
    exportTo("/home/first.html");
    EXPECT_FALSE(folders.kept.contains(settings::kExportHTMLBookmark.key));
    exportTo("/home/second.html", [](AccessoryViewController& options) { options.saveCopyHTML.on = true; });
    EXPECT_EQ(folders.resolve(settings::kExportHTMLBookmark.key), "/home/second.html");
    exportTo("/home/third.xbel");
    exportTo("/home/fourth.txt");
    EXPECT_EQ(folders.resolve(settings::kExportHTMLBookmark.key), "/home/second.html") << "HTML only";
}

// Failures

TEST_F(ExportTest, FailedWriteIsNotReportedAndLeavesTheOldFile) {
    files.files["/home/out.html"] = "old";
    files.diskFull = true;
    exportTo("/home/out.html");
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(written("/home/out.html"), "old");
    EXPECT_TRUE(base.log.lines.back().starts_with("Export could not be written: "));
}

TEST_F(ExportTest, DocumentThatIsNestedTooDeepForTheFormatIsReportedAndNothingIsWritten) {
    Bookmark* parent = &document.getMaster();
    for (int i = 0; i < 100000; ++i)
        parent = &add(makeFolder("f", false), parent);
    exportTo("/home/out.xbel");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“out.xbel” could not be exported");
    EXPECT_EQ(alerts.shown[0].document, &document);
    EXPECT_TRUE(files.files.empty());
}

TEST_F(ExportTest, PanelThatOutlivesItsWindowDoesNothing) {
    panels.nameFile("/home/out.html");
    panels.useAccessory = [this](PanelAccessory&) {
        window.reset();
        controller.reset();
    };
    controller->exporting().exportText();
    EXPECT_TRUE(files.files.empty());
}

// Progress

TEST_F(ExportTest, ProgressRunsFromNothingToAllAndEndsWithTheExport) {
    for (int i = 0; i < 20000; ++i)
        add(makeLink("n"));
    document.setFileName("/home/Links.tbln");
    exportTo("/home/out.txt", [](AccessoryViewController& options) { options.sortByName.on = true; });
    ASSERT_EQ(progress.works.size(), 1u);
    const FakeProgressPanels::Work& work = progress.works[0];
    EXPECT_EQ(work.panel.message, "Exporting “Links”");
    EXPECT_EQ(work.panel.cancel, "Cancel");
    EXPECT_EQ(work.panel.document, &document);
    EXPECT_TRUE(work.done);
    ASSERT_GT(work.fractions.size(), 10u);
    EXPECT_LT(work.fractions.front(), 0.1);
    EXPECT_GT(work.fractions.back(), 0.9);
    EXPECT_LE(work.fractions.back(), 1);
    EXPECT_TRUE(std::ranges::is_sorted(work.fractions));
}

TEST_F(ExportTest, CancelledExportWritesNothingAndSaysNothing) {
    for (int i = 0; i < 20000; ++i)
        add(makeLink("n"));
    files.files["/home/out.xbel"] = "old";
    for (const bool sorted : {false, true})
        for (const std::size_t calls : {0, 1, 3}) {
            progress.cancelAfter = calls;
            for (const char* path : {"/home/out.html", "/home/out.xbel", "/home/out.txt"})
                exportTo(path, [&](AccessoryViewController& options) { options.sortByName.on = sorted; });
        }
    EXPECT_EQ(files.files.size(), 1u);
    EXPECT_EQ(written("/home/out.xbel"), "old");
    EXPECT_TRUE(alerts.shown.empty());
    for (const FakeProgressPanels::Work& work : progress.works)
        EXPECT_LE(work.fractions.size(), 4u) << "asked again after a no";
}

// Single links

class SaveBookmarkTest : public WindowTest {
protected:
    Bookmark& addLinkOf(std::uint8_t type, Text name, Text url) {
        Bookmark& link = add(makeLink(""));
        link.setItemName(std::move(name));
        link.setItemURL(std::move(url));
        link.setType(type);
        return link;
    }
    void save(std::initializer_list<Bookmark*> items) {
        select(items);
        controller->actions().perform(MenuItem{.action = "saveBookmark:"});
    }
    bool enabled() { return controller->actions().validateMenuItem(MenuItem{.action = "saveBookmark:"}); }
};

TEST_F(SaveBookmarkTest, WritesAPropertyListWithTheURLAlone) {
    Bookmark& link = addLinkOf(kWebType, "A & B", "https://a.example/?x=1&y=<2>");
    open();
    panels.nameFile("/home/A & B.webloc");
    save({&link});
    ASSERT_EQ(panels.savePanels.size(), 1u);
    EXPECT_EQ(panels.savePanels[0].message, base.texts.text("SaveBookmark"));
    EXPECT_EQ(panels.savePanels[0].proposedName, "A & B");
    EXPECT_EQ(panels.savePanels[0].kind.extensions, std::vector<std::string>{"webloc"});
    EXPECT_EQ(panels.savePanels[0].document, &document);
    EXPECT_EQ(files.files.at("/home/A & B.webloc"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n<dict>\n\t<key>URL</key>\n"
              "\t<string>https://a.example/?x=1&amp;y=&lt;2&gt;</string>\n</dict>\n</plist>\n");
}

TEST_F(SaveBookmarkTest, FTPAndMailLinksAreOfferedAsTheirOwnTypes) {
    Bookmark& ftp = addLinkOf(kFTPType, "f", "ftp://f.example/");
    Bookmark& mail = addLinkOf(kMailType, "m", "mailto:m@m.example");
    Bookmark& news = addLinkOf(kNewsType, "n", "news:n");
    open();
    for (Bookmark* link : {&ftp, &mail, &news})
        save({link});
    ASSERT_EQ(panels.savePanels.size(), 3u);
    EXPECT_EQ(panels.savePanels[0].kind.extensions[0], "ftploc");
    EXPECT_EQ(panels.savePanels[1].kind.extensions[0], "mailloc");
    EXPECT_EQ(panels.savePanels[2].kind.extensions[0], "webloc");
    EXPECT_TRUE(files.files.empty()) << "the panels were cancelled";
}

TEST_F(SaveBookmarkTest, LinkWithoutANameIsUntitled) {
    Bookmark& link = addLinkOf(kWebType, nullptr, "https://a.example/");
    open();
    save({&link});
    EXPECT_EQ(panels.savePanels.at(0).proposedName, "Untitled");
}

TEST_F(SaveBookmarkTest, WithoutAURLThereIsNoPanel) {
    Bookmark& none = addLinkOf(kWebType, "none", nullptr);
    Bookmark& empty = addLinkOf(kWebType, "empty", "");
    Bookmark& folder = add(makeFolder("folder"));
    open();
    EXPECT_FALSE(enabled());
    save({&none, &empty, &folder});
    EXPECT_TRUE(enabled());
    EXPECT_TRUE(panels.savePanels.empty());
}

TEST_F(SaveBookmarkTest, SeveralLinksHaveAPanelEachUntilOneIsCancelled) {
    Bookmark& a = addLinkOf(kWebType, "a", "https://a.example/");
    Bookmark& b = addLinkOf(kWebType, "b", "https://b.example/");
    Bookmark& c = addLinkOf(kWebType, "c", "https://c.example/");
    open();
    panels.nameFile("/home/a.webloc");
    save({&c, &b, &a});
    ASSERT_EQ(panels.savePanels.size(), 2u);
    EXPECT_EQ(panels.savePanels[1].proposedName, "b");
    EXPECT_EQ(files.files.size(), 1u);
    EXPECT_TRUE(files.files.contains("/home/a.webloc"));
}

TEST_F(SaveBookmarkTest, FailedWriteIsNotReported) {
    Bookmark& link = addLinkOf(kWebType, "a", "https://a.example/");
    open();
    files.diskFull = true;
    panels.nameFile("/home/a.webloc");
    save({&link});
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(files.files.empty());
}

TEST_F(SaveBookmarkTest, URLThatNoXMLCanHoldIsReported) {
    Bookmark& link = addLinkOf(kWebType, "a", "https://a.example/\x01");
    open();
    panels.nameFile("/home/a.webloc");
    save({&link});
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“a.webloc” could not be exported");
    EXPECT_TRUE(files.files.empty());
}

} // namespace
} // namespace tabulon
