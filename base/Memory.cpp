// With mimalloc a block carries no header and sizes come in fine steps, which is a fifth of a loaded
// document. Sanitizer builds use the ordinary allocator, so that they see every block.
#include "base/Memory.h"

#include <cstdint>
#include <new>

#if defined(TABULON_HAS_MIMALLOC)
#include <mimalloc.h>
#endif
#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

namespace tabulon {

#if defined(TABULON_HAS_MIMALLOC)

namespace {

constexpr std::size_t kLargeBlock = std::size_t{4} << 20;

// Asks for large pages under a block of megabytes, such as the bytes of a whole file: getting those page by
// page takes longer than filling them.
void adviseLargePages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size) {
#if defined(MADV_HUGEPAGE)
    constexpr std::uintptr_t kLargePage = std::uintptr_t{1} << 21;
    const std::size_t skipped = -reinterpret_cast<std::uintptr_t>(block) & (kLargePage - 1);
    const std::size_t whole = size < skipped ? 0 : (size - skipped) & ~(kLargePage - 1);
    if (whole > 0)
        madvise(static_cast<char*>(block) + skipped, whole, MADV_HUGEPAGE);
#endif
}

void* allocateBlock(std::size_t size) {
    // mi_new would end the process: its library cannot throw.
    void* block = mi_malloc(size);
    if (!block) [[unlikely]]
        throw std::bad_alloc();
    return block;
}

[[gnu::noinline]] void* allocateLargeBlock(std::size_t size) {
    void* block = allocateBlock(size);
    adviseLargePages(block, size);
    return block;
}

} // namespace

void* allocateMemory(std::size_t size) {
    return size < kLargeBlock ? allocateBlock(size) : allocateLargeBlock(size);
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
