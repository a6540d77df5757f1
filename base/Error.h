// What a function that can fail gives back: one error value, one result type.
#pragma once

#include <tl/expected.hpp>

#include <string>

namespace tabulon {

/// Who an error code belongs to.
enum class ErrorDomain {
    None,     ///< no code: a plain failure, told by its sentence alone
    Cocoa,    ///< codes of the document framework; 3072 is "cancelled by the user"
    OSStatus, ///< codes of the classic file reader
    Posix,    ///< errno values
};

/// Code of the Cocoa domain for which no alert is shown.
inline constexpr int kUserCancelledError = 3072;

struct Error {
    ErrorDomain domain = ErrorDomain::None;
    int code = 0;
    /// One sentence in English that a person can act on, with a full stop.
    std::string message;
    /// What an alert about this error is headed, where that is fixed; else empty.
    std::string title = {};
};

/// The Cocoa code for a property list that cannot be parsed.
inline constexpr int kPropertyListReadCorruptError = 3840;

template <class T>
using Result = tl::expected<T, Error>;

/// A failed Result of any type.
inline tl::unexpected<Error> failure(std::string message, ErrorDomain domain = ErrorDomain::None,
                                     int code = 0) {
    return tl::unexpected<Error>(Error{domain, code, std::move(message), {}});
}

/// How work fails that the user has cancelled. Nobody shows an alert.
inline tl::unexpected<Error> cancelledByUser() {
    return failure("The user has cancelled it.", ErrorDomain::Cocoa, kUserCancelledError);
}

inline bool isCancelledByUser(const Error& error) {
    return error.domain == ErrorDomain::Cocoa && error.code == kUserCancelledError;
}

} // namespace tabulon
