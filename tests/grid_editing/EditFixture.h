#pragma once

#include "tests/grid/GridFixture.h"
#include "zenu/grid/editing/CItemEditor.h"
#include "zenu/grid/editing/KItemLineEditor.h"

#include <QLineEdit>

namespace zenutest {

using namespace zenu;

// Columns of an EditGrid, by id.
enum EditColumn
{
    Text,
    Icon,    // text with icon
    Plain,   // not editable
    Delayed, // editing begins after a while
    Click,   // the first press edits
    Check,
    List,
    Combo,
    editColumns
};

// A grid with a column for each way to edit and some rows, named by numbers.
class EditGrid : public TestGrid
{
public:
    explicit EditGrid(long style = 0, int rowCount = 6)
        : TestGrid(style)
    {
        addKind(GCCK_TEXT, 80, GCCF_EDITABLE);
        addKind(GCCK_TEXTWITHICON, 80, GCCF_EDITABLE);
        addKind(GCCK_TEXT, 80);
        addKind(GCCK_TEXT, 80, GCCF_EDITABLE | GCCF_DELAYEDEDIT);
        addKind(GCCK_TEXT, 80, GCCF_EDITABLE | GCCF_CLICKEDIT);
        addKind(GCCK_CHECKBOX, 80);
        addKind(GCCK_LISTBOX, 80, GCCF_EDITFLAGS);
        addKind(GCCK_COMBOBOX, 80, GCCF_EDITFLAGS);
        rows = addMany(rowCount);
    }

    static tag_HCOLUMN * column(int id) { return columnHandle(id); }

    // Shows the grid as the active window and gives it the focus.
    bool activate(int height = 300)
    {
        if (!showSized(editColumns * 80 + 40, height)) {
            return false;
        }
        activateWindow();
        bool const active = QTest::qWaitForWindowActive(this);
        setFocus();
        settle();
        return active && hasFocus();
    }
    bool edit(tag_HROW * row, int id = Text) { return EditItem(row, column(id)); }

    // The open editor, null for none. There is never a second one in the grid.
    QLineEdit * editor() const
    {
        QList<QLineEdit *> const found =
            findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
        return found.size() == 1 ? found.front() : nullptr;
    }
    void type(QString const & text) { QTest::keyClicks(editor(), text); }

    QRect itemRect(tag_HROW * row, int id) const
    {
        QRect rect;
        GetItemRect(row, column(id), &rect);
        return rect;
    }
    QPoint middle(tag_HROW * row, int id) const { return itemRect(row, id).center(); }
    void click(tag_HROW * row, int id, Qt::KeyboardModifiers keys = {})
    {
        clickAt(middle(row, id), keys);
    }
    // The press may delete the grid.
    void clickAt(QPoint const & point, Qt::KeyboardModifiers keys)
    {
        QPointer<QWidget> const pressed(this);
        QTest::mousePress(this, Qt::LeftButton, keys, point);
        if (pressed) {
            QTest::mouseRelease(this, Qt::LeftButton, keys, point);
        }
    }
    // As a person makes it, with the single click before.
    void doubleClick(tag_HROW * row, int id)
    {
        click(row, id);
        QTest::mouseDClick(this, Qt::LeftButton, {}, middle(row, id));
    }
    // At the box itself.
    void clickBox(tag_HROW * row, Qt::KeyboardModifiers keys = {})
    {
        QRect const rect = itemRect(row, Check);
        clickAt(QPoint(rect.left() + 8, rect.center().y()), keys);
    }

    QString text(tag_HROW * row, int id = Text) const
    {
        return QString::fromLatin1(GetItemText(row, column(id)).c_str());
    }
    bool hasState(tag_HROW * row, int id, unsigned state) const
    {
        GC_ITEM item;
        return GetItem(row, column(id), &item) && (item.state & state) != 0;
    }
    bool isMarked(tag_HROW * row, int id = Text) const { return hasState(row, id, GCIS_MARKED); }
    bool isChecked(tag_HROW * row) const { return hasState(row, Check, GCIS_CHECKED); }
    QString checked() const
    {
        QStringList names;
        for (tag_HROW * const row : rows) {
            if (GetPriv().LocateRow(row) && isChecked(row)) {
                names << name(row);
            }
        }
        return names.join(u' ');
    }

    std::vector<tag_HROW *> rows;
};

// Notes what a grid tells of edits, selection and focus: a row that is dead by then reads "DEAD".
class EditNotes : public IGridNotification
{
public:
    explicit EditNotes(TestGrid * told)
        : grid(told)
    {
        grid->setNotification(this);
    }

    QStringList calls;
    std::function<bool(tag_HROW *)> vetoes;   // null for never
    std::function<void(QString const &)> act; // in every call, after it was noted
    std::function<bool()> doubleClickStops;   // null for yes
    bool allowsSelection = true;

    QString taken() { return std::exchange(calls, {}).join(QStringLiteral("; ")); }
    // Those of edits alone.
    QString takenItems()
    {
        return std::exchange(calls, {}).filter(QStringLiteral("chang")).join(QStringLiteral("; "));
    }

    bool OnItemChanging(tag_HROW * row, tag_HCOLUMN * column) override
    {
        note("changing", row, column);
        return vetoes && vetoes(row);
    }
    bool OnItemChanged(tag_HROW * row, tag_HCOLUMN * column) override
    {
        note("changed", row, column);
        return false;
    }
    void OnSelectionChanged() override { note(QStringLiteral("selected")); }
    bool OnSelectionChanging(GC_SELECTIONCHANGE *) override
    {
        note(QStringLiteral("selecting"));
        return allowsSelection;
    }
    void OnFocusIn() override { note(QStringLiteral("in")); }
    void OnFocusOut() override { note(QStringLiteral("out")); }
    bool OnDoubleClick(tag_HROW *, tag_HCOLUMN *, unsigned) override
    {
        return !doubleClickStops || doubleClickStops();
    }

    TestGrid * grid;

private:
    void note(char const * what, tag_HROW * row, tag_HCOLUMN * column)
    {
        note(QStringLiteral("%1 %2/%3")
                 .arg(QLatin1String(what), grid->name(row))
                 .arg(reinterpret_cast<qintptr>(column)));
    }
    void note(QString const & what)
    {
        calls << what;
        if (act) {
            act(what);
        }
    }
};

// Slim rows with texts and checks of the application's, by param; notes what the grid writes.
class EditSlim : public SlimTree
{
public:
    char const * GetItemText(tag_HROW *, long param, tag_HCOLUMN * column) override
    {
        QByteArray & text = texts[{param, reinterpret_cast<qintptr>(column)}];
        if (text.isNull()) {
            text = "s" + QByteArray::number(static_cast<qlonglong>(param));
        }
        return text.constData();
    }
    void SetItemText(tag_HROW *, long param, tag_HCOLUMN * column, char const * text) override
    {
        texts[{param, reinterpret_cast<qintptr>(column)}] = text;
        written << QStringLiteral("text %1 %2").arg(param).arg(QLatin1String(text));
        if (writing) {
            writing();
        }
    }
    void SetItemCheck(tag_HROW *, long param, tag_HCOLUMN *, bool isChecked) override
    {
        checks[param] = isChecked ? 1 : 0;
        written << QStringLiteral("check %1 %2").arg(param).arg(isChecked);
        if (writing) {
            writing();
        }
    }
    int IsItemChecked(tag_HROW *, long param, tag_HCOLUMN *) override { return checks[param]; }

    std::map<std::pair<long, qintptr>, QByteArray> texts;
    std::map<long, int> checks;
    QStringList written;
    std::function<void()> writing;
};

} // namespace zenutest
