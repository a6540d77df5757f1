// A counted reference to an object that carries its own count. Not atomic: the tree lives on one thread.
#pragma once

#include <cstddef>
#include <utility>

namespace tabulon {

/// Owns one count of a T that has `retain()` and `release()`; `release()` frees the object with its last
/// count.
template <class T>
class Ref {
public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    /// Takes a further count.
    Ref(T* object) noexcept : object_(object) {
        if (object_)
            object_->retain();
    }
    /// Takes over a count that the caller owns.
    static Ref adopt(T* object) noexcept {
        Ref ref;
        ref.object_ = object;
        return ref;
    }
    Ref(const Ref& other) noexcept : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_)
            object_->release();
    }

    T* get() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    T* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }

    /// Gives the count to the caller and is null afterwards.
    T* detach() noexcept { return std::exchange(object_, nullptr); }

private:
    T* object_ = nullptr;
};

} // namespace tabulon
