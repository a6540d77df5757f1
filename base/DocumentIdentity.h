// The identity of a document, for interfaces below the model that only have to name one.
#pragma once

namespace tabulon {

/// The base of `Document`. Interfaces that cannot see the model refer to a document by a pointer to this
/// class: they compare the pointers and pass them on. It has no functions, and only its owner can destroy it.
class DocumentIdentity {
public:
    DocumentIdentity(const DocumentIdentity&) = delete;
    DocumentIdentity& operator=(const DocumentIdentity&) = delete;

protected:
    DocumentIdentity() = default;
    ~DocumentIdentity() = default;
};

} // namespace tabulon
