#include "Board.h"

#include <zenu/overlay/NarrowText.h>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct Kind
{
    char const * name;
    QColor color;
};

std::array const kinds = {
    Kind{"Idea", QColor(246, 224, 140)},
    Kind{"Question", QColor(170, 205, 240)},
    Kind{"Task", QColor(180, 225, 170)},
    Kind{"Done", QColor(215, 215, 215)},
};

constexpr int lineHeight = 24;
constexpr int margin = 8;

QRect nameRect(Note const & note)
{
    return {note.rect.left() + margin, note.rect.top() + margin, note.rect.width() - 2 * margin,
            lineHeight};
}

QRect kindRect(Note const & note)
{
    return nameRect(note).translated(0, lineHeight + margin);
}

} // namespace

Board::Board(std::function<void(QString const &)> report, QWidget * parent)
    : QWidget(parent)
    , m_nameClient(*this)
    , m_kindClient(*this)
    , m_report(std::move(report))
    , m_editor(new zenu::KInPlaceEditor(this, "name"))
    , m_combo(new zenu::KInPlaceCombo(this, "kind"))
{
    setFocusPolicy(Qt::StrongFocus);
    m_editor->setAutoResizing(true);
    for (Kind const & kind : kinds) {
        m_combo->insertItem(kind.name);
    }
    char const * const names[] = {"Paint the fence",   "Who has the ladder?", "Buy brushes",
                                  "Ask the neighbour", "Choose a colour",     "Water the roses"};
    for (int i = 0; i < 6; ++i) {
        QRect const rect(20 + i % 3 * 180, 20 + i / 3 * 150, 160, 130);
        m_notes.push_back({rect, QString::fromLatin1(names[i]), i % 4});
    }
}

void Board::editName(int note)
{
    m_edited = note;
    Note const & edited = m_notes.at(std::size_t(note));
    m_editor->startEditing(&m_nameClient, zenu::qstring2chars(edited.name), nameRect(edited));
    m_report(tr("Return keeps the name, Escape drops it, Insert changes between typing over and "
                "inserting."));
}

void Board::editKind(int note)
{
    m_edited = note;
    Note const & edited = m_notes.at(std::size_t(note));
    m_combo->startEditing(&m_kindClient, edited.kind, kindRect(edited));
    m_report(tr("Choose a kind, or press Escape and click elsewhere."));
}

void Board::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (Note const & note : m_notes) {
        paintNote(painter, note);
    }
}

void Board::paintNote(QPainter & painter, Note const & note) const
{
    QColor const color = kinds.at(std::size_t(note.kind)).color;
    painter.setPen(color.darker(140));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(note.rect).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    painter.setPen(Qt::black);
    QString const name =
        painter.fontMetrics().elidedText(note.name, Qt::ElideRight, nameRect(note).width());
    painter.drawText(nameRect(note), Qt::AlignLeft | Qt::AlignVCenter, name);
    painter.setPen(color.darker(250));
    painter.drawText(kindRect(note), Qt::AlignLeft | Qt::AlignVCenter,
                     QString::fromLatin1(kinds.at(std::size_t(note.kind)).name));
}

void Board::mouseDoubleClickEvent(QMouseEvent * event)
{
    for (int i = 0; i < int(m_notes.size()); ++i) {
        Note const & note = m_notes[std::size_t(i)];
        if (nameRect(note).contains(event->position().toPoint())) {
            return editName(i);
        }
        if (kindRect(note).contains(event->position().toPoint())) {
            return editKind(i);
        }
    }
}

// A line edit leaves Escape to its parent, which decides what it means.
void Board::keyPressEvent(QKeyEvent * event)
{
    if (event->key() == Qt::Key_Escape && m_editor->isEditing()) {
        m_editor->cancelEditing();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Board::NameClient::completeEditing(char const * text)
{
    Note & note = m_board.m_notes.at(std::size_t(m_board.m_edited));
    note.name = zenu::chars2qstring(text);
    m_board.update(note.rect);
    m_board.m_report(tr("The name is: %1").arg(note.name));
}

void Board::NameClient::cancelEditing()
{
    m_board.m_report(tr("The name stays."));
}

void Board::NameClient::editingModeChanged(bool overwrite)
{
    m_board.m_report(overwrite ? tr("Typing replaces.") : tr("Typing inserts."));
}

void Board::KindClient::completeEditing(char const * text)
{
    auto const found = std::find_if(kinds.begin(), kinds.end(), [text](Kind const & kind) {
        return qstrcmp(kind.name, text) == 0;
    });
    if (found == kinds.end()) {
        return;
    }
    Note & note = m_board.m_notes.at(std::size_t(m_board.m_edited));
    note.kind = int(found - kinds.begin());
    m_board.update(note.rect);
    m_board.m_report(tr("The kind is: %1").arg(zenu::chars2qstring(text)));
}
