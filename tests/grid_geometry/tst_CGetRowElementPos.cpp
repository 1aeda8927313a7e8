#include "tests/grid_geometry/GeometryFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/GridRecords.h>
#include <zenu/grid/columns/CGCColumnKinds.h>
#include <zenu/grid/geometry/CGetElementPos.h>
#include <zenu/grid/geometry/CGetRowElementPos.h>
#include <zenu/grid/geometry/HitElement.h>
#include <zenu/grid/geometry/TextCache.h>
#include <zenu/grid/inner/ISlimGridCallbackWrapper.h>
#include <zenu/grid/inner/ITextCallback.h>
#include <zenu/grid/inner/SlabPool.h>
#include <zenu/grid/look/CDrawContext.h>
#include <zenu/grid/rows/CGCOrdinaryRow.h>
#include <zenu/grid/rows/CGCSection.h>
#include <zenu/grid/rows/CGCSlimRow.h>
#include <zenu/grid/rows/ColumnSet.h>

#include <QStringList>

using namespace zenu;

namespace {

class Texts : public ITextCallback
{
public:
    char const * GetText(IGCRow *, CGCColumn *) override
    {
        ++asked;
        return "called back";
    }
    int asked = 0;
};

// Notes the calls in their order; its rows have one text, a font and maybe no check box.
class Slim : public ISlimGridCallbackWrapper
{
public:
    void GetRowDrawInfo(GC_DRAWROWINFO * info, IGCRow *) override
    {
        calls << QStringLiteral("row");
        givenFont = info->GetFont();
        givenText = info->textColor;
        givenBack = info->bkColor;
        if (font) {
            info->SetFont(font);
        }
        if (forgetFont) {
            info->SetFont(nullptr);
        }
    }
    void ReleaseRowDrawInfo(GC_DRAWROWINFO * info, IGCRow *) override
    {
        calls << QStringLiteral("release");
        releasedFont = info->GetFont();
    }
    void GetItemDrawInfo(GC_DRAWITEMINFO * info, IGCRow *, CGCColumn *, bool, bool) override
    {
        calls << QStringLiteral("item");
        info->hideCheck = hideCheck;
    }
    char const * GetItemText(IGCRow *, CGCColumn *) override
    {
        calls << QStringLiteral("text");
        return text;
    }
    void SetItemText(IGCRow *, CGCColumn *, char const *) override {}
    void SetItemCheck(IGCRow *, CGCColumn *, bool) override {}
    int IsItemChecked(IGCRow *, CGCColumn *) override { return 0; }
    bool HasSubRows(IGCRow *) override { return false; }
    int GetSubRowCount(IGCRow *) override { return 0; }
    void LoadSubRows(CGCSlimRow *, bool, int) override {}
    int GetDefaultRowHeight() override { return 17; }

    QStringList calls;
    QFont * font = nullptr;
    QFont const * givenFont = nullptr;
    QFont const * releasedFont = nullptr;
    QColor givenText;
    QColor givenBack;
    char const * text = "slim";
    bool hideCheck = false;
    bool forgetFont = false;
};

} // namespace

class tst_CGetRowElementPos : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void ordinary_cell_isMovedIntoPlace();
    void ordinary_callbackText_isAskedAndNotKept();
    void ordinary_rowFont_beatsTheGrids();
    void ordinary_hoverNeedsRowAndColumn();
    void ordinary_hideCheck_isTheItems();
    void ordinary_level_indentsWithTreeLinesOnly();
    void slim_bothClasses_askInOrder();
    void slim_defaults_areTheGrids();
    void slim_font_isUsedAndReleased();
    void slim_hideCheck_isTheRecords();
    void slim_nullText_hasNoRectangle();
    void section_wide_textStartsAt15();
    void section_narrow_textStartsAt2();
    void section_font_isTheRows();
    void nullColumn_leavesResultEmpty();
    void hit_ofPlacedCell_usesContentsCoordinates();

private:
    CGCColumn * add(int kind, unsigned flags, int left, int width);
    CElementRects positions(IGCRow & row, CGCColumn * column, bool isHoverRow = false,
                            int height = 17);

    std::unique_ptr<ColumnSet> columns;
    CDrawContext context;
    KGridImages images;
    std::unique_ptr<TextCache> texts;
    QFont font;
    Texts textCallback;
    Slim slim;
};

void tst_CGetRowElementPos::init()
{
    zenutest::Test::init();
    columns = std::make_unique<ColumnSet>();
    texts = std::make_unique<TextCache>();
    images = KGridImages();
    images.set(KGridImages::Normal, zenutest::images(16, 16));
    textCallback = Texts();
    slim = Slim();
    context = CDrawContext();
    context.indent = 20;
    context.contentsWidth = 300;
    context.font = &font;
    context.images = &images;
    context.textCallback = &textCallback;
    context.slimCallback = &slim;
    context.texts = texts.get();
    context.colors.set(GCC_TEXT, QColor(1, 2, 3));
    context.colors.set(GCC_BACKGROUND, QColor(4, 5, 6));
}

CGCColumn * tst_CGetRowElementPos::add(int kind, unsigned flags, int left, int width)
{
    CGCColumn * const column = columns->add(makeColumn(kind, columns->count(), columns->count()));
    column->flags = flags;
    column->left = left;
    column->width = width;
    return column;
}

CElementRects tst_CGetRowElementPos::positions(IGCRow & row, CGCColumn * column, bool isHoverRow,
                                               int height)
{
    CGetRowElementPos visitor(context, isHoverRow, column, 1000, height);
    row.Accept(&visitor);
    return visitor.result();
}

void tst_CGetRowElementPos::ordinary_cell_isMovedIntoPlace()
{
    add(GCCK_TEXT, 0, 0, 50);
    CGCColumn * const column = add(GCCK_TEXTWITHICON, 0, 50, 100);
    CGCOrdinaryRow row(nullptr, *columns);
    QCOMPARE(zenutest::dump(positions(row, column)),
             QStringLiteral("cell=50,1000,149,1016 image=52,1000,68,1016 editor=70,1000,148,1016"));
    row.DestroyItems(*columns);
}

void tst_CGetRowElementPos::ordinary_callbackText_isAskedAndNotKept()
{
    CGCColumn * const column = add(GCCK_TEXT, 0, 0, 200);
    CGCOrdinaryRow row(nullptr, *columns);
    row.ItemOf(column)->text = GC_TEXTCALLBACK;
    QCOMPARE(positions(row, column).fitCount, 11);
    QCOMPARE(positions(row, column).fitCount, 11);
    QCOMPARE(textCallback.asked, 2);
    QVERIFY(row.ItemOf(column)->isCallback());
    row.DestroyItems(*columns);
}

void tst_CGetRowElementPos::ordinary_rowFont_beatsTheGrids()
{
    CGCColumn * const column = add(GCCK_TEXT, 0, 0, 200);
    CGCOrdinaryRow row(nullptr, *columns);
    row.ItemOf(column)->text = GC_TEXTCALLBACK;
    int const usual = positions(row, column).fullTextRect.width();
    QFont large(font);
    large.setPixelSize(40);
    row.font = &large;
    QVERIFY(positions(row, column).fullTextRect.width() > usual);
    row.DestroyItems(*columns);
}

void tst_CGetRowElementPos::ordinary_hoverNeedsRowAndColumn()
{
    CGCColumn * const first = add(GCCK_COMBOBOX, 0, 0, 100);
    CGCColumn * const second = add(GCCK_COMBOBOX, 0, 100, 100);
    CGCOrdinaryRow row(nullptr, *columns);
    context.hoverColumn = second->itemIndex;
    QVERIFY(positions(row, second, false).dropRect.isNull());
    QVERIFY(positions(row, first, true).dropRect.isNull());
    QVERIFY(!positions(row, second, true).dropRect.isNull());
    row.DestroyItems(*columns);
}

void tst_CGetRowElementPos::ordinary_hideCheck_isTheItems()
{
    CGCColumn * const column = add(GCCK_CHECKBOX, 0, 0, 100);
    CGCOrdinaryRow row(nullptr, *columns);
    QVERIFY(!positions(row, column).checkRect.isNull());
    row.ItemOf(column)->setCheckStyle(GridItem::hideCheck);
    QVERIFY(positions(row, column).checkRect.isNull());
    row.DestroyItems(*columns);
}

void tst_CGetRowElementPos::ordinary_level_indentsWithTreeLinesOnly()
{
    CGCColumn * const plain = add(GCCK_TEXT, GCCF_TREE, 0, 100);
    CGCColumn * const lined = add(GCCK_TEXT, GCCF_TREE | GCCF_TREELINES, 0, 100);
    CGCOrdinaryRow top(nullptr, *columns);
    CGCOrdinaryRow middle(&top, *columns);
    CGCOrdinaryRow row(&middle, *columns);
    QCOMPARE(cellLevel(row, *plain), 0);
    QCOMPARE(cellLevel(row, *lined), 2);
    QVERIFY(positions(row, plain).indentRect.isNull());
    QCOMPARE(positions(row, lined).indentRect, QRect(0, 1000, 40, 17));
    QVERIFY(!positions(top, lined).indentRect.isValid());
    for (CGCOrdinaryRow * each : {&top, &middle, &row}) {
        each->DestroyItems(*columns);
    }
}

void tst_CGetRowElementPos::slim_bothClasses_askInOrder()
{
    CGCColumn * const column = add(GCCK_TEXT, 0, 0, 100);
    CGCColumn * const check = add(GCCK_CHECKBOXWITHICON, 0, 100, 100);
    CGCSlimRow slimRow(nullptr);
    CGCLonelySlimRow lonely(nullptr);
    for (IGCRow * row : {static_cast<IGCRow *>(&slimRow), static_cast<IGCRow *>(&lonely)}) {
        slim.calls.clear();
        QCOMPARE(positions(*row, column).fitCount, 4);
        QCOMPARE(slim.calls.join(u' '), QStringLiteral("row text release"));
        slim.calls.clear();
        QCOMPARE(positions(*row, check).checkRect, QRect(102, 1003, 12, 12));
        QCOMPARE(slim.calls.join(u' '), QStringLiteral("row item text release"));
    }
}

void tst_CGetRowElementPos::slim_defaults_areTheGrids()
{
    CGCColumn * const column = add(GCCK_TEXT, 0, 0, 100);
    CGCLonelySlimRow row(nullptr);
    positions(row, column);
    QCOMPARE(slim.givenFont, &font);
    QCOMPARE(slim.givenText, QColor(1, 2, 3));
    QCOMPARE(slim.givenBack, QColor(4, 5, 6));
    slim.forgetFont = true;
    QCOMPARE(positions(row, column).fitCount, 4);
}

void tst_CGetRowElementPos::slim_font_isUsedAndReleased()
{
    CGCColumn * const column = add(GCCK_TEXT, 0, 0, 300);
    CGCLonelySlimRow row(nullptr);
    int const usual = positions(row, column).fullTextRect.width();
    QFont large(font);
    large.setPixelSize(40);
    slim.font = &large;
    QVERIFY(positions(row, column).fullTextRect.width() > usual);
    QCOMPARE(slim.releasedFont, &large);
}

void tst_CGetRowElementPos::slim_hideCheck_isTheRecords()
{
    CGCColumn * const column = add(GCCK_CHECKBOX, 0, 0, 100);
    CGCLonelySlimRow row(nullptr);
    QVERIFY(!positions(row, column).checkRect.isNull());
    slim.hideCheck = true;
    QVERIFY(positions(row, column).checkRect.isNull());
}

void tst_CGetRowElementPos::slim_nullText_hasNoRectangle()
{
    CGCColumn * const column = add(GCCK_TEXT, 0, 0, 100);
    CGCLonelySlimRow row(nullptr);
    slim.text = nullptr;
    QVERIFY(positions(row, column).textRect.isNull());
    context.slimCallback = nullptr;
    QVERIFY(positions(row, column).cellRect.isNull());
}

void tst_CGetRowElementPos::section_wide_textStartsAt15()
{
    CGCSection row(*columns);
    row.SetText("Section");
    CElementRects const rects = positions(row, nullptr, false, 20);
    QCOMPARE(rects.cellRect, QRect(0, 1000, 300, 20));
    QCOMPARE(rects.buttonRect, QRect(2, 1005, 9, 9));
    QCOMPARE(rects.textRect.left(), 15);
    QCOMPARE(rects.fitCount, 7);
    context.contentsWidth = 14;
    QCOMPARE(positions(row, nullptr).textRect.left(), 15);
}

void tst_CGetRowElementPos::section_narrow_textStartsAt2()
{
    CGCSection row(*columns);
    row.SetText("Section");
    context.contentsWidth = 13;
    CElementRects const rects = positions(row, nullptr);
    QVERIFY(rects.buttonRect.isNull());
    QCOMPARE(rects.textRect.left(), 2);
    QCOMPARE(rects.textRect.right(), 11);
    row.SetText(nullptr);
    QVERIFY(positions(row, nullptr).textRect.isNull());
}

void tst_CGetRowElementPos::section_font_isTheRows()
{
    CGCSection row(*columns);
    row.SetText("Section");
    int const usual = positions(row, nullptr).fullTextRect.width();
    QFont large(font);
    large.setPixelSize(40);
    row.font = &large;
    QVERIFY(positions(row, nullptr).fullTextRect.width() > usual);
}

void tst_CGetRowElementPos::nullColumn_leavesResultEmpty()
{
    CGCOrdinaryRow ordinary(nullptr, *columns);
    CGCSlimRow slimRow(nullptr);
    QCOMPARE(zenutest::dump(positions(ordinary, nullptr)), QString());
    QCOMPARE(zenutest::dump(positions(slimRow, nullptr)), QString());
    QVERIFY(slim.calls.isEmpty());
}

void tst_CGetRowElementPos::hit_ofPlacedCell_usesContentsCoordinates()
{
    CGCColumn * const column = add(GCCK_CHECKBOX, GCCF_TREE, 500, 100);
    CGCLonelySlimRow row(nullptr);
    CElementRects const rects = positions(row, column);
    QCOMPARE(hitElement(rects, QPoint(504, 1008)), GCEL_BUTTON);
    QCOMPARE(hitElement(rects, QPoint(525, 1008)), GCEL_CHECK);
    QCOMPARE(hitElement(rects, QPoint(540, 1008)), GCEL_TEXT);
    QCOMPARE(hitElement(rects, QPoint(515, 1008)), GCEL_CELL);
}

ZENU_TEST(tst_CGetRowElementPos)
#include "tst_CGetRowElementPos.moc"
