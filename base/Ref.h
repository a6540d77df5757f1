// A smart pointer to an object that contains its own reference count. The count is not atomic, so all
// references to an object stay on one thread.
#pragma once

#include <cstddef>
#include <utility>

namespace tabulon {

/// Owns one count of a T, or is null. T has `retain()`, which adds a count, and `release()`, which removes
/// one and destroys the object with the last one.
template <class T>
class Ref {
public:
    /// Constructs null.
    Ref() noexcept = default;
    /// Constructs null.
    Ref(std::nullptr_t) noexcept {}
    /// Adds a count to `object`, which may be nullptr.
    Ref(T* object) noexcept : object_(object) {
        if (object_)
            object_->retain();
    }
    /// Returns a reference that takes over one count from the caller. `object` may be nullptr.
    static Ref adopt(T* object) noexcept {
        Ref ref;
        ref.object_ = object;
        return ref;
    }
    /// Adds a count to the object of `other`, if it has one.
    Ref(const Ref& other) noexcept : Ref(other.object_) {}
    /// Takes over the count of `other`, which is null afterwards.
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    /// Releases the previous object, which may destroy it. Assigning a reference to itself is allowed.
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    /// Releases the object, which may destroy it.
    ~Ref() {
        if (object_)
            object_->release();
    }

    /// Returns the object, or nullptr. The caller gets no count of its own, so the pointer is valid as long
    /// as some reference to the object.
    T* get() const noexcept { return object_; }
    /// Returns the object. Requires: not null.
    T& operator*() const noexcept { return *object_; }
    /// Accesses a member of the object. Requires: not null.
    T* operator->() const noexcept { return object_; }
    /// Returns true if not null.
    explicit operator bool() const noexcept { return object_ != nullptr; }
    /// Returns true if both refer to the same object, or both are null.
    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }

    /// Returns the object and passes its count to the caller, who must release it. The reference is null
    /// afterwards.
    T* detach() noexcept { return std::exchange(object_, nullptr); }

private:
    T* object_ = nullptr;
};

} // namespace tabulon
