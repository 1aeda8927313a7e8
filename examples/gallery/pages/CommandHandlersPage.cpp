#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/command/CommandHandlers.h>
#include <zenu/command/KCommandUpdate.h>

namespace gallery {

namespace {

// [code]
enum Command : unsigned
{
    Open = 1,
    Read = 2,
    Write = 3,
    OpenToRead = 12,
    OpenToWrite = 13,
    OldOpen = 101
};

// Remembers the last command that reached it; takes those above 10.
struct Files : zenu::KMethodHandlerBase
{
    unsigned last = 0;
    bool cmd(unsigned int id) override
    {
        last = id;
        return id > 10;
    }
    bool update(unsigned int id, zenu::ICommandUpdate * state) override
    {
        alwaysEnable(id, state);
        return id > 10;
    }
};

void fill(ValueGrid & values)
{
    Files files;
    unsigned const modes[] = {1, Open, Read, OpenToRead, Write, OpenToWrite, 0};
    zenu::KDemultiplexingHandler byMode(&files, modes);
    zenu::KTranslatingHandler oldNames(&byMode);
    oldNames.addMapping(OldOpen, Open);
    zenu::KDispatchHandler all;
    for (unsigned const id : {Open, Read, Write}) {
        all.addHandler(id, &byMode);
    }
    all.addHandler(OldOpen, &oldNames);

    values.add(SHOW(all.cmd(Open)));
    values.add(SHOW(files.last));
    values.add(SHOW(all.cmd(Write)));
    values.add(SHOW(all.cmd(OldOpen)));
    values.add(SHOW(files.last));
    values.add(SHOW(all.cmd(55)));
    zenu::KCommandUpdate state;
    values.add(SHOW(all.update(Write, &state)));
    values.add(SHOW(state.isChecked()));
}
// [code]

QWidget * makeValues()
{
    auto * const values = new ValueGrid;
    fill(*values);
    return values;
}

} // namespace

Page commandHandlersPage()
{
    return {
        "CommandHandlers",
        "Handlers in a row: by id, under old names, and by the mode that was chosen last.",
        {"KMethodHandlerBase", "KDispatchHandler", "KTranslatingHandler", "KDemultiplexingHandler"},
        makeValues};
}

} // namespace gallery
