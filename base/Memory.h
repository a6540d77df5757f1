// Where nodes and texts get their memory: the two kinds of block that come in millions. Everything else uses
// the language's own allocation.
#pragma once

#include <cstddef>

namespace tabulon {

/// At least `size` bytes, aligned for any object; throws std::bad_alloc when there is no memory.
void* allocateMemory(std::size_t size);

/// Gives back a block of `allocateMemory` with the size it was asked for.
void releaseMemory(void* block, std::size_t size) noexcept;

} // namespace tabulon
