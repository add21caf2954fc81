// Stands in for malloc and its kin, and counts what they give out.
#include "Memory.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <malloc.h>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

bool watching = false;
HeapUse use;

void* Taken(void* block)
{
    if (watching && block)
    {
        ++use.allocations;
        use.live += static_cast<long>(malloc_usable_size(block));
        use.peak = std::max(use.peak, use.live);
    }
    return block;
}

void Given(void* block)
{
    if (watching && block)
        use.live -= static_cast<long>(malloc_usable_size(block));
}

} // namespace

extern "C" {
void* malloc(std::size_t size) noexcept { return Taken(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) noexcept { return Taken(__libc_calloc(count, size)); }
void* realloc(void* block, std::size_t size) noexcept
{
    Given(block);
    return Taken(__libc_realloc(block, size));
}
void* memalign(std::size_t alignment, std::size_t size) noexcept { return Taken(__libc_memalign(alignment, size)); }
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept { return memalign(alignment, size); }
int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}
void free(void* block) noexcept
{
    Given(block);
    __libc_free(block);
}
}

HeapWatch::HeapWatch()
{
    use = HeapUse();
    watching = true;
}

HeapWatch::~HeapWatch() { watching = false; }

HeapUse HeapWatch::Use() { return use; }
