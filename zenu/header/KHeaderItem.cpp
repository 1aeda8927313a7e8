#include "zenu/header/KHeaderItem.h"

#include <algorithm>
#include <new>
#include <type_traits>
#include <utility>

namespace zenu {

static_assert(std::is_nothrow_move_constructible_v<KHeaderItem> &&
                  std::is_nothrow_move_assignable_v<KHeaderItem>,
              "an insertion that has room cannot fail half way");

namespace {

/// Its text is fixed, whatever the standard library says for its own.
class ItemLimitReached : public std::bad_alloc
{
public:
    char const * what() const noexcept override { return "bad allocation"; }
};

template <typename T>
void growFor(std::vector<T> & list)
{
    if (list.size() == list.capacity()) {
        list.reserve(std::max<std::size_t>(8, list.size() * 2));
    }
}

} // namespace

KHeaderItem::KHeaderItem()
    : m_text("Empty")
{
}

KHeaderItem::KHeaderItem(char const * text, QPixmap * pixmap, int fmt, int minWH, int wh,
                         int lParam)
    : m_wh(wh)
    , m_minWH(minWH)
    , m_pixmap(pixmap)
    , m_fmt(fmt)
    , m_lParam(static_cast<unsigned int>(lParam))
    , m_text(text ? text : "")
{
}

KHeaderItemVec::KHeaderItemVec(KHeader * header, std::size_t limit)
    : m_header(header)
    , m_limit(limit)
{
}

int KHeaderItemVec::itemAt(int position) const
{
    return contains(position) ? m_order[std::size_t(position)] : -1;
}

long long KHeaderItemVec::lengthBefore(int position) const
{
    if (m_lengths.empty()) {
        m_lengths.reserve(m_order.size() + 1);
        long long sum = 0;
        for (int const index : m_order) {
            m_lengths.push_back(sum);
            sum += m_items[std::size_t(index)].m_wh;
        }
        m_lengths.push_back(sum);
    }
    return m_lengths[std::size_t(std::clamp(position, 0, count()))];
}

void KHeaderItemVec::insert(int index, KHeaderItem const & item)
{
    if (m_items.size() >= m_limit) {
        throw ItemLimitReached();
    }
    KHeaderItem copy(item);
    growFor(m_items);
    growFor(m_order);
    int const at = index < 0 || index > count() ? count() : index;
    m_items.insert(m_items.begin() + at, std::move(copy));
    for (int & shown : m_order) {
        shown += shown >= at ? 1 : 0;
    }
    m_order.insert(m_order.begin() + at, at);
    numberItems();
}

bool KHeaderItemVec::remove(int index)
{
    if (!contains(index)) {
        return false;
    }
    m_items.erase(m_items.begin() + index);
    std::erase(m_order, index);
    for (int & shown : m_order) {
        shown -= shown > index ? 1 : 0;
    }
    numberItems();
    return true;
}

void KHeaderItemVec::clear()
{
    m_items.clear();
    m_order.clear();
    m_lengths.clear();
}

void KHeaderItemVec::setWH(int index, int wh)
{
    m_items[std::size_t(index)].m_wh = wh;
    m_lengths.clear();
}

void KHeaderItemVec::numberItems()
{
    for (int position = 0; position < count(); ++position) {
        m_items[std::size_t(m_order[std::size_t(position)])].m_order = position;
    }
    m_lengths.clear();
}

} // namespace zenu
