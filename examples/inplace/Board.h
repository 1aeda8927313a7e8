#pragma once

#include <zenu/scroll/IInPlaceEditorNotification.h>
#include <zenu/scroll/KInPlaceCombo.h>
#include <zenu/scroll/KInPlaceEditor.h>

#include <QWidget>

#include <functional>
#include <vector>

// One note on the board: its name is edited as text, its kind is chosen from a list.
struct Note
{
    QRect rect;
    QString name;
    int kind;
};

// A canvas of notes that are no widgets. A double click on a name or a kind lays an editor over it;
// Escape cancels. One editor and one combo box serve all notes.
class Board : public QWidget
{
public:
    explicit Board(std::function<void(QString const &)> report, QWidget * parent = nullptr);

    void editName(int note);
    void editKind(int note);

    QSize sizeHint() const override { return {560, 330}; }

protected:
    void paintEvent(QPaintEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;

private:
    // They write what was edited into the note m_edited.
    class NameClient : public zenu::IInPlaceEditorNotification
    {
    public:
        explicit NameClient(Board & board)
            : m_board(board)
        {
        }
        void completeEditing(char const * text) override;
        void cancelEditing() override;
        void editingModeChanged(bool overwrite) override;

    private:
        Board & m_board;
    };

    class KindClient : public zenu::IInPlaceEditorNotification
    {
    public:
        explicit KindClient(Board & board)
            : m_board(board)
        {
        }
        void completeEditing(char const * text) override;

    private:
        Board & m_board;
    };

    void paintNote(QPainter & painter, Note const & note) const;

    NameClient m_nameClient;
    KindClient m_kindClient;
    std::function<void(QString const &)> m_report;
    zenu::KInPlaceEditor * m_editor;
    zenu::KInPlaceCombo * m_combo;
    std::vector<Note> m_notes;
    int m_edited = -1;
};
