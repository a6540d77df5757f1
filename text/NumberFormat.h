// Numbers as people write them. ICU does the work.
#pragma once

#include <cstdint>
#include <string>

namespace tabulon {

/// `number` with the separators of thousands that the language of `locale` ("de_DE") has. UTF-8.
std::string numberText(std::uint64_t number, const std::string& locale);

} // namespace tabulon
