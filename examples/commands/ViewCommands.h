#pragma once

#include "examples/commands/MethodHandler.h"

class QPlainTextEdit;

namespace editor {

// What is the same in every mode: undo, how the text is shown, and the end of the program. It takes
// the window's own commands.
class ViewCommands : public MethodHandler<ViewCommands>
{
public:
    // The text stays the caller's and lives as long as this.
    explicit ViewCommands(QPlainTextEdit & text);

private:
    void undo(unsigned id);
    void updateUndo(unsigned id, zenu::ICommandUpdate * state);
    void wrap(unsigned id);
    void updateWrap(unsigned id, zenu::ICommandUpdate * state);
    void readOnly(unsigned id);
    void updateReadOnly(unsigned id, zenu::ICommandUpdate * state);
    void zoom(unsigned id);
    void updateZoom(unsigned id, zenu::ICommandUpdate * state);
    void quit(unsigned id);

    QPlainTextEdit & m_text;
    int m_zoom = 0;
};

} // namespace editor
