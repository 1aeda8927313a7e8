#include "zenu/command/CommandHandlers.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zenu {

namespace {

std::uint64_t countWords(unsigned int const * table)
{
    std::uint64_t count = 0;
    while (table[count] != 0) {
        ++count;
    }
    return count;
}

// Without columns the first word is zero, and any number of modes fills its rows.
bool fillsItsRows(unsigned int const * table)
{
    // In 64 bits, since one more than the largest number of columns would be none.
    std::uint64_t const rowWords = std::uint64_t{table[0]} + 1;
    return table[0] == 0 || countWords(table) % rowWords == 0;
}

} // namespace

void KMethodHandlerBase::alwaysEnable(unsigned int, ICommandUpdate * state)
{
    if (state) {
        state->setEnabled(true);
    }
}

void KMethodHandlerBase::doNothing(unsigned int) {}

// A call on the way shares the entries, so that a handler may delete the dispatcher.
struct KDispatchHandler::Entries
{
    std::map<unsigned int, std::vector<ICommandHandler *>> handlers;
    bool dispatcherIsAlive = true;
};

KDispatchHandler::KDispatchHandler()
    : m_entries(std::make_shared<Entries>())
{
}

template <typename Call>
bool KDispatchHandler::dispatch(unsigned int id, Call call)
{
    auto const found = m_entries->handlers.find(id);
    if (found == m_entries->handlers.end()) {
        return false;
    }
    std::shared_ptr<Entries> const entries = m_entries;
    std::vector<ICommandHandler *> const & handlers = found->second;
    bool const exclusive = m_exclusive;
    bool taken = false;
    // By index up to the present end, since the handlers may add to the list.
    std::size_t const count = handlers.size();
    for (std::size_t i = 0; i < count && entries->dispatcherIsAlive; ++i) {
        taken = call(*handlers[i]) || taken;
        if (taken && exclusive) {
            break;
        }
    }
    return taken;
}

bool KDispatchHandler::cmd(unsigned int id)
{
    return dispatch(id, [id](ICommandHandler & handler) { return handler.cmd(id); });
}

bool KDispatchHandler::update(unsigned int id, ICommandUpdate * state)
{
    return dispatch(id,
                    [id, state](ICommandHandler & handler) { return handler.update(id, state); });
}

KDispatchHandler::~KDispatchHandler()
{
    m_entries->dispatcherIsAlive = false;
}

void KDispatchHandler::addHandler(unsigned int id, ICommandHandler * handler)
{
    if (handler) {
        m_entries->handlers[id].push_back(handler);
    }
}

KTranslatingHandler::KTranslatingHandler(ICommandHandler * target)
    : m_target(target)
{
}

bool KTranslatingHandler::cmd(unsigned int id)
{
    unsigned int mapped = 0;
    return find(id, &mapped) && m_target && m_target->cmd(mapped);
}

bool KTranslatingHandler::update(unsigned int id, ICommandUpdate * state)
{
    unsigned int mapped = 0;
    return find(id, &mapped) && m_target && m_target->update(mapped, state);
}

KTranslatingHandler::~KTranslatingHandler() = default;

void KTranslatingHandler::addMapping(unsigned int from, unsigned int to)
{
    m_mappings[from] = to;
}

void KTranslatingHandler::addMappings(IDPair const * pairs)
{
    for (; pairs && pairs->from != 0 && pairs->to != 0; ++pairs) {
        addMapping(pairs->from, pairs->to);
    }
}

bool KTranslatingHandler::find(unsigned int id, unsigned int * result)
{
    auto const found = m_mappings.find(id);
    if (found == m_mappings.end()) {
        return false;
    }
    *result = found->second;
    return true;
}

KDemultiplexingHandler::KDemultiplexingHandler(ICommandHandler * target, unsigned int const * table)
    : m_target(target)
{
    if (table && fillsItsRows(table)) {
        readTable(table);
    }
}

bool KDemultiplexingHandler::cmd(unsigned int id)
{
    if (auto const mode = m_modes.find(id); mode != m_modes.end()) {
        m_currentRow = mode->second;
        return true;
    }
    unsigned int mapped = 0;
    return find(id, &mapped) && m_target && m_target->cmd(mapped);
}

bool KDemultiplexingHandler::update(unsigned int id, ICommandUpdate * state)
{
    if (m_modes.contains(id)) {
        updateMode(id, state);
        return true;
    }
    unsigned int mapped = 0;
    return find(id, &mapped) && m_target && m_target->update(mapped, state);
}

KDemultiplexingHandler::~KDemultiplexingHandler() = default;

void KDemultiplexingHandler::updateMode(unsigned int id, ICommandUpdate * state)
{
    if (!state) {
        return;
    }
    state->setEnabled(true);
    if (m_currentRow && id == m_currentRow[-1]) {
        state->setChecked(1);
    }
}

void KDemultiplexingHandler::readTable(unsigned int const * table)
{
    unsigned int const columnCount = *table;
    unsigned int const * word = table + 1;
    for (unsigned int column = 0; column < columnCount; ++column) {
        m_columns[*word++] = column;
    }
    if (*word != 0) {
        m_currentRow = word + 1;
    }
    for (; *word != 0; word += std::size_t{columnCount} + 1) {
        m_modes[*word] = word + 1;
    }
}

// Without a mode there is no row, and what stands behind the end of the table is not ours.
bool KDemultiplexingHandler::find(unsigned int id, unsigned int * result)
{
    auto const column = m_columns.find(id);
    if (column == m_columns.end() || !m_currentRow) {
        return false;
    }
    *result = m_currentRow[column->second];
    return true;
}

} // namespace zenu
