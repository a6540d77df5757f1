// One document with its controller and a window in memory, and functions that build its tree.
#pragma once

#include "platform/fake/FakePlatform.h"
#include "tests/window/MemoryWindow.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tabulon {

class FakeSharedCommands : public SharedCommands {
public:
    void grabAllHTML(const std::string& html) override { grabbed = html; }
    void showMarks(bool shown) override {
        if (onShowMarks)
            onShowMarks(shown);
    }

    std::string grabbed;
    std::function<void(bool shown)> onShowMarks;
};

class WindowTest : public testing::Test, protected FakePlatform {
protected:
    Ref<Bookmark> makeFolder(const char* name, bool expanded = true) {
        Ref<Bookmark> folder = Bookmark::init(base.now());
        folder->setItemName(name);
        folder->makeParent();
        folder->setShowHier(expanded);
        return folder;
    }
    Ref<Bookmark> makeLink(const char* name, const char* url = "https://example.org/") {
        return Bookmark::initWithDictionary({.name = name, .url = url, .note = nullptr, .tags = nullptr},
                                            base.now());
    }
    Ref<Bookmark> makeSeparator() {
        Ref<Bookmark> separator = Bookmark::init(base.now());
        separator->setType(kSeparatorType);
        return separator;
    }

    /// Adds the node below `parent`, or at the top level. Requires: `open()` was not called.
    Bookmark& add(const Ref<Bookmark>& node, Bookmark* parent = nullptr) {
        (parent ? *parent : document.getMaster()).addChild(node);
        return *node;
    }

    /// Opens a window for the document. A window that was open is closed first.
    void open() {
        window.reset();
        controller.reset();
        document.setMaster(Ref<Bookmark>(&document.getMaster()));
        controller = std::make_unique<ViewController>(document, platform(), shared);
        window = std::make_unique<MemoryWindow>(*controller);
        controller->setWindow(window.get());
    }

    MemoryOutline& outline() { return window->outlineView; }
    std::vector<std::string> rowNames() {
        std::vector<std::string> names;
        for (const Bookmark* row : outline().rows)
            names.push_back(row->isSeparator() ? "—" : row->itemName().string());
        return names;
    }
    void select(const std::vector<Bookmark*>& items) { outline().clickOn(items); }

    FakeSharedCommands application;
    SharedState shared{application};
    Document document{base.services()};
    std::unique_ptr<ViewController> controller;
    std::unique_ptr<MemoryWindow> window;
};

} // namespace tabulon
