#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <QApplication>

using namespace zenu;
using zenutest::paintPending;
using zenutest::Recorder;
using zenutest::ShownHeader;
using zenutest::TestHeader;

namespace {

void send(QPointer<TestHeader> const & header, QEvent::Type type, int x, Qt::MouseButton button)
{
    if (header) {
        QMouseEvent event(type, QPointF(x, 10), header->mapToGlobal(QPointF(x, 10)), button, button,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(header, &event);
    }
}

void everyGesture(QPointer<TestHeader> const & header)
{
    send(header, QEvent::MouseButtonPress, 50, Qt::LeftButton);
    send(header, QEvent::MouseButtonRelease, 50, Qt::LeftButton);
    if (header) {
        // QWidget::clearFocus itself goes on with the widget after the event.
        QFocusEvent event(QEvent::FocusOut);
        QCoreApplication::sendEvent(header, &event);
    }
    send(header, QEvent::MouseButtonPress, 50, Qt::RightButton);
    int const divider = header ? header->getItemRect(0).right() : 0;
    send(header, QEvent::MouseButtonPress, divider, Qt::LeftButton);
    send(header, QEvent::MouseMove, divider + 20, Qt::NoButton);
    send(header, QEvent::MouseMove, divider + 30, Qt::NoButton);
    send(header, QEvent::MouseButtonRelease, divider + 30, Qt::LeftButton);
    send(header, QEvent::MouseButtonDblClick, 50, Qt::LeftButton);
    send(header, QEvent::MouseButtonDblClick, header ? header->getItemRect(0).right() : 0,
         Qt::LeftButton);
}

} // namespace

class tst_HeaderCallOuts : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void callOut_deletesHeader_data();
    void callOut_deletesHeader();
    void callOut_deletesItems_data();
    void callOut_deletesItems();
    void callOut_removesNotification_isSurvived();
    void setCursor_deletesHeader_isSurvived();
};

void tst_HeaderCallOuts::callOut_deletesHeader_data()
{
    QTest::addColumn<QString>("call");
    for (char const * call : {"left", "right", "double", "begin", "track", "end", "click",
                              "rightclick", "doubleclick", "divider", "out"}) {
        QTest::newRow(call) << QString::fromLatin1(call);
    }
}

void tst_HeaderCallOuts::callOut_deletesHeader()
{
    QFETCH(QString, call);
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.recorder.act = [&] {
        if (shown.recorder.calls.last().section(u' ', 0, 0) == call) {
            delete shown.header.data();
        }
    };
    everyGesture(shown.header);
    QVERIFY(!shown.header);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_HeaderCallOuts::callOut_deletesItems_data()
{
    callOut_deletesHeader_data();
}

void tst_HeaderCallOuts::callOut_deletesItems()
{
    QFETCH(QString, call);
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.recorder.cancelTrack = true;
    shown.recorder.act = [&] {
        if (shown.recorder.calls.last().section(u' ', 0, 0) == call) {
            shown.header->deleteAllItems();
        }
    };
    everyGesture(shown.header);
    QCOMPARE(shown.header->getItemsCount(), 0);
    paintPending();
}

void tst_HeaderCallOuts::callOut_removesNotification_isSurvived()
{
    for (int call = 0; call < 6; ++call) {
        ShownHeader shown({100, 100});
        shown.header->setButtons(true);
        QVERIFY(shown.show());
        shown.header->setFocus();
        auto notification = std::make_unique<Recorder>();
        shown.header->setNotification(notification.get());
        int left = call;
        notification->act = [&] {
            if (left-- == 0) {
                shown.header->setNotification(nullptr);
            }
        };
        everyGesture(shown.header);
        QCOMPARE(shown.header->getNotification(), nullptr);
    }
}

void tst_HeaderCallOuts::setCursor_deletesHeader_isSurvived()
{
    ShownHeader shown({100, 100});
    shown.header->setHotTrack(true);
    QVERIFY(shown.show());
    shown.header->onCursor = [&] { delete shown.header.data(); };
    send(shown.header, QEvent::MouseMove, 50, Qt::NoButton);
    QVERIFY(!shown.header);
}

ZENU_TEST(tst_HeaderCallOuts)
#include "tst_HeaderCallOuts.moc"
