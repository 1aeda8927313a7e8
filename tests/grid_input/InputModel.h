#pragma once

#include "zenu/grid/GridTypes.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace zenutest {

// What keys and presses do to selection, focus and anchor, and what is told of it, written down as
// the rules read. Rows are names; nothing in here scrolls or draws.
struct InputModel
{
    enum class Press
    {
        Left,
        Right,
        Double
    };

    // Where a press falls.
    struct Place
    {
        int row = 0;
        int column = 0;
        unsigned element = 0;
        bool hasChildren = false;
        bool treeColumn = false;
        bool checkBox = false;
    };

    QStringList order; // the visible order
    QSet<QString> selection;
    int focusRow = -1;
    int focusColumn = -1;
    int anchor = -1;
    bool singleSelection = false;
    bool allowed = true;      // the answer of OnSelectionChanging
    bool clickAnswer = true;  // of OnClick
    bool doubleAnswer = true; // of OnDoubleClick
    bool awaitsMove = false;  // the first move will be told
    QStringList calls;

    QString sortedSelection() const
    {
        QStringList names = selection.values();
        names.sort();
        return names.join(u' ');
    }

    QStringList names(int from, int to) const
    {
        return order.mid(std::min(from, to), std::abs(to - from) + 1);
    }

    bool ask(QStringList leaving, QStringList entering)
    {
        leaving.sort();
        entering.sort();
        QString line = QStringLiteral("selecting");
        for (QString const & name : leaving) {
            line += QStringLiteral(" -") + name;
        }
        for (QString const & name : entering) {
            line += QStringLiteral(" +") + name;
        }
        calls << line;
        return allowed;
    }
    void selectOnly(QStringList const & rows)
    {
        if (ask(selection.values(), rows)) {
            selection = QSet<QString>(rows.begin(), rows.end());
            calls << QStringLiteral("selected");
        }
    }
    void selectAlso(QString const & row)
    {
        if (ask({}, {row})) {
            selection.insert(row);
            calls << QStringLiteral("selected");
        }
    }
    void deselect(QString const & row)
    {
        if (ask({row}, {})) {
            selection.remove(row);
            calls << QStringLiteral("selected");
        }
    }

    // A movement key took the focus to a row and a column.
    void moved(int row, int column, bool shift, bool ctrl)
    {
        int const before = focusRow;
        focusRow = row;
        focusColumn = column;
        if (row == before) {
            return;
        }
        if (singleSelection) {
            selectOnly({order[row]});
            return;
        }
        if (!shift) {
            anchor = -1;
        }
        if (ctrl) {
            return;
        }
        if (!shift) {
            selectOnly({order[row]});
            return;
        }
        if (anchor == -1) {
            anchor = before;
        }
        anchor = std::min(anchor, int(order.size()) - 1);
        selectOnly(names(anchor, row));
    }

    bool notify(char const * what, Place const & at, unsigned element, bool answer)
    {
        calls << QStringLiteral("%1 %2/%3 %4")
                     .arg(QLatin1String(what), order[at.row])
                     .arg(at.column)
                     .arg(element);
        return answer;
    }

    // The selection rules that all presses share; whether the row was selected.
    bool selectByPress(Press kind, Place const & at, bool shift, bool ctrl)
    {
        QString const row = order[at.row];
        if (!shift) {
            anchor = -1;
        }
        bool const wasSelected = selection.contains(row);
        int const before = focusRow;
        focusRow = at.row;
        focusColumn = at.column;
        if (singleSelection) {
            selectOnly({row});
        } else if (ctrl) {
            if (!wasSelected) {
                selectAlso(row);
            } else if (kind == Press::Right) {
                deselect(row);
            }
        } else if (shift) {
            if (anchor == -1) {
                anchor = before;
            }
            anchor = std::min(anchor, int(order.size()) - 1);
            selectOnly(anchor == -1 ? QStringList{row} : names(anchor, at.row));
        } else if (wasSelected) {
            selectAlso(row);
        } else {
            selectOnly({row});
        }
        return wasSelected;
    }

    // Whether the element took the press for itself. Rows are expanded by the real grid alone.
    bool pressElement(bool twice, Place const & at)
    {
        bool const onButton = at.element == zenu::GCEL_BUTTON && at.treeColumn;
        if (at.hasChildren && (twice || onButton)) {
            calls << QStringLiteral("expanding ") + order[at.row]
                  << QStringLiteral("expanded ") + order[at.row];
            return true;
        }
        if (at.element == zenu::GCEL_LEAD) {
            notify("lead", at, 0, true);
            return true;
        }
        return at.checkBox && (twice || at.element == zenu::GCEL_CHECK);
    }

    void press(Press kind, Place const & at, bool shift, bool ctrl)
    {
        if (kind == Press::Right) {
            selectByPress(kind, at, shift, ctrl);
            notify("right", at, at.element, true);
            return;
        }
        bool const twice = kind == Press::Double;
        if (twice ? notify("double", at, at.element, doubleAnswer)
                  : !notify("click", at, at.element, clickAnswer)) {
            return;
        }
        bool const wasSelected = selectByPress(kind, at, shift, ctrl);
        if (pressElement(twice, at)) {
            return;
        }
        if (ctrl) {
            if (wasSelected) {
                deselect(order[at.row]);
            }
        } else if (!shift) {
            selectOnly({order[at.row]});
        }
        awaitsMove = awaitsMove || !twice;
    }
};

} // namespace zenutest
