#include "allocationcounter.h"

#include <atomic>
#include <cstddef>

// Every heap block of the process is counted by replacing the C allocator's entry points. The
// sanitizers bring allocators of their own; there nothing is counted.
#if !defined(__SANITIZE_ADDRESS__)
namespace {
std::atomic<long> gAllocations {0};
} // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size)
{
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size)
{
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}
}

long allocationCount()
{
    return gAllocations.load(std::memory_order_relaxed);
}
#else
long allocationCount()
{
    return -1;
}
#endif
