#include "tests/support/TestMain.h"
#include "tests/time/Nanoseconds.h"
#include "tests/time/TypingScene.h"

#include <zenu/time/KTimeEdit.h>

#include <QPointer>

using namespace zenu;

namespace {

using zenutest::nanoseconds;

struct Scene : zenutest::TypingScene<KTimeEdit>
{
    Scene()
        : TypingScene("edit")
        , changes(box, &KTimeEdit::timeChanged)
    {
    }
    void pressReturn() { QTest::keyClick(box, Qt::Key_Return); }

    QSignalSpy changes;
};

} // namespace

class tst_KTimeEdit : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { TimeUnit::setDefaultUnit(TimeUnit::fs); }

    void fresh_isInvalidEmptyAndInNanoseconds();
    void setValue_keepsTheUnitAndEmitsNothing();
    void setUnit_changesTheTextOnly();
    void setUnit_finerThanTheResolution_isTheSmallestUnit();
    void setUnit_unknown_isTaken();
    void typedText_countsAtReturnAndIsWrittenAnew();
    void typedText_countsWhenTheFocusLeaves();
    void return_unchangedText_emitsNothingAndRewrites();
    void typedText_bareNumber_comesBackAsZeroOfNoUnit();
    void typedText_tooLarge_keepsTheValueAndTheUnit();
    void typedText_sameTimeOtherUnit_takesTheUnitQuietly();
    void defaultUnit_fs_isPsAfterwards();
    void defaultUnit_coarser_staysAsItWas();
    void typing_refusedText_doesNotEnter();
    void setSigned_signMayBeTyped();
    void edit_deletedInTimeChanged_isQuiet();
    void focusOut_freshEdit_isZeroOfNoUnit();
    void focusOut_toAMenu_keepsTheSelection();
    void defaultUnit_coarseResolution_isRaisedToIt();
};

void tst_KTimeEdit::fresh_isInvalidEmptyAndInNanoseconds()
{
    Scene scene;
    QVERIFY(!scene.box->getValue().valid());
    QCOMPARE(scene.box->getValue().multiplier(), 1.0);
    QCOMPARE(scene.box->getUnit(), TimeUnit::ns);
    QCOMPARE(scene.box->alignment(), Qt::AlignRight);
    QCOMPARE(scene.text(), QString());
    QCOMPARE(scene.box->objectName(), QStringLiteral("edit"));
    QCOMPARE(scene.box->qObject(), static_cast<QObject *>(scene.box));
}

void tst_KTimeEdit::setValue_keepsTheUnitAndEmitsNothing()
{
    Scene scene;
    scene.box->setValue(nanoseconds(12345.5));
    QCOMPARE(scene.box->getUnit(), TimeUnit::ns);
    QCOMPARE(scene.text(), QStringLiteral("12345.5 ns"));
    QCOMPARE(scene.box->getValue(), nanoseconds(12345.5));
    scene.box->setValue(TimeValue());
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeEdit::setUnit_changesTheTextOnly()
{
    Scene scene;
    scene.box->setValue(nanoseconds(1500));
    scene.box->setUnit(TimeUnit::us);
    QCOMPARE(scene.text(), QStringLiteral("1.5 us"));
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
    QCOMPARE(scene.box->getValue(), nanoseconds(1500));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeEdit::setUnit_finerThanTheResolution_isTheSmallestUnit()
{
    Scene scene;
    scene.box->setValue(TimeValue(3LL, 1e6)); // nanoseconds
    scene.box->setUnit(TimeUnit::fs);
    QCOMPARE(scene.box->getUnit(), TimeUnit::smallestUnit(1e6));
    QCOMPARE(scene.text(), QStringLiteral("3 ns"));
}

void tst_KTimeEdit::setUnit_unknown_isTaken()
{
    Scene scene;
    scene.box->setValue(TimeValue(3LL, 1.0));
    scene.box->setUnit(TimeUnit::unknown);
    QCOMPARE(scene.box->getUnit(), TimeUnit::unknown);
    QCOMPARE(scene.text(), QStringLiteral("3 ?"));
}

void tst_KTimeEdit::typedText_countsAtReturnAndIsWrittenAnew()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("1.50ms"));
    QVERIFY(scene.changes.isEmpty());
    scene.pressReturn();
    QCOMPARE(scene.text(), QStringLiteral("1.5 ms"));
    QCOMPARE(scene.box->getUnit(), TimeUnit::ms);
    QCOMPARE(scene.box->getValue(), nanoseconds(1.5e6));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeEdit::typedText_countsWhenTheFocusLeaves()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("2 us 7 ns"));
    scene.other->setFocus();
    QCOMPARE(scene.box->getValue(), nanoseconds(2007));
    QCOMPARE(scene.text(), QStringLiteral("2.007 us"));
    QCOMPARE(scene.changes.count(), 1);
}

void tst_KTimeEdit::return_unchangedText_emitsNothingAndRewrites()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.pressReturn();
    QVERIFY(scene.changes.isEmpty());
    scene.type(QStringLiteral("40.000ns"));
    scene.pressReturn();
    QVERIFY(scene.changes.isEmpty());
    QCOMPARE(scene.text(), QStringLiteral("40 ns"));
}

void tst_KTimeEdit::typedText_bareNumber_comesBackAsZeroOfNoUnit()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("12"));
    scene.pressReturn();
    QCOMPARE(scene.text(), QStringLiteral("0 ?"));
    QCOMPARE(scene.box->getUnit(), TimeUnit::unknown);
    QCOMPARE(scene.box->getValue(), nanoseconds(0));
    scene.type(QStringLiteral("3 ns")); // and there is a way out
    scene.pressReturn();
    QCOMPARE(scene.text(), QStringLiteral("3 ns"));
}

void tst_KTimeEdit::typedText_tooLarge_keepsTheValueAndTheUnit()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("99999999999999999999 hr"));
    scene.pressReturn();
    QCOMPARE(scene.text(), QStringLiteral("40 ns"));
    QCOMPARE(scene.box->getValue(), nanoseconds(40));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeEdit::typedText_sameTimeOtherUnit_takesTheUnitQuietly()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("0.04 us"));
    scene.pressReturn();
    QCOMPARE(scene.box->getUnit(), TimeUnit::us);
    QCOMPARE(scene.text(), QStringLiteral("0.04 us"));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeEdit::defaultUnit_fs_isPsAfterwards()
{
    Scene scene;
    scene.box->setValue(TimeValue(5LL, 1.0));
    QVERIFY(scene.show());
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::fs);
    scene.pressReturn();
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::ps);
}

void tst_KTimeEdit::defaultUnit_coarser_staysAsItWas()
{
    TimeUnit::setDefaultUnit(TimeUnit::ms);
    Scene scene;
    scene.box->setValue(TimeValue(5LL, 1.0));
    QVERIFY(scene.show());
    scene.type(QStringLiteral("7 us"));
    scene.pressReturn();
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::ms);
}

void tst_KTimeEdit::typing_refusedText_doesNotEnter()
{
    Scene scene;
    scene.box->setValue(nanoseconds(40));
    QVERIFY(scene.show());
    scene.box->selectAll();
    QTest::keyClick(scene.box, Qt::Key_Delete);
    QTest::keyClicks(scene.box, QStringLiteral("-x5 MSec"));
    QCOMPARE(scene.text(), QStringLiteral("5 "));
    scene.box->setValue(TimeValue());
    scene.type(QStringLiteral("x"));
    QCOMPARE(scene.text(), QStringLiteral("<error>"));
}

void tst_KTimeEdit::setSigned_signMayBeTyped()
{
    Scene scene;
    scene.box->setSigned(true);
    QVERIFY(scene.show());
    scene.type(QStringLiteral("-5 ns"));
    scene.pressReturn();
    QCOMPARE(scene.box->getValue(), TimeValue(-5.0, TimeUnit(TimeUnit::ns), 1.0));
    scene.box->setSigned(false);
    scene.type(QStringLiteral("-"));
    QCOMPARE(scene.text(), QStringLiteral("-5 ns"));
}

void tst_KTimeEdit::edit_deletedInTimeChanged_isQuiet()
{
    for (bool const leave : {false, true}) {
        Scene scene;
        QPointer<KTimeEdit> const edit(scene.box);
        scene.box->setValue(nanoseconds(40));
        QVERIFY(scene.show());
        QObject::connect(scene.box, &KTimeEdit::timeChanged, scene.box, &QObject::deleteLater);
        scene.type(QStringLiteral("7 us"));
        if (leave) {
            scene.other->setFocus();
        } else {
            scene.pressReturn();
        }
        QTRY_VERIFY(!edit);
    }
}

void tst_KTimeEdit::focusOut_freshEdit_isZeroOfNoUnit()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.other->setFocus();
    QCOMPARE(scene.box->getValue(), TimeValue(0LL, 1.0));
    QCOMPARE(scene.text(), QStringLiteral("0 ?"));
    QCOMPARE(scene.changes.count(), 1);
}

// The focus goes to the menu first, and the menu copies then.
void tst_KTimeEdit::focusOut_toAMenu_keepsTheSelection()
{
    Scene scene;
    scene.box->setValue(nanoseconds(12345));
    QVERIFY(scene.show());
    scene.box->setSelection(0, 5);
    QFocusEvent leave(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(scene.box, &leave);
    QCOMPARE(scene.box->selectedText(), QStringLiteral("12345"));
    QVERIFY(scene.changes.isEmpty());
}

void tst_KTimeEdit::defaultUnit_coarseResolution_isRaisedToIt()
{
    Scene scene;
    scene.box->setValue(TimeValue(5LL, 1e9)); // microseconds
    QVERIFY(scene.show());
    scene.pressReturn();
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::us);
}

ZENU_TEST(tst_KTimeEdit)
#include "tst_KTimeEdit.moc"
