#include "tests/scroll/ScrolledFixture.h"
#include "tests/support/TestMain.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>

#include <limits>

using namespace zenu;
using zenutest::Scrolled;

namespace {

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
    void layout_again_repaintsNothing();
    void setCornerWidget_bothBars_isPlacedWhereTheyMeet();
    void destructor_barsAndLabel_goWithTheWidget();
    void modeChange_hasNoEffectUntilTheNextLayout();
    void contentsSizeChanged_runsTheLayout();
    void getClientRect_beforeTheFirstLayout_isNull();
    void setCornerWidget_null_restoresTheLabelAndLeavesTheWidgetAlive();
    void setCornerWidget_showsAtOnceAndTheNextLayoutHides();
    void setCornerWidget_sameAgain_staysShown();
    void setCornerWidget_keepsTheParent();
    void setCornerWidget_deletedWhileInUse_labelTakesItsPlace();
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

void tst_KScrolledWidget::layout_again_repaintsNothing()
{
    Scrolled widget;
    widget.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.resize(200, 150);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTRY_VERIFY(widget.paints > 0);
    QCoreApplication::processEvents();
    widget.paints = 0;
    widget.contents = QSize(1000, 1000);
    widget.contentsSizeChanged();
    QCoreApplication::processEvents();
    QCOMPARE(widget.paints, 0);
}

void tst_KScrolledWidget::setCornerWidget_bothBars_isPlacedWhereTheyMeet()
{
    Scrolled widget;
    auto * const corner = new QWidget(&widget);
    widget.setCornerWidget(corner);
    widget.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    widget.resizeWithin(QSize(200, 150));
    int const w = widget.getVScrollBar()->sizeHint().width();
    int const h = widget.getHScrollBar()->sizeHint().height();
    QCOMPARE(shownBars(widget), QStringLiteral("hvc"));
    QCOMPARE(corner->geometry(), QRect(200 - w, 150 - h, w, h));
    for (QLabel * label : widget.findChildren<QLabel *>()) {
        QVERIFY(label->isHidden());
    }
}

void tst_KScrolledWidget::destructor_barsAndLabel_goWithTheWidget()
{
    auto widget = std::make_unique<Scrolled>();
    QPointer<QWidget> const children[] = {widget->getHScrollBar(), widget->getVScrollBar(),
                                          widget->getCornerWidget()};
    widget.reset();
    for (QPointer<QWidget> const & child : children) {
        QVERIFY(!child);
    }
}

ZENU_TEST(tst_KScrolledWidget)
#include "tst_KScrolledWidget.moc"
