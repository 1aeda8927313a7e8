#pragma once

#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/MainWindow.h"
#include "tests/explorer/FileFixture.h"

#include <QLineEdit>
#include <QStatusBar>

#include <initializer_list>
#include <string>

namespace zenutest {

// To be called by init: the offscreen platform complains of what dialogs and menus want of it.
inline void failOnWarningsButOfDialogs()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support ).*")));
}

// The explorer's window with the tree of a directory, shown and active, for hands to play with.
class ShownWindow
{
public:
    explicit ShownWindow(std::string const & directory)
    {
        window.showDirectory(directory);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTRY_VERIFY(grid().hasFocus());
    }

    explorer::ExplorerGrid & grid() { return *window.grid(); }

    std::string textOf(zenu::tag_HROW * row, explorer::Column column = explorer::Column::Name)
    {
        return grid().GetItemText(row, explorer::handleOf(column));
    }
    // The row of the tree with this name, null when it is not to be seen.
    zenu::tag_HROW * row(std::string const & name)
    {
        zenu::tag_HROW * found = topRow();
        while (found && textOf(found) != name) {
            found = grid().GetNextRow(zenu::GCN_VISIBLE_NEXT, found);
        }
        return found;
    }
    zenu::tag_HROW * topRow()
    {
        zenu::tag_HROW * row = grid().GetNextRow(zenu::GCN_VISIBLE_FIRST);
        while (row && static_cast<long>(grid().GetRowParam(row)) != 0) {
            row = grid().GetNextRow(zenu::GCN_VISIBLE_NEXT, row);
        }
        return row;
    }
    // The names below the top of the tree as they are seen, as "a|b|c".
    std::string names()
    {
        std::string result;
        zenu::tag_HROW * row = topRow();
        while (row && (row = grid().GetNextRow(zenu::GCN_VISIBLE_NEXT, row))) {
            result += (result.empty() ? "" : "|") + textOf(row);
        }
        return result;
    }
    // The names of the selected rows, from top to bottom.
    std::string selected()
    {
        std::string result;
        for (auto row = grid().begin(zenu::GCN_VISIBLE_FIRST); row != grid().end(); ++row) {
            zenu::GC_ROW record;
            record.mask = zenu::GCRM_STATE;
            grid().GetRow(*row, &record);
            if ((record.state & zenu::GCRS_SELECTED) != 0) {
                result += (result.empty() ? "" : "|") + textOf(*row);
            }
        }
        return result;
    }
    std::string current() { return textOf(grid().currentRow()); }

    // The middle of a cell, in coordinates of the grid.
    QPoint cell(std::string const & name, explorer::Column column = explorer::Column::Name)
    {
        QRect place;
        grid().EnsureVisible(row(name), zenu::GC_NOCOLUMN);
        grid().UpdateVisibleRows();
        grid().GetItemRect(row(name), explorer::handleOf(column), &place);
        return place.center();
    }
    // The check box of a row, in coordinates of the grid.
    QPoint box(std::string const & name)
    {
        constexpr int fromLeft = 8; // within the box, which is at the left end of its cell
        QRect place;
        QPoint const middle = cell(name, explorer::Column::Executable);
        grid().GetItemRect(row(name), explorer::handleOf(explorer::Column::Executable), &place);
        return QPoint(place.left() + fromLeft, middle.y());
    }
    void select(std::initializer_list<char const *> names)
    {
        grid().ClearSelection();
        for (char const * const name : names) {
            QVERIFY(grid().SetRowSel(row(name), true));
        }
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget * const focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : &window, key, modifiers);
    }
    // Any letters, which keyClicks does not know.
    void type(char const * text)
    {
        for (QChar const letter : QString::fromUtf8(text)) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
            QCoreApplication::sendEvent(QApplication::focusWidget(), &press);
        }
    }
    void click(QPoint const & point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(&grid(), Qt::LeftButton, modifiers, point);
    }
    // The open editor, null for none.
    QLineEdit * editor()
    {
        return grid().findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QString message() { return window.statusBar()->currentMessage(); }

    explorer::MainWindow window;
};

} // namespace zenutest
