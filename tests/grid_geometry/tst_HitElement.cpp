#include "tests/support/TestMain.h"

#include <zenu/grid/geometry/CElementRects.h>
#include <zenu/grid/geometry/HitElement.h>

#include <limits>

using namespace zenu;

class tst_HitElement : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void hitElement_eachElement_data();
    void hitElement_eachElement();
    void hitElement_overlap_firstOfTheOrderWins();
    void hitElement_edges_belongToTheElement();
    void hitElement_emptyText_isCell();
    void hitElement_dropButtonAndEditor_areCell();
    void translate_movesAll_nullStaysNull();
    void translate_hugeOffset_saturates();
};

namespace {

CElementRects sideBySide()
{
    CElementRects rects;
    rects.cellRect = QRect(0, 0, 100, 10);
    rects.indentRect = QRect(0, 0, 10, 10);
    rects.buttonRect = QRect(10, 0, 10, 10);
    rects.imageRect = QRect(20, 0, 10, 10);
    rects.textRect = QRect(30, 0, 10, 10);
    rects.checkRect = QRect(40, 0, 10, 10);
    rects.leadRect = QRect(50, 0, 10, 10);
    return rects;
}

} // namespace

void tst_HitElement::hitElement_eachElement_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("code");
    QTest::newRow("indentation") << 5 << 1;
    QTest::newRow("expand button") << 15 << 2;
    QTest::newRow("image") << 25 << 3;
    QTest::newRow("text") << 35 << 4;
    QTest::newRow("check box") << 45 << 5;
    QTest::newRow("lead image") << 55 << 7;
    QTest::newRow("elsewhere in the cell") << 65 << 6;
    QTest::newRow("outside of the cell too") << 500 << 6;
}

void tst_HitElement::hitElement_eachElement()
{
    QFETCH(int, x);
    QTEST(static_cast<int>(hitElement(sideBySide(), QPoint(x, 5))), "code");
}

void tst_HitElement::hitElement_overlap_firstOfTheOrderWins()
{
    QRect const everywhere(0, 0, 100, 10);
    CElementRects rects;
    QPoint const point(5, 5);
    QCOMPARE(hitElement(rects, point), GCEL_CELL);
    rects.leadRect = everywhere;
    QCOMPARE(hitElement(rects, point), GCEL_LEAD);
    rects.checkRect = everywhere;
    QCOMPARE(hitElement(rects, point), GCEL_CHECK);
    rects.textRect = everywhere;
    QCOMPARE(hitElement(rects, point), GCEL_TEXT);
    rects.imageRect = everywhere;
    QCOMPARE(hitElement(rects, point), GCEL_IMAGE);
    rects.buttonRect = everywhere;
    QCOMPARE(hitElement(rects, point), GCEL_BUTTON);
    rects.indentRect = everywhere;
    QCOMPARE(hitElement(rects, point), GCEL_INDENT);
}

void tst_HitElement::hitElement_edges_belongToTheElement()
{
    CElementRects rects;
    rects.textRect = QRect(QPoint(10, 3), QPoint(20, 7));
    for (QPoint const inside : {QPoint(10, 3), QPoint(20, 3), QPoint(10, 7), QPoint(20, 7)}) {
        QCOMPARE(hitElement(rects, inside), GCEL_TEXT);
    }
    for (QPoint const outside : {QPoint(9, 5), QPoint(21, 5), QPoint(15, 2), QPoint(15, 8)}) {
        QCOMPARE(hitElement(rects, outside), GCEL_CELL);
    }
}

void tst_HitElement::hitElement_emptyText_isCell()
{
    CElementRects rects;
    rects.cellRect = QRect(0, 0, 100, 10);
    for (int x = -1; x < 101; ++x) {
        QCOMPARE(hitElement(rects, QPoint(x, 0)), GCEL_CELL);
    }
}

void tst_HitElement::hitElement_dropButtonAndEditor_areCell()
{
    CElementRects rects;
    rects.dropRect = QRect(0, 0, 50, 10);
    rects.editorRect = rects.dropRect;
    rects.fullTextRect = rects.dropRect;
    QCOMPARE(hitElement(rects, QPoint(5, 5)), GCEL_CELL);
}

void tst_HitElement::translate_movesAll_nullStaysNull()
{
    CElementRects rects = sideBySide();
    rects.translate(1000, -20);
    QCOMPARE(rects.cellRect, QRect(1000, -20, 100, 10));
    QCOMPARE(rects.leadRect, QRect(1050, -20, 10, 10));
    QCOMPARE(hitElement(rects, QPoint(1035, -15)), GCEL_TEXT);
    QVERIFY(rects.dropRect.isNull());
    QVERIFY(rects.editorRect.isNull());
    QCOMPARE(rects.fitWidth(), 0);
}

void tst_HitElement::translate_hugeOffset_saturates()
{
    int const most = std::numeric_limits<int>::max();
    CElementRects rects = sideBySide();
    rects.translate(most, most);
    rects.translate(most, most);
    QCOMPARE(rects.cellRect.right(), most);
    QCOMPARE(rects.cellRect.bottom(), most);
    rects.translate(-most, -most);
    rects.translate(-most, -most);
    rects.translate(-most, -most);
    QCOMPARE(rects.cellRect.left(), std::numeric_limits<int>::min());
}

ZENU_TEST(tst_HitElement)
#include "tst_HitElement.moc"
