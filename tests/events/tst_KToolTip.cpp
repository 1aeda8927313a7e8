#include "tests/support/TestMain.h"

#include <zenu/events/KToolTip.h>

#include <QtGui/QHelpEvent>
#include <QtWidgets/QToolTip>

using namespace zenu;

namespace {

class Tip : public KToolTip
{
public:
    using KToolTip::KToolTip;
    using KToolTip::maybeTip;
};

bool ask(QWidget * widget, QPoint const & pos)
{
    QHelpEvent event(QEvent::ToolTip, pos, widget->mapToGlobal(pos));
    return QApplication::sendEvent(widget, &event);
}

// The offscreen platform says so when a tip appears.
void announceTip()
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
}

void noTip()
{
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

} // namespace

class tst_KToolTip : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup() { noTip(); }
    void construction_noParentAndNoName();
    void qObject_isTheObjectItself();
    void signal_hasItsArgumentsAndTheirNames();
    void request_argumentsEnterEmpty();
    void request_textIsShown();
    void request_areaBoundsTheTip();
    void request_cancelled_showsNothingWhateverElseWasWritten();
    void request_cancelled_takesAwayAnEarlierTip();
    void request_unconnected_showsNothing();
    void request_signalsBlocked_showsNothing();
    void request_nullText_showsNothing();
    void request_twoReceivers_seeEachOthersWrites();
    void request_isTakenFromTheWidgetsOwnText();
    void otherEvents_areNoRequests();
    void maybeTip_overridden_getsTheRequest();
    void widgetDeleted_tipSurvives();
    void tipDeleted_widgetSurvives();
    void receiver_deletesTheTip_isSafe();
    void receiver_deletesTheWidget_isSafe();
    void nullWidget_isSafe();

private:
    std::unique_ptr<QWidget> m_widget;
};

void tst_KToolTip::initTestCase()
{
    m_widget = std::make_unique<QWidget>();
    m_widget->resize(200, 100);
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
}

void tst_KToolTip::construction_noParentAndNoName()
{
    KToolTip tip(m_widget.get());
    QVERIFY(!tip.parent());
    QVERIFY(tip.objectName().isEmpty());
}

void tst_KToolTip::qObject_isTheObjectItself()
{
    KToolTip tip(m_widget.get());
    QCOMPARE(tip.qObject(), static_cast<QObject *>(&tip));
}

void tst_KToolTip::request_argumentsEnterEmpty()
{
    KToolTip tip(m_widget.get());
    int requests = 0;
    connect(&tip, &KToolTip::needToolTipText,
            [&](QPoint const & pos, QRect & area, QString & text, bool & cancel) {
                ++requests;
                QCOMPARE(pos, QPoint(12, 34));
                QVERIFY(area.isNull());
                QVERIFY(text.isNull());
                QVERIFY(!cancel);
            });
    QVERIFY(ask(m_widget.get(), QPoint(12, 34)));
    QCOMPARE(requests, 1);
}

void tst_KToolTip::request_textIsShown()
{
    announceTip();
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect &, QString & text, bool &) { text = QStringLiteral("here"); });
    ask(m_widget.get(), QPoint(10, 10));
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("here"));
}

void tst_KToolTip::request_areaBoundsTheTip()
{
    announceTip();
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect & area, QString & text, bool &) {
                area = QRect(0, 0, 50, 50);
                text = QStringLiteral("inside");
            });
    ask(m_widget.get(), QPoint(10, 10));
    auto const moveTo = [this](QPoint const & pos) {
        QMouseEvent move(QEvent::MouseMove, pos, m_widget->mapToGlobal(pos), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_widget.get(), &move);
    };
    moveTo(QPoint(40, 40));
    QTest::qWait(400); // a tip that is to go stays for 300 milliseconds
    QVERIFY(QToolTip::isVisible());
    moveTo(QPoint(60, 40));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::request_cancelled_showsNothingWhateverElseWasWritten()
{
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect & area, QString & text, bool & cancel) {
                area = QRect(0, 0, 50, 50);
                text = QStringLiteral("no");
                cancel = true;
            });
    QVERIFY(ask(m_widget.get(), QPoint(10, 10)));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::request_cancelled_takesAwayAnEarlierTip()
{
    announceTip();
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const & pos, QRect &, QString & text, bool & cancel) {
                text = QStringLiteral("left");
                cancel = pos.x() > 100;
            });
    ask(m_widget.get(), QPoint(10, 10));
    QVERIFY(QToolTip::isVisible());
    ask(m_widget.get(), QPoint(110, 10));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::request_unconnected_showsNothing()
{
    KToolTip tip(m_widget.get());
    QVERIFY(ask(m_widget.get(), QPoint(10, 10)));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::request_signalsBlocked_showsNothing()
{
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect &, QString & text, bool &) { text = QStringLiteral("no"); });
    tip.blockSignals(true);
    ask(m_widget.get(), QPoint(10, 10));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::request_nullText_showsNothing()
{
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect & area, QString &, bool &) { area = QRect(0, 0, 9, 9); });
    ask(m_widget.get(), QPoint(5, 5));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::request_twoReceivers_seeEachOthersWrites()
{
    announceTip();
    KToolTip tip(m_widget.get());
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect & area, QString & text, bool & cancel) {
                area = QRect(1, 2, 3, 4);
                text = QStringLiteral("first");
                cancel = true;
            });
    connect(&tip, &KToolTip::needToolTipText,
            [](QPoint const &, QRect & area, QString & text, bool & cancel) {
                QCOMPARE(area, QRect(1, 2, 3, 4));
                QCOMPARE(text, QStringLiteral("first"));
                QVERIFY(cancel);
                text += QStringLiteral(" and second");
                cancel = false;
            });
    ask(m_widget.get(), QPoint(2, 3));
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("first and second"));
}

void tst_KToolTip::request_isTakenFromTheWidgetsOwnText()
{
    announceTip();
    m_widget->setToolTip(QStringLiteral("own"));
    {
        KToolTip tip(m_widget.get());
        ask(m_widget.get(), QPoint(10, 10));
        QVERIFY(!QToolTip::isVisible());
    }
    ask(m_widget.get(), QPoint(10, 10));
    QVERIFY(QToolTip::isVisible());
    m_widget->setToolTip(QString());
}

void tst_KToolTip::otherEvents_areNoRequests()
{
    KToolTip tip(m_widget.get());
    int requests = 0;
    connect(&tip, &KToolTip::needToolTipText,
            [&](QPoint const &, QRect &, QString &, bool &) { ++requests; });
    QHelpEvent event(QEvent::WhatsThis, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(m_widget.get(), &event);
    QTest::mouseMove(m_widget.get(), QPoint(5, 5));
    QCOMPARE(requests, 0);
}

void tst_KToolTip::maybeTip_overridden_getsTheRequest()
{
    class Counting : public KToolTip
    {
    public:
        using KToolTip::KToolTip;
        QList<QPoint> asked;

    protected:
        void maybeTip(QPoint const & p) override { asked << p; }
    };
    Counting tip(m_widget.get());
    ask(m_widget.get(), QPoint(7, 8));
    QCOMPARE(tip.asked, QList<QPoint>({QPoint(7, 8)}));
}

void tst_KToolTip::widgetDeleted_tipSurvives()
{
    auto * const widget = new QWidget;
    Tip tip(widget);
    delete widget;
    int requests = 0;
    connect(&tip, &KToolTip::needToolTipText, [&](QPoint const &, QRect &, QString & text, bool &) {
        ++requests;
        text = QStringLiteral("too late");
    });
    tip.maybeTip(QPoint(1, 1));
    QCOMPARE(requests, 1);
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::tipDeleted_widgetSurvives()
{
    delete new KToolTip(m_widget.get());
    ask(m_widget.get(), QPoint(1, 1));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::receiver_deletesTheTip_isSafe()
{
    auto * const tip = new Tip(m_widget.get());
    QPointer<Tip> const guard(tip);
    connect(tip, &KToolTip::needToolTipText,
            [tip](QPoint const &, QRect &, QString &, bool &) { delete tip; });
    ask(m_widget.get(), QPoint(1, 1));
    QVERIFY(!guard);
}

void tst_KToolTip::receiver_deletesTheWidget_isSafe()
{
    auto * const widget = new QWidget;
    Tip tip(widget);
    connect(&tip, &KToolTip::needToolTipText,
            [widget](QPoint const &, QRect &, QString & text, bool &) {
                text = QStringLiteral("gone");
                delete widget;
            });
    tip.maybeTip(QPoint(1, 1));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::nullWidget_isSafe()
{
    Tip tip(nullptr);
    tip.maybeTip(QPoint(1, 1));
    QVERIFY(!QToolTip::isVisible());
}

void tst_KToolTip::signal_hasItsArgumentsAndTheirNames()
{
    QMetaObject const & meta = KToolTip::staticMetaObject;
    int const index = meta.indexOfSignal("needToolTipText(QPoint,QRect&,QString&,bool&)");
    QVERIFY(index >= 0);
    QCOMPARE(meta.method(index).parameterNames(),
             QList<QByteArray>({"pos", "tipActiveRect", "strTextToDisplay", "bCancelToolTip"}));
}

ZENU_TEST(tst_KToolTip)
#include "tst_KToolTip.moc"
