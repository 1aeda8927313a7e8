#include "examples/commands/TextCommands.h"

#include "examples/commands/CommandIds.h"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace editor {

namespace {

bool isOfWords(unsigned id)
{
    return id <= DoubleWord;
}

// What stands between blanks, so that a full stop goes with its word.
void selectWord(QTextCursor & cursor)
{
    QString const line = cursor.block().text();
    int const at = cursor.positionInBlock();
    int start = at;
    while (start > 0 && !line.at(start - 1).isSpace()) {
        --start;
    }
    int end = at;
    while (end < line.size() && !line.at(end).isSpace()) {
        ++end;
    }
    cursor.setPosition(cursor.block().position() + start);
    cursor.setPosition(cursor.block().position() + end, QTextCursor::KeepAnchor);
}

// With the end of the line, so that what follows moves up.
void selectLine(QTextCursor & cursor)
{
    cursor.movePosition(QTextCursor::StartOfBlock);
    if (!cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor)) {
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    }
}

QTextCursor::MoveOperation stepOf(unsigned id)
{
    switch (id) {
    case PreviousWord:
        return QTextCursor::PreviousWord;
    case NextWord:
        return QTextCursor::NextWord;
    case PreviousLine:
        return QTextCursor::PreviousBlock;
    default:
        return QTextCursor::NextBlock;
    }
}

} // namespace

TextCommands::TextCommands(QPlainTextEdit & text)
    : m_text(text)
{
    for (unsigned const id : {PreviousWord, NextWord, PreviousLine, NextLine}) {
        bind(id, &TextCommands::move, &TextCommands::updateMove);
    }
    for (unsigned const id : {DeleteWord, DeleteLine}) {
        bind(id, &TextCommands::remove, &TextCommands::updateChange);
    }
    for (unsigned const id : {DoubleWord, DoubleLine}) {
        bind(id, &TextCommands::repeat, &TextCommands::updateChange);
    }
}

void TextCommands::move(unsigned id)
{
    QTextCursor cursor = m_text.textCursor();
    cursor.movePosition(stepOf(id));
    m_text.setTextCursor(cursor);
}

void TextCommands::updateMove(unsigned id, zenu::ICommandUpdate * state)
{
    QTextCursor const cursor = m_text.textCursor();
    switch (id) {
    case PreviousWord:
        return state->setEnabled(!cursor.atStart());
    case NextWord:
        return state->setEnabled(!cursor.atEnd());
    case PreviousLine:
        return state->setEnabled(cursor.block().previous().isValid());
    default:
        return state->setEnabled(cursor.block().next().isValid());
    }
}

void TextCommands::remove(unsigned id)
{
    QTextCursor cursor = piece(id);
    cursor.removeSelectedText();
    m_text.setTextCursor(cursor);
}

void TextCommands::repeat(unsigned id)
{
    QTextCursor cursor = piece(id);
    QString const text = isOfWords(id) ? cursor.selectedText() : m_text.textCursor().block().text();
    cursor.beginEditBlock();
    if (isOfWords(id)) {
        cursor.setPosition(cursor.selectionEnd());
        cursor.insertText(QLatin1Char(' ') + text);
    } else {
        cursor.setPosition(cursor.selectionStart());
        cursor.insertText(text + QLatin1Char('\n'));
    }
    cursor.endEditBlock();
}

void TextCommands::updateChange(unsigned id, zenu::ICommandUpdate * state)
{
    state->setEnabled(!m_text.isReadOnly() && piece(id).hasSelection());
}

QTextCursor TextCommands::piece(unsigned id) const
{
    QTextCursor cursor = m_text.textCursor();
    cursor.clearSelection();
    if (isOfWords(id)) {
        selectWord(cursor);
    } else {
        selectLine(cursor);
    }
    return cursor;
}

} // namespace editor
