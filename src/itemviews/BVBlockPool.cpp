// SPDX-License-Identifier: MIT
#include "itemviews/BVBlockPool_p.h"

#include <cstdint>
#include <new>

namespace {

constexpr size_t s_alignment = 16384;           // of slabs, so that a block tells its slab
constexpr size_t s_slabSize = s_alignment - 16; // leaves the allocator room for its own words
constexpr size_t s_firstBlock = 64;             // behind the slab's own fields

#if defined(__SANITIZE_ADDRESS__)
constexpr bool s_isPooled = false;
#elif defined(__has_feature)
constexpr bool s_isPooled = !__has_feature(address_sanitizer);
#else
constexpr bool s_isPooled = true;
#endif

} // namespace

struct BVBlockPool::Slab
{
    Slab *next;
    Slab *previous;
    void **freed; // blocks that were given back, each of which points to the next one
    char *fresh;  // what was never taken
    size_t used;  // blocks
    bool isOpen;

    char *blocks() { return reinterpret_cast<char *>(this) + s_firstBlock; }
    char *end() { return reinterpret_cast<char *>(this) + s_slabSize; }
};

static_assert(sizeof(void *) * 6 <= s_firstBlock, "a slab has six fields");

BVBlockPool::Slab *BVBlockPool::slabOf(void *block)
{
    const uintptr_t offset = reinterpret_cast<uintptr_t>(block) & (s_alignment - 1);
    return reinterpret_cast<Slab *>(static_cast<char *>(block) - offset);
}

void BVBlockPool::open(Slab *slab)
{
    slab->previous = nullptr;
    slab->next = m_open;
    if (m_open)
        m_open->previous = slab;
    m_open = slab;
    slab->isOpen = true;
}

void BVBlockPool::close(Slab *slab)
{
    slab->isOpen = false;
    (slab->previous ? slab->previous->next : m_open) = slab->next;
    if (slab->next)
        slab->next->previous = slab->previous;
}

/// Null if the slab is full.
void *BVBlockPool::cut(Slab *slab) const
{
    if (void **block = slab->freed) {
        slab->freed = static_cast<void **>(*block);
        return block;
    }
    if (slab->fresh + m_blockSize > slab->end())
        return nullptr;
    void *block = slab->fresh;
    slab->fresh += m_blockSize;
    return block;
}

void *BVBlockPool::take()
{
    if (!s_isPooled)
        return ::operator new(m_blockSize);
    while (m_open) {
        if (void *block = cut(m_open)) {
            ++m_open->used;
            return block;
        }
        close(m_open);
    }
    auto *slab = new (::operator new(s_slabSize, std::align_val_t(s_alignment))) Slab{};
    slab->fresh = slab->blocks();
    open(slab);
    slab->used = 1;
    return cut(slab);
}

void BVBlockPool::give(void *block)
{
    if (!s_isPooled) {
        ::operator delete(block);
        return;
    }
    Slab *slab = slabOf(block);
    *static_cast<void **>(block) = slab->freed;
    slab->freed = static_cast<void **>(block);
    --slab->used;
    if (!slab->isOpen)
        open(slab);
    // The last slab stays, or a block taken and given in turn would cost a slab each time.
    if (slab->used > 0 || (slab == m_open && !slab->next))
        return;
    close(slab);
    ::operator delete(slab, std::align_val_t(s_alignment));
}
