#pragma once

#include "Results.h"

#include <cstdint>
#include <random>
#include <vector>

namespace bench {

// Sizes and places are drawn beforehand, so that only the allocator and one store to each object
// are measured. `Heap` has alloc(int) and free(void *).

constexpr int live = 1'000'000;

struct Draws
{
    explicit Draws(unsigned seed)
    {
        std::mt19937 random(seed);
        std::uniform_int_distribution<int> size(8, 255);
        std::uniform_int_distribution<std::uint32_t> place(0, live - 1);
        sizes.resize(2 * live);
        places.resize(2 * live);
        for (int i = 0; i < 2 * live; ++i) {
            sizes[static_cast<std::size_t>(i)] = static_cast<unsigned char>(size(random));
            places[static_cast<std::size_t>(i)] = place(random);
        }
    }

    std::vector<unsigned char> sizes;
    std::vector<std::uint32_t> places;
};

// What a program does with an object at the very least: its first 8 bytes are written.
template <typename Heap>
void * make(Heap & heap, int size)
{
    void * const object = heap.alloc(size);
    *static_cast<std::uint64_t volatile *>(object) = 1;
    return object;
}

// Seconds an operation. A million objects are stacked up; a thousand times up to 10 000 of them are
// dropped from the top and made anew; then all are dropped from the top.
template <typename Heap>
double runStack(Heap & heap, Draws const & draws, std::vector<void *> & objects)
{
    double const start = now();
    std::size_t top = 0;
    std::size_t operations = 0;
    auto const raiseTo = [&](std::size_t height) {
        operations += height - top;
        for (; top < height; ++top) {
            objects[top] = make(heap, draws.sizes[top]);
        }
    };
    auto const dropTo = [&](std::size_t height) {
        operations += top - height;
        while (top > height) {
            heap.free(objects[--top]);
        }
    };
    raiseTo(live);
    for (std::size_t i = 0; i < 1000; ++i) {
        dropTo(live - draws.places[i] / (live / 10'000));
        raiseTo(live);
    }
    dropTo(0);
    return (now() - start) / static_cast<double>(operations);
}

// A million objects stand in line; three million times the oldest is dropped and one is added; then
// all are dropped, the oldest first.
template <typename Heap>
double runQueue(Heap & heap, Draws const & draws, std::vector<void *> & objects)
{
    constexpr std::size_t turns = 3 * live;
    double const start = now();
    for (std::size_t i = 0; i < live; ++i) {
        objects[i] = make(heap, draws.sizes[i]);
    }
    std::size_t oldest = 0;
    for (std::size_t i = 0; i < turns; ++i) {
        heap.free(objects[oldest]);
        objects[oldest] = make(heap, draws.sizes[i % draws.sizes.size()]);
        oldest = oldest + 1 == live ? 0 : oldest + 1;
    }
    for (std::size_t i = 0; i < live; ++i) {
        heap.free(objects[oldest]);
        oldest = oldest + 1 == live ? 0 : oldest + 1;
    }
    return (now() - start) / (2.0 * (live + turns));
}

// A million objects; two million times one of them, drawn at random, is replaced by one of another
// size; then all are dropped in the order in which they stand.
template <typename Heap>
double runRandom(Heap & heap, Draws const & draws, std::vector<void *> & objects)
{
    constexpr std::size_t turns = 2 * live;
    double const start = now();
    for (std::size_t i = 0; i < live; ++i) {
        objects[i] = make(heap, draws.sizes[i]);
    }
    for (std::size_t i = 0; i < turns; ++i) {
        std::size_t const place = draws.places[i];
        heap.free(objects[place]);
        objects[place] = make(heap, draws.sizes[i]);
    }
    for (std::size_t i = 0; i < live; ++i) {
        heap.free(objects[i]);
    }
    return (now() - start) / (2.0 * (live + turns));
}

} // namespace bench
