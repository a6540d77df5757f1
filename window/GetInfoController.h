// The info panel of one document window: it shows all fields of one item, edits a copy of it, and writes that
// copy back when the user leaves the item. How the panel looks is decided in ui/.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"

#include <array>
#include <string>
#include <vector>

namespace tabulon {

class Finding;
class Outline;

/// Which of the four buttons that show another item are enabled.
struct InfoButtons {
    /// To the item's folder.
    bool up = false;
    /// To the first child.
    bool down = false;
    /// To the next sibling.
    bool right = false;
    /// To the previous sibling.
    bool left = false;

    friend bool operator==(const InfoButtons&, const InfoButtons&) = default;
};

/// The view of the panel. It reads the fields' contents from the controller. Texts are UTF-8.
class InfoPanel {
public:
    virtual ~InfoPanel() = default;

    /// Shows the contents of the fields again, after a change of the item or of its fields.
    virtual void reloadFields() = 0;
    /// Enables and disables the four buttons.
    virtual void setButtons(const InfoButtons& buttons) = 0;
    /// Shows the title.
    virtual void setTitle(const std::string& title) = 0;
    /// Selects all of the name.
    virtual void selectName() = 0;
    /// Selects the first occurrence of `string` in the note, ignoring case, or the whole note if there is
    /// none, and scrolls to it.
    virtual void selectNote(const std::string& string) = 0;
    /// Selects the first occurrence of `string` in the tags, ignoring case, or all tags if there is none.
    virtual void selectTags(const std::string& string) = 0;
    /// Returns the place and size of the panel, in a text form that `setFrame` reads.
    virtual std::string frame() const = 0;
    /// Moves and resizes the panel as far as the screens allow. Does nothing if `frame` is not in that form.
    virtual void setFrame(const std::string& frame) = 0;
    /// Closes the panel.
    virtual void dismiss() = 0;
    /// Raises the panel and moves the keyboard to it.
    virtual void bringToFront() = 0;
};

/// The controller of the panel. The panel shares its ownership, so it may outlive the window.
class GetInfoController {
public:
    /// Requires: `outline` and `finding` exist until `outlineIsGone` is called, and the services of
    /// `platform` outlive this object.
    GetInfoController(Outline& outline, Finding& finding, const Platform& platform)
        : outline_(&outline), finding_(finding), platform_(platform) {}

    /// Detaches the controller from the outline and its search, which are destroyed after that. Changes are
    /// not saved any more.
    void outlineIsGone() { outline_ = nullptr; }

    /// Shows `node`. Saves a change of the item that was shown before. Selects the node's row if the panel is
    /// shown.
    void editBookmark(Bookmark& node);
    /// Sets the panel, restores its frame and fills it in; `nullptr` when the panel is closed. Does not take
    /// ownership. Requires: an item is shown.
    void setPanel(InfoPanel* panel);
    /// Returns whether there is a panel.
    bool isShown() const { return panel_ != nullptr; }
    /// Raises the panel and moves the keyboard to it. Requires: isShown().
    void bringToFront() { panel_->bringToFront(); }

    /// Returns the node that is shown, or `nullptr` before the first call of `editBookmark`.
    Bookmark* original() const { return original_.get(); }

    // The fields are those of a working copy. Texts are UTF-8. A missing text is shown as an empty one, and
    // stays missing until it is changed.

    /// Returns the working copy.
    const Bookmark& duplicate() const { return *duplicate_; }
    /// Sets the name of the working copy.
    void setName(const std::string& text);
    /// Sets the URL of the working copy. It is not classified.
    void setURL(const std::string& text);
    /// Sets the note of the working copy.
    void setNote(const std::string& text);
    /// Sets the tags of the working copy.
    void setTags(const std::string& text);
    /// Sets the label of the working copy.
    void setLabel(std::uint8_t label) { duplicate_->setLabel(label); }
    /// Locks or unlocks the working copy and updates the fields of the panel. Requires: isShown().
    void setLocked(bool locked);
    /// Returns whether the URL can be edited: not that of a locked item.
    bool isURLEditable() const { return !duplicate_->getLocked(); }
    /// Returns whether the URL field is enabled: not for a folder, which has no URL.
    bool isURLEnabled() const { return !duplicate_->isFolder(); }

    // The browser that the item opens in

    static constexpr int kBrowserSeparator = 1; ///< the index of the separator line in the menu
    /// Returns the menu's items: the default browser, the separator line as an empty value, then the known
    /// browsers.
    std::vector<Application> browserItems() const;
    /// Returns the index of the working copy's browser in the menu.
    int browserMenuIndex() const { return getBrowserMenuIndex(duplicate_->getBrowser()); }
    /// Sets the browser of the working copy to the one at this index of the menu.
    void openWith(int index);
    /// Returns the value that is stored for the browser at this index of the menu; 0 for the default browser
    /// and any index without a browser.
    static std::uint32_t getBrowserValue(int index);
    /// Returns the index in the menu of the browser with this stored value; 0 for an unknown value.
    static int getBrowserMenuIndex(std::uint32_t value);

    // What the user does. A step saves a change first. It beeps if there is no item to go to.

    /// Shows the item's folder. A top-level item has none to show.
    void up();
    /// Shows the first child.
    void down();
    /// Shows the next sibling.
    void next();
    /// Shows the previous sibling.
    void previous();
    /// Saves a change, continues the search of the find bar, and shows the item of the next match.
    void findNext();
    /// Returns whether there is a search to continue.
    bool canFindNext() const;
    /// Stores the panel's frame, saves a change and closes the panel. Does nothing if there is no panel.
    void done();
    /// Stores the panel's frame and closes the panel without saving. Does nothing if there is no panel.
    void cancel();
    /// Saves a change and keeps the panel open. An item whose name is null always counts as changed. Does
    /// nothing if the node is no longer in the tree.
    void keepChange();
    /// Called after nodes were removed from the tree. Closes the panel, without saving, if the shown node is
    /// no longer in the tree; otherwise updates it.
    void nodesDidLeave();
    /// Called after the tree was changed. Fields that the user has not changed in the panel show the node's
    /// values again; the others keep what was typed.
    void nodesDidChange();

    /// Runs `InfoPanel::selectNote` if there is a panel.
    void selectNote(const std::string& string);
    /// Runs `InfoPanel::selectTags` if there is a panel.
    void selectTags(const std::string& string);

private:
    /// Makes `node` the original and fills the panel, if there is one.
    void show(Bookmark& node);
    /// Shows the fields, selects the name and updates the buttons. Requires: isShown().
    void fillPanel();
    /// Shows the fields and the title. Requires: isShown().
    void showFields();
    /// Copies values that were changed in the tree, but not in the panel, to the working copy. Returns
    /// whether there were any.
    bool takeOverChanges();
    /// Returns whether the node is in the outline's tree. The time is linear in its depth.
    bool isInTree(const Bookmark& node) const;
    /// Saves a change and selects the item's row. Does nothing after `outlineIsGone`.
    void doneBookmark();
    /// Stores the panel's frame and closes the panel.
    void dismissPanel();
    /// Writes the working copy to the original, with the modification date, and makes the document dirty.
    void saveBookmark();
    /// Saves a change and shows `target`. Beeps if it is `nullptr` or not in the tree.
    void step(Bookmark* target);
    /// Enables the buttons of the items that can be shown.
    void updateButtons();

    Outline* outline_; ///< null after `outlineIsGone`
    Finding& finding_;
    const Platform platform_;
    InfoPanel* panel_ = nullptr;
    Ref<Bookmark> original_;
    Ref<Bookmark> duplicate_;
    Ref<Bookmark> known_; // the node's values when they were copied last
};

} // namespace tabulon
