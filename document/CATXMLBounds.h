// What a document may be at most.
#ifndef CATXMLBounds_H
#define CATXMLBounds_H

#include <cstddef>

// Bounds of a document. Past any of them it fails with a FatalError.
struct CATXMLBounds
{
    static constexpr std::size_t documentBytes = std::size_t{128} << 20U; // of a document and its external files
    static constexpr int elementDepth = 10000;
    static constexpr int entityDepth = 64;         // entities that refer to entities
    static constexpr int declaredAttributes = 256; // of one element; a declaration that is repeated counts again
    static constexpr int externalFiles = 32;
    static constexpr int externalDepth = 8; // external files that name external files
    // A document may grow to this much by expanding entities and attribute defaults, and past that to this many times
    // the size of its files.
    static constexpr std::size_t expandedBytes = std::size_t{8} << 20U;
    static constexpr std::size_t expandedFactor = 100;
    static constexpr std::size_t expandedBytesAtMost = std::size_t{2} << 30U;
};

#endif
