#include "tests/support/TestMain.h"

#include <zenu/time/KTimeBox.h>

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <limits>

using namespace zenu;

namespace {

constexpr double ps = 1000.0; // femtoseconds in a count, for a resolution of a picosecond
constexpr long long largest = std::numeric_limits<long long>::max();
constexpr long long smallest = TimeValue::s_invalidValue + 1;

TimeValue nanoseconds(double value)
{
    return TimeValue(value, TimeUnit(TimeUnit::ns), ps);
}

// A box in a window, beside something else that takes the focus.
struct Scene
{
    Scene()
        : box(new KTimeBox(&window, "box"))
        , other(new QLineEdit(&window))
        , changes(box, &KTimeBox::timeChanged)
        , numbers(box, &QSpinBox::valueChanged)
        , texts(box, &QSpinBox::textChanged)
    {
        auto * const layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(other);
    }
    bool show()
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) {
            return false;
        }
        box->setFocus();
        return box->hasFocus();
    }
    QLineEdit * editor() { return box->findChild<QLineEdit *>(); }
    QString text() { return editor()->text(); }
    void type(QString const & text)
    {
        editor()->selectAll();
        QTest::keyClicks(box, text);
    }
    // Nothing that the base tells of its integer.
    bool baseIsQuiet() { return numbers.isEmpty() && texts.isEmpty() && box->value() == 0; }

    QWidget window;
    KTimeBox * box;
    QLineEdit * other;
    QSignalSpy changes;
    QSignalSpy numbers;
    QSignalSpy texts;
};

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
    void typedText_countsWhenTheFocusLeaves();
    void typedText_countsAtReturn();
    void typedText_countsBeforeAStep();
    void typedText_shownInTheBestUnitAfterwards();
    void typedText_unchanged_emitsNothing();
    void typedText_withoutUnit_isZeroInAnUnknownUnit();
    void typedText_severalTerms_unitIsThatOfTheFirst();
    void typedText_finerThanTheResolution_isRoundedAndCoarser();
    void typedText_tooLarge_changesNothing();
    void typedText_emptied_isZero();
    void defaultUnit_isThatOfBeforeAfterwards();
    void typing_refusedText_doesNotEnter_data();
    void typing_refusedText_doesNotEnter();
    void setSigned_signMayBeTyped();
    void setSigned_false_refusesTheSignAgain();
    void focusOut_withoutTyping_keepsWhatThreeDecimalsShow();
    void box_deletedInTimeChanged_isQuiet();
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
    QTest::addColumn<QString>("means");
    QTest::addColumn<int>("direction");
    for (char const * means :
         {"Up", "PageUp", "Ctrl+Up", "wheel", "fast wheel", "arrow", "Ctrl+arrow"}) {
        QTest::newRow(means) << QString::fromLatin1(means) << 1;
    }
    for (char const * means :
         {"Down", "PageDown", "Ctrl+Down", "wheel", "fast wheel", "arrow", "Ctrl+arrow"}) {
        QTest::addRow("%s down", means) << QString::fromLatin1(means) << -1;
    }
}

void tst_KTimeBox::steps_byEveryMeans_areOneUnit()
{
    QFETCH(QString, means);
    QFETCH(int, direction);
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    scene.box->setUnit(TimeUnit::ns);
    QVERIFY(scene.show());
    bool const withControl = means.startsWith(QLatin1String("Ctrl"));
    Qt::KeyboardModifiers const modifiers = withControl ? Qt::ControlModifier : Qt::NoModifier;
    if (means.endsWith(QLatin1String("wheel"))) {
        int const notches = means == QLatin1String("wheel") ? 1 : 7;
        QPointF const place = QRectF(scene.box->rect()).center();
        QWheelEvent event(place, scene.box->mapToGlobal(place), {},
                          QPoint(0, 120 * notches * direction), Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(scene.box, &event);
    } else if (means.endsWith(QLatin1String("arrow"))) {
        QStyleOptionSpinBox option;
        option.initFrom(scene.box);
        option.buttonSymbols = QAbstractSpinBox::UpDownArrows;
        option.frame = true;
        auto const control = direction > 0 ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
        QPoint const place = scene.box->style()
                                 ->subControlRect(QStyle::CC_SpinBox, &option, control, scene.box)
                                 .center();
        QTest::mouseClick(scene.box, Qt::LeftButton, modifiers, place);
    } else {
        Qt::Key const key = means.contains(QLatin1String("Page"))
                                ? (direction > 0 ? Qt::Key_PageUp : Qt::Key_PageDown)
                                : (direction > 0 ? Qt::Key_Up : Qt::Key_Down);
        QTest::keyClick(scene.box, key, modifiers);
    }
    QCOMPARE(scene.box->getValue(), nanoseconds(40 + direction));
    QCOMPARE(scene.text(), QStringLiteral("%1 ns").arg(40 + direction));
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

void tst_KTimeBox::typedText_countsWhenTheFocusLeaves()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    QVERIFY(scene.changes.isEmpty());
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
    scene.other->setFocus();
    QCOMPARE(scene.box->getValue(), nanoseconds(3000));
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
    QCOMPARE(scene.changes.count(), 1);
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::typedText_countsAtReturn()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    QSignalSpy const finished(scene.box, &QSpinBox::editingFinished);
    scene.type(QStringLiteral("3us"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(3000));
    QCOMPARE(scene.changes.count(), 1);
    QCOMPARE(finished.count(), 1);
    scene.type(QStringLiteral("4us"));
    QTest::keyClick(scene.box, Qt::Key_Enter);
    QCOMPARE(scene.box->getValue(), nanoseconds(4000));
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::typedText_countsBeforeAStep()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    QTest::keyClick(scene.box, Qt::Key_Up);
    QCOMPARE(scene.box->getValue(), nanoseconds(4000));
    QCOMPARE(scene.text(), QStringLiteral("4 us"));
    QVERIFY(scene.baseIsQuiet());
}

void tst_KTimeBox::typedText_shownInTheBestUnitAfterwards()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.text(), QString::fromStdString(nanoseconds(3000).str(3, false)));
    QCOMPARE(scene.text(), QStringLiteral("3000 ns")); // the best unit
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);      // that of the box, and of the next step
    QTest::keyClick(scene.box, Qt::Key_Up);
    QCOMPARE(scene.text(), QStringLiteral("4 us"));
}

void tst_KTimeBox::typedText_unchanged_emitsNothing()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    QTest::keyClick(scene.box, Qt::Key_Return);
    scene.other->setFocus();
    QVERIFY(scene.changes.isEmpty());
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
}

void tst_KTimeBox::typedText_withoutUnit_isZeroInAnUnknownUnit()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    scene.box->setUnit(TimeUnit::us);
    QVERIFY(scene.show());
    scene.type(QStringLiteral("12"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(0));
    QCOMPARE(scene.box->getUnit(), TimeUnit::unknown);
    QCOMPARE(scene.text(), QStringLiteral("0 ps"));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeBox::typedText_severalTerms_unitIsThatOfTheFirst()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("1 us 500 ns"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(1500));
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
}

void tst_KTimeBox::typedText_finerThanTheResolution_isRoundedAndCoarser()
{
    Scene scene;
    scene.box->setValue(TimeValue(3LL, 1e6));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("1700 ps"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), TimeValue(2LL, 1e6));
    QCOMPARE(scene.box->getUnit(), TimeUnit::ns);
}

void tst_KTimeBox::typedText_tooLarge_changesNothing()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    scene.box->setUnit(TimeUnit::ns);
    QVERIFY(scene.show());
    scene.type(QStringLiteral("99999999999999999999 hr"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
    QCOMPARE(scene.box->getUnit(), TimeUnit::ns);
    QCOMPARE(scene.text(), QString::fromStdString(nanoseconds(40).str(3, false)));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeBox::typedText_emptied_isZero()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.editor()->selectAll();
    QTest::keyClick(scene.box, Qt::Key_Delete);
    QCOMPARE(scene.text(), QString());
    scene.other->setFocus();
    QCOMPARE(scene.box->getValue(), nanoseconds(0));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeBox::defaultUnit_isThatOfBeforeAfterwards()
{
    TimeUnit::setDefaultUnit(TimeUnit::ms);
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::ms);
}

void tst_KTimeBox::typing_refusedText_doesNotEnter_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("entered");
    QTest::newRow("letters") << "abc"
                             << "";
    QTest::newRow("sign") << "-5 ns"
                          << "5 ns";
    QTest::newRow("upper case") << "5 NS"
                                << "5 ";
    QTest::newRow("long unit words") << "5 msec"
                                     << "5 ms";
    QTest::newRow("comma") << "1,5 ms"
                           << "15 ms";
}

void tst_KTimeBox::typing_refusedText_doesNotEnter()
{
    QFETCH(QString, typed);
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.editor()->selectAll();
    QTest::keyClick(scene.box, Qt::Key_Delete);
    QTest::keyClicks(scene.box, typed);
    QTEST(scene.text(), "entered");
}

void tst_KTimeBox::setSigned_signMayBeTyped()
{
    Scene scene;
    scene.box->setSigned(true);
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("-5 ns"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(-5));
}

void tst_KTimeBox::setSigned_false_refusesTheSignAgain()
{
    Scene scene;
    scene.box->setSigned(true);
    scene.box->setSigned(false);
    QVERIFY(scene.show());
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
    scene.type(QStringLiteral("x"));
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
    scene.type(QStringLiteral("-"));
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
    scene.type(QStringLiteral("5"));
    QCOMPARE(scene.text(), QStringLiteral("5"));
}

// The text stands for the time, whether it was typed or not.
void tst_KTimeBox::focusOut_withoutTyping_keepsWhatThreeDecimalsShow()
{
    Scene scene;
    scene.box->setValue(TimeValue(1234567LL, ps)); // 1.234567 us
    scene.box->setUnit(TimeUnit::us);
    QCOMPARE(scene.text(), QStringLiteral("1.235 us"));
    QVERIFY(scene.show());
    scene.other->setFocus();
    QCOMPARE(scene.box->getValue(), TimeValue(1235000LL, ps));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeBox::box_deletedInTimeChanged_isQuiet()
{
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Up, Qt::Key_Tab}) {
        auto * const box = new KTimeBox;
        QPointer<KTimeBox> const guard(box);
        box->setValue(nanoseconds(40));
        QObject::connect(box, &KTimeBox::timeChanged, box, &QObject::deleteLater);
        box->show();
        box->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(box));
        box->findChild<QLineEdit *>()->selectAll();
        QTest::keyClicks(box, QStringLiteral("3 us"));
        QTest::keyClick(box, key);
        if (guard) {
            box->clearFocus();
        }
        QTRY_VERIFY(!guard);
    }
    // At once, from the box's own functions.
    for (int means = 0; means < 3; ++means) {
        auto * const box = new KTimeBox;
        QPointer<KTimeBox> const guard(box);
        box->setValue(nanoseconds(40));
        QObject::connect(box, &KTimeBox::timeChanged, box, [box] { delete box; });
        if (means == 0) {
            box->stepBy(1);
        } else if (means == 1) {
            box->down();
        } else {
            box->findChild<QLineEdit *>()->setText(QStringLiteral("7 ns"));
            box->interpretText();
        }
        QVERIFY(!guard);
    }
}

void tst_KTimeBox::sizeHint_holdsALongTime()
{
    KTimeBox box;
    int const text = box.fontMetrics().horizontalAdvance(QStringLiteral("-999.999 sec"));
    QVERIFY(box.sizeHint().width() > text);
}

ZENU_TEST(tst_KTimeBox)
#include "tst_KTimeBox.moc"
