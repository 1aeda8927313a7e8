#include "zenu/util/inner/heap/HeapArena.h"

#include <cstdlib>
#include <new>

namespace zenu {

HeapArena::HeapArena(std::size_t limit)
    : m_chain{&m_chain, &m_chain, 0}
    , m_limit(limit)
{
}

HeapArena::~HeapArena()
{
    for (Link * link = m_chain.next; link != &m_chain;) {
        Link * const next = link->next;
        std::free(link);
        link = next;
    }
}

void * HeapArena::allocate(std::size_t size)
{
    return refuses(size) ? nullptr : chain(std::malloc(sizeof(Link) + size), size);
}

void * HeapArena::allocateZeroed(std::size_t size)
{
    return refuses(size) ? nullptr : chain(std::calloc(1, sizeof(Link) + size), size);
}

void HeapArena::release(void * block)
{
    Link * const link = static_cast<Link *>(block) - 1;
    link->previous->next = link->next;
    link->next->previous = link->previous;
    m_bytes -= link->size;
    std::free(link);
}

std::size_t HeapArena::sizeOf(void const * block)
{
    return (static_cast<Link const *>(block) - 1)->size;
}

bool HeapArena::refuses(std::size_t size) const
{
    return size > m_limit - m_bytes || size > PTRDIFF_MAX - sizeof(Link);
}

void * HeapArena::chain(void * memory, std::size_t size)
{
    if (!memory) {
        return nullptr;
    }
    auto * const link = new (memory) Link{&m_chain, m_chain.next, size};
    link->next->previous = link;
    m_chain.next = link;
    m_bytes += size;
    return link + 1;
}

} // namespace zenu
