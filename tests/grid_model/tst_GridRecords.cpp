#include "tests/support/TestMain.h"
#include "zenu/grid/GridRecords.h"

#include <QFont>

using namespace zenu;

// The numbers that applications were built with, and what a fresh record holds.
class tst_GridRecords : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void constants_haveTheirNumbers_data();
    void constants_haveTheirNumbers();
    void handles_haveTheirNumbers();
    void editFlags_areTheThreeOfEditableKinds();
    void sectionText_sharesItsBitWithTop();
    void newColumnRecord_isAllZero();
    void newRowRecord_isZeroWithUnsetColours();
    void newItemRecord_namesNoColumnAndHasNoBuffer();
    void newSlimRowRecord_hasChildrenAndNoHeight();
    void slimRowRecord_hasChildrenIsAWord();
    void newInsertSlimRowRecord_isAllZero();
    void newHitRecord_namesNothing();
    void newDrawRecords_haveUnsetColoursAndNoImages();
    void copiedDrawRowRecord_sharesTheFont();
    void newSelectionRecord_isEmpty();
};

namespace {

struct Constant
{
    unsigned value;
    unsigned number;
    char const * name;
};

#define ZENU_CONSTANT(name, number)                                                                \
    {                                                                                              \
        name, number, #name                                                                        \
    }

constexpr Constant columnConstants[] = {
    ZENU_CONSTANT(GCCK_TEXT, 0),
    ZENU_CONSTANT(GCCK_TEXTWITHICON, 1),
    ZENU_CONSTANT(GCCK_ICON, 2),
    ZENU_CONSTANT(GCCK_OWNERDRAW, 3),
    ZENU_CONSTANT(GCCK_CHECKBOX, 4),
    ZENU_CONSTANT(GCCK_LISTBOX, 5),
    ZENU_CONSTANT(GCCK_COMBOBOX, 6),
    ZENU_CONSTANT(GCCK_CHECKBOXWITHICON, 7),
    ZENU_CONSTANT(GCCM_FORMAT, 0x1),
    ZENU_CONSTANT(GCCM_TEXT, 0x2),
    ZENU_CONSTANT(GCCM_WIDTH, 0x4),
    ZENU_CONSTANT(GCCM_KIND, 0x8),
    ZENU_CONSTANT(GCCM_FLAGS, 0x10),
    ZENU_CONSTANT(GCCM_LISTITEMS, 0x20),
    ZENU_CONSTANT(GCCF_FIXEDWIDTH, 0x1),
    ZENU_CONSTANT(GCCF_EDITABLE, 0x2),
    ZENU_CONSTANT(GCCF_TREE, 0x8),
    ZENU_CONSTANT(GCCF_HIDDEN, 0x10),
    ZENU_CONSTANT(GCCF_LEAD, 0x20),
    ZENU_CONSTANT(GCCF_LEADONHOVER, 0x40),
    ZENU_CONSTANT(GCCF_TREELINES, 0x80),
    ZENU_CONSTANT(GCCF_FRAMED, 0x400),
    ZENU_CONSTANT(GCCF_DELAYEDEDIT, 0x800),
    ZENU_CONSTANT(GCCF_TYPEAHEAD, 0x1000),
    ZENU_CONSTANT(GCCF_DATATIP, 0x2000),
    ZENU_CONSTANT(GCCF_CLICKEDIT, 0x4000),
};

constexpr Constant rowConstants[] = {
    ZENU_CONSTANT(GCRM_PARENT, 0x1),        ZENU_CONSTANT(GCRM_HEIGHT, 0x2),
    ZENU_CONSTANT(GCRM_PARAM, 0x4),         ZENU_CONSTANT(GCRM_TEXTCOLOR, 0x8),
    ZENU_CONSTANT(GCRM_FONT, 0x10),         ZENU_CONSTANT(GCRM_STATE, 0x20),
    ZENU_CONSTANT(GCRM_BKCOLOR, 0x80),      ZENU_CONSTANT(GCRM_TOP, 0x100),
    ZENU_CONSTANT(GCRM_SECTIONTEXT, 0x100), ZENU_CONSTANT(GCRS_EXPANDED, 0x1),
    ZENU_CONSTANT(GCRS_SELECTED, 0x2),      ZENU_CONSTANT(GCRS_FOCUSED, 0x4),
    ZENU_CONSTANT(GCRS_VISIBLE, 0x8),       ZENU_CONSTANT(GCRS_HASCHILDREN, 0x10),
};

constexpr Constant itemConstants[] = {
    ZENU_CONSTANT(GCIM_TEXT, 0x1),          ZENU_CONSTANT(GCIM_VALUE, 0x2),
    ZENU_CONSTANT(GCIM_STATE, 0x4),         ZENU_CONSTANT(GCIM_IMAGE, 0x10),
    ZENU_CONSTANT(GCIM_TEXTLEN, 0x20),      ZENU_CONSTANT(GCIM_TEXTCOLOR, 0x40),
    ZENU_CONSTANT(GCIM_ALIGN, 0x200),       ZENU_CONSTANT(GCIM_OVERLAY, 0x800),
    ZENU_CONSTANT(GCIM_STATEIMAGE, 0x1000), ZENU_CONSTANT(GCIM_CHECKSTYLE, 0x2000),
    ZENU_CONSTANT(GCIS_FOCUSED, 0x1),       ZENU_CONSTANT(GCIS_HOT, 0x2),
    ZENU_CONSTANT(GCIS_MARKED, 0x4),        ZENU_CONSTANT(GCIS_CHECKED, 0x8),
    ZENU_CONSTANT(GCIS_CACHEDTEXT, 0x10),
};

constexpr Constant gridConstants[] = {
    ZENU_CONSTANT(GCS_NOHEADER, 0x2),
    ZENU_CONSTANT(GCS_VERTLINES, 0x4),
    ZENU_CONSTANT(GCS_HORZLINES, 0x8),
    ZENU_CONSTANT(GCS_FULLROWSELECT, 0x40),
    ZENU_CONSTANT(GCS_FLATLEAD, 0x80),
    ZENU_CONSTANT(GCS_KEEPIMAGES, 0x400),
    ZENU_CONSTANT(GCS_SHOWSELALWAYS, 0x1000),
    ZENU_CONSTANT(GCS_SINGLESEL, 0x2000),
    ZENU_CONSTANT(GCS_AUTOHSCROLL, 0x4000),
    ZENU_CONSTANT(GCS_WHOLEROWS, 0x8000),
    ZENU_CONSTANT(GCXS_HEADERDRAG, 0x2),
    ZENU_CONSTANT(GCXS_FASTLOCATOR, 0x4),
    ZENU_CONSTANT(GCE_EXPAND, 0),
    ZENU_CONSTANT(GCE_COLLAPSE, 1),
    ZENU_CONSTANT(GCE_TOGGLE, 2),
    ZENU_CONSTANT(GCE_EXPANDALL, 3),
    ZENU_CONSTANT(GCE_COLLAPSEALL, 4),
    ZENU_CONSTANT(GCE_NOSCROLL, 0x8000),
    ZENU_CONSTANT(GCN_ALL_FIRST, 1),
    ZENU_CONSTANT(GCN_ALL_NEXT, 2),
    ZENU_CONSTANT(GCN_CHILD_FIRST, 3),
    ZENU_CONSTANT(GCN_CHILD_NEXT, 4),
    ZENU_CONSTANT(GCN_SHOWN_FIRST, 5),
    ZENU_CONSTANT(GCN_SHOWN_NEXT, 6),
    ZENU_CONSTANT(GCN_SELECTED_FIRST, 7),
    ZENU_CONSTANT(GCN_SELECTED_NEXT, 8),
    ZENU_CONSTANT(GCN_ROOT, 9),
    ZENU_CONSTANT(GCN_PARENT, 10),
    ZENU_CONSTANT(GCN_VISIBLE_PARENT, 11),
    ZENU_CONSTANT(GCN_FOCUSED, 12),
    ZENU_CONSTANT(GCN_VISIBLE_FIRST, 13),
    ZENU_CONSTANT(GCN_VISIBLE_NEXT, 14),
    ZENU_CONSTANT(GCN_CHILD_PREV, 15),
    ZENU_CONSTANT(GCN_VISIBLE_PREV, 16),
};

#undef ZENU_CONSTANT

template <std::size_t count>
void addConstants(Constant const (&constants)[count])
{
    for (Constant const & constant : constants) {
        QTest::newRow(constant.name) << constant.value << constant.number;
    }
}

} // namespace

void tst_GridRecords::constants_haveTheirNumbers_data()
{
    QTest::addColumn<unsigned>("value");
    QTest::addColumn<unsigned>("number");
    addConstants(columnConstants);
    addConstants(rowConstants);
    addConstants(itemConstants);
    addConstants(gridConstants);
}

void tst_GridRecords::constants_haveTheirNumbers()
{
    QFETCH(unsigned, value);
    QFETCH(unsigned, number);
    QCOMPARE(value, number);
}

void tst_GridRecords::handles_haveTheirNumbers()
{
    QCOMPARE(reinterpret_cast<long>(GC_ROOT), -1L);
    QCOMPARE(reinterpret_cast<long>(GCI_FIRST), -2L);
    QCOMPARE(reinterpret_cast<long>(GCI_LAST), -3L);
    QCOMPARE(reinterpret_cast<long>(GC_NOCOLUMN), -1L);
    QCOMPARE(reinterpret_cast<long>(GC_TEXTCALLBACK), -1L);
}

void tst_GridRecords::editFlags_areTheThreeOfEditableKinds()
{
    QCOMPARE(GCCF_EDITFLAGS, 0x4802U);
    QCOMPARE(GC_UNSETCOLOR, 0xff000000U);
}

void tst_GridRecords::sectionText_sharesItsBitWithTop()
{
    QCOMPARE(unsigned(GCRM_SECTIONTEXT), unsigned(GCRM_TOP));
}

void tst_GridRecords::newColumnRecord_isAllZero()
{
    GC_COLUMN const record;
    QCOMPARE(record.mask, 0U);
    QCOMPARE(record.format, 0);
    QCOMPARE(record.width, 0);
    QVERIFY(!record.text);
    QCOMPARE(record.textMax, 0);
    QVERIFY(!record.listItems);
    QCOMPARE(record.kind, 0);
    QCOMPARE(record.flags, 0U);
    QCOMPARE(record.order, 0);
}

void tst_GridRecords::newRowRecord_isZeroWithUnsetColours()
{
    GC_SECTION const record;
    QCOMPARE(record.mask, 0U);
    QCOMPARE(record.state, 0U);
    QCOMPARE(record.stateMask, 0U);
    QVERIFY(!record.parent); // not the root: a default record has no parent to hang under
    QCOMPARE(record.top, 0);
    QCOMPARE(record.height, 0);
    QCOMPARE(record.param, 0UL);
    QVERIFY(!record.textColor.isValid());
    QVERIFY(!record.bkColor.isValid());
    QVERIFY(!record.font);
    QVERIFY(!record.text);
    QCOMPARE(record.textMax, 0);
}

void tst_GridRecords::newItemRecord_namesNoColumnAndHasNoBuffer()
{
    GC_ITEM const record;
    QVERIFY(!record.row);
    QVERIFY(record.column == GC_NOCOLUMN);
    QCOMPARE(record.mask, 0U);
    QCOMPARE(record.state, 0U);
    QCOMPARE(record.stateMask, 0U);
    QVERIFY(!record.text);
    QCOMPARE(record.textMax, -1);
    QCOMPARE(record.value, 0);
    QCOMPARE(record.image, 0);
    QVERIFY(!record.textColor.isValid());
}

void tst_GridRecords::newSlimRowRecord_hasChildrenAndNoHeight()
{
    GC_SLIMROWDATA const record;
    QVERIFY(!record.row);
    QCOMPARE(record.param, 0L);
    QCOMPARE(int(record.hasChildren), 1);
    QCOMPARE(record.height, -1);
}

void tst_GridRecords::slimRowRecord_hasChildrenIsAWord()
{
    QCOMPARE(sizeof(GC_SLIMROWDATA::hasChildren), std::size_t(4));
    GC_SLIMROWDATA record;
    record.hasChildren = 0x100;
    QCOMPARE(record.hasChildren, 0x100); // nothing of it is lost
}

void tst_GridRecords::newInsertSlimRowRecord_isAllZero()
{
    GC_INSERTSLIMROW const record;
    QVERIFY(!record.parent);
    QVERIFY(!record.after);
    QCOMPARE(record.count, 0);
    QVERIFY(!record.rows);
}

void tst_GridRecords::newHitRecord_namesNothing()
{
    GC_HITTESTEXINFO const record;
    QVERIFY(!record.row);
    QVERIFY(record.column == GC_NOCOLUMN);
}

void tst_GridRecords::newDrawRecords_haveUnsetColoursAndNoImages()
{
    GC_DRAWROWINFO const row;
    QCOMPARE(row.bkColor.rgb(), GC_UNSETCOLOR);
    QCOMPARE(row.textColor.rgb(), GC_UNSETCOLOR);
    QVERIFY(!row.GetFont());
    QVERIFY(!row.firstRow && !row.lastChild && !row.hasChildren && !row.expanded);
    GC_DRAWITEMINFO const item;
    QCOMPARE(item.image, -1);
    QCOMPARE(item.overlay, -1);
    QCOMPARE(item.state, -1);
    QCOMPARE(item.lead, -1);
    QVERIFY(!item.checked && !item.grayed && !item.radio && !item.hideCheck);
    QCOMPARE(item.textColor.rgb(), GC_UNSETCOLOR);
}

void tst_GridRecords::copiedDrawRowRecord_sharesTheFont()
{
    QFont font;
    GC_DRAWROWINFO row;
    row.SetFont(&font);
    GC_DRAWROWINFO const copy = row;
    QVERIFY(copy.GetFont() == &font);
    QVERIFY(row.GetFont() == &font);
}

void tst_GridRecords::newSelectionRecord_isEmpty()
{
    GC_SELECTIONCHANGE const record;
    QCOMPARE(record.deselectedCount, 0);
    QVERIFY(!record.deselected);
    QCOMPARE(record.selectedCount, 0);
    QVERIFY(!record.selected);
}

ZENU_TEST(tst_GridRecords)
#include "tst_GridRecords.moc"
