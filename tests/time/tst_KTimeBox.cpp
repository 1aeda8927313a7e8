#include "tests/support/TestMain.h"
#include "tests/time/TimeBoxFixture.h"

#include <limits>

using namespace zenu;

namespace {

using zenutest::nanoseconds;
using zenutest::ps;
using Scene = zenutest::TimeBoxScene;

constexpr long long largest = std::numeric_limits<long long>::max();
constexpr long long smallest = TimeValue::s_invalidValue + 1;

} // namespace

class tst_KTimeBox : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { TimeUnit::setDefaultUnit(TimeUnit::fs); }

    void fresh_isInvalidAndReadsError();
    void setValue_takesTheBestUnitAndEmitsNothing();
    void setValue_emptyBox_textStaysWhenShown();
    void setUnit_changesTheTextOnly();
    void setUnit_finerThanTheResolution_isTheSmallestUnit();
    void setUnit_unknown_leavesTheUnitAndRefreshesTheText();
    void up_addsOneOfTheUnit();
    void up_atTheLargestCount_leavesTheValueAndEmitsNothing();
    void up_negativeValue_comesNearerToZero();
    void up_invalidValue_addsToItsCount();
    void up_unknownUnit_addsAFemtosecond();
    void down_fromZero_data();
    void down_fromZero();
    void down_unsigned_stopsAboveZero();
    void down_negativeInAnUnsignedBox_isRefused();
    void down_signed_goesBelowZero();
    void down_atTheSmallestCount_isRefused();
    void step_refused_writesTheTextAnew();
    void steps_byEveryMeans_areOneUnit_data();
    void steps_byEveryMeans_areOneUnit();
    void base_setValue_isAStep();
    void readOnly_hasNoArrows();
    void sizeHint_holdsALongTime();
};

void tst_KTimeBox::fresh_isInvalidAndReadsError()
{
    Scene scene;
    QVERIFY(!scene.box->getValue().valid());
    QCOMPARE(scene.box->getValue().multiplier(), 1.0);
    QCOMPARE(scene.box->getUnit(), TimeUnit::unknown);
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
    QCOMPARE(scene.box->objectName(), QStringLiteral("box"));
    QCOMPARE(scene.box->qObject(), static_cast<QObject *>(scene.box));
    QVERIFY(scene.show());
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
    scene.box->setValue(nanoseconds(5));
    QCOMPARE(scene.text(), QStringLiteral("5000 ps"));
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::setValue_takesTheBestUnitAndEmitsNothing()
{
    Scene scene;
    scene.box->setUnit(TimeUnit::hr);
    scene.box->setValue(nanoseconds(12345));
    QCOMPARE(scene.box->getValue(), nanoseconds(12345));
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
    QCOMPARE(scene.text(), QStringLiteral("12.345 us"));
    QVERIFY(scene.changes.isEmpty());
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::setValue_emptyBox_textStaysWhenShown()
{
    Scene scene;
    scene.box->setValue(nanoseconds(1500));
    scene.box->setUnit(TimeUnit::ms);
    QString const before = scene.text();
    QCOMPARE(before, QStringLiteral("0.002 ms"));
    QVERIFY(scene.show());
    QCOMPARE(scene.text(), before);
}

void tst_KTimeBox::setUnit_changesTheTextOnly()
{
    Scene scene;
    scene.box->setValue(nanoseconds(1500));
    scene.box->setUnit(TimeUnit::us);
    QCOMPARE(scene.text(), QStringLiteral("1.5 us"));
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
    QCOMPARE(scene.box->getValue(), nanoseconds(1500));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeBox::setUnit_finerThanTheResolution_isTheSmallestUnit()
{
    Scene scene;
    scene.box->setValue(TimeValue(3LL, 1e6)); // nanoseconds
    scene.box->setUnit(TimeUnit::ps);
    QCOMPARE(scene.box->getUnit(), TimeUnit::smallestUnit(1e6));
    QCOMPARE(scene.box->getUnit(), TimeUnit::ns);
    QCOMPARE(scene.text(), QStringLiteral("3 ns"));
}

void tst_KTimeBox::setUnit_unknown_leavesTheUnitAndRefreshesTheText()
{
    Scene scene;
    scene.box->setValue(nanoseconds(1500));
    scene.box->setUnit(TimeUnit::us);
    scene.editor()->setText(QStringLiteral("7 us"));
    scene.box->setUnit(TimeUnit::unknown);
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
    QCOMPARE(scene.text(), QStringLiteral("1.5 us"));
}

void tst_KTimeBox::up_addsOneOfTheUnit()
{
    Scene scene;
    scene.box->setValue(nanoseconds(1500));
    scene.box->setUnit(TimeUnit::us);
    scene.box->up();
    QCOMPARE(scene.box->getValue(), nanoseconds(2500));
    QCOMPARE(scene.text(), QStringLiteral("2.5 us"));
    QCOMPARE(scene.changes.count(), 1);
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::up_atTheLargestCount_leavesTheValueAndEmitsNothing()
{
    Scene scene;
    scene.box->setValue(TimeValue(largest, 1.0));
    scene.box->up();
    QCOMPARE(scene.box->getValue(), TimeValue(largest, 1.0));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeBox::up_negativeValue_comesNearerToZero()
{
    Scene scene;
    scene.box->setValue(nanoseconds(-20));
    scene.box->setUnit(TimeUnit::ns);
    scene.box->up();
    QCOMPARE(scene.box->getValue(), nanoseconds(-19));
    QCOMPARE(scene.changes.count(), 1);
}

// The invalid count takes part as the number that it is.
void tst_KTimeBox::up_invalidValue_addsToItsCount()
{
    Scene scene;
    scene.box->up();
    QCOMPARE(scene.box->getValue(), TimeValue(smallest, 1.0));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeBox::up_unknownUnit_addsAFemtosecond()
{
    Scene scene;
    scene.box->setValue(TimeValue(5LL, 1.0));
    scene.editor()->setText(QStringLiteral("9"));
    scene.box->interpretText();
    QCOMPARE(scene.box->getUnit(), TimeUnit::unknown);
    scene.box->up();
    QCOMPARE(scene.box->getValue(), TimeValue(1LL, 1.0));
}

void tst_KTimeBox::down_fromZero_data()
{
    QTest::addColumn<bool>("isSigned");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("changes");
    QTest::newRow("unsigned: stays, and is written anew") << false << 0.0 << 0;
    QTest::newRow("signed: minus one unit") << true << -1.0 << 1;
}

void tst_KTimeBox::down_fromZero()
{
    QFETCH(bool, isSigned);
    QFETCH(double, expected);
    Scene scene;
    scene.box->setSigned(isSigned);
    scene.box->setValue(nanoseconds(0));
    scene.box->setUnit(TimeUnit::ns);
    {
        QSignalBlocker const quiet(scene.editor());
        scene.editor()->setText(QStringLiteral("8 ns"));
    }
    scene.box->down();
    QCOMPARE(scene.box->getValue(), nanoseconds(expected));
    QCOMPARE(scene.text(), QString::number(expected) + QStringLiteral(" ns"));
    QTEST(int(scene.changes.count()), "changes");
}

void tst_KTimeBox::down_unsigned_stopsAboveZero()
{
    Scene scene;
    scene.box->setValue(nanoseconds(1.5));
    scene.box->setUnit(TimeUnit::ns);
    scene.box->down();
    QCOMPARE(scene.box->getValue(), nanoseconds(0.5));
    scene.box->down();
    QCOMPARE(scene.box->getValue(), nanoseconds(0.5));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeBox::down_negativeInAnUnsignedBox_isRefused()
{
    Scene scene;
    scene.box->setValue(nanoseconds(-3));
    scene.box->down();
    QCOMPARE(scene.box->getValue(), nanoseconds(-3));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeBox::down_signed_goesBelowZero()
{
    Scene scene;
    scene.box->setSigned(true);
    scene.box->setValue(nanoseconds(-3));
    scene.box->setUnit(TimeUnit::ns);
    scene.box->down();
    QCOMPARE(scene.box->getValue(), nanoseconds(-4));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeBox::down_atTheSmallestCount_isRefused()
{
    Scene scene;
    scene.box->setSigned(true);
    scene.box->setValue(TimeValue(smallest, 1.0));
    scene.box->setUnit(TimeUnit::ps);
    scene.box->down(); // would wrap around to a positive time
    QCOMPARE(scene.box->getValue(), TimeValue(smallest, 1.0));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeBox::step_refused_writesTheTextAnew()
{
    Scene scene;
    scene.box->setValue(TimeValue(largest, 1.0));
    QString const before = scene.text();
    scene.editor()->setText(QStringLiteral("1 ns"));
    scene.box->up();
    QCOMPARE(scene.text(), before);
}

void tst_KTimeBox::steps_byEveryMeans_areOneUnit_data()
{
    zenutest::addSteps();
}

void tst_KTimeBox::steps_byEveryMeans_areOneUnit()
{
    QFETCH(QString, means);
    QFETCH(bool, isUp);
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    scene.box->setUnit(TimeUnit::ns);
    QVERIFY(scene.show());
    scene.step(means, isUp);
    int const expected = isUp ? 41 : 39;
    QCOMPARE(scene.box->getValue(), nanoseconds(expected));
    QCOMPARE(scene.text(), QStringLiteral("%1 ns").arg(expected));
    QCOMPARE(scene.changes.count(), 1);
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::base_setValue_isAStep()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    scene.box->setUnit(TimeUnit::ns);
    QSpinBox * const base = scene.box;
    base->setValue(1);
    QCOMPARE(scene.box->getValue(), nanoseconds(41));
    QCOMPARE(base->value(), 0);
    base->setValue(-1);
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
    QCOMPARE(base->value(), 0);
    base->setValue(0);
    QCOMPARE(scene.changes.count(), 2);
    QCOMPARE(scene.text(), QStringLiteral("40 ns"));
}

void tst_KTimeBox::readOnly_hasNoArrows()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    scene.box->setReadOnly(true);
    QVERIFY(scene.show());
    QTest::keyClick(scene.box, Qt::Key_Up);
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
}

void tst_KTimeBox::sizeHint_holdsALongTime()
{
    KTimeBox box;
    int const text = box.fontMetrics().horizontalAdvance(QStringLiteral("-999.999 sec"));
    QVERIFY(box.sizeHint().width() > text);
}

ZENU_TEST(tst_KTimeBox)
#include "tst_KTimeBox.moc"
