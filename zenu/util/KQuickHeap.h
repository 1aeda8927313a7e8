#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

/// A heap for very many small objects of a single thread.
///
/// Sizes up to 255 are rounded up and sorted into pools, which hand out slots of one size from
/// blocks of 1000; a block goes back as soon as its last slot is free. Larger sizes go straight to
/// the private heap below. What was not freed goes with the heap; no destructors run.
///
/// The granularity is the step to which sizes are rounded and also the size of the header in front
/// of every allocation, so every pointer is a multiple of it: of 8 by default, of 16 with 16.
/// Others keep the largest power of two in them, 16 at most. A granularity of 1 gives pointers of
/// no alignment at all: they hold bytes, not objects.
///
/// A small allocation costs its rounded size, the header, and 2 bytes (with a granularity of 1 up
/// to 5); a large one its size, the header, and 32 bytes beside what malloc adds. Alloc and Free
/// take constant time. Nothing is locked and nothing throws. Under AddressSanitizer headers and
/// what is free are poisoned.
class ZENU_EXPORT KQuickHeap
{
public:
    /// A granularity of 0 means 8 and -1 means 1; other negative numbers mean 8, too. Any other
    /// value is taken as it is.
    explicit KQuickHeap(int granularity = 0);
    KQuickHeap(KQuickHeap const &) = delete;
    KQuickHeap & operator=(KQuickHeap const &) = delete;
    /// Releases everything at once.
    ~KQuickHeap();

    /// `size` bytes, not cleared; the caller gives them to Free or leaves them to the destructor.
    /// Null for a size of 0 or less and when there is no memory.
    void * Alloc(int size);
    /// Takes back what Alloc of this heap gave. Null is ignored. Anything else, and the same
    /// pointer twice, is undefined.
    void Free(void * pointer);
    /// The size that was asked for. 0 for null. The pointer came from Alloc of this heap.
    int BlockSize(void * pointer);

private:
    struct PrivateData;

    PrivateData * m_data; // null when there was no memory for it
};

} // namespace zenu
