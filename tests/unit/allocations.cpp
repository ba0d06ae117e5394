#include "allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Every allocation has its size before it.
constexpr std::size_t headerSize = alignof(std::max_align_t);
std::atomic<std::size_t> allocatedBytes = 0, peakBytes = 0, allBytes = 0, count = 0;

void* AllocateCounted(std::size_t size) {
    void* const block = std::malloc(size + headerSize);
    if (!block) throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    ++count;
    allBytes += size;
    const std::size_t now = allocatedBytes += size;
    if (now > peakBytes) peakBytes = now;
    return static_cast<char*>(block) + headerSize;
}

void FreeCounted(void* pointer) {
    if (!pointer) return;
    void* const block = static_cast<char*>(pointer) - headerSize;
    allocatedBytes -= *static_cast<std::size_t*>(block);
    std::free(block);
}

void* AllocateOrNull(std::size_t size) noexcept {
    try {
        return AllocateCounted(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

void* operator new(std::size_t size) {
    return AllocateCounted(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return AllocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return AllocateOrNull(size);
}
void* operator new[](std::size_t size) {
    return AllocateCounted(size);
}
void operator delete(void* pointer) noexcept {
    FreeCounted(pointer);
}
void operator delete[](void* pointer) noexcept {
    FreeCounted(pointer);
}
void operator delete(void* pointer, std::size_t) noexcept {
    FreeCounted(pointer);
}
void operator delete[](void* pointer, std::size_t) noexcept {
    FreeCounted(pointer);
}

AllocationCounter::AllocationCounter() : before_{allocatedBytes, allBytes, count} {
    peakBytes = allocatedBytes.load();
}

AllocationCounts AllocationCounter::Counts() const {
    return {peakBytes - before_.peakBytes, allBytes - before_.allBytes, count - before_.count};
}
