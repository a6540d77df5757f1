// The objects of a keyed archive by number: its classes, texts, dates and arrays, each decoded once. What a
// bookmark is made of is in ArchiveReader.cpp.
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

enum class Class : std::uint8_t { Unknown, Bookmark, FileVersion, Array, Date, String };

/// Looks things up in the property list of an archive. Damage is noted, not thrown: after any call
/// `isDamaged` tells whether something was wrong, and `damage` what. The bytes of all containers and texts
/// looked at are counted against the size of the file, so that objects laid over one another cannot make the
/// work grow beyond it.
class Graph {
public:
    using Object = BinaryPlist::Object;
    using Kind = BinaryPlist::Kind;

    /// `size` is that of the file in bytes.
    Graph(const BinaryPlist& plist, std::size_t size);

    /// The size of the file in bytes.
    std::size_t size() const { return size_; }

    /// Finds the parts of the archive and gives the number of its root object.
    Result<std::uint64_t> open();

    /// The same for an archive whose frame is damaged: the objects are looked for, and the root is object 1.
    /// Without any objects it is 0. Damage is forgotten.
    std::uint64_t openWhatIsLeft();

    /// How many objects the archive has; their numbers are below that.
    std::uint64_t objectCount() const { return objects_.count(); }
    /// Object number `uid` of the archive. Damaged, and noted, when there is none or its bytes are wrong.
    Object archived(std::uint64_t uid);
    /// The number in the property list of object `uid`; that of no object when there is none.
    std::uint64_t idOfArchived(std::uint64_t uid) const {
        return uid < objects_.count() ? plist_.reference(objects_, uid) : plist_.objectCount();
    }
    /// The class of an archived dictionary, by the first name in its ancestry that is known.
    Class classOf(Object dictionary);
    Class resolveClass(std::uint64_t uid);
    /// Whether object number `uid` is the record of a bookmark.
    bool isNode(std::uint64_t uid);
    /// The references of an archived array; Damaged for anything else, which is noted only when the bytes are
    /// wrong.
    Object arrayBehind(std::uint64_t uid);
    /// The text or date with this number, null for number 0. Anything else is noted. A long text is shared
    /// between those who ask for it after the first.
    Text text(std::uint64_t uid);
    Date date(std::uint64_t uid);

    /// The (last) value under `key`; Damaged, without a note, when there is none.
    Object find(Object dictionary, Key key);
    /// The key that object `id` of the property list spells.
    Key keyOf(std::uint64_t id);
    /// Element `index` of a container's references, as an object; noted when its bytes are wrong.
    Object element(Object container, std::uint64_t index) {
        const Object object = plist_.object(plist_.reference(container, index));
        if (object.kind() == Kind::Damaged)
            damaged("a reference of its property list leads to nothing.");
        return object;
    }
    std::uint64_t idAt(Object container, std::uint64_t index) const {
        return plist_.reference(container, index);
    }
    Object object(std::uint64_t id) const { return plist_.object(id); }
    /// Where the references of a container lie in the file.
    std::size_t positionOf(Object container) const { return plist_.positionOf(container); }
    Key keyAt(Object dictionary, std::uint64_t index) { return keyOf(plist_.reference(dictionary, index)); }
    /// Whether another object lies over key `index` of a dictionary. Linear in the number of objects.
    bool isKeyOverlapped(Object dictionary, std::uint64_t index) const {
        return plist_.isOverlapped(plist_.reference(dictionary, index));
    }
    /// True when two dictionaries of as many pairs name the same keys in the same order.
    bool sameKeys(Object a, Object b) const { return plist_.sameReferences(a, b, a.count()); }
    /// Counts a container's references as looked at; false when that is more than the file can hold.
    bool chargeReferences(Object container) {
        return container.count() <= kSmall || charge(plist_.referenceBytes(container));
    }

    /// Notes damage (the first one counts) and gives false.
    bool damaged(std::string_view what);
    bool isDamaged() const { return !problem_.empty(); }
    /// For who reads on after damage. What was looked at stays counted.
    void forgetDamage() { problem_.clear(); }
    tl::unexpected<Error> damage() const { return failure("The file is damaged: " + problem_); }

private:
    /// Containers of no more elements and texts of no more units are not counted: looking at one is no more
    /// work than reading the reference to it.
    static constexpr std::uint64_t kSmall = 64;

    /// Texts of so many units are shared from the first one on.
    static constexpr std::uint64_t kVeryLong = 4096;

    static constexpr std::uint64_t kNowhere = ~std::uint64_t{0};

    /// A date, and where in its references class and time are.
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
        keys_;       // by object number of the property list: the Key plus 1, 0 while not looked up
    Object objects_; // the archive's "$objects"
    std::vector<bool> longTextsSeen_;                           // by object number of the property list
    std::unordered_map<const std::uint8_t*, Text> sharedTexts_; // by where the text lies
    DateShape date_;
    std::vector<std::pair<std::uint64_t, Class>> classes_;
    std::string problem_;
};

} // namespace tabulon::archive
