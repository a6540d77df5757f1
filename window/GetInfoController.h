// The info panel of one document window: it shows all fields of one item, edits a copy of it, and writes that
// back when the user leaves the item. What it looks like is ui/'s affair.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"

#include <array>
#include <string>
#include <vector>

namespace tabulon {

class Finding;
class Outline;

/// The four ways out of an item.
struct InfoButtons {
    bool up = false;
    bool down = false;
    bool right = false;
    bool left = false;

    friend bool operator==(const InfoButtons&, const InfoButtons&) = default;
};

/// What the controller needs of the view. The view asks the controller for the fields' contents.
class InfoPanel {
public:
    virtual ~InfoPanel() = default;

    /// Another item is shown, or its fields have changed.
    virtual void reloadFields() = 0;
    virtual void setButtons(const InfoButtons& buttons) = 0;
    virtual void setTitle(const std::string& title) = 0;
    /// All of the name is selected.
    virtual void selectName() = 0;
    /// The first place of `string` in the note or the tags is selected, ignoring case, and comes into view.
    virtual void selectNote(const std::string& string) = 0;
    virtual void selectTags(const std::string& string) = 0;
    /// Place and size as a text that `setFrame` understands; what it does not understand is passed over.
    virtual std::string frame() const = 0;
    virtual void setFrame(const std::string& frame) = 0;
    virtual void dismiss() = 0;
    /// It comes to the front and has the keyboard.
    virtual void bringToFront() = 0;
};

class GetInfoController {
public:
    /// The outline and its search must live longer, or `outlineIsGone` is called.
    GetInfoController(Outline& outline, Finding& finding, const Platform& platform)
        : outline_(&outline), finding_(finding), platform_(platform) {}

    void outlineIsGone() { outline_ = nullptr; }

    /// Shows `node`. A change of the one that was shown is saved first.
    void editBookmark(Bookmark& node);
    /// The view is there: it gets its frame, its title and the fields.
    void setPanel(InfoPanel* panel);
    bool isShown() const { return panel_ != nullptr; }
    /// Requires that it is shown.
    void bringToFront() { panel_->bringToFront(); }

    /// The node that is shown. Null only before the first one.
    Bookmark* original() const { return original_.get(); }

    // The fields: those of the working copy. Texts are UTF-8; a missing one is shown empty, and stays missing
    // until something is typed.

    const Bookmark& duplicate() const { return *duplicate_; }
    void setName(const std::string& text);
    void setURL(const std::string& text);
    void setNote(const std::string& text);
    void setTags(const std::string& text);
    void setLabel(std::uint8_t label) { duplicate_->setLabel(label); }
    void setLocked(bool locked);
    /// A locked item's URL is not edited, and a folder has none.
    bool isURLEditable() const { return !duplicate_->getLocked(); }
    bool isURLEnabled() const { return !duplicate_->isFolder(); }

    // The browser that the item opens in

    static constexpr int kBrowserSeparator = 1; ///< this index of the menu is a line
    /// The menu's items; the one of the line is empty.
    std::vector<Application> browserItems() const;
    int browserMenuIndex() const { return getBrowserMenuIndex(duplicate_->getBrowser()); }
    /// The user has chosen this item of the menu.
    void openWith(int index);
    static std::uint32_t getBrowserValue(int index);
    static int getBrowserMenuIndex(std::uint32_t value);

    // What the user does. Each step saves a change first, and beeps where there is nowhere to go.

    void up();
    void down();
    void next();
    void previous();
    /// Goes on with the search of the document's find bar, and shows where it was found.
    void findNext();
    bool canFindNext() const;
    /// Saves a change, keeps the frame and dismisses the panel.
    void done();
    /// The same without the change.
    void cancel();
    /// Saves a change and stays: the user goes on elsewhere while the panel is up. A node that has left the
    /// tree is not changed.
    void keepChange();
    /// Nodes have left the tree. A panel whose node is among them is dismissed without its change.
    void nodesDidLeave();
    /// The tree was changed, perhaps the node that is shown: the fields that the user has left alone show
    /// what it has now. Where he has changed the same field here, his change stays.
    void nodesDidChange();

    void selectNote(const std::string& string);
    void selectTags(const std::string& string);

private:
    void show(Bookmark& node);
    void fillPanel();
    void showFields();
    bool takeOverChanges();
    bool isInTree(const Bookmark& node) const;
    void doneBookmark();
    void dismissPanel();
    void saveBookmark();
    void step(Bookmark* target);
    void updateButtons();

    Outline* outline_; ///< null when the window is gone
    Finding& finding_;
    const Platform platform_;
    InfoPanel* panel_ = nullptr;
    Ref<Bookmark> original_;
    Ref<Bookmark> duplicate_;
    Ref<Bookmark> known_; // the node as the working copy knows it, to tell who has changed a field
};

} // namespace tabulon
