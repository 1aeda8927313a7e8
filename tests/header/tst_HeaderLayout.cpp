#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <zenu/header/inner/HeaderLayout.h>

#include <QApplication>
#include <QFontMetrics>

using namespace zenu;
using zenutest::dump;

class tst_HeaderLayout : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void itemRect_data();
    void itemRect();
    void itemRect_hugeWidths_saturate();
    void hitTest_data();
    void hitTest();
    void hitTest_displayOrderReversed_dividerIsOfPreviousOnScreen();
    void hitTest_itemOfNegativeWidth_holdsNothing();
    void totals_mixedItems_sumMinimaAndFixedWidths();
    void displayText_anyWidthInARealFont_isThatOfTryingEachLength();
    void canTrack_data();
    void canTrack();
    void prepareTrack_fromAnItem_sharesAmongThoseNotFixed();
    void prepareTrack_noWidthAtAll_givesNoShare();
    void spaceAfter_data();
    void spaceAfter();
    void displayText_data();
    void displayText();
    void displayText_longText_isMeasuredFewTimes();
    void placeText_data();
    void placeText();
    void arrowX_data();
    void arrowX();
};

namespace {

// "30", or "30f" for a fixed one, or "30/5" with a minimum.
KHeaderItemVec items(QString const & text)
{
    KHeaderItemVec list;
    for (QString word : text.split(u' ', Qt::SkipEmptyParts)) {
        bool const fixed = word.endsWith(u'f');
        word.remove(u'f');
        int const minWH = word.section(u'/', 1).toInt();
        list.insert(-1, KHeaderItem("T", nullptr, fixed ? HeaderFormatFixed : 0, minWH,
                                    word.section(u'/', 0, 0).toInt(), 0));
    }
    return list;
}

QString edges(QRect const & rect)
{
    return QStringLiteral("%1,%2 %3,%4")
        .arg(rect.left())
        .arg(rect.top())
        .arg(rect.right())
        .arg(rect.bottom());
}

// Ten pixels a character, less one, as bounding rectangles have it.
int tenEach(QString const & text)
{
    return int(text.size()) * 10 - 1;
}

} // namespace

void tst_HeaderLayout::itemRect_data()
{
    QTest::addColumn<bool>("vert");
    QTest::addColumn<bool>("flat");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first: right is left + width") << false << false << 0 << "0,0 30,19";
    QTest::newRow("second shares a pixel") << false << false << 1 << "30,0 70,19";
    QTest::newRow("third, past the widget") << false << false << 2 << "70,0 120,19";
    QTest::newRow("flat: less one above and below") << false << true << 1 << "30,1 70,18";
    QTest::newRow("vertical") << true << false << 1 << "0,30 99,70";
    QTest::newRow("vertical flat: less one at the sides") << true << true << 1 << "1,30 98,70";
}

void tst_HeaderLayout::itemRect()
{
    QFETCH(bool, vert);
    QFETCH(bool, flat);
    QFETCH(int, index);
    QFETCH(QString, expected);
    KHeaderItemVec const list = items("30 40 50");
    HeaderGeometry const geometry{list, QRect(0, 0, 100, 20), vert, flat};
    QCOMPARE(edges(HeaderLayout::itemRect(geometry, list[index])), expected);
}

void tst_HeaderLayout::itemRect_hugeWidths_saturate()
{
    int const huge = std::numeric_limits<int>::max();
    KHeaderItemVec const list = items(QStringLiteral("%1 %1 5").arg(huge));
    HeaderGeometry const geometry{list, QRect(0, 0, 100, 20)};
    QCOMPARE(HeaderLayout::itemRect(geometry, list[1]).right(), huge);
    QCOMPARE(HeaderLayout::itemRect(geometry, list[2]).left(), huge);
    HeaderLayout::hitTest(geometry, QPoint(5, 5));
    HeaderLayout::spaceAfter(geometry);
    HeaderLayout::canTrack(geometry, 1, huge);
    HeaderLayout::canTrack(geometry, 1, -huge);
}

void tst_HeaderLayout::hitTest_data()
{
    QTest::addColumn<QString>("widths");
    QTest::addColumn<bool>("vert");
    QTest::addColumn<bool>("flat");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("expected");
    auto const row = [](char const * tag, char const * widths, int x, int y, char const * expected,
                        bool vert = false, bool flat = false) {
        QTest::newRow(tag) << widths << vert << flat << QPoint(x, y) << expected;
    };
    row("left of the header", "30 40", -1, 5, "item=-1 outside=4");
    row("right of it", "30 40", 100, 5, "item=-1 outside=3");
    row("above a horizontal one counts as right", "30 40", 5, -1, "item=-1 outside=3");
    row("below a horizontal one counts as right", "30 40", 5, 20, "item=-1 outside=3");
    row("above a vertical one", "5 5", 5, -1, "item=-1 outside=1", true);
    row("below a vertical one", "5 5", 5, 20, "item=-1 outside=2", true);
    row("right of a vertical one counts as below", "5 5", 100, 5, "item=-1 outside=2", true);
    row("body of the first, at its left edge", "30 40", 0, 5, "item=0");
    row("body", "30 40", 25, 5, "item=0");
    row("four left of the border", "30 40", 26, 5, "item=0 divider");
    row("on the border the first in the vector", "30 40", 30, 5, "item=0 divider");
    row("four right of the border: the item at the left", "30 40", 34, 5, "item=0 divider");
    row("five right of it: body", "30 40", 35, 5, "item=1");
    row("right edge of the last", "30 40", 70, 5, "item=1 divider");
    row("behind the last: its divider", "30 40", 71, 5, "item=1 divider");
    row("far behind the last: its divider", "30 40", 99, 5, "item=1 divider");
    row("behind a last one without width", "30 0", 80, 5, "item=1 nowidth");
    row("right of one without width", "30 0 40", 33, 5, "item=1 nowidth");
    row("left of one without width: the visible one", "30 0 40", 28, 5, "item=0 divider");
    row("both borders of a narrow one: its own", "30 6 40", 33, 5, "item=1 divider");
    row("both borders, the one before without width", "30 0 6 40", 33, 5, "item=2 divider nowidth");
    row("line along a flat header: the last divider", "30 40", 5, 0, "item=1 divider", false, true);
    row("no items", "", 5, 5, "item=-1 nowhere");
    row("vertical: no divider at the border", "5 5", 50, 5, "item=0", true);
    row("vertical: second", "5 5", 50, 6, "item=1", true);
    row("vertical: behind the last", "5 5", 50, 15, "item=-1 nowhere", true);
}

void tst_HeaderLayout::hitTest()
{
    QFETCH(QString, widths);
    QFETCH(bool, vert);
    QFETCH(bool, flat);
    QFETCH(QPoint, point);
    QFETCH(QString, expected);
    KHeaderItemVec const list = items(widths);
    HeaderGeometry const geometry{list, QRect(0, 0, 100, 20), vert, flat};
    QCOMPARE(dump(HeaderLayout::hitTest(geometry, point)), expected);
}

void tst_HeaderLayout::hitTest_displayOrderReversed_dividerIsOfPreviousOnScreen()
{
    // An own order: the item's field alone, as KHeader::setOrder stores it. Equal widths, so that
    // the places are those of a true exchange.
    zenutest::TestHeader header;
    header.setGeometry(0, 0, 100, 20);
    header.addItems({30, 30});
    header.setOrder(0, 1);
    header.setOrder(1, 0);
    QCOMPARE(header.getItemRect(0).left(), 30);
    QCOMPARE(header.getItemRect(1).left(), 0);
    QCOMPARE(dump(header.hitTest(QPoint(10, 5))), QStringLiteral("item=1"));
    QCOMPARE(dump(header.hitTest(QPoint(50, 5))), QStringLiteral("item=0"));
}

void tst_HeaderLayout::hitTest_itemOfNegativeWidth_holdsNothing()
{
    KHeaderItemVec list = items("50 -20 30");
    HeaderGeometry const geometry{list, QRect(0, 0, 100, 20)};
    QCOMPARE(dump(HeaderLayout::hitTest(geometry, QPoint(40, 5))), QStringLiteral("item=0"));
}

void tst_HeaderLayout::canTrack_data()
{
    QTest::addColumn<QString>("widths");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("wh");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("minima behind just fit") << "30 40/10 20/10" << 0 << 79 << true;
    QTest::newRow("one more pushes them out") << "30 40/10 20/10" << 0 << 80 << false;
    QTest::newRow("fixed ones keep their width") << "30 40f 20/10" << 0 << 49 << true;
    QTest::newRow("and are in the way") << "30 40f 20/10" << 0 << 50 << false;
    QTest::newRow("only fixed behind, room left over") << "30 40f" << 0 << 58 << false;
    QTest::newRow("only fixed behind, no room left over") << "30 40f" << 0 << 59 << true;
    QTest::newRow("nothing behind counts as only fixed") << "30" << 0 << 50 << false;
    QTest::newRow("nothing behind, to the edge") << "30" << 0 << 99 << true;
    QTest::newRow("items before do not count") << "30 40/10 20/10" << 1 << 59 << true;
    QTest::newRow("bad index") << "30" << 7 << 10 << false;
}

void tst_HeaderLayout::canTrack()
{
    QFETCH(QString, widths);
    QFETCH(int, index);
    QFETCH(int, wh);
    QFETCH(bool, allowed);
    KHeaderItemVec const list = items(widths);
    QCOMPARE(HeaderLayout::canTrack({list, QRect(0, 0, 100, 20)}, index, wh), allowed);
}

void tst_HeaderLayout::prepareTrack_fromAnItem_sharesAmongThoseNotFixed()
{
    KHeaderItemVec list = items("30 40f 10 30");
    HeaderLayout::prepareTrack(list, 1);
    QCOMPARE(list[0].getTrackPercent(), 0.0);
    QCOMPARE(list[1].getTrackPercent(), 0.0);
    QCOMPARE(list[2].getTrackPercent(), 0.25);
    QCOMPARE(list[3].getTrackPercent(), 0.75);
    HeaderLayout::prepareTrack(list, -1);
    HeaderLayout::prepareTrack(list, 4);
    QCOMPARE(list[2].getTrackPercent(), 0.25);
}

void tst_HeaderLayout::prepareTrack_noWidthAtAll_givesNoShare()
{
    KHeaderItemVec list = items("0 0");
    HeaderLayout::prepareTrack(list, 0);
    QCOMPARE(list[0].getTrackPercent(), 0.0);
}

void tst_HeaderLayout::spaceAfter_data()
{
    QTest::addColumn<QString>("widths");
    QTest::addColumn<bool>("vert");
    QTest::addColumn<bool>("flat");
    QTest::addColumn<QString>("expected");
    QTest::newRow("behind the rightmost edge") << "30 40" << false << false << "71,0 99,19";
    QTest::newRow("no items") << "" << false << false << "0,0 99,19";
    QTest::newRow("flat") << "30 40" << false << true << "71,1 99,18";
    QTest::newRow("vertical: nothing") << "5 5" << true << false << "100,0 99,19";
}

void tst_HeaderLayout::spaceAfter()
{
    QFETCH(QString, widths);
    QFETCH(bool, vert);
    QFETCH(bool, flat);
    QFETCH(QString, expected);
    KHeaderItemVec const list = items(widths);
    QCOMPARE(edges(HeaderLayout::spaceAfter({list, QRect(0, 0, 100, 20), vert, flat})), expected);
}

void tst_HeaderLayout::displayText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("expected");
    QTest::newRow("fits to the pixel") << "abcd" << 39 << "abcd";
    QTest::newRow("one pixel less") << "abcd" << 38 << "a...";
    QTest::newRow("cut text measures less than the width") << "abcdefgh" << 50 << "ab...";
    QTest::newRow("equal is not less") << "abcdefgh" << 49 << "a...";
    QTest::newRow("always one character and the dots") << "abcdefgh" << 5 << "a...";
    QTest::newRow("below 0") << "abcdefgh" << -20 << "a...";
    QTest::newRow("single character") << "a" << 3 << "a...";
    QTest::newRow("empty stays") << "" << -20 << "";
    QTest::newRow("long, fits") << QString(200, u'x') << 1999 << QString(200, u'x');
    QTest::newRow("long, just not") << QString(200, u'x') << 1998 << QString(196, u'x') + "...";
    QTest::newRow("long, narrow") << QString(200, u'x') << 100 << QString(7, u'x') + "...";
}

void tst_HeaderLayout::displayText()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(QString, expected);
    QCOMPARE(HeaderLayout::displayText(text, width, tenEach), expected);
}

void tst_HeaderLayout::displayText_longText_isMeasuredFewTimes()
{
    int calls = 0;
    qsizetype longest = 0;
    auto const counted = [&](QString const & text) {
        ++calls;
        longest = std::max(longest, text.size());
        return tenEach(text);
    };
    QString const text(1000000, u'x');
    QCOMPARE(HeaderLayout::displayText(text, 100, counted), QStringLiteral("xxxxxxx..."));
    QVERIFY2(calls < 25, qPrintable(QString::number(calls)));
    QVERIFY(longest < 200);
}

void tst_HeaderLayout::placeText_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<int>("imageWidth");
    QTest::addColumn<int>("imageX");
    QTest::addColumn<int>("textLeft");
    QTest::addColumn<int>("alignment");
    int const v = int(Qt::AlignVCenter);
    int const left = v | int(Qt::AlignLeft);
    QTest::newRow("left, image") << 1 << 16 << 10 << 31 << left;
    QTest::newRow("left") << 1 << -1 << 10 << 10 << left;
    QTest::newRow("right, image") << 2 << 16 << 110 - 5 - 30 - 16 << 80
                                  << (v | int(Qt::AlignRight));
    QTest::newRow("right") << 2 << -1 << 10 << 10 << (v | int(Qt::AlignRight));
    QTest::newRow("centre, image")
        << 4 << 16 << 10 + (100 - 5 - 30 - 16) / 2 << 10 + 24 + 16 + 5 << left;
    QTest::newRow("centre") << 4 << -1 << 10 << 10 << (v | int(Qt::AlignHCenter));
    QTest::newRow("other, image") << 3 << 16 << 10 << 10 << v;
    QTest::newRow("other") << 0 << -1 << 10 << 10 << v;
}

void tst_HeaderLayout::placeText()
{
    QFETCH(int, justify);
    QFETCH(int, imageWidth);
    QFETCH(int, imageX);
    QFETCH(int, textLeft);
    QFETCH(int, alignment);
    QRect rect;
    rect.setCoords(10, 0, 110, 19);
    HeaderTextPlace const place =
        HeaderLayout::placeText(rect, EHeaderJustify(justify), imageWidth, 30);
    QCOMPARE(int(place.alignment), alignment);
    QCOMPARE(place.textLeft, textLeft);
    if (imageWidth >= 0) {
        QCOMPARE(place.imageX, imageX);
    }
}

void tst_HeaderLayout::arrowX_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<int>("textWidth");
    QTest::addColumn<int>("x"); // -1: no arrow
    QTest::newRow("left: five behind the text") << 1 << 30 << 10 + 30 + 5;
    QTest::newRow("left: just fits") << 1 << 82 << 10 + 82 + 5;
    QTest::newRow("left: one less") << 1 << 83 << -1;
    QTest::newRow("right: before the text") << 2 << 30 << 110 - 30 - 15;
    QTest::newRow("right: just fits") << 2 << 82 << 110 - 82 - 15;
    QTest::newRow("right: one less") << 2 << 83 << -1;
    // The text is centred in 87 pixels then and ends at 10 + (87 + 31) / 2 = 69.
    QTest::newRow("centre: five right of the text") << 4 << 31 << 69 + 5;
    QTest::newRow("centre: just fits") << 4 << 84 << 97 + 5 - 1;
    QTest::newRow("centre: one less") << 4 << 85 << -1;
    QTest::newRow("other: none") << 3 << 10 << -1;
}

void tst_HeaderLayout::arrowX()
{
    QFETCH(int, justify);
    QFETCH(int, textWidth);
    QFETCH(int, x);
    QRect rect;
    rect.setCoords(10, 0, 110, 19);
    std::optional<int> const found =
        HeaderLayout::arrowX(rect, EHeaderJustify(justify), textWidth, 8);
    QCOMPARE(found.value_or(-1), x);
    if (found) {
        QVERIFY2(*found + 8 <= 110, "inside the item");
    }
}

void tst_HeaderLayout::totals_mixedItems_sumMinimaAndFixedWidths()
{
    HeaderTotals const none = HeaderLayout::totals(items(""));
    QCOMPARE(none.minWidth + none.fixedWidth + none.fixedCount, 0);
    HeaderTotals const sums = HeaderLayout::totals(items("30/5 40/9f 20/-3 7f"));
    QCOMPARE(sums.minWidth, 2);
    QCOMPARE(sums.fixedWidth, 47);
    QCOMPARE(sums.fixedCount, 2);
}

void tst_HeaderLayout::displayText_anyWidthInARealFont_isThatOfTryingEachLength()
{
    QFontMetrics const metrics(QApplication::font());
    auto const measure = [&metrics](QString const & text) {
        QRect const bounds = metrics.boundingRect(text);
        return bounds.right() - bounds.left();
    };
    auto const tried = [&measure](QString const & text, int width) {
        if (measure(text) <= width) {
            return text;
        }
        qsizetype n = text.size();
        QString candidate = text + QStringLiteral("...");
        while (measure(candidate) >= width && n - 1 >= 1) {
            candidate = text.left(--n) + QStringLiteral("...");
        }
        return candidate;
    };
    for (QString const & text : {QStringLiteral("AVAVAToWaYefficient"), QStringLiteral("WWWWW"),
                                 QStringLiteral("il.l.i,'\"!"),
                                 QString::fromLatin1("Gr\xf6\xdf"
                                                     "e in \xc4mtern"),
                                 QStringLiteral("AVA").repeated(30)}) {
        int const step = text.size() > 64 ? 7 : 1;
        for (int width = -3; width < measure(text) + 3; width += step) {
            QCOMPARE(HeaderLayout::displayText(text, width, measure), tried(text, width));
        }
    }
}

ZENU_TEST(tst_HeaderLayout)
#include "tst_HeaderLayout.moc"
