#include "tests/scroll/ScrolledFixture.h"
#include "tests/support/TestMain.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleOptionSlider>

using namespace zenu;
using zenutest::Scrolled;

class tst_ScrollBarGestures : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void setValue_callsOnScrollWithCodeSix();
    void setValue_negative_arrivesAsUnsigned();
    void codes_haveTheirNumbers();
    void slot_byName_data();
    void slot_byName();
    void click_data();
    void click();
    void click_derivedSetsTheValue_barTakesNoStepOfItsOwn();
    void click_veto_leavesTheBarWhereItWas();
    void click_atTheEnd_stillAsksForALine();
    void key_data();
    void key();
    void wheel_arrivesAsThumb();
    void drag_arrivesAsThumb();
    void menuAction_toMinimum_arrivesAsThumb();
    void widgetDeletedInOnScroll_data();
    void widgetDeletedInOnScroll();
    void widgetDeletedInContentsHeight();
};

namespace {

QPoint placeOf(QScrollBar * bar, QStyle::SubControl control)
{
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.subControls = QStyle::SC_None;
    option.orientation = bar->orientation();
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.sliderValue = bar->value();
    option.singleStep = bar->singleStep();
    option.pageStep = bar->pageStep();
    if (bar->orientation() == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, control, bar).center();
}

void click(QScrollBar * bar, QStyle::SubControl control)
{
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, placeOf(bar, control));
}

// Shown, both bars on, each from 0 to 100 at 50 with line step 1 and page step 10.
void showWithBars(Scrolled & widget)
{
    widget.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    for (QScrollBar * bar : {widget.getHScrollBar(), widget.getVScrollBar()}) {
        bar->setRange(0, 100);
        bar->setPageStep(10);
        bar->setValue(50);
    }
    widget.resize(300, 300);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    widget.calls.clear();
}

QScrollBar * barOf(Scrolled & widget, bool horizontal)
{
    return horizontal ? widget.getHScrollBar() : widget.getVScrollBar();
}

QString call(bool horizontal, int code, int pos)
{
    return horizontal ? QStringLiteral("%1 -1 %2 1").arg(code).arg(pos)
                      : QStringLiteral("-1 %1 %2 1").arg(code).arg(pos);
}

} // namespace

void tst_ScrollBarGestures::setValue_callsOnScrollWithCodeSix()
{
    Scrolled widget;
    widget.getHScrollBar()->setRange(0, 100);
    widget.getVScrollBar()->setRange(0, 100);
    widget.getHScrollBar()->setValue(7);
    widget.getVScrollBar()->setValue(8);
    widget.getVScrollBar()->setValue(8);
    QCOMPARE(widget.calls, QStringList({call(true, 6, 7), call(false, 6, 8)}));
}

void tst_ScrollBarGestures::setValue_negative_arrivesAsUnsigned()
{
    Scrolled widget;
    widget.getHScrollBar()->setRange(-3, 3);
    widget.getHScrollBar()->setValue(-1);
    QCOMPARE(widget.calls, QStringList(QStringLiteral("6 -1 4294967295 1")));
}

void tst_ScrollBarGestures::click_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<int>("control");
    QTest::addColumn<int>("code");
    for (bool const horizontal : {true, false}) {
        char const * const axis = horizontal ? "horizontal" : "vertical";
        QTest::addRow("%s arrow back", axis) << horizontal << int(QStyle::SC_ScrollBarSubLine) << 0;
        QTest::addRow("%s before the thumb", axis)
            << horizontal << int(QStyle::SC_ScrollBarSubPage) << 1;
        QTest::addRow("%s behind the thumb", axis)
            << horizontal << int(QStyle::SC_ScrollBarAddPage) << 2;
        QTest::addRow("%s arrow forward", axis)
            << horizontal << int(QStyle::SC_ScrollBarAddLine) << 3;
    }
}

void tst_ScrollBarGestures::click()
{
    QFETCH(bool, horizontal);
    QFETCH(int, control);
    QFETCH(int, code);
    Scrolled widget;
    showWithBars(widget);
    QScrollBar * const bar = barOf(widget, horizontal);
    ::click(bar, static_cast<QStyle::SubControl>(control));
    QCOMPARE(widget.calls, QStringList(call(horizontal, code, 0)));
    QCOMPARE(bar->value(), 50);
    QCOMPARE(bar->sliderPosition(), 50);
    ::click(bar, static_cast<QStyle::SubControl>(control));
    QCOMPARE(widget.calls.size(), 2);
}

void tst_ScrollBarGestures::click_derivedSetsTheValue_barTakesNoStepOfItsOwn()
{
    Scrolled widget;
    showWithBars(widget);
    QScrollBar * const bar = widget.getVScrollBar();
    widget.scroll = [bar](int, int vCode) {
        if (vCode == KScrolledWidget::ScrollLineForward)
            bar->setValue(57);
    };
    ::click(bar, QStyle::SC_ScrollBarAddLine);
    // The nested call is that of any value the derived class sets.
    QCOMPARE(widget.calls, QStringList({call(false, 3, 0), call(false, 6, 57)}));
    QCOMPARE(bar->value(), 57);
    QCOMPARE(bar->sliderPosition(), 57);
}

void tst_ScrollBarGestures::click_veto_leavesTheBarWhereItWas()
{
    Scrolled widget;
    showWithBars(widget);
    widget.answer = false;
    ::click(widget.getHScrollBar(), QStyle::SC_ScrollBarAddPage);
    QCOMPARE(widget.calls, QStringList(call(true, 2, 0)));
    QCOMPARE(widget.getHScrollBar()->value(), 50);
    QCOMPARE(widget.getHScrollBar()->sliderPosition(), 50);
}

void tst_ScrollBarGestures::click_atTheEnd_stillAsksForALine()
{
    Scrolled widget;
    showWithBars(widget);
    QScrollBar * const bar = widget.getVScrollBar();
    bar->setValue(100);
    widget.calls.clear();
    ::click(bar, QStyle::SC_ScrollBarAddLine);
    QCOMPARE(widget.calls, QStringList(call(false, 3, 0)));
}

void tst_ScrollBarGestures::key_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("down is a line") << int(Qt::Key_Down) << call(false, 3, 0);
    QTest::newRow("up is a line") << int(Qt::Key_Up) << call(false, 0, 0);
    QTest::newRow("page down is a page") << int(Qt::Key_PageDown) << call(false, 2, 0);
    QTest::newRow("page up is a page") << int(Qt::Key_PageUp) << call(false, 1, 0);
    QTest::newRow("home arrives as thumb") << int(Qt::Key_Home) << call(false, 6, 0);
    QTest::newRow("end arrives as thumb") << int(Qt::Key_End) << call(false, 6, 100);
}

void tst_ScrollBarGestures::key()
{
    QFETCH(int, key);
    QFETCH(QString, expected);
    Scrolled widget;
    showWithBars(widget);
    QTest::keyClick(widget.getVScrollBar(), static_cast<Qt::Key>(key));
    QCOMPARE(widget.calls, QStringList(expected));
}

void tst_ScrollBarGestures::wheel_arrivesAsThumb()
{
    Scrolled widget;
    showWithBars(widget);
    QScrollBar * const bar = widget.getVScrollBar();
    QPointF const pos = bar->rect().center();
    QWheelEvent event(pos, bar->mapToGlobal(pos), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(bar, &event);
    QVERIFY(bar->value() > 50);
    QCOMPARE(widget.calls, QStringList(call(false, 6, bar->value())));
}

void tst_ScrollBarGestures::drag_arrivesAsThumb()
{
    Scrolled widget;
    showWithBars(widget);
    QScrollBar * const bar = widget.getVScrollBar();
    QPoint const from = placeOf(bar, QStyle::SC_ScrollBarSlider);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, from);
    QCOMPARE(widget.calls, QStringList());
    QMouseEvent move(QEvent::MouseMove, from + QPoint(0, 40),
                     bar->mapToGlobal(from + QPoint(0, 40)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(bar, &move);
    QVERIFY(bar->value() > 50);
    QCOMPARE(widget.calls, QStringList(call(false, 6, bar->value())));
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, from + QPoint(0, 40));
    QCOMPARE(widget.calls.size(), 1);
}

void tst_ScrollBarGestures::menuAction_toMinimum_arrivesAsThumb()
{
    Scrolled widget;
    showWithBars(widget);
    widget.getHScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    QCOMPARE(widget.calls, QStringList(call(true, 6, 0)));
}

void tst_ScrollBarGestures::codes_haveTheirNumbers()
{
    QCOMPARE(int(KScrolledWidget::ScrollNothing), -1);
    QCOMPARE(int(KScrolledWidget::ScrollLineBack), 0);
    QCOMPARE(int(KScrolledWidget::ScrollPageBack), 1);
    QCOMPARE(int(KScrolledWidget::ScrollPageForward), 2);
    QCOMPARE(int(KScrolledWidget::ScrollLineForward), 3);
    QCOMPARE(int(KScrolledWidget::ScrollToEnd), 4);
    QCOMPARE(int(KScrolledWidget::ScrollToPosition), 5);
    QCOMPARE(int(KScrolledWidget::ScrollThumb), 6);
    QCOMPARE(int(KScrolledWidget::ScrollToBegin), 7);
}

void tst_ScrollBarGestures::slot_byName_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("onHNextLine") << call(true, 3, 0);
    QTest::newRow("onHPrevLine") << call(true, 0, 0);
    QTest::newRow("onHNextPage") << call(true, 2, 0);
    QTest::newRow("onHPrevPage") << call(true, 1, 0);
    QTest::newRow("onVNextLine") << call(false, 3, 0);
    QTest::newRow("onVPrevLine") << call(false, 0, 0);
    QTest::newRow("onVNextPage") << call(false, 2, 0);
    QTest::newRow("onVPrevPage") << call(false, 1, 0);
}

void tst_ScrollBarGestures::slot_byName()
{
    QFETCH(QString, expected);
    Scrolled widget;
    QVERIFY(QMetaObject::invokeMethod(&widget, QTest::currentDataTag()));
    QCOMPARE(widget.calls, QStringList(expected));
    QVERIFY(QMetaObject::invokeMethod(&widget, "onHValueChanged", Q_ARG(int, 7)));
    QVERIFY(QMetaObject::invokeMethod(&widget, "onVValueChanged", Q_ARG(int, 8)));
    QCOMPARE(widget.calls, QStringList({expected, call(true, 6, 7), call(false, 6, 8)}));
}

namespace {

// Goes with the first scroll, or when it is asked how high its contents are.
class ShortLived : public KScrolledWidget
{
public:
    bool OnScroll(int, int, unsigned int, bool) override
    {
        delete this;
        return true;
    }
    int contentsWidth() const override { return 10; }
    int contentsHeight() const override
    {
        if (goesWhenAsked)
            delete this;
        return 10;
    }

    bool goesWhenAsked = false;
};

void wheel(QScrollBar * bar)
{
    QWheelEvent event(QPointF(5, 5), bar->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -1200),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(bar, &event);
}

using Gesture = void (*)(QScrollBar *);

} // namespace

void tst_ScrollBarGestures::widgetDeletedInOnScroll_data()
{
    QTest::addColumn<Gesture>("gesture");
    auto const add = [](char const * name, Gesture gesture) { QTest::newRow(name) << gesture; };
    add("value", [](QScrollBar * bar) { bar->setValue(70); });
    add("line", [](QScrollBar * bar) { bar->triggerAction(QAbstractSlider::SliderSingleStepAdd); });
    add("page", [](QScrollBar * bar) { bar->triggerAction(QAbstractSlider::SliderPageStepSub); });
    add("to the end",
        [](QScrollBar * bar) { bar->triggerAction(QAbstractSlider::SliderToMaximum); });
    add("click", [](QScrollBar * bar) { ::click(bar, QStyle::SC_ScrollBarAddPage); });
    add("key", [](QScrollBar * bar) { QTest::keyClick(bar, Qt::Key_PageDown); });
    add("wheel", wheel);
}

// A bar goes on with itself after it has announced a step.
void tst_ScrollBarGestures::widgetDeletedInOnScroll()
{
    QFETCH(Gesture, gesture);
    QPointer<ShortLived> const widget = new ShortLived;
    QPointer<QScrollBar> const bar = widget->getVScrollBar();
    {
        QSignalBlocker const quiet(bar);
        bar->setRange(0, 100);
        bar->setPageStep(10);
        bar->setValue(50);
    }
    widget->setVScrollBarMode(KScrolledWidget::AlwaysOn);
    widget->resize(100, 300);
    widget->setAttribute(Qt::WA_DontShowOnScreen);
    widget->show();
    gesture(bar);
    QVERIFY(widget.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(bar.isNull());
}

void tst_ScrollBarGestures::widgetDeletedInContentsHeight()
{
    QPointer<ShortLived> const widget = new ShortLived;
    widget->resize(100, 100);
    widget->goesWhenAsked = true;
    widget->contentsSizeChanged();
    QVERIFY(widget.isNull());
}

ZENU_TEST(tst_ScrollBarGestures)
#include "tst_ScrollBarGestures.moc"
