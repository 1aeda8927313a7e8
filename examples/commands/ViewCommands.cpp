#include "examples/commands/ViewCommands.h"

#include "examples/commands/CommandIds.h"

#include <QPlainTextEdit>

namespace editor {

namespace {

constexpr int mostZoom = 4; // steps either way

} // namespace

ViewCommands::ViewCommands(QPlainTextEdit & text)
    : m_text(text)
{
    bind(Undo, &ViewCommands::undo, &ViewCommands::updateUndo);
    bind(Redo, &ViewCommands::undo, &ViewCommands::updateUndo);
    bind(Wrap, &ViewCommands::wrap, &ViewCommands::updateWrap);
    bind(ReadOnly, &ViewCommands::readOnly, &ViewCommands::updateReadOnly);
    bind(Larger, &ViewCommands::zoom, &ViewCommands::updateZoom);
    bind(Smaller, &ViewCommands::zoom, &ViewCommands::updateZoom);
    bind(Quit, &ViewCommands::quit);
}

void ViewCommands::undo(unsigned id)
{
    id == Undo ? m_text.undo() : m_text.redo();
}

void ViewCommands::updateUndo(unsigned id, zenu::ICommandUpdate * state)
{
    QTextDocument const & document = *m_text.document();
    bool const isPossible = id == Undo ? document.isUndoAvailable() : document.isRedoAvailable();
    state->setEnabled(isPossible && !m_text.isReadOnly());
}

void ViewCommands::wrap(unsigned)
{
    bool const isWrapped = m_text.lineWrapMode() == QPlainTextEdit::WidgetWidth;
    m_text.setLineWrapMode(isWrapped ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
}

void ViewCommands::updateWrap(unsigned, zenu::ICommandUpdate * state)
{
    state->setChecked(m_text.lineWrapMode() == QPlainTextEdit::WidgetWidth);
}

void ViewCommands::readOnly(unsigned)
{
    m_text.setReadOnly(!m_text.isReadOnly());
    // The cursor stays, since commands go on moving it.
    m_text.setTextInteractionFlags(m_text.textInteractionFlags() | Qt::TextSelectableByKeyboard);
}

void ViewCommands::updateReadOnly(unsigned, zenu::ICommandUpdate * state)
{
    state->setChecked(m_text.isReadOnly());
}

void ViewCommands::zoom(unsigned id)
{
    int const step = id == Larger ? 1 : -1;
    m_zoom += step;
    m_text.zoomIn(step);
}

void ViewCommands::updateZoom(unsigned id, zenu::ICommandUpdate * state)
{
    state->setEnabled(id == Larger ? m_zoom < mostZoom : m_zoom > -mostZoom);
}

// The window may be gone when this returns.
void ViewCommands::quit(unsigned)
{
    m_text.window()->close();
}

} // namespace editor
