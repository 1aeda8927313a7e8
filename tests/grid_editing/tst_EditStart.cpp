#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/editing/EditStart.h"
#include "zenu/grid/editing/KItemLineEditor.h"
#include "zenu/grid/geometry/CElementRects.h"

#include <QStyle>
#include <QWidget>

using namespace zenu;
using namespace zenutest;

namespace {

bool hasLineEditor(int kind)
{
    return kind == GCCK_TEXT || kind == GCCK_TEXTWITHICON;
}

// A parent for editors and what they are made of.
struct Place
{
    Place()
    {
        rects.editorRect = QRect(12, 30, 70, 19);
        font.setPointSize(17);
        inputs.grid = &grid;
        inputs.font = &font;
        inputs.rects = &rects;
        inputs.text = "Caf\xe9";
    }
    QWidget grid;
    QFont font;
    CElementRects rects;
    LineEditorInputs inputs;
};

} // namespace

class tst_EditStart : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void canEdit_isTheColumnsFlag_butForSections_data() { addRowClasses(); }
    void canEdit_isTheColumnsFlag_butForSections();
    void hasLineEditor_textAndTextWithIconAlone_data() { addKinds(); }
    void hasLineEditor_textAndTextWithIconAlone();
    void startAndFinish_markTheItemOfOrdinaryRowsAlone_data() { addRowClasses(); }
    void startAndFinish_markTheItemOfOrdinaryRowsAlone();
    void startAndFinish_leaveOtherStatesAndItems();
    void createEditor_ofEachKind_data() { addKinds(); }
    void createEditor_ofEachKind();
    void createEditor_textPlaceFontAndSelection();
    void createEditor_lowRow_hasNoFrameThatCutsTheText();
    void createEditor_nullText_isEmpty();
    void createEditor_longText_isNotCut();
    void setupEditor_ofEachRowClass_data() { addRowClasses(); }
    void setupEditor_ofEachRowClass();
    void setupEditor_kindWithoutEditor_marksNothing_data() { addKinds(); }
    void setupEditor_kindWithoutEditor_marksNothing();
};

void tst_EditStart::canEdit_isTheColumnsFlag_butForSections()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    for (unsigned flags : {0U, unsigned(GCCF_EDITABLE), GCCF_CLICKEDIT | GCCF_DELAYEDEDIT,
                           GCCF_EDITABLE | GCCF_TREE, ~unsigned(GCCF_EDITABLE)}) {
        for (int kind = 0; kind < kindCount; ++kind) {
            CGCColumn * const column = rows.column(kind);
            column->flags = flags;
            CCanEdit visitor(column);
            rows.all()[std::size_t(rowClass)]->Accept(&visitor);
            bool const isSection = rowClassNames[std::size_t(rowClass)] == QByteArray("section");
            QCOMPARE(visitor.result, !isSection && (flags & GCCF_EDITABLE) != 0);
        }
    }
}

void tst_EditStart::hasLineEditor_textAndTextWithIconAlone()
{
    QFETCH(int, kind);
    RowsOfAllClasses const rows;
    KHasLineEditor visitor;
    rows.column(kind)->Accept(&visitor);
    QCOMPARE(visitor.result, hasLineEditor(kind));
}

void tst_EditStart::startAndFinish_markTheItemOfOrdinaryRowsAlone()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_TEXT);
    bool const marks = rowClass == 0;
    CStartEditing start(column);
    rows.all()[std::size_t(rowClass)]->Accept(&start);
    QCOMPARE(rows.ordinary.ItemOf(column)->hasState(GCIS_MARKED), marks);
    QVERIFY(!rows.section.ItemOf(column)->hasState(GCIS_MARKED));
    CFinishEditing finish(column);
    rows.all()[std::size_t(rowClass)]->Accept(&finish);
    QVERIFY(!rows.ordinary.ItemOf(column)->hasState(GCIS_MARKED));
}

void tst_EditStart::startAndFinish_leaveOtherStatesAndItems()
{
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_TEXTWITHICON);
    GridItem * const item = rows.ordinary.ItemOf(column);
    item->flags = GCIS_FOCUSED | GCIS_CHECKED;
    item->setAlignment(3);
    auto const before = item->flags;
    CStartEditing start(column);
    rows.ordinary.Accept(&start);
    QCOMPARE(int(item->flags), before | GCIS_MARKED);
    for (GridItem const & other : rows.ordinary.Items()) {
        QCOMPARE(other.hasState(GCIS_MARKED), &other == item);
    }
    CFinishEditing finish(column);
    rows.ordinary.Accept(&finish);
    QCOMPARE(item->flags, before);
}

void tst_EditStart::createEditor_ofEachKind()
{
    QFETCH(int, kind);
    RowsOfAllClasses const rows;
    Place place;
    CCreateEditor visitor(place.inputs);
    rows.column(kind)->Accept(&visitor);
    QCOMPARE(visitor.widget != nullptr, hasLineEditor(kind));
    QCOMPARE(place.grid.findChildren<QLineEdit *>().size(), hasLineEditor(kind) ? 1 : 0);
}

void tst_EditStart::createEditor_textPlaceFontAndSelection()
{
    RowsOfAllClasses const rows;
    Place place;
    CCreateEditor visitor(place.inputs);
    rows.column(GCCK_TEXT)->Accept(&visitor);
    QLineEdit const & editor = *visitor.widget;
    QCOMPARE(editor.parentWidget(), &place.grid);
    QVERIFY(!editor.isVisible()); // until it is activated
    QCOMPARE(editor.text(), QString::fromLatin1("Caf\xe9"));
    QCOMPARE(editor.selectedText(), editor.text());
    QCOMPARE(editor.geometry(), place.rects.editorRect);
    QCOMPARE(editor.font().pointSize(), 17);
}

void tst_EditStart::createEditor_lowRow_hasNoFrameThatCutsTheText()
{
    RowsOfAllClasses const rows;
    Place place;
    int const text = QFontMetrics(place.font, &place.grid).height();
    int const frame = place.grid.style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    for (int const height : {text - 3, text, text + 2 * frame - 1, text + 2 * frame, 100}) {
        place.rects.editorRect.setHeight(height);
        CCreateEditor visitor(place.inputs);
        rows.column(GCCK_TEXT)->Accept(&visitor);
        QCOMPARE(visitor.widget->hasFrame(), height >= text + 2 * frame);
        QCOMPARE(visitor.widget->height(), height);
    }
}

void tst_EditStart::createEditor_nullText_isEmpty()
{
    RowsOfAllClasses const rows;
    Place place;
    place.inputs.text = nullptr;
    CCreateEditor visitor(place.inputs);
    rows.column(GCCK_TEXT)->Accept(&visitor);
    QCOMPARE(visitor.widget->text(), QString());
}

// A line edit of Qt takes 32767 characters: what it cut off would be lost when the text is saved.
void tst_EditStart::createEditor_longText_isNotCut()
{
    RowsOfAllClasses const rows;
    Place place;
    QByteArray const text = QByteArray(40000, 'x') + "\t\x01 end";
    place.inputs.text = text.constData();
    CCreateEditor visitor(place.inputs);
    rows.column(GCCK_TEXT)->Accept(&visitor);
    QCOMPARE(visitor.widget->text().toLatin1(), text);
}

void tst_EditStart::setupEditor_ofEachRowClass()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    Place place;
    FakeWrapper wrapper;
    CGCColumn * const column = rows.column(GCCK_TEXT);
    CCreateAndSetupEditor visitor(place.inputs, &wrapper, &rows.columns, column);
    rows.all()[std::size_t(rowClass)]->Accept(&visitor);
    bool const isSection = rowClass == 1;
    QCOMPARE(visitor.editor != nullptr, !isSection);
    QCOMPARE(place.grid.findChildren<QLineEdit *>().size(), isSection ? 0 : 1);
    QCOMPARE(CItemEditorImpl::OpenWidget() != nullptr, !isSection);
    QCOMPARE(rows.ordinary.ItemOf(column)->hasState(GCIS_MARKED), rowClass == 0);
    QVERIFY(!rows.section.ItemOf(column)->hasState(GCIS_MARKED));
    visitor.editor.reset();
    QVERIFY(place.grid.findChildren<QLineEdit *>().isEmpty());
    QVERIFY(!CItemEditorImpl::OpenWidget());
}

void tst_EditStart::setupEditor_kindWithoutEditor_marksNothing()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    Place place;
    FakeWrapper wrapper;
    CGCColumn * const column = rows.column(kind);
    CCreateAndSetupEditor visitor(place.inputs, &wrapper, &rows.columns, column);
    rows.ordinary.Accept(&visitor);
    QCOMPARE(visitor.editor != nullptr, hasLineEditor(kind));
    QCOMPARE(rows.ordinary.ItemOf(column)->hasState(GCIS_MARKED), hasLineEditor(kind));
}

ZENU_TEST(tst_EditStart)
#include "tst_EditStart.moc"
