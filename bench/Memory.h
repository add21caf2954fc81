// What the program takes from the heap. malloc and its kin, on which operator new stands, are replaced for the whole
// program, so this counts every library's blocks, by the sizes that they really occupy.
#ifndef BENCH_Memory_H
#define BENCH_Memory_H

struct HeapUse
{
    long allocations = 0;
    long live = 0; // bytes more than at the start
    long peak = 0;
};

// Counts from its construction until its end; one at a time.
class HeapWatch
{
public:
    HeapWatch();
    ~HeapWatch();
    HeapWatch(const HeapWatch&) = delete;
    HeapWatch& operator=(const HeapWatch&) = delete;

    static HeapUse Use();
};

#endif
