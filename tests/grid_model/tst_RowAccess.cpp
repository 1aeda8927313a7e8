#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/data/RowAccess.h"

#include <QFont>

using namespace zenu;
using namespace zenutest;

class tst_RowAccess : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getRow_classAndMask_fillsItsFields_data();
    void getRow_classAndMask_fillsItsFields();
    void getRow_slimRow_reportsNoHeight();
    void getRow_parent_isHandleOrRoot_data();
    void getRow_parent_isHandleOrRoot();
    void getRow_fontBit_givesTheRecordsFontAway();
    void getRow_fontBitOnRowWithoutFont_deletesTheRecordsFont();
    void getRow_sectionText_followsStrncpy_data();
    void getRow_sectionText_followsStrncpy();
    void getRow_sectionTextWithoutBitOrBuffer_leavesTheBuffer();
    void getRow_sectionTextOfOtherClasses_leavesTheBuffer();
    void getRow_nullRecord_isFalse_data();
    void getRow_nullRecord_isFalse();
    void setRow_classAndMask_writesItsFields_data();
    void setRow_classAndMask_writesItsFields();
    void setRow_stateBits_becomeRequests_data();
    void setRow_stateBits_becomeRequests();
    void setRow_hasChildrenBit_takesTheStateBit_data();
    void setRow_hasChildrenBit_takesTheStateBit();
    void setRow_textColorMaskWithBkColor_leavesTheBackground();
    void setRow_invalidColor_isUnset();
    void setSection_title_repaintsOnlyWhenItDiffers();
    void setSection_titleWithoutRecord_isLeftAlone();
    void setRow_nullRecord_isFalse_data();
    void setRow_nullRecord_isFalse();
};

namespace {

struct Bit
{
    unsigned mask;
    char const * name;
};

constexpr std::array<Bit, 9> bits{{{0, "no bit"},
                                   {GCRM_PARENT, "parent"},
                                   {GCRM_HEIGHT, "height"},
                                   {GCRM_PARAM, "param"},
                                   {GCRM_TEXTCOLOR, "text colour"},
                                   {GCRM_FONT, "font"},
                                   {GCRM_STATE, "state"},
                                   {GCRM_BKCOLOR, "background"},
                                   {GCRM_TOP, "top"}}};

void addClassesAndMasks()
{
    QTest::addColumn<int>("rowClass");
    QTest::addColumn<unsigned>("mask");
    for (int rowClass = 0; rowClass < 4; ++rowClass) {
        for (Bit const & bit : bits) {
            QTest::addRow("%s, %s", rowClassNames[std::size_t(rowClass)], bit.name)
                << rowClass << bit.mask;
        }
    }
}

bool read(IGCRow * row, GC_ROW * record, GC_SECTION * section = nullptr)
{
    CGetRowData visitor(record, section, 123, 45, GCRS_VISIBLE | GCRS_SELECTED);
    row->Accept(&visitor);
    return visitor.result;
}

QByteArray requestsOf(CSetRowData const & visitor)
{
    QByteArray all;
    all += visitor.select ? "select " : "";
    all += visitor.deselect ? "deselect " : "";
    all += visitor.focus ? "focus " : "";
    all += visitor.unfocus ? "unfocus " : "";
    all += visitor.expand ? "expand " : "";
    all += visitor.collapse ? "collapse " : "";
    all += visitor.repaint ? "repaint " : "";
    return all;
}

} // namespace

void tst_RowAccess::getRow_classAndMask_fillsItsFields_data()
{
    addClassesAndMasks();
}

void tst_RowAccess::getRow_classAndMask_fillsItsFields()
{
    QFETCH(int, rowClass);
    QFETCH(unsigned, mask);
    RowsOfAllClasses rows;
    QFont font;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    row->param = 99;
    for (CGCOrdinaryRow * const cells :
         {&rows.ordinary, static_cast<CGCOrdinaryRow *>(&rows.section)}) {
        cells->textColor = 0xff111111U;
        cells->bkColor = 0xff222222U;
        cells->font = &font;
    }
    GC_ROW record;
    record.mask = mask;
    record.stateMask = 7;
    record.height = 77;
    record.textColor = QColor(1, 1, 1);
    record.bkColor = QColor(2, 2, 2);
    QCOMPARE(read(row, &record), isOrdinary(rowClass));
    QCOMPARE(record.state, unsigned(GCRS_VISIBLE | GCRS_SELECTED));
    QVERIFY(record.parent == GC_ROOT);
    QCOMPARE(record.top, 123);
    QCOMPARE(record.param, 99UL);
    QCOMPARE(record.height, rowClass == 2 ? 77 : 45);
    QCOMPARE(record.textColor.rgb(), isOrdinary(rowClass) ? 0xff111111U : 0xff010101U);
    QCOMPARE(record.bkColor.rgb(), isOrdinary(rowClass) ? 0xff222222U : 0xff020202U);
    QVERIFY(!record.font); // never reported
    QCOMPARE(record.mask, mask);
    QCOMPARE(record.stateMask, 7U);
    QVERIFY(rows.ordinary.font == &font);
}

void tst_RowAccess::getRow_slimRow_reportsNoHeight()
{
    RowsOfAllClasses rows;
    GC_ROW record;
    record.height = -5;
    QVERIFY(!read(&rows.slim, &record));
    QCOMPARE(record.height, -5);
    QVERIFY(!read(&rows.lonely, &record));
    QCOMPARE(record.height, 45);
}

void tst_RowAccess::getRow_parent_isHandleOrRoot_data()
{
    addRowClasses();
}

void tst_RowAccess::getRow_parent_isHandleOrRoot()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    CGCOrdinaryRow parent(nullptr, rows.columns);
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    GC_ROW record;
    read(row, &record);
    QVERIFY(record.parent == GC_ROOT);
    row->parent = &parent;
    read(row, &record);
    QVERIFY(record.parent == parent.Handle());
}

void tst_RowAccess::getRow_fontBit_givesTheRecordsFontAway()
{
    RowsOfAllClasses rows;
    QFont before;
    QFont given;
    rows.ordinary.font = &before;
    rows.section.font = &before;
    for (CGCOrdinaryRow * const row :
         {&rows.ordinary, static_cast<CGCOrdinaryRow *>(&rows.section)}) {
        GC_ROW record;
        record.mask = GCRM_FONT;
        QVERIFY(read(row, &record)); // a null font gives nothing
        QVERIFY(row->font == &before);
        record.font = &given;
        QVERIFY(read(row, &record));
        QVERIFY(row->font == &given);
    }
    GC_ROW record;
    record.mask = GCRM_FONT;
    record.font = &given;
    QVERIFY(!read(&rows.slim, &record));
    QVERIFY(!read(&rows.lonely, &record));
}

void tst_RowAccess::getRow_fontBitOnRowWithoutFont_deletesTheRecordsFont()
{
    RowsOfAllClasses rows;
    GC_ROW record;
    record.mask = GCRM_FONT;
    record.font = new QFont; // watched for leaks: the read deletes it
    QVERIFY(read(&rows.ordinary, &record));
    QVERIFY(!rows.ordinary.font);
}

void tst_RowAccess::getRow_sectionText_followsStrncpy_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<int>("textMax");
    QTest::addColumn<QByteArray>("buffer");
    QTest::newRow("the rest is zeroed") << QByteArray("abc") << 6 << QByteArray("abc\0\0\0##", 8);
    QTest::newRow("room for the title alone: no terminator")
        << QByteArray("abc") << 3 << QByteArray("abc#####");
    QTest::newRow("a longer title is cut") << QByteArray("abcdef") << 2 << QByteArray("ab######");
    QTest::newRow("a null title leaves it empty") << QByteArray() << 8 << QByteArray(8, '\0');
    QTest::newRow("no room") << QByteArray("abc") << 0 << QByteArray(8, '#');
    QTest::newRow("negative room") << QByteArray("abc") << -1 << QByteArray(8, '#');
}

void tst_RowAccess::getRow_sectionText_followsStrncpy()
{
    QFETCH(QByteArray, title);
    QFETCH(int, textMax);
    QFETCH(QByteArray, buffer);
    RowsOfAllClasses rows;
    rows.section.SetText(title.isNull() ? nullptr : title.constData());
    QByteArray filled(8, '#');
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = filled.data();
    record.textMax = textMax;
    QVERIFY(read(&rows.section, &record, &record));
    QCOMPARE(filled, buffer);
    QCOMPARE(record.top, 123);
}

void tst_RowAccess::getRow_sectionTextWithoutBitOrBuffer_leavesTheBuffer()
{
    RowsOfAllClasses rows;
    rows.section.SetText("title");
    QByteArray buffer(8, '#');
    GC_SECTION record;
    record.mask = ~unsigned(GCRM_SECTIONTEXT);
    record.text = buffer.data();
    record.textMax = 8;
    QVERIFY(read(&rows.section, &record, &record));
    QCOMPARE(buffer, QByteArray(8, '#'));
    record.mask = GCRM_SECTIONTEXT;
    QVERIFY(read(&rows.section, &record, nullptr)); // a plain row read
    QCOMPARE(buffer, QByteArray(8, '#'));
    record.text = nullptr;
    QVERIFY(read(&rows.section, &record, &record));
}

void tst_RowAccess::getRow_sectionTextOfOtherClasses_leavesTheBuffer()
{
    RowsOfAllClasses rows;
    QByteArray buffer(8, '#');
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = buffer.data();
    record.textMax = 8;
    QVERIFY(read(&rows.ordinary, &record, &record));
    QVERIFY(!read(&rows.slim, &record, &record));
    QVERIFY(!read(&rows.lonely, &record, &record));
    QCOMPARE(buffer, QByteArray(8, '#'));
}

void tst_RowAccess::getRow_nullRecord_isFalse_data()
{
    addRowClasses();
}

void tst_RowAccess::getRow_nullRecord_isFalse()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    QVERIFY(!read(rows.all()[std::size_t(rowClass)], nullptr));
}

void tst_RowAccess::setRow_classAndMask_writesItsFields_data()
{
    addClassesAndMasks();
}

void tst_RowAccess::setRow_classAndMask_writesItsFields()
{
    QFETCH(int, rowClass);
    QFETCH(unsigned, mask);
    RowsOfAllClasses rows;
    CGCOrdinaryRow other(nullptr, rows.columns);
    QFont font;
    GC_ROW record;
    record.mask = mask;
    record.parent = other.Handle();
    record.param = 99;
    record.height = 50;
    record.top = 60;
    record.textColor = QColor(1, 1, 1);
    record.bkColor = QColor(2, 2, 2);
    record.font = &font;
    record.state = GCRS_SELECTED;
    record.stateMask = GCRS_SELECTED | GCRS_FOCUSED;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    CSetRowData visitor(&record, nullptr);
    row->Accept(&visitor);
    QCOMPARE(visitor.result, isOrdinary(rowClass));
    QVERIFY(!row->parent); // a row can't be moved
    QCOMPARE(row->param, mask == GCRM_PARAM ? 99UL : 0UL);
    bool const paints = mask == GCRM_TEXTCOLOR || mask == GCRM_BKCOLOR || mask == GCRM_FONT;
    QCOMPARE(requestsOf(visitor),
             QByteArray(mask == GCRM_STATE ? "select unfocus "
                                           : (paints && isOrdinary(rowClass) ? "repaint " : "")));
    if (auto * const cells = dynamic_cast<CGCOrdinaryRow *>(row)) {
        QCOMPARE(cells->textColor, mask == GCRM_TEXTCOLOR ? 0xff010101U : GC_UNSETCOLOR);
        QCOMPARE(cells->bkColor, mask == GCRM_BKCOLOR ? 0xff020202U : GC_UNSETCOLOR);
        QVERIFY(cells->font == (mask == GCRM_FONT ? &font : nullptr));
        QCOMPARE(unsigned(cells->rowFlags), 0x1U);
    }
}

void tst_RowAccess::setRow_stateBits_becomeRequests_data()
{
    QTest::addColumn<int>("rowClass");
    QTest::addColumn<unsigned>("stateMask");
    QTest::addColumn<unsigned>("state");
    QTest::addColumn<QByteArray>("requests");
    for (int rowClass = 0; rowClass < 4; ++rowClass) {
        for (unsigned stateMask = 0; stateMask < 8; ++stateMask) {
            for (unsigned state = 0; state < 8; ++state) {
                QByteArray requests;
                if (stateMask & GCRS_SELECTED) {
                    requests += (state & GCRS_SELECTED) ? "select " : "deselect ";
                }
                if (stateMask & GCRS_FOCUSED) {
                    requests += (state & GCRS_FOCUSED) ? "focus " : "unfocus ";
                }
                if (stateMask & GCRS_EXPANDED) {
                    requests += (state & GCRS_EXPANDED) ? "expand " : "collapse ";
                }
                QTest::addRow("%s, mask %u, state %u", rowClassNames[std::size_t(rowClass)],
                              stateMask, state)
                    << rowClass << stateMask << state << requests;
            }
        }
    }
}

void tst_RowAccess::setRow_stateBits_becomeRequests()
{
    QFETCH(int, rowClass);
    QFETCH(unsigned, stateMask);
    QFETCH(unsigned, state);
    QFETCH(QByteArray, requests);
    RowsOfAllClasses rows;
    GC_ROW record;
    record.stateMask = stateMask;
    record.state = state;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    bool const expanded = row->IsExpanded();
    CSetRowData without(&record, nullptr);
    row->Accept(&without);
    QCOMPARE(requestsOf(without), QByteArray());
    record.mask = GCRM_STATE;
    CSetRowData visitor(&record, nullptr);
    row->Accept(&visitor);
    QCOMPARE(requestsOf(visitor), requests);
    QCOMPARE(row->IsExpanded(), expanded); // the grid expands, with its notifications
}

void tst_RowAccess::setRow_hasChildrenBit_takesTheStateBit_data()
{
    addRowClasses();
}

void tst_RowAccess::setRow_hasChildrenBit_takesTheStateBit()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    GC_ROW record;
    record.mask = GCRM_STATE;
    record.state = GCRS_HASCHILDREN;
    for (unsigned stateMask : {unsigned(GCRS_HASCHILDREN), 0U}) {
        record.stateMask = stateMask;
        CSetRowData visitor(&record, nullptr);
        row->Accept(&visitor);
        QCOMPARE(row->HasChildren(&wrapper), isOrdinary(rowClass));
        QCOMPARE(requestsOf(visitor), QByteArray());
        record.state = 0; // counts only with the mask bit
    }
    record.stateMask = GCRS_HASCHILDREN;
    CSetRowData visitor(&record, nullptr);
    row->Accept(&visitor);
    QVERIFY(!row->HasChildren(&wrapper));
}

void tst_RowAccess::setRow_textColorMaskWithBkColor_leavesTheBackground()
{
    RowsOfAllClasses rows;
    rows.ordinary.textColor = 0xff123456U;
    rows.ordinary.bkColor = 0xff654321U;
    GC_ROW record; // as the grid's call for the background builds it
    record.mask = GCRM_TEXTCOLOR;
    record.bkColor = QColor(9, 9, 9);
    CSetRowData visitor(&record, nullptr);
    rows.ordinary.Accept(&visitor);
    QCOMPARE(rows.ordinary.bkColor, 0xff654321U);
    QCOMPARE(rows.ordinary.textColor, QColor().rgb());
}

void tst_RowAccess::setRow_invalidColor_isUnset()
{
    QCOMPARE(QColor().rgb(), GC_UNSETCOLOR);
    QCOMPARE(QColor(Qt::black).rgb(), GC_UNSETCOLOR);
}

void tst_RowAccess::setSection_title_repaintsOnlyWhenItDiffers()
{
    RowsOfAllClasses rows;
    QByteArray title = "title";
    auto const set = [&](char * text) {
        GC_SECTION record;
        record.mask = GCRM_SECTIONTEXT;
        record.text = text;
        CSetRowData visitor(&record, &record);
        rows.section.Accept(&visitor);
        return visitor.result && visitor.repaint;
    };
    QVERIFY(!set(nullptr));
    QVERIFY(set(title.data()));
    QVERIFY(!set(title.data()));
    QVERIFY(!set(const_cast<char *>(rows.section.Text())));
    title[0] = 'T';
    QCOMPARE(rows.section.Text(), "title");
    QVERIFY(set(title.data()));
    QCOMPARE(rows.section.Text(), "Title");
    QVERIFY(!set(GC_TEXTCALLBACK)); // a title has no callback
    QCOMPARE(rows.section.Text(), "Title");
    QVERIFY(set(nullptr));
    QVERIFY(!rows.section.Text());
}

void tst_RowAccess::setSection_titleWithoutRecord_isLeftAlone()
{
    RowsOfAllClasses rows;
    rows.section.SetText("old");
    char title[] = "new";
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = title;
    CSetRowData plain(&record, nullptr);
    rows.section.Accept(&plain);
    QCOMPARE(rows.section.Text(), "old");
    record.mask = 0;
    CSetRowData unmasked(&record, &record);
    rows.section.Accept(&unmasked);
    QCOMPARE(rows.section.Text(), "old");
    record.mask = GCRM_SECTIONTEXT;
    CSetRowData ordinary(&record, &record);
    rows.ordinary.Accept(&ordinary);
    QVERIFY(ordinary.result);
    QVERIFY(!ordinary.repaint);
}

void tst_RowAccess::setRow_nullRecord_isFalse_data()
{
    addRowClasses();
}

void tst_RowAccess::setRow_nullRecord_isFalse()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    CSetRowData visitor(nullptr, nullptr);
    rows.all()[std::size_t(rowClass)]->Accept(&visitor);
    QVERIFY(!visitor.result);
    QCOMPARE(requestsOf(visitor), QByteArray());
}

ZENU_TEST(tst_RowAccess)
#include "tst_RowAccess.moc"
