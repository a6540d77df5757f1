// With mimalloc a block carries no header and sizes come in fine steps, which is a fifth of a loaded
// document. Sanitizer builds use the ordinary allocator, so that they see every block.
#include "model/Memory.h"

#include <new>

#if defined(TABULON_HAS_MIMALLOC)
#include <mimalloc.h>
#endif

namespace tabulon {

#if defined(TABULON_HAS_MIMALLOC)

void* allocateMemory(std::size_t size) {
    // mi_new would end the process: its library cannot throw.
    void* block = mi_malloc(size);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void releaseMemory(void* block, std::size_t size) noexcept {
    mi_free_size(block, size);
}

#else

void* allocateMemory(std::size_t size) {
    return ::operator new(size);
}

void releaseMemory(void* block, std::size_t /*size*/) noexcept {
    ::operator delete(block);
}

#endif

} // namespace tabulon

#if defined(TABULON_HAS_MIMALLOC)

// mimalloc brings operators of its own, which end the process when memory runs out. These throw.
void* operator new(std::size_t size) {
    return tabulon::allocateMemory(size);
}

void* operator new[](std::size_t size) {
    return tabulon::allocateMemory(size);
}

void operator delete(void* block) noexcept {
    mi_free(block);
}

void operator delete[](void* block) noexcept {
    mi_free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    mi_free(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    mi_free(block);
}

#endif
