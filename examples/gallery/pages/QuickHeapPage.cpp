#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/util/KQuickHeap.h>

#include <cstdint>
#include <vector>

namespace gallery {

namespace {

// [code]
void fill(ValueGrid & values)
{
    zenu::KQuickHeap heap(16);
    std::vector<void *> objects;
    for (int i = 0; i < 10'000; ++i) {
        objects.push_back(heap.Alloc(24));
    }
    values.add(SHOW(heap.BlockSize(objects.front())));
    values.add(SHOW(reinterpret_cast<std::uintptr_t>(objects.back()) % 16));
    heap.Free(objects.back());
    values.add(SHOW(heap.Alloc(24) == objects.back()));
    values.add(SHOW(heap.BlockSize(heap.Alloc(5000))));
    values.add(SHOW(heap.Alloc(0) == nullptr));
    // What was not freed goes with the heap.
}
// [code]

QWidget * makeValues()
{
    auto * const values = new ValueGrid;
    fill(*values);
    return values;
}

} // namespace

Page quickHeapPage()
{
    return {"QuickHeap",
            "A heap for very many small objects, here with an alignment of 16.",
            {"KQuickHeap"},
            makeValues};
}

} // namespace gallery
