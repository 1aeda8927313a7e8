#include "examples/commands/EditorWindow.h"

#include "examples/commands/CommandIds.h"
#include "examples/commands/icons/back.xpm"
#include "examples/commands/icons/delete.xpm"
#include "examples/commands/icons/double.xpm"
#include "examples/commands/icons/forward.xpm"
#include "examples/commands/icons/lines.xpm"
#include "examples/commands/icons/lock.xpm"
#include "examples/commands/icons/redo.xpm"
#include "examples/commands/icons/undo.xpm"
#include "examples/commands/icons/words.xpm"
#include "examples/commands/icons/wrap.xpm"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include <utility>

namespace editor {

namespace {

using zenu::ActionPlain;
using zenu::ActionToggle;

constexpr int keys(QKeyCombination combination)
{
    return combination.toCombined();
}

zenu::SAction const actionTable[] = {
    {.kind = ActionPlain,
     .id = Undo,
     .text = "Undo",
     .menuText = "&Undo",
     .statusTip = "Takes the last change back",
     .pixmap = undoIcon,
     .accel = keys(Qt::CTRL | Qt::Key_Z)},
    {.kind = ActionPlain,
     .id = Redo,
     .text = "Redo",
     .menuText = "&Redo",
     .statusTip = "Makes again what was taken back",
     .pixmap = redoIcon,
     .accel = keys(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)},
    {.kind = ActionPlain,
     .id = Back,
     .text = "Back",
     .menuText = "&Back",
     .statusTip = "Goes to the word or the line before",
     .pixmap = backIcon,
     .accel = keys(Qt::ALT | Qt::Key_Left)},
    {.kind = ActionPlain,
     .id = Forward,
     .text = "Forward",
     .menuText = "&Forward",
     .statusTip = "Goes to the next word or line",
     .pixmap = forwardIcon,
     .accel = keys(Qt::ALT | Qt::Key_Right)},
    {.kind = ActionPlain,
     .id = Delete,
     .text = "Delete",
     .menuText = "&Delete",
     .statusTip = "Deletes the word or the line at the cursor",
     .pixmap = deleteIcon,
     .accel = keys(Qt::CTRL | Qt::Key_K)},
    {.kind = ActionPlain,
     .id = Double,
     .text = "Double",
     .menuText = "D&ouble",
     .statusTip = "Doubles the word or the line at the cursor",
     .pixmap = doubleIcon,
     .accel = keys(Qt::CTRL | Qt::Key_D)},
    {.kind = ActionToggle,
     .id = ByWords,
     .text = "Words",
     .menuText = "By &words",
     .toolTip = "Commands work on words",
     .statusTip = "Back, Forward, Delete and Double speak of words",
     .pixmap = wordsIcon,
     .accel = Qt::Key_F2},
    {.kind = ActionToggle,
     .id = ByLines,
     .text = "Lines",
     .menuText = "By &lines",
     .toolTip = "Commands work on lines",
     .statusTip = "Back, Forward, Delete and Double speak of lines",
     .pixmap = linesIcon,
     .accel = Qt::Key_F3},
    {.kind = ActionToggle,
     .id = Wrap,
     .text = "Wrap",
     .menuText = "Wra&p long lines",
     .pixmap = wrapIcon,
     .accel = Qt::Key_F4},
    {.kind = ActionToggle,
     .id = ReadOnly,
     .text = "Read only",
     .menuText = "Read &only",
     .statusTip = "Nothing can be changed",
     .pixmap = lockIcon,
     .accel = Qt::Key_F9},
    {.kind = ActionPlain,
     .id = Larger,
     .text = "Larger",
     .menuText = "&Larger",
     .accel = keys(Qt::CTRL | Qt::Key_Plus)},
    {.kind = ActionPlain,
     .id = Smaller,
     .text = "Smaller",
     .menuText = "&Smaller",
     .accel = keys(Qt::CTRL | Qt::Key_Minus)},
    {.kind = ActionPlain,
     .id = Quit,
     .text = "Quit",
     .menuText = "&Quit",
     .accel = keys(Qt::CTRL | Qt::Key_Q)},
    {}};

// From the window's numbers to those of the text.
zenu::KTranslatingHandler::IDPair const textIds[] = {{Back, TextBack},
                                                     {Forward, TextForward},
                                                     {Delete, TextDelete},
                                                     {Double, TextDouble},
                                                     {ByWords, WordMode},
                                                     {ByLines, LineMode},
                                                     {0, 0}};

// clang-format off
unsigned const modeTable[] = {
    4,        TextBack,     TextForward, TextDelete, TextDouble,
    WordMode, PreviousWord, NextWord,    DeleteWord, DoubleWord,
    LineMode, PreviousLine, NextLine,    DeleteLine, DoubleLine,
    0};
// clang-format on

char const * const firstText = "One button, two meanings.\n"
                               "\n"
                               "Press F2 and the commands Back, Forward, Delete and Double speak "
                               "of words; press F3 and they speak of lines.\n"
                               "\n"
                               "The buttons follow the cursor: Back is gray at the start of the "
                               "text, Delete where there is nothing to delete, and all that would "
                               "change the text while it is read only.\n";

} // namespace

bool TextEdit::event(QEvent * event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->ignore();
        return true;
    }
    return QPlainTextEdit::event(event);
}

Journal::Journal(std::function<void(unsigned)> tell)
    : m_tell(std::move(tell))
{
}

bool Journal::cmd(unsigned int id)
{
    m_tell(id);
    return false;
}

bool Journal::update(unsigned int, zenu::ICommandUpdate *)
{
    return false;
}

EditorWindow::EditorWindow()
    : m_text(new TextEdit)
    , m_lastCommand(new QLabel)
    , m_textCommands(*m_text)
    , m_viewCommands(*m_text)
    , m_journal([this](unsigned id) { tellCommand(id); })
    , m_modes(&m_textCommands, modeTable)
    , m_translator(&m_modes)
    , m_actions(this, &m_dispatcher)
{
    setWindowTitle(tr("Commands"));
    setCentralWidget(m_text);
    m_lastCommand->setObjectName(QStringLiteral("lastCommand"));
    statusBar()->addPermanentWidget(m_lastCommand);
    connectHandlers();
    m_actions.addActions(actionTable, "EditorWindow");
    addMenus();
    addTools();
    m_text->setPlainText(QString::fromLatin1(firstText));
    m_text->setFocus();
    m_actions.updateAll();
    resize(620, 320);
}

// The journal comes first, since a command may close the window.
void EditorWindow::connectHandlers()
{
    m_translator.addMappings(textIds);
    for (unsigned id = Undo; id <= Quit; ++id) {
        m_dispatcher.addHandler(id, &m_journal);
        bool const isOfTheText = id >= Back && id <= ByLines;
        if (isOfTheText) {
            m_dispatcher.addHandler(id, &m_translator);
        } else {
            m_dispatcher.addHandler(id, &m_viewCommands);
        }
    }
}

void EditorWindow::addMenus()
{
    constexpr unsigned separator = 0;
    auto const addMenu = [this](QString const & title, std::initializer_list<unsigned> ids) {
        QMenu * const menu = menuBar()->addMenu(title);
        for (unsigned const id : ids) {
            if (id == separator) {
                menu->addSeparator();
            } else {
                menu->addAction(m_actions.getAction(id));
            }
        }
        m_actions.autoUpdateMenu(menu);
    };
    addMenu(tr("&Edit"), {Undo, Redo, separator, Delete, Double, separator, ReadOnly, Quit});
    addMenu(tr("&Go"), {Back, Forward, separator, ByWords, ByLines});
    addMenu(tr("&View"), {Wrap, Larger, Smaller});
}

void EditorWindow::addTools()
{
    QToolBar * const tools = addToolBar(tr("Commands"));
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    for (unsigned id = Undo; id <= ReadOnly; ++id) {
        if (id == Back || id == ByWords || id == Wrap) {
            tools->addSeparator();
        }
        tools->addAction(m_actions.getAction(id));
    }
}

void EditorWindow::tellCommand(unsigned id)
{
    ++m_commandCount;
    m_lastCommand->setText(
        tr("%1. %2").arg(m_commandCount).arg(m_actions.getAction(id)->iconText()));
}

} // namespace editor
