#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <QApplication>

using namespace zenu;
using zenutest::resizeCursorShown;
using zenutest::ShownHeader;

class tst_HeaderCursor : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cursor_overDivider_isResizeCursor();
    void cursor_overBodyAndLeave_isGivenBack();
    void cursor_fixedItemsDivider_staysAsItWas();
    void cursor_stickingLastItem_isNotShown();
    void cursor_whileTracking_staysOn();
    void cursor_changes_areNotStacked();
    void cursor_headerDeleted_isGivenBack();
};

void tst_HeaderCursor::cursor_overDivider_isResizeCursor()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.move(100);
    QVERIFY(resizeCursorShown());
}

void tst_HeaderCursor::cursor_overBodyAndLeave_isGivenBack()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.move(100);
    shown.move(50);
    QVERIFY(!QApplication::overrideCursor());
    shown.move(100);
    shown.leave();
    QVERIFY(!QApplication::overrideCursor());
}

void tst_HeaderCursor::cursor_fixedItemsDivider_staysAsItWas()
{
    ShownHeader shown({100});
    shown.header->addItems({100}, HeaderFormatFixed);
    QVERIFY(shown.show());
    shown.move(150);
    shown.move(200);
    QVERIFY(!resizeCursorShown());
    shown.move(100);
    QVERIFY(resizeCursorShown());
    shown.move(200);
    QVERIFY(resizeCursorShown());
}

void tst_HeaderCursor::cursor_stickingLastItem_isNotShown()
{
    ShownHeader shown({100, 100});
    shown.header->setStickLastToEdge(true);
    QVERIFY(shown.show());
    shown.move(398);
    QVERIFY(!resizeCursorShown());
    shown.move(100);
    QVERIFY(resizeCursorShown());
    shown.move(398);
    QVERIFY(!resizeCursorShown());
}

void tst_HeaderCursor::cursor_whileTracking_staysOn()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(50);
    QVERIFY(resizeCursorShown());
    shown.release(50);
    QVERIFY(!resizeCursorShown());
}

void tst_HeaderCursor::cursor_changes_areNotStacked()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.move(99);
    shown.move(100);
    shown.header->setResizeCursor(true);
    shown.header->setResizeCursor(false);
    QVERIFY(!QApplication::overrideCursor());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    shown.header->setResizeCursor(false);
    QVERIFY(QApplication::overrideCursor());
    QApplication::restoreOverrideCursor();
}

void tst_HeaderCursor::cursor_headerDeleted_isGivenBack()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.move(100);
    QVERIFY(resizeCursorShown());
    delete shown.header.data();
    QVERIFY(!QApplication::overrideCursor());
}

// --- Release, double click, focus, hot tracking

ZENU_TEST(tst_HeaderCursor)
#include "tst_HeaderCursor.moc"
