// The objects of a keyed archive by number: its classes, texts, dates and arrays. The records of bookmarks
// are read in ArchiveNodes.h.
#pragma once

#include "base/Date.h"
#include "base/Error.h"
#include "base/Text.h"
#include "model/ArchiveKeys.h"
#include "plist/BinaryPlist.h"

#include <cstring>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tabulon::archive {

/// The classes of objects that the program knows.
enum class Class : std::uint8_t { Unknown, Bookmark, FileVersion, Array, Date, String };

/// Access to the property list of an archive, which must outlive it. Damage is recorded and not returned:
/// after any call `isDamaged` returns whether something was wrong, and `damage` returns what. The bytes of
/// all containers and texts that are read are counted against a budget in proportion to the size of the file.
/// So objects that overlap cannot make the work grow faster than the file.
class Graph {
public:
    using Object = BinaryPlist::Object;
    using Kind = BinaryPlist::Kind;

    /// `size` is that of the file in bytes.
    Graph(const BinaryPlist& plist, std::size_t size);

    /// Returns the size of the file in bytes.
    std::size_t size() const { return size_; }

    /// Finds the parts of the archive and returns the number of its root object. Fails with a sentence if
    /// this is no keyed archive or its frame is damaged.
    Result<std::uint64_t> open();

    /// Returns the number of the root object like `open`. If that fails, uses the longest array that begins
    /// with "$null" as the objects of the archive, and returns 1, or 0 if there is no such array with a
    /// second element. Clears recorded damage. Linear in the number of objects.
    std::uint64_t openWhatIsLeft();

    /// Returns the number of objects of the archive. Their numbers are below it.
    std::uint64_t objectCount() const { return objects_.count(); }
    /// Returns object number `uid` of the archive. Records damage if there is none or its bytes are wrong,
    /// and then returns Damaged; records it for a Null too, which no archive contains, and returns the Null.
    Object archived(std::uint64_t uid);
    /// Returns the number of archive object `uid` in the property list, or the number of objects there, which
    /// is the number of no object, if `uid` is out of range.
    std::uint64_t idOfArchived(std::uint64_t uid) const {
        return uid < objects_.count() ? plist_.reference(objects_, uid) : plist_.objectCount();
    }
    /// Returns the class of an archived dictionary: the first known name among its own and its ancestors'.
    /// Returns Unknown for any other object.
    Class classOf(Object dictionary);
    /// Returns the class that archive object `uid` describes.
    Class resolveClass(std::uint64_t uid);
    /// Returns true if archive object `uid` is the record of a bookmark.
    bool isNode(std::uint64_t uid);
    /// Returns the references of archived array `uid`, or Damaged if it is something else. Records damage
    /// only if its bytes are wrong.
    Object arrayBehind(std::uint64_t uid);
    /// Returns the text with this number. Returns null for number 0. Records damage for anything else, and
    /// returns null. Results for a very long text, and for a long text after the second call for it, share
    /// their bytes.
    Text text(std::uint64_t uid);
    /// Returns the date with this number. Returns null for number 0. Records damage for anything else, and
    /// returns null.
    Date date(std::uint64_t uid);

    /// Returns the value of `key`, the last one if the key is repeated, or Damaged if there is none. A
    /// missing key is not recorded as damage; a key or a value whose bytes are wrong is. Linear in the size
    /// of the dictionary.
    Object find(Object dictionary, Key key);
    /// Returns the key whose name is object `id` of the property list, or Unknown for any other text. Records
    /// damage if the object is no text.
    Key keyOf(std::uint64_t id);
    /// Returns the object that reference `index` of a container names. Records damage if its bytes are wrong.
    /// Requires: `index` as for `BinaryPlist::reference`.
    Object element(Object container, std::uint64_t index) {
        const Object object = plist_.object(plist_.reference(container, index));
        if (object.kind() == Kind::Damaged)
            damaged("a reference of its property list leads to nothing.");
        return object;
    }
    /// Returns reference `index` of a container, the number of an object of the property list.
    std::uint64_t idAt(Object container, std::uint64_t index) const {
        return plist_.reference(container, index);
    }
    /// Returns object `id` of the property list, without recording damage.
    Object object(std::uint64_t id) const { return plist_.object(id); }
    /// Returns the position of a container's references in the file, in bytes.
    std::size_t positionOf(Object container) const { return plist_.positionOf(container); }
    /// Returns key `index` of a dictionary, as `keyOf` does.
    Key keyAt(Object dictionary, std::uint64_t index) { return keyOf(plist_.reference(dictionary, index)); }
    /// Returns true if another object overlaps key `index` of a dictionary. Linear in the number of objects.
    bool isKeyOverlapped(Object dictionary, std::uint64_t index) const {
        return plist_.isOverlapped(plist_.reference(dictionary, index));
    }
    /// Returns true if two dictionaries have the same keys in the same order. Requires: as many pairs in
    /// both.
    bool sameKeys(Object a, Object b) const { return plist_.sameReferences(a, b, a.count()); }
    /// Subtracts a container's references from the budget. Records damage and returns false if it is used up.
    bool chargeReferences(Object container) {
        return container.count() <= kSmall || charge(plist_.referenceBytes(container));
    }

    /// Records damage, of which only the first one is kept, and returns false. `what` continues the sentence
    /// "The file is damaged:".
    bool damaged(std::string_view what);
    /// Returns true if damage is recorded.
    bool isDamaged() const { return !problem_.empty(); }
    /// Clears recorded damage, for a caller that continues after it. The budget is not restored.
    void forgetDamage() { problem_.clear(); }
    /// Returns the recorded damage as an error. Requires: `isDamaged`.
    tl::unexpected<Error> damage() const { return failure("The file is damaged: " + problem_); }

private:
    /// Containers with at most so many elements and texts with at most so many units are not counted: reading
    /// one costs about as much as reading the reference to it.
    static constexpr std::uint64_t kSmall = 64;

    /// A text of so many units is shared from the first call on.
    static constexpr std::uint64_t kVeryLong = 4096;

    static constexpr std::uint64_t kNowhere = ~std::uint64_t{0};

    /// A date, and the indices of class and time among its references.
    struct DateShape {
        Object like;
        std::uint64_t classPlace = 0;
        std::uint64_t timePlace = 0;
    };

    bool charge(std::uint64_t bytes);
    std::uint64_t placeOf(Object dictionary, Key key);
    Object textBehind(Object object);
    Text longText(std::uint64_t uid, Object object);
    bool isLikeTheLastDate(Object object) const {
        return object.count() > 0 && object.count() == date_.like.count() && sameKeys(object, date_.like) &&
               idAt(object, date_.classPlace) == idAt(date_.like, date_.classPlace);
    }
    Object timeOf(Object object);
    Date decodeDate(Object object);

    const BinaryPlist plist_;
    const std::size_t size_;
    std::uint64_t budget_;
    std::vector<std::uint8_t>
        keys_;       // by object number of the property list: the Key plus 1, or 0 while unknown
    Object objects_; // the archive's "$objects"
    std::vector<bool> longTextsSeen_;                           // by object number of the property list
    std::unordered_map<const std::uint8_t*, Text> sharedTexts_; // by the address of the text
    DateShape date_;
    std::vector<std::pair<std::uint64_t, Class>> classes_;
    std::string problem_;
};

} // namespace tabulon::archive
