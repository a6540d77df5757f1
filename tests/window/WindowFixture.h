// One document with its controller and a window in memory, and short ways to build its tree.
#pragma once

#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/FakeDesktop.h"
#include "platform/fake/MemoryFileStore.h"
#include "tests/window/MemoryWindow.h"

#include <memory>
#include <string>
#include <vector>

namespace tabulon {

class WindowTest : public testing::Test {
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

    /// Adds below `parent`, or at the top level; before `open()`.
    Bookmark& add(const Ref<Bookmark>& node, Bookmark* parent = nullptr) {
        (parent ? *parent : document.getMaster()).addChild(node);
        return *node;
    }

    void open() {
        document.setMaster(Ref<Bookmark>(&document.getMaster()));
        controller = std::make_unique<ViewController>(document, platform());
        window = std::make_unique<MemoryWindow>(*controller);
        controller->setWindow(window.get());
    }

    Platform platform() { return {base.services(), alerts, panels, files, folders, state}; }

    MemoryOutline& outline() { return window->outlineView; }
    std::vector<std::string> rowNames() {
        std::vector<std::string> names;
        for (const Bookmark* row : outline().rows)
            names.push_back(row->isSeparator() ? "—" : row->itemName().string());
        return names;
    }
    void select(std::initializer_list<Bookmark*> items) { outline().selected = items; }

    FakeBaseServices base;
    FakeAlerts alerts;
    FakePanels panels;
    MemoryFileStore files;
    FakeFolderReferences folders;
    MemoryUserDefaults state;
    Document document{base.services()};
    std::unique_ptr<ViewController> controller;
    std::unique_ptr<MemoryWindow> window;
};

} // namespace tabulon
