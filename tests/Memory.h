// The test program's own allocation: watches what is deleted, and lets an allocation fail.
#ifndef TESTS_Memory_H
#define TESTS_Memory_H

#include <cstddef>
#include <functional>
#include <set>
#include <vector>

namespace Memory {

// Runs the function with the n-th call of operator new in this thread, counted from 1, failing. Tells whether it came
// to that.
bool RunFailingAllocation(std::size_t number, const std::function<void()>& run);

// Whether operators new and delete of the test program are those of the library too.
#ifdef _WIN32
constexpr bool isOfLibrary = false;
#else
constexpr bool isOfLibrary = true;
#endif

// The objects of the set that are deleted while the function runs, by whatever thread, in that order.
std::vector<void*> Deletions(const std::set<void*>& watched, const std::function<void()>& run);

} // namespace Memory

#endif
