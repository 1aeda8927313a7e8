#pragma once

#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/geometry/CElementRects.h"

#include <QLineEdit>
#include <QPointer>

namespace zenutest {

// What a parent widget sees of the keys that its children left alone.
class KeyWindow : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent * event) override
    {
        if (event->key() != Qt::Key_Shift && event->key() != Qt::Key_Control) {
            keys << event->key();
        }
    }
};

// Writes down all that a grid tells of a person's doings, in one line a call. Rows go by their
// names and columns by their ids; a row that is dead by then reads "DEAD".
class InputNotes : public zenu::IGridNotification
{
public:
    explicit InputNotes(TestGrid * told)
        : grid(told)
    {
        grid->setNotification(this);
    }
    ~InputNotes() override
    {
        if (grid && grid->getNotification() == this) {
            grid->setNotification(nullptr);
        }
    }
    InputNotes(InputNotes const &) = delete;

    QStringList calls;
    bool allowClick = true;
    bool stopDoubleClick = true; // as by default
    bool allowSelection = true;
    bool allowExpand = true;
    bool acceptDrags = false;
    bool notesScrolling = false;
    int lastButtons = -1;
    std::function<void(QString const &)> act; // in every call, with the first word of its line

    QStringList taken() { return std::exchange(calls, {}); }
    QString text() { return taken().join(QStringLiteral("; ")); }

    bool OnScrolling(zenu::tag_HROW *) override { return noteScroll("scrolling"), true; }
    void OnScrolled() override { noteScroll("scrolled"); }
    bool OnExpanding(zenu::tag_HROW * row) override
    {
        bool const answer = allowExpand;
        note("expanding", grid->name(row));
        return answer;
    }
    void OnExpanded(zenu::tag_HROW * row) override { note("expanded", grid->name(row)); }
    void OnKeyPressed(QKeyEvent * event) override
    {
        bool const modifier = event->key() == Qt::Key_Shift || event->key() == Qt::Key_Control;
        if (!modifier) {
            note("key", QKeySequence(event->key()).toString());
        }
    }
    void OnSelectionChanged() override { note("selected"); }
    bool OnSelectionChanging(zenu::GC_SELECTIONCHANGE * change) override
    {
        bool const answer = allowSelection;
        QStringList words = names(change->deselected, change->deselectedCount, QChar(u'-'));
        words += names(change->selected, change->selectedCount, QChar(u'+'));
        note("selecting", words.join(u' '));
        return answer;
    }
    void OnFocusIn() override { note("focusin"); }
    void OnFocusOut() override { note("focusout"); }
    bool OnClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override
    {
        bool const answer = allowClick;
        note("click", press(row, column, element));
        return answer;
    }
    bool OnRightClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override
    {
        note("right", press(row, column, element));
        return false; // nobody looks at it
    }
    bool OnDoubleClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override
    {
        bool const answer = stopDoubleClick;
        note("double", press(row, column, element));
        return answer;
    }
    bool OnLeadClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override
    {
        note("lead", press(row, column, element));
        return false;
    }
    void OnDragEnter(QDragEnterEvent * event, zenu::tag_HROW * row,
                     zenu::tag_HCOLUMN * column) override
    {
        event->setAccepted(acceptDrags);
        note("enter", cell(row, column));
    }
    void OnDragMove(QDragMoveEvent * event, zenu::tag_HROW * row,
                    zenu::tag_HCOLUMN * column) override
    {
        event->setAccepted(acceptDrags);
        note("move", cell(row, column));
    }
    void OnDragLeave(QDragLeaveEvent *) override { note("leave"); }
    void OnDrop(QDropEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN * column) override
    {
        event->setAccepted(acceptDrags);
        note("drop", cell(row, column));
    }
    void OnHover(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, int buttonState) override
    {
        lastButtons = buttonState;
        note("hover", cell(row, column));
    }

private:
    QStringList names(zenu::tag_HROW ** rows, int count, QChar sign) const
    {
        QStringList result;
        for (int i = 0; i < count; ++i) {
            result << sign + grid->name(rows[i]);
        }
        result.sort(); // a set has no order of its own
        return result;
    }
    QString cell(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column) const
    {
        return QStringLiteral("%1/%2").arg(grid->name(row)).arg(qintptr(column));
    }
    QString press(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) const
    {
        return QStringLiteral("%1 %2").arg(cell(row, column)).arg(element);
    }
    void noteScroll(char const * what)
    {
        if (notesScrolling) {
            note(what);
        }
    }
    void note(char const * what, QString const & rest = {})
    {
        calls << (rest.isEmpty() ? QString::fromLatin1(what) : QLatin1String(what) + u' ' + rest);
        if (auto const acting = act) {
            acting(QLatin1String(what)); // this object may be gone after it
        }
    }

    QPointer<TestGrid> grid;
};

// A window with a grid and a line edit beside it, shown and active, and events as a person makes
// them: they come to the window, and the toolkit finds out whose they are.
class InputWindow
{
public:
    explicit InputWindow(long style = 0)
        : grid(new TestGrid(style))
        , other(new QLineEdit)
    {
        grid->setParent(&window);
        other->setParent(&window);
        other->setFocus();
    }

    // With the focus in the line edit.
    bool show(int width = 300, int height = 260)
    {
        constexpr int editHeight = 30;
        grid->setGeometry(0, 0, width, height - editHeight);
        other->setGeometry(0, height - editHeight, width, editHeight);
        window.resize(width, height);
        window.setWindowFlag(Qt::FramelessWindowHint);
        window.show();
        window.activateWindow();
        bool const active = QTest::qWaitForWindowActive(&window);
        other->setFocus();
        // The mouse begins over the line edit: a move to where it is already is told to nobody.
        QTest::mouseMove(window.windowHandle(), QPoint(width - 1, height - 1));
        settle();
        return active && other->hasFocus();
    }

    // The focus comes by the keyboard, past all selection.
    void focusGrid()
    {
        grid->setFocus(Qt::TabFocusReason);
        settle();
    }

    void key(int key, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key), keys);
    }
    void type(char const * text)
    {
        for (; *text; ++text) {
            QTest::keyClick(window.windowHandle(), *text);
        }
    }

    // Points of the grid.
    QPoint inWindow(QPoint const & point) const { return grid->mapTo(&window, point); }
    void press(QPoint const & point, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        pressedAt = inWindow(point);
        QTest::mousePress(window.windowHandle(), button, keys, pressedAt);
    }
    // Where the press was, so that it needs no grid.
    void release(Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(window.windowHandle(), button, Qt::NoModifier, pressedAt);
    }
    void click(QPoint const & point, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        press(point, button, keys);
        release(button);
    }
    void doubleClick(QPoint const & point, Qt::MouseButton button = Qt::LeftButton,
                     Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        pressedAt = inWindow(point);
        QTest::mouseDClick(window.windowHandle(), button, keys, pressedAt);
    }
    void move(QPoint const & point)
    {
        QTest::mouseMove(window.windowHandle(), inWindow(point));
        settle();
    }

    KeyWindow window; // first to come, last to go
    QPointer<TestGrid> grid;
    QLineEdit * other;

private:
    QPoint pressedAt;
};

// The middle of an element of a cell, in the grid's coordinates; (-1, -1) when it has none. Of
// GCEL_CELL the last pixel but one.
inline QPoint elementPoint(TestGrid const & grid, zenu::tag_HROW * row, zenu::tag_HCOLUMN * column,
                           unsigned element)
{
    zenu::KGridCtrl::PrivateData & frame = grid.GetPriv();
    zenu::CElementRects rects;
    if (!frame.ElementRects(frame.LocateRow(row), frame.columns.find(column), &rects)) {
        return {-1, -1};
    }
    QRect const all[] = {QRect(),        rects.indentRect, rects.buttonRect, rects.imageRect,
                         rects.textRect, rects.checkRect,  QRect(),          rects.leadRect};
    QPoint const point = element == zenu::GCEL_CELL ? rects.cellRect.bottomRight() - QPoint(2, 2)
                         : all[element].isNull()    ? QPoint(-1, -1)
                                                    : all[element].center();
    bool const found = frame.HitElementAt(frame.HitTest(point), point) == element;
    return found ? point : QPoint(-1, -1);
}

// A point in a cell that is on no element but the text, or on none.
inline QPoint cellPoint(TestGrid const & grid, zenu::tag_HROW * row, zenu::tag_HCOLUMN * column)
{
    QRect rect;
    grid.GetItemRect(row, column, &rect);
    return QPoint(rect.right() - 3, rect.center().y());
}

inline QPoint cellPoint(TestGrid const & grid, zenu::tag_HROW * row)
{
    return cellPoint(grid, row, grid.firstColumn());
}

} // namespace zenutest
