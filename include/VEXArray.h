// Growable array of definition records.
//
// Queries fill one that the caller owns. It grows in fixed steps and shrinks when many slots are free; indices count
// from 0 and are never checked. A failed allocation is reported on std::cerr and ends the process.
#ifndef VEXArray_H
#define VEXArray_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <memory>
#include <new>
#include <utility>

// Every operation is virtual: callers reach them by their place in the table, and a derived array may replace any.
// The comments number the places.
template <class T> class VEXArray
{
public:
    VEXArray() = default;
    VEXArray(const VEXArray& array)
        : m_InitialSize(array.m_InitialSize),
          m_GrowIncrement(array.m_GrowIncrement),
          m_ShrinkThreshold(array.m_ShrinkThreshold)
    {
        if (array.m_AllocatedSize > 0)
            copyFrom(array, array.m_AllocatedSize, "in VEXArray<T>::VEXArray( const VEXArray<T>& array )");
    }
    // An array with other sizes than the usual: the smallest storage that "reset" and a shrink keep, the slots added
    // when an add finds the storage full, and the number of free slots above which a removal shrinks the storage.
    explicit VEXArray(int initialSize, int growIncrement = 20, int shrinkThreshold = 100)
        : m_InitialSize(initialSize), m_GrowIncrement(growIncrement), m_ShrinkThreshold(shrinkThreshold)
    {
    }

    // 1
    virtual ~VEXArray() { delete[] m_Data; }

    // 2: the target keeps its own initial size, increment and threshold.
    // NOLINTNEXTLINE(misc-unconventional-assign-operator): virtual like all others
    virtual VEXArray& operator=(const VEXArray& array)
    {
        if (this == &array)
            return *this;
        release();
        if (array.m_Size > 0 || m_InitialSize >= 1)
            copyFrom(array, std::max(array.m_Size, m_InitialSize), "in VEXArray<T>::operator=");
        return *this;
    }

    // 3: setSize(n), with "fill" in each new slot. Returns the size.
    virtual int setSize(int n, const T& fill)
    {
        T filling; // first: it may lie in storage that is replaced
        filling = fill;
        const int oldSize = m_Size;
        setSize(n);
        for (int index = oldSize; index < m_Size; ++index)
            m_Data[index] = filling;
        return m_Size;
    }

    // 4: sets the number of elements; the storage grows when needed and never shrinks. Returns the size.
    virtual int setSize(int n)
    {
        if (n <= 0)
            m_Size = 0;
        else
            m_Size = n <= m_AllocatedSize ? n : setAllocatedSize(n);
        return m_Size;
    }

    // 5: adds to the number of elements, or takes from it; the storage grows by whole increments. Returns the size.
    virtual int changeSize(int delta)
    {
        const long long newSize = static_cast<long long>(m_Size) + delta;
        if (newSize > m_AllocatedSize)
        {
            const long long increment = growIncrement();
            const long long increments = (newSize - m_AllocatedSize + increment - 1) / increment;
            const long long slots = m_AllocatedSize + increments * increment;
            if (slots > std::numeric_limits<int>::max())
                reportFailure(slots, "in int VEXArray<T>::changeSize");
            setAllocatedSize(static_cast<int>(slots));
        }
        return m_Size = static_cast<int>(std::max(newSize, 0LL));
    }

    // 6, 7: the element at index.
    virtual const T& at(int index) const { return m_Data[index]; }
    virtual T& at(int index) { return m_Data[index]; }

    // 8: assigns the element at index. Returns 0.
    virtual int set(int index, const T& element)
    {
        m_Data[index] = element;
        return 0;
    }

    // 9: appends every element of the other array. Returns the new size - 1, or -1 when an add fails.
    virtual long add(const VEXArray& array)
    {
        const int count = array.m_Size; // fixed, so that an array can be appended to itself
        for (int index = 0; index < count; ++index)
            if (add(array.m_Data[index], m_Size) < 0)
                return -1;
        return m_Size - 1;
    }

    // 10: appends the element. Returns its index.
    virtual long add(const T& element) { return add(element, m_Size); }

    // 11: inserts the element at position. Returns the position.
    virtual long add(const T& element, long position)
    {
        T added; // first: it may lie among those that move
        added = element;
        if (m_Size == m_AllocatedSize)
            reallocate(m_AllocatedSize + growIncrement(), "in long VEXArray<T>::add");
        std::move_backward(m_Data + position, m_Data + m_Size, m_Data + m_Size + 1);
        m_Data[position] = std::move(added);
        ++m_Size;
        return position;
    }

    // 12, 14: remove the last element. Return 0. The argument is not used.
    virtual long removeLast() { return removeAndShiftAll(m_Size - 1); }

    // 13: removes the element, keeping the order. Returns 0.
    virtual long removeAndShiftAll(long position)
    {
        if (m_Size == 0)
            return 0;
        std::copy(m_Data + position + 1, m_Data + m_Size, m_Data + position);
        --m_Size;
        shrink("in VEXArray<T>::removeAndShiftAll");
        return 0;
    }

    virtual long removeLast(long /*unused*/) { return removeAndShiftAll(m_Size - 1); }

    // 15: removes the element by moving the last one into its slot. Returns 0.
    virtual long removeAndCopyLast(long position)
    {
        if (m_Size == 0)
            return 0;
        m_Data[position] = m_Data[m_Size - 1];
        --m_Size;
        shrink("in VEXArray<T>::removeAndCopyLast");
        return 0;
    }

    // 16: empties the array. Returns the number of slots that are left, the initial size.
    virtual int reset()
    {
        release();
        if (m_InitialSize >= 1)
            replaceStorage(allocate(m_InitialSize, "in VEXArray<T>::reset"), m_InitialSize);
        return m_AllocatedSize;
    }

    // Sets the storage to n slots; elements beyond it are dropped. Returns the number of slots.
    int setAllocatedSize(int n)
    {
        reallocate(std::max(n, 0), "in VEXArray<T>::setAllocatedSize");
        return m_AllocatedSize;
    }

    int size() const { return m_Size; }
    int allocatedSize() const { return m_AllocatedSize; }
    const T& operator[](int index) const { return m_Data[index]; }
    T& operator[](int index) { return m_Data[index]; }
    const T* begin() const { return m_Data; }
    const T* end() const { return m_Data + m_Size; }

private:
    using Storage = std::unique_ptr<T[]>;

    // An array whose increment is no size grows by one slot.
    int growIncrement() const { return std::max(m_GrowIncrement, 1); }

    static Storage allocate(int slots, const char* context)
    {
        if (Storage storage{new (std::nothrow) T[static_cast<std::size_t>(slots)]})
            return storage;
        reportFailure(slots, context);
    }

    [[noreturn]] static void reportFailure(long long slots, const char* context)
    {
        std::cerr << std::endl
                  << "VEXArray - Error: "
                  << "Bad memory allocation."
                  << "   ";
        std::cerr << std::endl
                  << "Trying to allocate " << slots << " * " << sizeof(T) << " = "
                  << static_cast<std::size_t>(slots) * sizeof(T) << " Bytes   ";
        if (context)
            std::cerr << std::endl << "Info: " << context << "   " << std::endl;
        std::abort();
    }

    void replaceStorage(Storage storage, int slots)
    {
        delete[] std::exchange(m_Data, storage.release());
        m_AllocatedSize = slots;
    }

    void copyFrom(const VEXArray& array, int slots, const char* context)
    {
        Storage storage = allocate(slots, context);
        std::copy_n(array.m_Data, array.m_Size, storage.get());
        replaceStorage(std::move(storage), slots);
        m_Size = array.m_Size;
    }

    void release()
    {
        replaceStorage(nullptr, 0);
        m_Size = 0;
    }

    // Moves the elements into storage of that many slots, as far as they fit.
    void reallocate(int slots, const char* context)
    {
        Storage storage = slots > 0 ? allocate(slots, context) : nullptr;
        const int kept = std::min(m_Size, slots);
        std::move(m_Data, m_Data + kept, storage.get());
        replaceStorage(std::move(storage), slots);
        m_Size = kept;
    }

    void shrink(const char* context)
    {
        if (m_AllocatedSize - m_Size > m_ShrinkThreshold)
            reallocate(std::max(m_Size, m_InitialSize), context);
    }

    T* m_Data = nullptr;
    int m_Size = 0;
    int m_AllocatedSize = 0;
    int m_InitialSize = 0;
    int m_GrowIncrement = 20;
    int m_ShrinkThreshold = 100;
};

#endif
