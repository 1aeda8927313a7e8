#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <limits>

using namespace zenu;
using zenutest::ShownHeader;
using zenutest::TestHeader;

class tst_HeaderSizing : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void calculatePercent_onInsertion_sharesByWidth();
    void calculatePercent_noWidth_sharesEvenly();
    void calculatePercent_fixedItems_takeNoPart();
    void calculatePercent_noWidthBesideFixedItems_sharesAmongTheOthers();
    void postItemsChange_proportional_sticksOnlyWhileBlocked();
    void resize_proportionalAndSticking_sharesFirstAndThenReachesTheEdge();
    void resize_proportional_sharesWidthByPercentage();
    void resize_proportional_equalItemsStayEqual();
    void resize_proportionalBelowMinima_itemsKeepSizes();
    void resize_proportionalSmallShare_isRaisedToMinimum();
    void resize_proportionalSameWidth_changesNothing();
    void resize_ownPercentages_areUsed();
    void blockControl_true_stopsRecalculationOfPercentages();
    void blockControl_true_stopsResizingByPercentage();
    void blockControl_rebuild_doesNotCollapseItems();
    void setSizePercent_noNumber_leavesMinimum();
    void postItemsChange_stickLast_givesLastTheRest();
    void postItemsChange_stickLastBelowMinimum_leavesItsWidth();
    void postItemsChange_stickLastPastTheEdge_givesZero();
    void resize_stickLast_ignoresMinimum();
    void resize_stickLastNegativeMinimum_givesZero();
    void resize_hiddenHeader_waitsForShow();
    void applyGeometry_hiddenHeader_resizesItemsAtOnce();
    void applyGeometry_shownHeader_resizesItemsOnce();
};

void tst_HeaderSizing::calculatePercent_onInsertion_sharesByWidth()
{
    TestHeader header;
    header.setProportional(true);
    header.addItems({100, 300});
    QCOMPARE(header.getItem(0)->getSizePercent(), 0.25);
    QCOMPARE(header.getItem(1)->getSizePercent(), 0.75);
    header.setWH(0, 300);
    QCOMPARE(header.getItem(0)->getSizePercent(), 0.5);
}

void tst_HeaderSizing::calculatePercent_noWidth_sharesEvenly()
{
    TestHeader header;
    header.setProportional(true);
    header.addItems({0, 0, 0, 0});
    QCOMPARE(header.getItem(2)->getSizePercent(), 0.25);
}

void tst_HeaderSizing::calculatePercent_fixedItems_takeNoPart()
{
    TestHeader header;
    header.setProportional(true);
    header.addItems({100}, HeaderFormatFixed);
    header.addItems({30, 10});
    QCOMPARE(header.getItem(0)->getSizePercent(), 0.0);
    QCOMPARE(header.getItem(1)->getSizePercent(), 0.75);
    QCOMPARE(header.getItem(2)->getSizePercent(), 0.25);
}

void tst_HeaderSizing::resize_proportional_sharesWidthByPercentage()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    shown.header->addItems({40}, HeaderFormatFixed);
    shown.header->addItems({90, 270});
    QVERIFY(shown.show());
    shown.header->resize(241, 20);
    // (241 - 40) * 0.25 and * 0.75, truncated.
    QCOMPARE(shown.header->widths(), QStringLiteral("40 50 150"));
}

void tst_HeaderSizing::resize_proportional_equalItemsStayEqual()
{
    ShownHeader shown({100, 100, 100, 100});
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    for (int const width : {399, 250, 37, 600, 411}) {
        shown.header->resize(width, 20);
        int const first = shown.header->getItem(0)->getWH();
        for (int i = 1; i < 4; ++i) {
            QCOMPARE(shown.header->getItem(i)->getWH(), first);
        }
    }
}

void tst_HeaderSizing::resize_proportionalBelowMinima_itemsKeepSizes()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    shown.header->addItems({200, 200}, HeaderFormatText, 60);
    QVERIFY(shown.show());
    shown.header->resize(120, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("60 60"));
    shown.header->resize(119, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("60 60"));
    shown.header->resize(50, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("60 60"));
    shown.header->resize(200, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
}

void tst_HeaderSizing::resize_proportionalSmallShare_isRaisedToMinimum()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    shown.header->addItems({100}, HeaderFormatText, 80);
    shown.header->addItems({300});
    QVERIFY(shown.show());
    shown.header->resize(200, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("80 150"));
}

void tst_HeaderSizing::resize_proportionalSameWidth_changesNothing()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->addItems({30, 30});
    shown.header->resize(400, 15);
    QCOMPARE(shown.header->widths(), QStringLiteral("30 30"));
}

void tst_HeaderSizing::resize_ownPercentages_areUsed()
{
    ShownHeader shown({100, 100});
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->setSizePercent(0, 0.1);
    shown.header->setSizePercent(1, 0.9);
    shown.header->resize(200, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("20 180"));
}

void tst_HeaderSizing::blockControl_true_stopsRecalculationOfPercentages()
{
    TestHeader header;
    header.setProportional(true);
    header.addItems({100, 100});
    header.blockControl(true);
    header.setWH(0, 300);
    QCOMPARE(header.getItem(0)->getSizePercent(), 0.5);
    header.blockControl(false);
    QCOMPARE(header.getItem(0)->getSizePercent(), 0.5);
    header.postItemsChange();
    QCOMPARE(header.getItem(0)->getSizePercent(), 0.75);
}

void tst_HeaderSizing::blockControl_true_stopsResizingByPercentage()
{
    ShownHeader shown({100, 100});
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    QString const before = shown.header->widths();
    shown.header->blockControl(true);
    shown.header->resize(300, 20);
    QCOMPARE(shown.header->widths(), before);
}

void tst_HeaderSizing::blockControl_rebuild_doesNotCollapseItems()
{
    ShownHeader shown({100, 300});
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->blockControl(true);
    shown.header->deleteAllItems();
    shown.header->addItems({50, 150});
    shown.header->blockControl(false);
    shown.header->resize(100, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("25 75"));
}

void tst_HeaderSizing::setSizePercent_noNumber_leavesMinimum()
{
    ShownHeader shown({100, 100});
    shown.header->setMinWH(0, 7);
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->setSizePercent(0, std::numeric_limits<double>::quiet_NaN());
    shown.header->setSizePercent(1, std::numeric_limits<double>::infinity());
    shown.header->resize(300, 20);
    QCOMPARE(shown.header->getItem(0)->getWH(), 7);
    QCOMPARE(shown.header->getItem(1)->getWH(), std::numeric_limits<int>::max());
}

void tst_HeaderSizing::postItemsChange_stickLast_givesLastTheRest()
{
    ShownHeader shown({100, 50});
    shown.header->setStickLastToEdge(true);
    shown.header->postItemsChange();
    // The widget's right edge is its last pixel: 399.
    QCOMPARE(shown.header->widths(), QStringLiteral("100 299"));
    shown.header->setWH(0, 150);
    QCOMPARE(shown.header->widths(), QStringLiteral("150 249"));
}

void tst_HeaderSizing::postItemsChange_stickLastBelowMinimum_leavesItsWidth()
{
    ShownHeader shown;
    shown.header->addItems({100});
    shown.header->addItems({320}, HeaderFormatText, 310);
    shown.header->setStickLastToEdge(true);
    shown.header->postItemsChange();
    QCOMPARE(shown.header->widths(), QStringLiteral("100 320"));
}

void tst_HeaderSizing::postItemsChange_stickLastPastTheEdge_givesZero()
{
    ShownHeader shown({500, 30});
    shown.header->setStickLastToEdge(true);
    shown.header->postItemsChange();
    QCOMPARE(shown.header->widths(), QStringLiteral("500 0"));
}

void tst_HeaderSizing::resize_stickLast_ignoresMinimum()
{
    ShownHeader shown;
    shown.header->addItems({100});
    shown.header->addItems({320}, HeaderFormatText, 310);
    shown.header->setStickLastToEdge(true);
    QVERIFY(shown.show());
    shown.header->resize(250, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 150"));
    shown.header->resize(60, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 -40"));
    shown.header->grab();
}

void tst_HeaderSizing::resize_stickLastNegativeMinimum_givesZero()
{
    ShownHeader shown;
    shown.header->addItems({100});
    shown.header->addItems({320}, HeaderFormatText, -1);
    shown.header->setStickLastToEdge(true);
    QVERIFY(shown.show());
    shown.header->resize(250, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 0"));
}

void tst_HeaderSizing::resize_hiddenHeader_waitsForShow()
{
    ShownHeader shown({100, 100});
    shown.header->setProportional(true);
    shown.header->setGeometry(0, 0, 300, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
    QVERIFY(shown.show());
    QCOMPARE(shown.header->widths(), QStringLiteral("150 150"));
}

void tst_HeaderSizing::applyGeometry_hiddenHeader_resizesItemsAtOnce()
{
    ShownHeader shown({100, 300});
    shown.header->setProportional(true);
    shown.header->applyGeometry(QRect(5, 0, 200, 20));
    QCOMPARE(shown.header->widths(), QStringLiteral("50 150"));
    QVERIFY(shown.show());
    QCOMPARE(shown.header->widths(), QStringLiteral("50 150"));
}

void tst_HeaderSizing::applyGeometry_shownHeader_resizesItemsOnce()
{
    ShownHeader shown({100, 300});
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->applyGeometry(QRect(5, 0, 200, 20));
    QCOMPARE(shown.header->geometry(), QRect(5, 0, 200, 20));
    QCOMPARE(shown.header->widths(), QStringLiteral("50 150"));
}

void tst_HeaderSizing::calculatePercent_noWidthBesideFixedItems_sharesAmongTheOthers()
{
    TestHeader header;
    header.setProportional(true);
    header.addItems({100}, HeaderFormatFixed);
    header.addItems({0, 0});
    QCOMPARE(header.getItem(1)->getSizePercent(), 0.5);
    QCOMPARE(header.getItem(2)->getSizePercent(), 0.5);
}

void tst_HeaderSizing::postItemsChange_proportional_sticksOnlyWhileBlocked()
{
    ShownHeader shown({100, 50});
    shown.header->setStickLastToEdge(true);
    shown.header->setProportional(true);
    shown.header->postItemsChange();
    QCOMPARE(shown.header->widths(), QStringLiteral("100 50"));
    shown.header->blockControl(true);
    shown.header->postItemsChange();
    QCOMPARE(shown.header->widths(), QStringLiteral("100 299"));
}

void tst_HeaderSizing::resize_proportionalAndSticking_sharesFirstAndThenReachesTheEdge()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.header->setStickLastToEdge(true);
    shown.header->setProportional(true);
    shown.header->resize(301, 20);
    // Half of 301, truncated, and what is left.
    QCOMPARE(shown.header->widths(), QStringLiteral("150 151"));
}

ZENU_TEST(tst_HeaderSizing)
#include "tst_HeaderSizing.moc"
