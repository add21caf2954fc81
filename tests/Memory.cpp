// In place of the program's allocation functions: counts them and lets one of them fail.
#include "Memory.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Of the calling thread.
constinit thread_local std::size_t allocations = 0;
constinit thread_local std::size_t failingAllocation = 0; // 0: none

// Deletions are watched in all threads.
std::atomic<const std::set<void*>*> watchedObjects = nullptr;
std::array<void*, 64> deletedObjects;
std::atomic<std::size_t> deletedCount = 0;

void* Allocate(std::size_t size)
{
    ++allocations;
    return allocations == failingAllocation ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void Free(void* object)
{
    const std::set<void*>* watched = watchedObjects;
    if (watched && watched->contains(object))
        if (const std::size_t place = deletedCount++; place < deletedObjects.size())
            deletedObjects[place] = object;
    std::free(object);
}

} // namespace

void* operator new(std::size_t size)
{
    if (void* object = Allocate(size))
        return object;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return Allocate(size); }
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return Allocate(size); }
void operator delete(void* object) noexcept { Free(object); }
void operator delete(void* object, std::size_t /*size*/) noexcept { Free(object); }
void operator delete[](void* object) noexcept { Free(object); }
void operator delete[](void* object, std::size_t /*size*/) noexcept { Free(object); }

bool Memory::RunFailingAllocation(std::size_t number, const std::function<void()>& run)
{
    failingAllocation = allocations + number;
    run();
    const bool failed = allocations >= failingAllocation;
    failingAllocation = 0;
    return failed;
}

std::vector<void*> Memory::Deletions(const std::set<void*>& watched, const std::function<void()>& run)
{
    deletedCount = 0;
    watchedObjects = &watched;
    run();
    watchedObjects = nullptr;
    const std::size_t count = std::min(deletedCount.load(), deletedObjects.size());
    return std::vector<void*>(deletedObjects.data(), deletedObjects.data() + count);
}
