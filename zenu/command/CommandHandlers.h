#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/command/ICommandHandler.h"

#include <map>
#include <memory>

namespace zenu {

/// Base of handlers that bind command ids to methods of their own. It leaves `cmd` and `update` to
/// them and brings two methods that fit where nothing special is to be done.
class ZENU_EXPORT KMethodHandlerBase : public ICommandHandler
{
public:
    /// An update method for commands that can always be performed. `id` is not looked at, a null
    /// `state` is left alone.
    void alwaysEnable(unsigned int id, ICommandUpdate * state);
    /// A command method for commands that have no effect.
    void doNothing(unsigned int id);
};

/// Hands a command on to the handlers that were added for its id, in the order of their addition.
///
/// It owns none of them: each lives as long as the dispatcher can be called. A handler may add
/// others while it is called (they take part from the next call on), and it may delete the
/// dispatcher: the ones behind it are then not called any more. Calls allocate nothing.
class ZENU_EXPORT KDispatchHandler : public ICommandHandler
{
public:
    /// Makes an empty dispatcher that is not exclusive.
    KDispatchHandler();
    KDispatchHandler(KDispatchHandler const &) = delete;
    KDispatchHandler & operator=(KDispatchHandler const &) = delete;

    /// Calls the handlers of `id`: all of them, and returns whether any answered true; or, while
    /// exclusive, those up to the first that answers true. False without a handler for `id`.
    bool cmd(unsigned int id) override;
    /// The same for the state, which all of them get: a later one overwrites what an earlier one
    /// has set.
    bool update(unsigned int id, ICommandUpdate * state) override;

    ~KDispatchHandler() override;

    /// Adds a handler behind the others of `id`. One that is added twice is called twice; a null
    /// one is skipped.
    void addHandler(unsigned int id, ICommandHandler * handler);

    /// Whether the first handler that takes a command keeps it from the others.
    void setExclusive(bool exclusive) { m_exclusive = exclusive; }
    bool isExclusive() const { return m_exclusive; }

private:
    struct Entries;

    template <typename Call>
    bool dispatch(unsigned int id, Call call);

    std::shared_ptr<Entries> m_entries;
    bool m_exclusive = false;
};

/// Hands commands on to one target under other ids. Ids without a mapping are not handed on.
///
/// The target stays the caller's and lives as long as the translator can be called; a null one
/// answers false to everything.
class ZENU_EXPORT KTranslatingHandler : public ICommandHandler
{
public:
    /// One mapping. In a list a pair with a zero in either member stands for the end.
    struct IDPair
    {
        unsigned int from; ///< the id that arrives
        unsigned int to;   ///< the id that goes on
    };

    /// Makes a translator without mappings.
    explicit KTranslatingHandler(ICommandHandler * target);
    KTranslatingHandler(KTranslatingHandler const &) = delete;
    KTranslatingHandler & operator=(KTranslatingHandler const &) = delete;

    /// Hands on what `id` is mapped to and returns the target's answer; false without a mapping.
    bool cmd(unsigned int id) override;
    bool update(unsigned int id, ICommandUpdate * state) override;

    ~KTranslatingHandler() override;

    /// Maps `from` to `to` from now on, whatever it was mapped to before.
    void addMapping(unsigned int from, unsigned int to);
    /// Adds the mappings of a list up to its end. A null list has none.
    void addMappings(IDPair const * pairs);

private:
    bool find(unsigned int id, unsigned int * result);

    ICommandHandler * m_target;
    std::map<unsigned int, unsigned int> m_mappings;
};

/// Hands commands on to one target under ids that depend on a mode, and takes the commands that
/// change the mode.
///
/// A table of words says what goes where:
///
/// | words | content |
/// |---|---|
/// | 1 | n, the number of columns: of commands that depend on the mode |
/// | n | the ids of the columns |
/// | n + 1 for each mode | the id of the mode, then the n ids that the columns stand for |
/// | 1 | zero, the end |
///
/// The first mode is the one to start with. No id in the table is zero. An id that is both a mode
/// and a column is a mode; the last of several equal columns or equal modes counts.
///
/// The table stays the caller's and is neither changed nor released as long as the handler can be
/// called, and so does the target; a null target answers false.
class ZENU_EXPORT KDemultiplexingHandler : public ICommandHandler
{
public:
    /// Reads `table` up to its ending zero and no further. When it is null, or when its words do
    /// not fill its rows, the handler answers false to everything; without a mode, to each column.
    /// With n = 0 the first word is no end, and there are only modes up to the next zero.
    KDemultiplexingHandler(ICommandHandler * target, unsigned int const * table);
    KDemultiplexingHandler(KDemultiplexingHandler const &) = delete;
    KDemultiplexingHandler & operator=(KDemultiplexingHandler const &) = delete;

    /// The id of a mode makes it the current one, of which the target is not told, and answers
    /// true. A column is handed on by the current mode, and the target answers. Else false.
    bool cmd(unsigned int id) override;
    /// The same for the state: that of a mode comes from `updateMode` and the answer is true.
    bool update(unsigned int id, ICommandUpdate * state) override;

    ~KDemultiplexingHandler() override;

protected:
    /// Reports the state of a mode: enabled, and checked when it is the current one. Whether
    /// another mode's mark is taken away is up to `state`, which starts unchecked.
    virtual void updateMode(unsigned int id, ICommandUpdate * state);

private:
    void readTable(unsigned int const * table);
    bool find(unsigned int id, unsigned int * result);

    ICommandHandler * m_target;
    std::map<unsigned int, unsigned int> m_columns;
    std::map<unsigned int, unsigned int const *> m_modes;
    // The first target of the current mode, whose id is the word before; null without a mode.
    unsigned int const * m_currentRow = nullptr;
};

} // namespace zenu
