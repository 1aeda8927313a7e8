// A table of words for the demultiplexer and a sequence of commands and questions, against a
// reading of the table that copies everything. The input is the number of words of the table, the
// words as bytes (255 stands for the largest word), and one byte for each step.

#include "Check.h"

#include <zenu/command/CommandHandlers.h>
#include <zenu/command/KCommandUpdate.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace {

using Word = unsigned int;
using Words = std::vector<Word>;

constexpr Word none = 0xfffffffe; // no byte becomes this word

Word wordOf(std::uint8_t byte)
{
    return byte == 255 ? 0xffffffff : byte;
}

class Target : public zenu::ICommandHandler
{
public:
    bool cmd(Word id) override
    {
        last = id;
        return id % 2 == 0;
    }
    bool update(Word id, zenu::ICommandUpdate * state) override
    {
        last = id;
        state->setEnabled(id % 3 == 0);
        state->setChecked(static_cast<int>(id % 5));
        state->setRadio(id % 7 == 0);
        return id % 2 == 0;
    }

    Word last = none;
};

// The rows as lists, searched from behind.
class Reference
{
public:
    explicit Reference(Words const & table)
    {
        std::size_t end = 0;
        while (end < table.size() && table[end] != 0) {
            ++end;
        }
        std::size_t const width = std::size_t{table[0]} + 1;
        if (table[0] != 0 && (end < width || end % width != 0)) {
            return;
        }
        std::size_t at = 1;
        for (; at < width; ++at) {
            m_columns.push_back(table[at]);
        }
        for (; table[at] != 0; at += width) {
            auto const first = table.begin() + static_cast<Words::difference_type>(at);
            m_rows.emplace_back(first, first + static_cast<Words::difference_type>(width));
        }
        if (!m_rows.empty()) {
            m_current = m_rows.front();
        }
    }

    bool isMode(Word id) const { return rowOf(id) != nullptr; }
    bool isCurrent(Word id) const { return !m_current.empty() && m_current.front() == id; }
    void switchTo(Word id) { m_current = *rowOf(id); }
    Word targetOf(Word id) const
    {
        for (std::size_t i = m_columns.size(); i-- > 0;) {
            if (m_columns[i] == id && !m_current.empty()) {
                return m_current[i + 1];
            }
        }
        return none;
    }

private:
    Words const * rowOf(Word id) const
    {
        for (std::size_t i = m_rows.size(); i-- > 0;) {
            if (m_rows[i].front() == id) {
                return &m_rows[i];
            }
        }
        return nullptr;
    }

    Words m_columns;
    std::vector<Words> m_rows;
    Words m_current;
};

class Comparison
{
public:
    // The handler gets a block of just these words, behind which a sanitizer sees each read.
    explicit Comparison(Words const & table)
        : m_reference(table)
        , m_table(std::make_unique<Word[]>(table.size()))
    {
        std::copy(table.begin(), table.end(), m_table.get());
        m_handler.emplace(&m_target, m_table.get());
    }

    void compareCmd(Word id)
    {
        m_target.last = none;
        bool const answer = m_handler->cmd(id);
        if (m_reference.isMode(id)) {
            m_reference.switchTo(id);
            FUZZ_CHECK(answer && m_target.last == none);
            return;
        }
        checkTarget(id, answer);
    }

    void compareUpdate(Word id)
    {
        m_target.last = none;
        zenu::KCommandUpdate state;
        bool const answer = m_handler->update(id, &state);
        if (m_reference.isMode(id)) {
            FUZZ_CHECK(answer && m_target.last == none && state.isEnabled() && !state.isRadio());
            FUZZ_CHECK(state.isChecked() == m_reference.isCurrent(id));
            return;
        }
        checkTarget(id, answer);
        zenu::KCommandUpdate expected;
        if (m_target.last != none) {
            m_target.update(m_target.last, &expected);
        }
        FUZZ_CHECK(state.isEnabled() == expected.isEnabled());
        FUZZ_CHECK(state.isChecked() == expected.isChecked());
        FUZZ_CHECK(state.isRadio() == expected.isRadio());
    }

private:
    void checkTarget(Word id, bool answer) const
    {
        Word const target = m_reference.targetOf(id);
        FUZZ_CHECK(m_target.last == target);
        FUZZ_CHECK(answer == (target != none && target % 2 == 0));
    }

    Target m_target;
    Reference m_reference;
    std::unique_ptr<Word[]> m_table;
    std::optional<zenu::KDemultiplexingHandler> m_handler;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    std::size_t const count = std::min<std::size_t>(data[0], size - 1);
    Words table;
    for (std::size_t i = 0; i < count; ++i) {
        table.push_back(wordOf(data[1 + i]));
    }
    if (table.empty()) {
        table.push_back(0); // no columns
    }
    table.push_back(0);
    Comparison comparison(table);
    // A step speaks of a word of the table, which hits more often than any id would.
    for (std::size_t i = 1 + count; i < size; ++i) {
        Word const id = data[i] % 8 == 0 ? wordOf(data[i]) : table[data[i] / 2 % table.size()];
        if (data[i] % 2 == 0) {
            comparison.compareCmd(id);
        } else {
            comparison.compareUpdate(id);
        }
    }
    return 0;
}
