#include "window/ViewController.h"

#include "window/DocumentWindow.h"

namespace tabulon {

ViewController::ViewController(Document& document, const Platform& platform, SharedState& shared)
    : actions_(this), collation_(platform.base.texts.locale()), outline_(document, platform.base.defaults),
      finding_(outline_, platform, shared.findPhases, collation_),
      window_(outline_, finding_, platform, actions_), statusLine_(outline_, platform),
      cells_(outline_, platform.base), table_(outline_, window_, platform, shared.findPhases, actions_),
      fields_(outline_, window_, platform, actions_), expanding_(outline_, fields_, platform, actions_),
      opening_({outline_, expanding_, fields_, window_}, platform, actions_),
      editing_(outline_, fields_, statusLine_, platform, actions_), items_(platform, shared),
      clipboard_(outline_, editing_, items_, platform, actions_),
      dragging_(outline_, fields_, items_, platform, shared.records), baskets_(outline_, platform.base),
      marks_({outline_, editing_, baskets_, statusLine_, window_}, platform, shared, actions_),
      sorting_(outline_, fields_, collation_, platform, actions_), exporting_(outline_, platform, actions_) {
    document.setPresenter(this);
}

ViewController::~ViewController() {
    outline_.document().setPresenter(nullptr);
}

void ViewController::setWindow(DocumentWindow* window) {
    outline_.setView(&window->outline());
    statusLine_.setWindow(window);
    window_.setWindow(window);
    table_.viewDidLoad();
    sorting_.viewDidLoad();
    statusLine_.showCounts();
}

void ViewController::setMaster(Bookmark& master) {
    outline_.setMaster(master);
}

void ViewController::documentStateChanged() {
    window_.documentStateChanged();
    if (!outline_.document().isDocumentEdited())
        statusLine_.documentDidSave();
}

void ViewController::finishEditing() {
    fields_.commitEditing();
    window_.dismissInfo();
}

} // namespace tabulon
