#pragma once

#include "examples/commands/MethodHandler.h"

#include <QTextCursor>

class QPlainTextEdit;

namespace editor {

// Steps over, deletes and doubles the words and the lines of a text.
class TextCommands : public MethodHandler<TextCommands>
{
public:
    // The text stays the caller's and lives as long as this.
    explicit TextCommands(QPlainTextEdit & text);

private:
    void move(unsigned id);
    void updateMove(unsigned id, zenu::ICommandUpdate * state);
    void remove(unsigned id);
    void repeat(unsigned id);
    void updateChange(unsigned id, zenu::ICommandUpdate * state);

    // The word or the line at the cursor, of which the command speaks.
    QTextCursor piece(unsigned id) const;

    QPlainTextEdit & m_text;
};

} // namespace editor
