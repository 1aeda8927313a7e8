#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

namespace zenu {

// A stable sort that bears any answers of `less`, contradictory ones too: it then leaves some
// order of the same elements, and never reads or writes outside of them. The standard library's
// sorts promise neither.
//
// A merge sort from short runs that are sorted by insertion. It asks for room for half of the
// elements, takes less when memory is short, and does without when there is none; then it needs
// O(n log^2 n) steps. Elements in order already cost hardly more than a comparison each.
namespace StableSort {

constexpr std::size_t runLength = 8;

// Raw room for elements that are copied as bytes.
template <typename Element>
class Buffer
{
public:
    // Halves the demand until it is met.
    explicit Buffer(std::size_t wanted)
    {
        for (; wanted != 0; wanted /= 2) {
            memory.reset(::operator new(wanted * sizeof(Element), std::nothrow));
            if (memory) {
                room = wanted;
                return;
            }
        }
    }

    std::size_t capacity() const { return room; }
    Element * data() const { return static_cast<Element *>(memory.get()); }

private:
    struct Release
    {
        void operator()(void * block) const { ::operator delete(block); }
    };

    std::unique_ptr<void, Release> memory;
    std::size_t room = 0;
};

template <typename Element>
void copyElements(Element * to, Element const * from, std::size_t count)
{
    std::memcpy(static_cast<void *>(to), from, count * sizeof(Element));
}

template <typename Element, typename Less>
void sortRun(Element * first, Element * last, Less & less)
{
    for (Element * next = first + 1; next < last; ++next) {
        if (!less(*next, next[-1])) {
            continue;
        }
        Element const moving = *next;
        Element * hole = next;
        do {
            *hole = hole[-1];
            --hole;
        } while (hole != first && less(moving, hole[-1]));
        *hole = moving;
    }
}

// Merges the left part, which moves to the buffer, and the right part where it is. The choice
// between the two is arithmetic: in a sort nobody can predict a branch on it.
template <typename Element, typename Less>
void mergeForward(Element * first, Element * middle, Element * last, Element * buffer, Less & less)
{
    auto const leftCount = static_cast<std::size_t>(middle - first);
    copyElements(buffer, first, leftCount);
    Element const * left = buffer;
    Element const * const leftEnd = buffer + leftCount;
    Element const * right = middle;
    Element * out = first;
    while (left != leftEnd && right != last) {
        bool const takeRight = less(*right, *left);
        Element const * const taken = takeRight ? right : left;
        *out++ = *taken;
        right += takeRight;
        left += !takeRight;
    }
    copyElements(out, left, static_cast<std::size_t>(leftEnd - left));
}

// The same from the end, with the right part in the buffer.
template <typename Element, typename Less>
void mergeBackward(Element * first, Element * middle, Element * last, Element * buffer, Less & less)
{
    auto const rightCount = static_cast<std::size_t>(last - middle);
    copyElements(buffer, middle, rightCount);
    Element const * left = middle;
    Element const * right = buffer + rightCount;
    Element * out = last;
    while (left != first && right != buffer) {
        bool const takeLeft = less(right[-1], left[-1]);
        Element const * const taken = takeLeft ? left - 1 : right - 1;
        *--out = *taken;
        left -= takeLeft;
        right -= !takeLeft;
    }
    copyElements(out - (right - buffer), buffer, static_cast<std::size_t>(right - buffer));
}

// The first element of a sorted range that `value` stands before, or, with `orEqual`, is level
// with.
template <typename Element, typename Less>
Element * boundOf(Element * first, Element * last, Element const & value, bool orEqual, Less & less)
{
    while (first != last) {
        Element * const middle = first + (last - first) / 2;
        bool const goesOn = orEqual ? less(*middle, value) : !less(value, *middle);
        (goesOn ? first : last) = goesOn ? middle + 1 : middle;
    }
    return first;
}

// Parts that don't fit into the buffer are cut in two and swapped until they do. Each cut halves
// the longer part, so the depth is logarithmic whatever `less` answers.
template <typename Element, typename Less>
void merge(Element * first, Element * middle, Element * last, Buffer<Element> const & buffer,
           Less & less)
{
    while (first != middle && middle != last && less(*middle, middle[-1])) {
        auto const leftCount = static_cast<std::size_t>(middle - first);
        auto const rightCount = static_cast<std::size_t>(last - middle);
        if (leftCount <= buffer.capacity()) {
            mergeForward(first, middle, last, buffer.data(), less);
            return;
        }
        if (rightCount <= buffer.capacity()) {
            mergeBackward(first, middle, last, buffer.data(), less);
            return;
        }
        if (leftCount == 1 && rightCount == 1) {
            std::swap(*first, *middle);
            return;
        }
        Element * leftCut = first + leftCount / 2;
        Element * rightCut = middle + rightCount / 2;
        if (leftCount >= rightCount) {
            rightCut = boundOf(middle, last, *leftCut, true, less);
        } else {
            leftCut = boundOf(first, middle, *rightCut, false, less);
        }
        Element * const newMiddle = std::rotate(leftCut, middle, rightCut);
        merge(first, leftCut, newMiddle, buffer, less);
        first = newMiddle;
        middle = rightCut;
    }
}

} // namespace StableSort

// Sorts `count` elements. `less(a, b)` says whether a stands before b. `bufferLimit` caps the extra
// memory, in elements.
template <typename Element, typename Less>
void stableSort(Element * elements, std::size_t count, Less less,
                std::size_t bufferLimit = static_cast<std::size_t>(-1))
{
    static_assert(std::is_trivially_copyable_v<Element>);
    using namespace StableSort;
    for (std::size_t at = 0; at < count; at += runLength) {
        sortRun(elements + at, elements + std::min(at + runLength, count), less);
    }
    if (count <= runLength) {
        return;
    }
    Buffer<Element> const buffer(std::min((count + 1) / 2, bufferLimit));
    for (std::size_t length = runLength; length < count; length *= 2) {
        for (std::size_t at = 0; at + length < count; at += 2 * length) {
            merge(elements + at, elements + at + length,
                  elements + std::min(at + 2 * length, count), buffer, less);
        }
    }
}

} // namespace zenu
