#include "tests/grid_geometry/GeometryFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/columns/CGCColumnKinds.h>
#include <zenu/grid/geometry/CGetElementPos.h>
#include <zenu/grid/geometry/HitElement.h>
#include <zenu/grid/geometry/TextCache.h>
#include <zenu/grid/geometry/TextLine.h>

#include <limits>

using namespace zenu;

namespace {

constexpr unsigned tree = GCCF_TREE;
constexpr unsigned lines = GCCF_TREELINES;
constexpr unsigned lead = GCCF_LEAD;
constexpr unsigned hoverLead = GCCF_LEADONHOVER;
constexpr int indents = 0x10000;

constexpr unsigned hover = 1;
constexpr unsigned hideCheck = 2;

} // namespace

class tst_CGetElementPos : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void layout_table_data();
    void layout_table();
    void layout_otherHeights_data();
    void layout_otherHeights();
    void layout_noImageLists_oneEmptyPixelEach();
    void layout_hoverOfKindsWithoutDropButton_changesNothing();
    void layout_anyInput_elementsStayApart();
    void layout_hugeValues_saturate();
    void text_leftAligned_fits();
    void text_leftAligned_isCut();
    void text_rightAligned_fits();
    void text_rightAligned_isCut();
    void text_centred_fits();
    void text_centred_isCut();
    void text_rightBeatsCentred();
    void text_nullOrEmpty_hasNoRectangle();
    void text_emptyText_hitIsCell();
    void text_listUnderMouse_endsBeforeTheButton();
    void text_higherThanRow_standsOut();
    void text_noRoom_isClampedToTheSpan();
    void text_overBothMargins_isExact();

private:
    CElementRects layout(int kind, unsigned flags, int format, int width, int height = 17,
                         unsigned how = 0, char const * text = nullptr, int level = 2,
                         int indent = 20);
    static QSize sizeOf(QString const & text)
    {
        return QFontMetrics(QFont()).size(Qt::TextSingleLine, text);
    }

    KGridImages images;
    TextCache texts;
    QFont font;
};

void tst_CGetElementPos::initTestCase()
{
    images.set(KGridImages::Normal, zenutest::images(16, 16));
    images.set(KGridImages::Lead, zenutest::images(10, 8));
}

CElementRects tst_CGetElementPos::layout(int kind, unsigned flags, int format, int width,
                                         int height, unsigned how, char const * text, int level,
                                         int indent)
{
    std::unique_ptr<CGCColumn> const column = makeColumn(kind, 0, 0);
    column->flags = flags;
    column->format = format;
    CellInputs inputs;
    inputs.images = &images;
    inputs.texts = &texts;
    inputs.font = &font;
    inputs.text = text;
    inputs.level = level;
    inputs.indent = indent;
    inputs.width = width;
    inputs.height = height;
    inputs.hover = (how & hover) != 0;
    inputs.hideCheck = (how & hideCheck) != 0;
    CElementRects rects;
    CGetElementPos visitor(inputs, &rects);
    column->Accept(&visitor);
    return rects;
}

// Rows of 17 pixels, images of 16 x 16, lead images of 10 x 8, level 2, 20 pixels a level.
void tst_CGetElementPos::layout_table_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<unsigned>("how");
    QTest::addColumn<QString>("elements");
    auto const row = [](char const * name, int kind, unsigned flags, int format, int width,
                        unsigned how, char const * elements) {
        QTest::newRow(name) << kind << flags << format << width << how
                            << QString::fromLatin1(elements);
    };
    row("text", GCCK_TEXT, 0, 0, 100, 0, "cell=0,0,99,16 editor=2,0,98,16");
    row("icon", GCCK_ICON, 0, 0, 100, 0, "cell=0,0,99,16 image=2,0,18,16");
    row("text with icon", GCCK_TEXTWITHICON, 0, 0, 100, 0,
        "cell=0,0,99,16 image=2,0,18,16 editor=20,0,98,16");
    row("check", GCCK_CHECKBOX, 0, 0, 100, 0, "cell=0,0,99,16 check=2,3,13,14 editor=17,0,98,16");
    row("check, hidden", GCCK_CHECKBOX, 0, 0, 100, hideCheck, "cell=0,0,99,16 editor=2,0,98,16");
    row("check with icon", GCCK_CHECKBOXWITHICON, 0, 0, 100, 0,
        "cell=0,0,99,16 image=15,0,31,16 check=2,3,13,14 editor=33,0,98,16");
    row("check with icon, hidden", GCCK_CHECKBOXWITHICON, 0, 0, 100, hideCheck,
        "cell=0,0,99,16 image=2,0,18,16 editor=20,0,98,16");
    row("list", GCCK_LISTBOX, 0, 0, 100, 0, "cell=0,0,99,16 editor=2,0,98,16");
    row("list, mouse: the editor keeps all", GCCK_LISTBOX, 0, 0, 100, hover,
        "cell=0,0,99,16 drop=89,2,98,15 editor=2,0,98,16");
    row("combo", GCCK_COMBOBOX, 0, 0, 100, 0, "cell=0,0,99,16 editor=2,0,98,16");
    row("combo, mouse: the editor ends before", GCCK_COMBOBOX, 0, 0, 100, hover,
        "cell=0,0,99,16 drop=89,2,98,15 editor=2,0,87,16");
    row("owner draw", GCCK_OWNERDRAW, 0, 0, 100, 0, "cell=0,0,99,16 editor=14,0,98,16 offset=10");

    row("tree text", GCCK_TEXT, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 editor=16,0,98,16 offset=8");
    row("tree icon", GCCK_ICON, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 image=18,0,34,16 offset=12");
    row("tree text with icon", GCCK_TEXTWITHICON, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 image=18,0,34,16 editor=36,0,98,16 offset=12");
    row("tree check", GCCK_CHECKBOX, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 check=21,3,32,14 editor=36,0,98,16 offset=13");
    row("tree check, hidden", GCCK_CHECKBOX, tree, 0, 100, hideCheck,
        "cell=0,0,99,16 button=2,4,10,12 editor=21,0,98,16 offset=13");
    row("tree check with icon", GCCK_CHECKBOXWITHICON, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 image=34,0,50,16 check=21,3,32,14 editor=52,0,98,16 "
        "offset=13");
    row("tree check with icon, hidden", GCCK_CHECKBOXWITHICON, tree, 0, 100, hideCheck,
        "cell=0,0,99,16 button=2,4,10,12 image=21,0,37,16 editor=39,0,98,16 offset=13");
    row("tree list, mouse", GCCK_LISTBOX, tree, 0, 100, hover,
        "cell=0,0,99,16 button=2,4,10,12 drop=89,2,98,15 editor=16,0,98,16 offset=8");
    row("tree combo, mouse", GCCK_COMBOBOX, tree, 0, 100, hover,
        "cell=0,0,99,16 button=2,4,10,12 drop=89,2,98,15 editor=16,0,87,16 offset=8");
    row("tree owner draw", GCCK_OWNERDRAW, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 editor=23,0,98,16 offset=10");

    row("the tree flag alone does not indent", GCCK_TEXT, tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 editor=16,0,98,16 offset=8");
    row("tree lines indent", GCCK_TEXT, tree | lines, 0, 100, 0,
        "cell=0,0,99,16 indent=0,0,39,16 button=42,4,50,12 editor=56,0,98,16 offset=8");
    row("tree lines without a tree", GCCK_TEXT, lines, 0, 100, 0,
        "cell=0,0,99,16 indent=0,0,39,16 editor=42,0,98,16");
    row("the format's bit indents", GCCK_TEXT, 0, indents, 100, 0,
        "cell=0,0,99,16 indent=0,0,39,16 editor=42,0,98,16");
    row("both indent once", GCCK_ICON, tree | lines, indents, 100, 0,
        "cell=0,0,99,16 indent=0,0,39,16 button=42,4,50,12 image=58,0,74,16 offset=12");
    row("indented owner draw", GCCK_OWNERDRAW, lines, 0, 100, 0,
        "cell=0,0,99,16 indent=0,0,39,16 editor=54,0,98,16 offset=10");

    row("lead", GCCK_TEXT, lead, 0, 100, 0, "cell=0,0,99,16 lead=88,4,98,12 editor=2,0,86,16");
    row("lead on hover, no mouse", GCCK_TEXT, hoverLead, 0, 100, 0,
        "cell=0,0,99,16 editor=2,0,98,16");
    row("lead on hover, mouse", GCCK_TEXT, hoverLead, 0, 100, hover,
        "cell=0,0,99,16 lead=88,4,98,12 editor=2,0,86,16");
    row("lead and drop-down button, list", GCCK_LISTBOX, lead, 0, 100, hover,
        "cell=0,0,99,16 drop=77,2,86,15 lead=88,4,98,12 editor=2,0,86,16");
    row("lead and drop-down button, combo", GCCK_COMBOBOX, lead, 0, 100, hover,
        "cell=0,0,99,16 drop=77,2,86,15 lead=88,4,98,12 editor=2,0,75,16");
    row("lead, tree, check, icon", GCCK_CHECKBOXWITHICON, lead | tree, 0, 100, 0,
        "cell=0,0,99,16 button=2,4,10,12 image=34,0,50,16 check=21,3,32,14 lead=88,4,98,12 "
        "editor=52,0,86,16 offset=13");
    row("a lead image as wide as the room has no rectangle", GCCK_TEXT, lead, 0, 14, 0,
        "cell=0,0,13,16 editor=2,0,12,16");
    row("a lead image with a pixel to spare", GCCK_TEXT, lead, 0, 15, 0,
        "cell=0,0,14,16 lead=3,4,13,12 editor=2,0,1,16");

    row("a tree column of 12 shows the button cut, nothing else", GCCK_TEXTWITHICON, tree | lead, 0,
        12, hover, "cell=0,0,11,16 button=2,4,10,13");
    row("a tree column of 13", GCCK_TEXT, tree, 0, 13, 0, "cell=0,0,12,16 button=2,4,11,13");
    row("a tree column of 8 clips the button", GCCK_TEXT, tree, 0, 8, 0,
        "cell=0,0,7,16 button=2,4,6,13");
    row("a tree column of 14 is the first with a whole button", GCCK_TEXT, tree, 0, 14, 0,
        "cell=0,0,13,16 button=2,4,10,12 editor=16,0,12,16 offset=8");
    row("no room behind the indentation: an inverted button", GCCK_TEXT, tree | lines, 0, 30, 0,
        "cell=0,0,29,16 indent=0,0,39,16 button=42,4,28,13");
    row("check in 15: nothing", GCCK_CHECKBOX, 0, 0, 15, 0, "cell=0,0,14,16");
    row("hidden check in 15: nothing either", GCCK_CHECKBOX, 0, 0, 15, hideCheck, "cell=0,0,14,16");
    row("check in 16", GCCK_CHECKBOX, 0, 0, 16, 0,
        "cell=0,0,15,16 check=2,3,13,14 editor=17,0,14,16");
    row("check with icon in 16", GCCK_CHECKBOXWITHICON, 0, 0, 16, 0,
        "cell=0,0,15,16 image=15,0,14,16 check=2,3,13,14");
    row("icon in 12 is cut", GCCK_ICON, 0, 0, 12, 0, "cell=0,0,11,16 image=2,0,10,16");
    row("text with icon in 22 has no text", GCCK_TEXTWITHICON, 0, 0, 22, 0,
        "cell=0,0,21,16 image=2,0,18,16");
    row("text with icon in 23", GCCK_TEXTWITHICON, 0, 0, 23, 0,
        "cell=0,0,22,16 image=2,0,18,16 editor=20,0,21,16");
    row("list in 13 has no drop-down button", GCCK_LISTBOX, 0, 0, 13, hover,
        "cell=0,0,12,16 editor=2,0,11,16");
    row("list in 14 has one", GCCK_LISTBOX, 0, 0, 14, hover,
        "cell=0,0,13,16 drop=3,2,12,15 editor=2,0,12,16");
    row("combo in 14: no room for its editor", GCCK_COMBOBOX, 0, 0, 14, hover,
        "cell=0,0,13,16 drop=3,2,12,15 editor=2,0,1,16");
    row("no width", GCCK_TEXT, 0, 0, 0, 0, "cell=0,0,-1,16 editor=2,0,-2,16");
}

void tst_CGetElementPos::layout_table()
{
    QFETCH(int, kind);
    QFETCH(unsigned, flags);
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(unsigned, how);
    QTEST(zenutest::dump(layout(kind, flags, format, width, 17, how)), "elements");
    // A text that is empty takes part in nothing.
    QTEST(zenutest::dump(layout(kind, flags, format, width, 17, how, "")), "elements");
}

void tst_CGetElementPos::layout_otherHeights_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("elements");
    QTest::newRow("divisions truncate toward zero")
        << 8
        << "cell=0,0,99,7 button=2,0,10,8 image=34,-4,50,12 check=21,-1,32,10 lead=88,0,98,8 "
           "editor=52,0,86,7 offset=13";
    QTest::newRow("low row")
        << 5
        << "cell=0,0,99,4 button=2,-2,10,6 image=34,-5,50,11 check=21,-3,32,8 lead=88,-1,98,7 "
           "editor=52,0,86,4 offset=13";
    QTest::newRow("high row")
        << 40
        << "cell=0,0,99,39 button=2,15,10,23 image=34,12,50,28 check=21,14,32,25 "
           "lead=88,16,98,24 editor=52,0,86,39 offset=13";
}

void tst_CGetElementPos::layout_otherHeights()
{
    QFETCH(int, height);
    QTEST(zenutest::dump(layout(GCCK_CHECKBOXWITHICON, tree | lead, 0, 100, height)), "elements");
}

void tst_CGetElementPos::layout_noImageLists_oneEmptyPixelEach()
{
    KGridImages const before = images;
    images.clearLists();
    QString const elements = zenutest::dump(layout(GCCK_TEXTWITHICON, lead, 0, 100));
    images = before;
    QCOMPARE(elements,
             QStringLiteral("cell=0,0,99,16 image=2,8,2,8 lead=98,8,98,8 editor=4,0,96,16"));
}

void tst_CGetElementPos::layout_hoverOfKindsWithoutDropButton_changesNothing()
{
    for (int const kind : {GCCK_TEXT, GCCK_TEXTWITHICON, GCCK_ICON, GCCK_OWNERDRAW, GCCK_CHECKBOX,
                           GCCK_CHECKBOXWITHICON}) {
        for (unsigned const flags : {0U, tree, lead, tree | lines | lead}) {
            QCOMPARE(zenutest::dump(layout(kind, flags, 0, 100, 17, hover, "text")),
                     zenutest::dump(layout(kind, flags, 0, 100, 17, 0, "text")));
        }
    }
}

// Over all kinds, flags and widths: what has room stays inside the cell, and elements of the
// content never overlap the lead image or the drop-down button.
void tst_CGetElementPos::layout_anyInput_elementsStayApart()
{
    for (int kind = 0; kind <= 7; ++kind) {
        for (unsigned bits = 0; bits < 64; ++bits) {
            unsigned const flags = ((bits & 1) != 0 ? tree : 0) | ((bits & 2) != 0 ? lines : 0) |
                                   ((bits & 4) != 0 ? lead : 0) | ((bits & 8) != 0 ? hoverLead : 0);
            unsigned const how = bits >> 4;
            for (int width = 0; width < 260; width += 3) {
                CElementRects const rects =
                    layout(kind, flags, 0, width, 17, how, "some text to place");
                QVERIFY(rects.cellRect == QRect(0, 0, width, 17));
                for (QRect const & rect : {rects.buttonRect, rects.imageRect, rects.checkRect,
                                           rects.textRect, rects.dropRect, rects.leadRect}) {
                    QVERIFY(!rect.isValid() || rect.right() < width);
                }
                if (rects.textRect.isValid()) {
                    QVERIFY(!rects.textRect.intersects(rects.leadRect));
                    QVERIFY(!rects.textRect.intersects(rects.dropRect));
                    QVERIFY(!rects.textRect.intersects(rects.checkRect));
                    QVERIFY(!rects.textRect.intersects(rects.imageRect));
                    QVERIFY(!rects.textRect.intersects(rects.buttonRect));
                    QVERIFY(rects.fitted);
                }
                QVERIFY(rects.checkRect.isNull() || kind == GCCK_CHECKBOX ||
                        kind == GCCK_CHECKBOXWITHICON);
                QVERIFY(rects.dropRect.isNull() || (how & hover) != 0);
            }
        }
    }
}

void tst_CGetElementPos::layout_hugeValues_saturate()
{
    int const huge = std::numeric_limits<int>::max();
    int const tiny = std::numeric_limits<int>::min();
    for (int kind = 0; kind <= 7; ++kind) {
        for (int const width : {0, 100, huge, tiny}) {
            for (int const height : {0, 17, huge, tiny}) {
                for (int const level : {0, huge}) {
                    for (int const indent : {0, huge, tiny}) {
                        CElementRects rects = layout(kind, tree | lines | lead, 0, width, height,
                                                     hover, "text", level, indent);
                        rects.translate(huge, huge);
                        rects.translate(tiny, tiny);
                        hitElement(rects, QPoint(huge, tiny));
                    }
                }
            }
        }
    }
    QCOMPARE(layout(GCCK_TEXT, 0, 0, huge).cellRect.width(), 0x3fffffff);
}

void tst_CGetElementPos::text_leftAligned_fits()
{
    QSize const size = sizeOf(QStringLiteral("text"));
    CElementRects const rects = layout(GCCK_TEXT, 0, 1, 300, 40, 0, "text");
    int const top = (40 - size.height()) / 2;
    QRect expected;
    expected.setCoords(2, top, 2 + size.width(), top + size.height());
    QCOMPARE(rects.textRect, expected);
    QCOMPARE(rects.fullTextRect, expected);
    QCOMPARE(rects.fitCount, 4);
    QCOMPARE(rects.fitWidth(), QFontMetrics(font).boundingRect(QStringLiteral("text")).width());
    QVERIFY(!rects.fitted->isCut());
}

void tst_CGetElementPos::text_leftAligned_isCut()
{
    QString const text = QStringLiteral("a text that does not fit into it");
    zenutest::NaiveFit const fit = zenutest::naiveFit(font, text, 96, false);
    CElementRects const rects =
        layout(GCCK_TEXT, 0, 0, 100, 40, 0, "a text that does not fit into it");
    QVERIFY(fit.count > 0 && fit.count < text.size());
    QCOMPARE(rects.fitCount, fit.count);
    QCOMPARE(rects.fitWidth(), fit.width);
    QCOMPARE(rects.textRect.left(), 2);
    QCOMPARE(rects.textRect.right(),
             std::min(98, 2 + fit.width + sizeOf(QStringLiteral("...")).width()));
    QCOMPARE(rects.fullTextRect.left(), 2);
    QCOMPARE(rects.fullTextRect.right(), 2 + sizeOf(text).width());
    QCOMPARE(rects.fitted->fitted->text(), text.left(fit.count));
}

void tst_CGetElementPos::text_rightAligned_fits()
{
    QSize const size = sizeOf(QStringLiteral("text"));
    CElementRects const rects = layout(GCCK_TEXT, 0, 2, 300, 40, 0, "text");
    QCOMPARE(rects.textRect.left(), 298 - size.width());
    QCOMPARE(rects.textRect.right(), 298);
    QCOMPARE(rects.fullTextRect, rects.textRect);
}

void tst_CGetElementPos::text_rightAligned_isCut()
{
    QString const text = QStringLiteral("a text that does not fit into it");
    zenutest::NaiveFit const fit = zenutest::naiveFit(font, text, 96, true);
    CElementRects const rects =
        layout(GCCK_TEXT, 0, 2, 100, 40, 0, "a text that does not fit into it");
    QCOMPARE(rects.fitCount, fit.count);
    QCOMPARE(rects.fitWidth(), fit.width);
    QCOMPARE(rects.textRect.right(), 98);
    QCOMPARE(rects.textRect.left(),
             std::max(2, 98 - fit.width - sizeOf(QStringLiteral("...")).width()));
    QCOMPARE(rects.fullTextRect.left(), 98 - sizeOf(text).width());
    QCOMPARE(rects.fullTextRect.right(), 98);
    QCOMPARE(rects.fitted->fitted->text(), text.right(fit.count));
}

void tst_CGetElementPos::text_centred_fits()
{
    int const width = sizeOf(QStringLiteral("text")).width();
    CElementRects const rects = layout(GCCK_TEXT, 0, 4, 301, 40, 0, "text");
    int const free = (299 - 2 - width) / 2;
    QCOMPARE(rects.textRect.left(), 2 + free);
    QCOMPARE(rects.textRect.right(), 299 - free);
    QCOMPARE(rects.fullTextRect, rects.textRect);
}

void tst_CGetElementPos::text_centred_isCut()
{
    QString const text = QStringLiteral("a text that does not fit into it");
    zenutest::NaiveFit const fit = zenutest::naiveFit(font, text, 96, false);
    CElementRects const rects =
        layout(GCCK_TEXT, 0, 4, 100, 40, 0, "a text that does not fit into it");
    QCOMPARE(rects.fitCount, fit.count);
    int const right = 2 + fit.width + sizeOf(QStringLiteral("...")).width();
    QCOMPARE(rects.textRect.left(), 2);
    QCOMPARE(rects.textRect.right(), std::min(98, right));
    // The full text is where the cut one is: a centred cell never tells how wide it would like to
    // be.
    QCOMPARE(rects.fullTextRect.left(), 2);
    QCOMPARE(rects.fullTextRect.right(), right);
}

void tst_CGetElementPos::text_rightBeatsCentred()
{
    QCOMPARE(zenutest::dump(layout(GCCK_TEXT, 0, 6, 200, 20, 0, "text")),
             zenutest::dump(layout(GCCK_TEXT, 0, 2, 200, 20, 0, "text")));
    QCOMPARE(zenutest::dump(layout(GCCK_TEXT, 0, 1, 200, 20, 0, "text")),
             zenutest::dump(layout(GCCK_TEXT, 0, 0, 200, 20, 0, "text")));
}

void tst_CGetElementPos::text_nullOrEmpty_hasNoRectangle()
{
    for (char const * text : {static_cast<char const *>(nullptr), ""}) {
        CElementRects const rects = layout(GCCK_TEXT, 0, 0, 100, 17, 0, text);
        QVERIFY(rects.textRect.isNull());
        QVERIFY(rects.fullTextRect.isNull());
        QVERIFY(!rects.fitted);
        QCOMPARE(rects.fitCount, 0);
        QCOMPARE(rects.fitWidth(), 0);
        QVERIFY(!rects.editorRect.isNull());
    }
}

void tst_CGetElementPos::text_emptyText_hitIsCell()
{
    CElementRects const rects = layout(GCCK_TEXT, 0, 0, 100, 17, 0, "");
    QCOMPARE(hitElement(rects, QPoint(5, 8)), GCEL_CELL);
    QCOMPARE(hitElement(layout(GCCK_TEXT, 0, 0, 100, 17, 0, "text"), QPoint(5, 8)), GCEL_TEXT);
}

void tst_CGetElementPos::text_listUnderMouse_endsBeforeTheButton()
{
    char const * const text = "a text that does not fit into it";
    for (int const kind : {GCCK_LISTBOX, GCCK_COMBOBOX}) {
        CElementRects const still = layout(kind, 0, 2, 100, 17, 0, text);
        CElementRects const under = layout(kind, 0, 2, 100, 17, hover, text);
        QCOMPARE(still.textRect.right(), 98);
        QCOMPARE(under.dropRect.left(), 89);
        QCOMPARE(under.textRect.right(), 87);
        QVERIFY(under.fitCount < still.fitCount);
    }
}

void tst_CGetElementPos::text_higherThanRow_standsOut()
{
    int const height = sizeOf(QStringLiteral("text")).height();
    CElementRects const rects = layout(GCCK_TEXT, 0, 0, 100, height - 6, 0, "text");
    QCOMPARE(rects.textRect.top(), -3);
    QCOMPARE(rects.textRect.bottom(), height - 3);
}

void tst_CGetElementPos::text_noRoom_isClampedToTheSpan()
{
    for (int const format : {0, 2, 4}) {
        CElementRects const rects = layout(GCCK_TEXT, 0, format, 10, 17, 0, "text");
        QCOMPARE(rects.fitCount, 0);
        QCOMPARE(rects.textRect.left(), 2);
        QCOMPARE(rects.textRect.right(), 8);
        QVERIFY(!layout(GCCK_CHECKBOX, 0, format, 16, 17, 0, "text").textRect.isValid());
    }
}

void tst_CGetElementPos::text_overBothMargins_isExact()
{
    QString const text = QStringLiteral("exactly");
    int const ink = QFontMetrics(font).boundingRect(text).width();
    QCOMPARE(layout(GCCK_TEXT, 0, 0, ink + 4, 17, 0, "exactly").fitCount, 7);
    QVERIFY(layout(GCCK_TEXT, 0, 0, ink + 3, 17, 0, "exactly").fitCount < 7);
}

ZENU_TEST(tst_CGetElementPos)
#include "tst_CGetElementPos.moc"
