#pragma once

#include "examples/commands/TextCommands.h"
#include "examples/commands/ViewCommands.h"

#include <zenu/command/CommandHandlers.h>
#include <zenu/command/KActionManager.h>

#include <QMainWindow>
#include <QPlainTextEdit>

#include <functional>

class QLabel;

namespace editor {

// Leaves all keys that are accelerators of actions to them.
class TextEdit : public QPlainTextEdit
{
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    bool event(QEvent * event) override;
};

// Tells which command was performed. It takes none: it stands beside those that do.
class Journal : public zenu::ICommandHandler
{
public:
    explicit Journal(std::function<void(unsigned)> tell);

    bool cmd(unsigned int id) override;
    bool update(unsigned int id, zenu::ICommandUpdate * state) override;

private:
    std::function<void(unsigned)> m_tell;
};

// A text whose menus, buttons and keys run through handlers:
//
//     actions -> dispatcher -> journal
//                           -> view commands
//                           -> translator -> demultiplexer -> text commands
//
// The translator turns the window's numbers into those of the text, and the demultiplexer sends
// Back, Forward, Delete and Double to words or to lines.
class EditorWindow : public QMainWindow
{
    Q_OBJECT
public:
    EditorWindow();

    QPlainTextEdit * text() { return m_text; }
    zenu::KActionManager * actions() { return &m_actions; }

private:
    void connectHandlers();
    void addMenus();
    void addTools();
    void tellCommand(unsigned id);

    TextEdit * m_text;
    QLabel * m_lastCommand;
    int m_commandCount = 0;
    TextCommands m_textCommands;
    ViewCommands m_viewCommands;
    Journal m_journal;
    zenu::KDemultiplexingHandler m_modes;
    zenu::KTranslatingHandler m_translator;
    zenu::KDispatchHandler m_dispatcher;
    // Asks all of the above, so it is the first to go.
    zenu::KActionManager m_actions;
};

} // namespace editor
