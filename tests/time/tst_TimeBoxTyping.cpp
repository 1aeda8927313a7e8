#include "tests/support/TestMain.h"
#include "tests/time/TimeBoxFixture.h"

#include <QPointer>

using namespace zenu;

namespace {

using zenutest::nanoseconds;
using zenutest::ps;
using Scene = zenutest::TimeBoxScene;

} // namespace

class tst_TimeBoxTyping : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { TimeUnit::setDefaultUnit(TimeUnit::fs); }

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
    void focusOut_freshBox_isZero();
    void typedText_boxIsHidden_counts();
    void typedText_partOfANotch_staysTyped();
    void focusOut_toAMenu_keepsTheSelection();
    void typedText_sameAsShown_isNoEditForTheNextStep();
};

void tst_TimeBoxTyping::typedText_countsWhenTheFocusLeaves()
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

void tst_TimeBoxTyping::typedText_countsAtReturn()
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

void tst_TimeBoxTyping::typedText_countsBeforeAStep()
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

void tst_TimeBoxTyping::typedText_shownInTheBestUnitAfterwards()
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

void tst_TimeBoxTyping::typedText_unchanged_emitsNothing()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    QTest::keyClick(scene.box, Qt::Key_Return);
    scene.other->setFocus();
    QVERIFY(scene.changes.isEmpty());
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
}

void tst_TimeBoxTyping::typedText_withoutUnit_isZeroInAnUnknownUnit()
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

void tst_TimeBoxTyping::typedText_severalTerms_unitIsThatOfTheFirst()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("1 us 500 ns"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(1500));
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
}

void tst_TimeBoxTyping::typedText_finerThanTheResolution_isRoundedAndCoarser()
{
    Scene scene;
    scene.box->setValue(TimeValue(3LL, 1e6));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("1700 ps"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), TimeValue(2LL, 1e6));
    QCOMPARE(scene.box->getUnit(), TimeUnit::ns);
}

void tst_TimeBoxTyping::typedText_tooLarge_changesNothing()
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

void tst_TimeBoxTyping::typedText_emptied_isZero()
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

void tst_TimeBoxTyping::defaultUnit_isThatOfBeforeAfterwards()
{
    TimeUnit::setDefaultUnit(TimeUnit::ms);
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::ms);
}

void tst_TimeBoxTyping::typing_refusedText_doesNotEnter_data()
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

void tst_TimeBoxTyping::typing_refusedText_doesNotEnter()
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

void tst_TimeBoxTyping::setSigned_signMayBeTyped()
{
    Scene scene;
    scene.box->setSigned(true);
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("-5 ns"));
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.box->getValue(), nanoseconds(-5));
}

void tst_TimeBoxTyping::setSigned_false_refusesTheSignAgain()
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
void tst_TimeBoxTyping::focusOut_withoutTyping_keepsWhatThreeDecimalsShow()
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

void tst_TimeBoxTyping::box_deletedInTimeChanged_isQuiet()
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

// A fresh box reads "<error>", which counts as text without any term.
void tst_TimeBoxTyping::focusOut_freshBox_isZero()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.other->setFocus();
    QCOMPARE(scene.box->getValue(), TimeValue(0LL, 1.0));
    QCOMPARE(scene.box->getUnit(), TimeUnit::unknown);
    QCOMPARE(scene.text(), QStringLiteral("0 ps"));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_TimeBoxTyping::typedText_boxIsHidden_counts()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    scene.box->hide();
    QVERIFY(!scene.box->hasFocus());
    QCOMPARE(scene.box->getValue(), nanoseconds(3000));
    QCOMPARE(scene.changes.count(), 1);
    QVERIFY(scene.baseIsQuiet());
}

void tst_TimeBoxTyping::typedText_partOfANotch_staysTyped()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("3 us"));
    scene.wheel(60);
    scene.wheel(-30);
    QCOMPARE(scene.text(), QStringLiteral("3 us"));
    QVERIFY(scene.changes.isEmpty());
}

// The focus goes to the menu first, and the menu copies then.
void tst_TimeBoxTyping::focusOut_toAMenu_keepsTheSelection()
{
    Scene scene;
    scene.box->setValue(nanoseconds(12345));
    QVERIFY(scene.show());
    scene.editor()->setSelection(0, 6);
    QFocusEvent leave(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(scene.box, &leave);
    QCOMPARE(scene.editor()->selectedText(), QStringLiteral("12.345"));
    QVERIFY(scene.changes.isEmpty());
}

void tst_TimeBoxTyping::typedText_sameAsShown_isNoEditForTheNextStep()
{
    Scene scene;
    scene.box->setValue(TimeValue(1'500'000'000LL, 1.0));
    QVERIFY(scene.show());
    QCOMPARE(scene.text(), QStringLiteral("1500 ns"));
    scene.type(QStringLiteral("1500 ns"));
    scene.other->setFocus();
    scene.box->setValue(TimeValue(1'500'000'400LL, 1.0)); // reads the same
    scene.box->stepBy(1);
    QCOMPARE(scene.box->getValue(), TimeValue(1'501'000'400LL, 1.0));
    QCOMPARE(scene.changes.count(), 1);
}

ZENU_TEST(tst_TimeBoxTyping)
#include "tst_TimeBoxTyping.moc"
