// The result of a function that can fail: one error type and one result type. Showing errors to the user is
// not part of this file.
#pragma once

#include <tl/expected.hpp>

#include <string>

namespace tabulon {

/// The set of codes that an error's code is from.
enum class ErrorDomain {
    None,     ///< no code; the message alone describes the failure
    Cocoa,    ///< codes of the document framework; 3072 is "cancelled by the user"
    OSStatus, ///< codes of the classic file reader
    Posix,    ///< errno values
};

/// The Cocoa code for an operation that the user has cancelled. No alert is shown for it.
inline constexpr int kUserCancelledError = 3072;

/// Describes a failure to the program (domain and code) and to the user (message and title). Callers decide
/// by domain and code, and never by a text.
struct Error {
    ErrorDomain domain = ErrorDomain::None;
    /// A number of the domain; 0 for ErrorDomain::None.
    int code = 0;
    /// One English sentence with a full stop, UTF-8. It names the cause in terms that the user can act on.
    std::string message;
    /// The title of an alert about this error, UTF-8; empty if the operation determines the title.
    std::string title = {};
};

/// The Cocoa code for a property list that cannot be parsed.
inline constexpr int kPropertyListReadCorruptError = 3840;

/// A value of type T, or the error with which the operation failed. True in a condition if it is a value.
/// Requires, for `*` and `->`: it is a value; for `error()`: it is none.
template <class T>
using Result = tl::expected<T, Error>;

/// Returns an error that converts to a failed Result of any type. The title is empty. `message` is one
/// sentence, UTF-8.
inline tl::unexpected<Error> failure(std::string message, ErrorDomain domain = ErrorDomain::None,
                                     int code = 0) {
    return tl::unexpected<Error>(Error{domain, code, std::move(message), {}});
}

/// Returns the error of an operation that the user has cancelled. No alert is shown for it.
inline tl::unexpected<Error> cancelledByUser() {
    return failure("The user has cancelled it.", ErrorDomain::Cocoa, kUserCancelledError);
}

/// Returns true for the error that `cancelledByUser` returns, by its domain and code.
inline bool isCancelledByUser(const Error& error) {
    return error.domain == ErrorDomain::Cocoa && error.code == kUserCancelledError;
}

} // namespace tabulon
