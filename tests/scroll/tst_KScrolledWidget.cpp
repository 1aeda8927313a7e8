#include "tests/support/TestMain.h"

#include <zenu/scroll/KScrolledWidget.h>

#include <QtGui/QWheelEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleOptionSlider>

#include <functional>
#include <limits>

using namespace zenu;

namespace {

class Scrolled : public KScrolledWidget
{
public:
    using KScrolledWidget::KScrolledWidget;

    bool OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll) override
    {
        calls << QStringLiteral("%1 %2 %3 %4").arg(hCode).arg(vCode).arg(pos).arg(doScroll);
        if (scroll)
            scroll(hCode, vCode);
        return answer;
    }
    int contentsWidth() const override { return contents.width(); }
    int contentsHeight() const override { return contents.height(); }

    void resizeWithin(QSize const & size)
    {
        resize(size);
        QResizeEvent event(size, size);
        resizeEvent(&event);
    }

    QSize contents{0, 0};
    QStringList calls;
    bool answer = true;
    std::function<void(int, int)> scroll;
};

QString shownBars(KScrolledWidget const & widget)
{
    QString text;
    if (!widget.getHScrollBar()->isHidden())
        text += QLatin1Char('h');
    if (!widget.getVScrollBar()->isHidden())
        text += QLatin1Char('v');
    if (!widget.getCornerWidget()->isHidden())
        text += QLatin1Char('c');
    return text;
}

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

class tst_KScrolledWidget : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void construction_defaults();
    void construction_nameAndFlags_arePassedOn();
    void defaultModes_hugeContents_noBarShows();
    void layout_data();
    void layout();
    void layout_bothBars_placesBarsAndCorner();
    void layout_oneBar_takesTheWholeEdge();
    void layout_contentsFitOnlyWithoutBars_oneBarBringsUpTheOther();
    void layout_hugeContents_doNotOverflow();
    void alwaysOn_emptyContents_showsTheBar();
    void layout_neverTouchesRangeValueAndSteps();
    void modeChange_hasNoEffectUntilTheNextLayout();
    void contentsSizeChanged_runsTheLayout();
    void getClientRect_beforeTheFirstLayout_isNull();
    void setCornerWidget_null_restoresTheLabelAndLeavesTheWidgetAlive();
    void setCornerWidget_showsAtOnceAndTheNextLayoutHides();
    void setCornerWidget_sameAgain_staysShown();
    void setCornerWidget_keepsTheParent();
    void setCornerWidget_deletedWhileInUse_labelTakesItsPlace();
    void setValue_callsOnScrollWithCodeSix();
    void setValue_negative_arrivesAsUnsigned();
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
};

void tst_KScrolledWidget::construction_defaults()
{
    Scrolled widget;
    QCOMPARE(widget.getHScrollBarMode(), KScrolledWidget::AlwaysOff);
    QCOMPARE(widget.getVScrollBarMode(), KScrolledWidget::AlwaysOff);
    QCOMPARE(int(KScrolledWidget::AsNeeded), 0);
    QCOMPARE(int(KScrolledWidget::AlwaysOn), 1);
    QCOMPARE(int(KScrolledWidget::AlwaysOff), 2);
    QCOMPARE(widget.getHScrollBar()->orientation(), Qt::Horizontal);
    QCOMPARE(widget.getVScrollBar()->orientation(), Qt::Vertical);
    auto * const label = qobject_cast<QLabel *>(widget.getCornerWidget());
    QVERIFY(label && label->text().isEmpty());
    for (QWidget * child :
         {static_cast<QWidget *>(widget.getHScrollBar()),
          static_cast<QWidget *>(widget.getVScrollBar()), static_cast<QWidget *>(label)}) {
        QCOMPARE(child->parentWidget(), &widget);
        QVERIFY(child->isHidden());
        QVERIFY(child->objectName().isEmpty());
    }
    QCOMPARE(widget.calls, QStringList());
}

void tst_KScrolledWidget::construction_nameAndFlags_arePassedOn()
{
    QWidget parent;
    Scrolled named(&parent, "scrolled", static_cast<unsigned int>(Qt::Tool));
    QCOMPARE(named.objectName(), QStringLiteral("scrolled"));
    QCOMPARE(named.parentWidget(), &parent);
    QCOMPARE(named.windowType(), Qt::Tool);
    Scrolled nameless(&parent, nullptr, 0);
    QCOMPARE(nameless.objectName(), QString());
    QVERIFY(!nameless.isWindow());
}

void tst_KScrolledWidget::defaultModes_hugeContents_noBarShows()
{
    Scrolled widget;
    widget.contents = QSize(100000, 100000);
    widget.resizeWithin(QSize(200, 100));
    QCOMPARE(shownBars(widget), QString());
    QCOMPARE(widget.getClientRect(), QRect(0, 0, 200, 100));
}

void tst_KScrolledWidget::layout_data()
{
    QTest::addColumn<int>("hMode");
    QTest::addColumn<int>("vMode");
    QTest::addColumn<QSize>("beyond");       // contents less widget
    QTest::addColumn<QSize>("beyondClient"); // the same, counted in bar sizes
    QTest::addColumn<QString>("shown");
    QSize const none(0, 0);
    QTest::newRow("exact fit needs no bar") << 0 << 0 << QSize(0, 0) << none << "";
    QTest::newRow("one pixel too wide") << 0 << 0 << QSize(1, -50) << none << "h";
    QTest::newRow("one pixel too high") << 0 << 0 << QSize(-50, 1) << none << "v";
    QTest::newRow("both too large") << 0 << 0 << QSize(1, 1) << none << "hvc";
    QTest::newRow("too wide, height fits beside the bar")
        << 0 << 0 << QSize(1, 0) << QSize(0, -1) << "h";
    QTest::newRow("too wide, the bar makes it too high")
        << 0 << 0 << QSize(1, 1) << QSize(0, -1) << "hvc";
    QTest::newRow("too high, width fits beside the bar")
        << 0 << 0 << QSize(0, 1) << QSize(-1, 0) << "v";
    QTest::newRow("too high, the bar makes it too wide")
        << 0 << 0 << QSize(1, 1) << QSize(-1, 0) << "hvc";
    QTest::newRow("off stays off beside the other") << 0 << 2 << QSize(1, 1) << none << "h";
    QTest::newRow("off stays off above the other") << 2 << 0 << QSize(1, 1) << none << "v";
    QTest::newRow("on without need") << 1 << 2 << QSize(-99, -99) << none << "h";
    QTest::newRow("on makes the other needed") << 1 << 0 << QSize(-99, 0) << none << "hvc";
    QTest::newRow("on leaves the other unneeded") << 1 << 0 << QSize(-99, 0) << QSize(0, -1) << "h";
    QTest::newRow("both on") << 1 << 1 << QSize(-99, -99) << none << "hvc";
    QTest::newRow("both off") << 2 << 2 << QSize(99, 99) << none << "";
}

void tst_KScrolledWidget::layout()
{
    QFETCH(int, hMode);
    QFETCH(int, vMode);
    QFETCH(QSize, beyond);
    QFETCH(QSize, beyondClient);
    QFETCH(QString, shown);
    Scrolled widget;
    int const barWidth = widget.getVScrollBar()->sizeHint().width();
    int const barHeight = widget.getHScrollBar()->sizeHint().height();
    QSize const size(200, 150);
    widget.setHScrollBarMode(static_cast<KScrolledWidget::EScrollMode>(hMode));
    widget.setVScrollBarMode(static_cast<KScrolledWidget::EScrollMode>(vMode));
    widget.contents =
        size + beyond + QSize(beyondClient.width() * barWidth, beyondClient.height() * barHeight);
    widget.resizeWithin(size);
    QCOMPARE(shownBars(widget), shown);
    QSize const client(shown.contains(QLatin1Char('v')) ? 200 - barWidth : 200,
                       shown.contains(QLatin1Char('h')) ? 150 - barHeight : 150);
    QCOMPARE(widget.getClientRect(), QRect(QPoint(0, 0), client));
}

void tst_KScrolledWidget::layout_bothBars_placesBarsAndCorner()
{
    Scrolled widget;
    widget.contents = QSize(1000, 1000);
    widget.setHScrollBarMode(KScrolledWidget::AsNeeded);
    widget.setVScrollBarMode(KScrolledWidget::AsNeeded);
    widget.resizeWithin(QSize(200, 150));
    int const w = widget.getVScrollBar()->sizeHint().width();
    int const h = widget.getHScrollBar()->sizeHint().height();
    QCOMPARE(widget.getVScrollBar()->geometry(), QRect(200 - w, 0, w, 150 - h));
    QCOMPARE(widget.getHScrollBar()->geometry(), QRect(0, 150 - h, 200 - w, h));
    QCOMPARE(widget.getCornerWidget()->geometry(), QRect(200 - w, 150 - h, w, h));
}

void tst_KScrolledWidget::layout_oneBar_takesTheWholeEdge()
{
    Scrolled widget;
    int const w = widget.getVScrollBar()->sizeHint().width();
    int const h = widget.getHScrollBar()->sizeHint().height();
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.resizeWithin(QSize(200, 150));
    QCOMPARE(widget.getVScrollBar()->geometry(), QRect(200 - w, 0, w, 150));
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOff);
    widget.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.resizeWithin(QSize(200, 150));
    QCOMPARE(widget.getHScrollBar()->geometry(), QRect(0, 150 - h, 200, h));
}

void tst_KScrolledWidget::layout_contentsFitOnlyWithoutBars_oneBarBringsUpTheOther()
{
    Scrolled widget;
    widget.setHScrollBarMode(KScrolledWidget::AsNeeded);
    widget.setVScrollBarMode(KScrolledWidget::AsNeeded);
    widget.contents = QSize(200, 150);
    widget.resizeWithin(QSize(200, 150));
    QCOMPARE(shownBars(widget), QString());
    widget.contents = QSize(201, 150);
    widget.contentsSizeChanged();
    QCOMPARE(shownBars(widget), QStringLiteral("hvc"));
    widget.contents = QSize(201, 150 - widget.getHScrollBar()->sizeHint().height());
    widget.contentsSizeChanged();
    QCOMPARE(shownBars(widget), QStringLiteral("h"));
}

void tst_KScrolledWidget::layout_hugeContents_doNotOverflow()
{
    Scrolled widget;
    widget.setHScrollBarMode(KScrolledWidget::AsNeeded);
    widget.setVScrollBarMode(KScrolledWidget::AsNeeded);
    int const most = std::numeric_limits<int>::max();
    widget.contents = QSize(most, most);
    widget.resizeWithin(QSize(0, 0));
    QCOMPARE(shownBars(widget), QStringLiteral("hvc"));
    int const least = std::numeric_limits<int>::min();
    widget.contents = QSize(least, least);
    widget.resizeWithin(QSize(0, 0));
    QCOMPARE(shownBars(widget), QString());
}

void tst_KScrolledWidget::alwaysOn_emptyContents_showsTheBar()
{
    Scrolled widget;
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.resizeWithin(QSize(200, 150));
    QCOMPARE(shownBars(widget), QStringLiteral("v"));
}

void tst_KScrolledWidget::layout_neverTouchesRangeValueAndSteps()
{
    Scrolled widget;
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    QScrollBar * const bar = widget.getVScrollBar();
    bar->setRange(-5, 70);
    bar->setValue(33);
    bar->setPageStep(9);
    widget.calls.clear();
    widget.resizeWithin(QSize(200, 150));
    widget.resizeWithin(QSize(20, 15));
    QCOMPARE(bar->minimum(), -5);
    QCOMPARE(bar->maximum(), 70);
    QCOMPARE(bar->value(), 33);
    QCOMPARE(bar->pageStep(), 9);
    QCOMPARE(widget.calls, QStringList());
}

void tst_KScrolledWidget::modeChange_hasNoEffectUntilTheNextLayout()
{
    Scrolled widget;
    widget.resizeWithin(QSize(200, 150));
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    QCOMPARE(widget.getVScrollBarMode(), KScrolledWidget::AlwaysOn);
    QCOMPARE(shownBars(widget), QString());
    QCOMPARE(widget.getClientRect(), QRect(0, 0, 200, 150));
    widget.resizeWithin(QSize(200, 151));
    QCOMPARE(shownBars(widget), QStringLiteral("v"));
    widget.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    QCOMPARE(shownBars(widget), QStringLiteral("v"));
    widget.contentsSizeChanged();
    QCOMPARE(shownBars(widget), QStringLiteral("hvc"));
}

void tst_KScrolledWidget::contentsSizeChanged_runsTheLayout()
{
    Scrolled widget;
    widget.setVScrollBarMode(KScrolledWidget::AsNeeded);
    widget.resizeWithin(QSize(200, 150));
    widget.contents = QSize(10, 151);
    QCOMPARE(shownBars(widget), QString());
    widget.contentsSizeChanged();
    QCOMPARE(shownBars(widget), QStringLiteral("v"));
    widget.contents = QSize(10, 150);
    widget.contentsSizeChanged();
    QCOMPARE(shownBars(widget), QString());
}

void tst_KScrolledWidget::getClientRect_beforeTheFirstLayout_isNull()
{
    Scrolled widget;
    QVERIFY(widget.getClientRect().isNull());
}

void tst_KScrolledWidget::setCornerWidget_null_restoresTheLabelAndLeavesTheWidgetAlive()
{
    Scrolled widget;
    QWidget * const label = widget.getCornerWidget();
    QPointer<QWidget> const corner = new QWidget(&widget);
    widget.setCornerWidget(corner);
    QCOMPARE(widget.getCornerWidget(), corner.data());
    widget.setCornerWidget(nullptr);
    QCOMPARE(widget.getCornerWidget(), label);
    QVERIFY(corner);
    QVERIFY(corner->isHidden());
    QVERIFY(!label->isHidden());
}

void tst_KScrolledWidget::setCornerWidget_showsAtOnceAndTheNextLayoutHides()
{
    Scrolled widget;
    widget.resizeWithin(QSize(200, 150));
    auto * const corner = new QWidget(&widget);
    corner->setGeometry(1, 2, 3, 4);
    widget.setCornerWidget(corner);
    QVERIFY(!corner->isHidden());
    QCOMPARE(corner->geometry(), QRect(1, 2, 3, 4));
    widget.contentsSizeChanged();
    QVERIFY(corner->isHidden());
    QCOMPARE(corner->geometry(), QRect(1, 2, 3, 4));
}

void tst_KScrolledWidget::setCornerWidget_sameAgain_staysShown()
{
    Scrolled widget;
    auto * const corner = new QWidget(&widget);
    widget.setCornerWidget(corner);
    widget.setCornerWidget(corner);
    QVERIFY(!corner->isHidden());
}

void tst_KScrolledWidget::setCornerWidget_keepsTheParent()
{
    Scrolled widget;
    QWidget other;
    auto * const corner = new QWidget(&other);
    widget.setCornerWidget(corner);
    QCOMPARE(corner->parentWidget(), &other);
}

void tst_KScrolledWidget::setCornerWidget_deletedWhileInUse_labelTakesItsPlace()
{
    Scrolled widget;
    QWidget * const label = widget.getCornerWidget();
    auto * const corner = new QWidget(&widget);
    widget.setCornerWidget(corner);
    delete corner;
    QCOMPARE(widget.getCornerWidget(), label);
    widget.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.resizeWithin(QSize(200, 150));
    QCOMPARE(shownBars(widget), QStringLiteral("hvc"));
}

void tst_KScrolledWidget::setValue_callsOnScrollWithCodeSix()
{
    Scrolled widget;
    widget.getHScrollBar()->setRange(0, 100);
    widget.getVScrollBar()->setRange(0, 100);
    widget.getHScrollBar()->setValue(7);
    widget.getVScrollBar()->setValue(8);
    widget.getVScrollBar()->setValue(8);
    QCOMPARE(widget.calls, QStringList({call(true, 6, 7), call(false, 6, 8)}));
}

void tst_KScrolledWidget::setValue_negative_arrivesAsUnsigned()
{
    Scrolled widget;
    widget.getHScrollBar()->setRange(-3, 3);
    widget.getHScrollBar()->setValue(-1);
    QCOMPARE(widget.calls, QStringList(QStringLiteral("6 -1 4294967295 1")));
}

void tst_KScrolledWidget::click_data()
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

void tst_KScrolledWidget::click()
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

void tst_KScrolledWidget::click_derivedSetsTheValue_barTakesNoStepOfItsOwn()
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

void tst_KScrolledWidget::click_veto_leavesTheBarWhereItWas()
{
    Scrolled widget;
    showWithBars(widget);
    widget.answer = false;
    ::click(widget.getHScrollBar(), QStyle::SC_ScrollBarAddPage);
    QCOMPARE(widget.calls, QStringList(call(true, 2, 0)));
    QCOMPARE(widget.getHScrollBar()->value(), 50);
    QCOMPARE(widget.getHScrollBar()->sliderPosition(), 50);
}

void tst_KScrolledWidget::click_atTheEnd_stillAsksForALine()
{
    Scrolled widget;
    showWithBars(widget);
    QScrollBar * const bar = widget.getVScrollBar();
    bar->setValue(100);
    widget.calls.clear();
    ::click(bar, QStyle::SC_ScrollBarAddLine);
    QCOMPARE(widget.calls, QStringList(call(false, 3, 0)));
}

void tst_KScrolledWidget::key_data()
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

void tst_KScrolledWidget::key()
{
    QFETCH(int, key);
    QFETCH(QString, expected);
    Scrolled widget;
    showWithBars(widget);
    QTest::keyClick(widget.getVScrollBar(), static_cast<Qt::Key>(key));
    QCOMPARE(widget.calls, QStringList(expected));
}

void tst_KScrolledWidget::wheel_arrivesAsThumb()
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

void tst_KScrolledWidget::drag_arrivesAsThumb()
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

void tst_KScrolledWidget::menuAction_toMinimum_arrivesAsThumb()
{
    Scrolled widget;
    showWithBars(widget);
    widget.getHScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    QCOMPARE(widget.calls, QStringList(call(true, 6, 0)));
}

ZENU_TEST(tst_KScrolledWidget)
#include "tst_KScrolledWidget.moc"
