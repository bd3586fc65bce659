// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Memory for many small blocks of one size, such as the rows of a tree.
///
/// Blocks are cut from slabs, which cost less than an allocation each, keep neighbours together and
/// go back as a whole once their last block is free. Pools are made to live as long as the process
/// and are used in the GUI thread only. With the address sanitizer each block is an allocation, so
/// that it can be watched.
class BVBlockPool
{
public:
    explicit constexpr BVBlockPool(size_t blockSize)
        : m_blockSize(blockSize)
    {
    }
    void *take();
    void give(void *block);

private:
    struct Slab;

    static Slab *slabOf(void *block);
    void open(Slab *slab);
    void close(Slab *slab);
    void *cut(Slab *slab) const;

    size_t m_blockSize;
    Slab *m_open = nullptr; // the slabs that have room
};
