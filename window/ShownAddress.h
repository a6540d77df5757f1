// Addresses as they are shown to people. What is stored, edited and opened stays as it is.
#pragma once

#include "model/Text.h"

namespace tabulon {

/// `address` with the controls for the direction of writing percent-coded, so that it reads in the order in
/// which it is stored: U+061C, U+200E, U+200F, U+202A to U+202E and U+2066 to U+2069. Null stays null.
Text shownAddress(const Text& address);

} // namespace tabulon
