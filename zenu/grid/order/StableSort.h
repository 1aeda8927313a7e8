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
// A merge sort from short runs that are sorted by insertion. It merges to and fro between the
// elements and as much room again. When memory is short it takes less and merges in place, at last
// with no room at all, in O(n log^2 n) steps. Elements in order already cost a comparison each.
namespace StableSort {

constexpr std::size_t runLength = 16;

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

// The smaller of the two stands before; of two that are level, the left one. The choice is
// arithmetic: in a sort nobody can predict a branch on it.
template <typename Element, typename Less>
void takeFirst(Element const *& left, Element const *& right, Element *& out, Less & less)
{
    bool const takeRight = less(*right, *left);
    Element const * const taken = takeRight ? right : left;
    *out++ = *taken;
    right += takeRight;
    left += !takeRight;
}

// Given the ends of both parts and of the room.
template <typename Element, typename Less>
void takeLast(Element const *& leftEnd, Element const *& rightEnd, Element *& outEnd, Less & less)
{
    bool const takeLeft = less(rightEnd[-1], leftEnd[-1]);
    Element const * const taken = takeLeft ? leftEnd - 1 : rightEnd - 1;
    *--outEnd = *taken;
    leftEnd -= takeLeft;
    rightEnd -= !takeLeft;
}

template <typename Element, typename Less>
void mergeRest(Element const * left, Element const * leftEnd, Element const * right,
               Element const * rightEnd, Element * out, Less & less)
{
    while (left < leftEnd && right < rightEnd) {
        takeFirst(left, right, out, less);
    }
    auto const leftCount = static_cast<std::size_t>(leftEnd - left);
    copyElements(out, left, leftCount);
    copyElements(out + leftCount, right, static_cast<std::size_t>(rightEnd - right));
}

// Merges two neighbouring parts into other room, from both ends at once, since the processor works
// on two independent chains side by side. Neither end can run out of a part before it has taken as
// many elements as the shorter part has. When the ends don't meet, `less` has contradicted itself,
// and the parts, which are all still there, are merged from one end alone.
template <typename Element, typename Less>
void mergeInto(Element const * first, std::size_t leftCount, std::size_t rightCount, Element * room,
               Less & less)
{
    Element const * left = first;
    Element const * right = first + leftCount;
    Element const * leftEnd = right;
    Element const * rightEnd = right + rightCount;
    Element * out = room;
    Element * outEnd = room + leftCount + rightCount;
    for (std::size_t i = std::min(leftCount, rightCount); i != 0; --i) {
        takeFirst(left, right, out, less);
        takeLast(leftEnd, rightEnd, outEnd, less);
    }
    if (left <= leftEnd && right <= rightEnd) {
        mergeRest(left, leftEnd, right, rightEnd, out, less);
    } else {
        Element const * const middle = first + leftCount;
        mergeRest(first, middle, middle, middle + rightCount, room, less);
    }
}

// Sorts the elements, which end up in the room if `intoRoom`, else where they are.
template <typename Element, typename Less>
void sortToAndFro(Element * elements, Element * room, std::size_t count, bool intoRoom, Less & less)
{
    if (count <= runLength) {
        sortRun(elements, elements + count, less);
        if (intoRoom) {
            copyElements(room, elements, count);
        }
        return;
    }
    std::size_t const half = count / 2;
    sortToAndFro(elements, room, half, !intoRoom, less);
    sortToAndFro(elements + half, room + half, count - half, !intoRoom, less);
    if (intoRoom) {
        mergeInto(elements, half, count - half, room, less);
    } else {
        mergeInto(room, half, count - half, elements, less);
    }
}

// Merges the left part, which moves to the buffer, and the right part where it is.
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
        takeFirst(left, right, out, less);
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
        takeLast(left, right, out, less);
    }
    auto const rest = static_cast<std::size_t>(right - buffer);
    copyElements(out - rest, buffer, rest);
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

template <typename Element, typename Less>
void sortInPlace(Element * elements, std::size_t count, Buffer<Element> const & buffer, Less & less)
{
    if (count <= runLength) {
        sortRun(elements, elements + count, less);
        return;
    }
    std::size_t const half = count / 2;
    sortInPlace(elements, half, buffer, less);
    sortInPlace(elements + half, count - half, buffer, less);
    merge(elements, elements + half, elements + count, buffer, less);
}

template <typename Element, typename Less>
bool isInOrder(Element const * elements, std::size_t count, Less & less)
{
    for (std::size_t i = 1; i < count; ++i) {
        if (less(elements[i], elements[i - 1])) {
            return false;
        }
    }
    return true;
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
    if (isInOrder(elements, count, less)) {
        return;
    }
    Buffer<Element> const buffer(count > runLength ? std::min(count, bufferLimit) : 0);
    if (buffer.capacity() >= count) {
        sortToAndFro(elements, buffer.data(), count, false, less);
    } else {
        sortInPlace(elements, count, buffer, less);
    }
}

} // namespace zenu
