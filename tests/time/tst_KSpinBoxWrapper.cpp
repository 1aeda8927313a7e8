#include "tests/support/TestMain.h"
#include "tests/time/TypingScene.h"

#include <zenu/time/KSpinBoxWrapper.h>

#include <memory>

using namespace zenu;

namespace {

struct Scene : zenutest::TypingScene<QSpinBox>
{
    explicit Scene(char const * regexp = "[a-z0-9]*")
        : wrapper(std::make_unique<KSpinBoxWrapper>(*box, regexp, &window))
        , ups(wrapper.get(), &KSpinBoxWrapper::up)
        , downs(wrapper.get(), &KSpinBoxWrapper::down)
    {
    }
    // Ups and downs so far.
    QString steps() { return QStringLiteral("%1 %2").arg(ups.count()).arg(downs.count()); }

    std::unique_ptr<KSpinBoxWrapper> wrapper;
    QSignalSpy ups;
    QSignalSpy downs;
};

} // namespace

class tst_KSpinBoxWrapper : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fresh_showsThePlaceholderAtRest();
    void setString_getString_givesItBack();
    void setString_refusedByTheExpression_isShown();
    void setString_null_isEmpty();
    void typedText_isTheStringAtOnce();
    void typedText_inTheMiddle_keepsTheCursor();
    void typedText_canBeUndone();
    void typedText_refused_changesNothing();
    void typedText_refusedOverARefusedString_changesNothing();
    void typedOneOrZero_isTextAndNoStep();
    void steps_byEveryMeans_areReportedOnce_data();
    void steps_byEveryMeans_areReportedOnce();
    void step_keepsTheText();
    void step_setStringInTheSlot_shows();
    void holdingAnArrow_stepsOn();
    void clear_thenSetString_shows();
    void validator_askedDirectly_takesTheText();
    void value_otherThanAStep_reportsNothing();
    void box_deleted_isQuiet();
    void wrapper_deleted_leavesTheBoxUsable();
    void wrapper_deletedInUp_isQuiet();
    void readOnlyBox_reportsNothing();
    void step_insideOfAnother_reportsNothing();
    void holdingAnArrow_controlPressedLater_keepsTheDirection();
    void expression_null_letsEveryTextPass();
};

void tst_KSpinBoxWrapper::fresh_showsThePlaceholderAtRest()
{
    Scene scene;
    QCOMPARE(scene.wrapper->getString(), "Dupny12");
    QCOMPARE(scene.text(), QStringLiteral("Dupny12"));
    QCOMPARE(scene.box->specialValueText(), QStringLiteral("Dupny12"));
    QCOMPARE(scene.box->value(), -1);
    QCOMPARE(scene.box->minimum(), -1);
    QCOMPARE(scene.box->maximum(), 1);
    QVERIFY(scene.box->wrapping());
    QCOMPARE(scene.wrapper->parent(), &scene.window);
    QCOMPARE(scene.wrapper->qObject(), static_cast<QObject *>(scene.wrapper.get()));
    QVERIFY(scene.wrapper->objectName().isEmpty());
    QCOMPARE(scene.steps(), QStringLiteral("0 0"));
}

void tst_KSpinBoxWrapper::setString_getString_givesItBack()
{
    Scene scene;
    scene.wrapper->setString("abc");
    QCOMPARE(scene.wrapper->getString(), "abc");
    QCOMPARE(scene.text(), QStringLiteral("abc"));
    QVERIFY(scene.show());
    QCOMPARE(scene.text(), QStringLiteral("abc"));
}

void tst_KSpinBoxWrapper::setString_refusedByTheExpression_isShown()
{
    Scene scene;
    scene.wrapper->setString("\xc4 B!");
    QCOMPARE(scene.wrapper->getString(), "\xc4 B!");
    QCOMPARE(scene.text(), QString::fromLatin1("\xc4 B!"));
}

void tst_KSpinBoxWrapper::setString_null_isEmpty()
{
    Scene scene;
    scene.wrapper->setString(nullptr);
    QCOMPARE(scene.wrapper->getString(), "");
    QVERIFY(scene.show());
    QTest::keyClick(scene.box, Qt::Key_Up);
    QCOMPARE(scene.wrapper->getString(), "");
    QCOMPARE(scene.steps(), QStringLiteral("1 0"));
}

void tst_KSpinBoxWrapper::typedText_isTheStringAtOnce()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.type(QStringLiteral("new"));
    QCOMPARE(scene.wrapper->getString(), "new");
    QCOMPARE(scene.box->specialValueText(), QStringLiteral("new"));
    scene.other->setFocus();
    QCOMPARE(scene.text(), QStringLiteral("new"));
    scene.box->setFocus();
    QTest::keyClick(scene.box, Qt::Key_Return);
    QCOMPARE(scene.text(), QStringLiteral("new"));
    QCOMPARE(scene.steps(), QStringLiteral("0 0"));
}

void tst_KSpinBoxWrapper::typedText_inTheMiddle_keepsTheCursor()
{
    Scene scene;
    scene.wrapper->setString("abef");
    QVERIFY(scene.show());
    scene.editor()->setCursorPosition(2);
    QTest::keyClicks(scene.box, QStringLiteral("cd"));
    QCOMPARE(scene.text(), QStringLiteral("abcdef"));
    QCOMPARE(scene.editor()->cursorPosition(), 4);
    QCOMPARE(scene.wrapper->getString(), "abcdef");
}

void tst_KSpinBoxWrapper::typedText_canBeUndone()
{
    Scene scene;
    scene.wrapper->setString("abc");
    QVERIFY(scene.show());
    scene.editor()->setCursorPosition(3);
    QTest::keyClicks(scene.box, QStringLiteral("d"));
    scene.editor()->undo();
    QCOMPARE(scene.text(), QStringLiteral("abc"));
    QCOMPARE(scene.wrapper->getString(), "abc");
}

void tst_KSpinBoxWrapper::typedText_refused_changesNothing()
{
    Scene scene;
    scene.wrapper->setString("abc");
    QVERIFY(scene.show());
    scene.editor()->setCursorPosition(1);
    QTest::keyClicks(scene.box, QStringLiteral("X !"));
    QCOMPARE(scene.text(), QStringLiteral("abc"));
    QCOMPARE(scene.wrapper->getString(), "abc");
}

void tst_KSpinBoxWrapper::typedText_refusedOverARefusedString_changesNothing()
{
    Scene scene;
    scene.wrapper->setString("A!");
    QVERIFY(scene.show());
    scene.editor()->setCursorPosition(1);
    QTest::keyClicks(scene.box, QStringLiteral("X"));
    QCOMPARE(scene.text(), QStringLiteral("A!"));
    QCOMPARE(scene.wrapper->getString(), "A!");
    scene.type(QStringLiteral("ok"));
    QCOMPARE(scene.wrapper->getString(), "ok");
    QCOMPARE(scene.text(), QStringLiteral("ok"));
}

void tst_KSpinBoxWrapper::typedOneOrZero_isTextAndNoStep()
{
    for (QString const & digit : {QStringLiteral("1"), QStringLiteral("0")}) {
        Scene scene;
        QVERIFY(scene.show());
        scene.type(digit);
        QCOMPARE(scene.wrapper->getString(), digit.toLatin1().constData());
        QTest::keyClick(scene.box, Qt::Key_Return);
        QTest::keyClick(scene.box, Qt::Key_Enter);
        scene.other->setFocus();
        QCOMPARE(scene.box->value(), -1);
        QCOMPARE(scene.text(), digit);
        QCOMPARE(scene.wrapper->getString(), digit.toLatin1().constData());
        QCOMPARE(scene.steps(), QStringLiteral("0 0"));
        scene.box->setFocus();
        QTest::keyClick(scene.box, Qt::Key_Up);
        QCOMPARE(scene.steps(), QStringLiteral("1 0"));
        QCOMPARE(scene.text(), digit);
    }
}

void tst_KSpinBoxWrapper::steps_byEveryMeans_areReportedOnce_data()
{
    zenutest::addSteps();
}

void tst_KSpinBoxWrapper::steps_byEveryMeans_areReportedOnce()
{
    QFETCH(QString, means);
    QFETCH(bool, isUp);
    Scene scene;
    scene.wrapper->setString("text");
    QVERIFY(scene.show());
    scene.step(means, isUp);
    QCOMPARE(scene.steps(), isUp ? QStringLiteral("1 0") : QStringLiteral("0 1"));
    QCOMPARE(scene.box->value(), -1);
    QCOMPARE(scene.text(), QStringLiteral("text"));
}

void tst_KSpinBoxWrapper::step_keepsTheText()
{
    Scene scene("[0-9]*"); // which accepts the numbers on the way
    scene.wrapper->setString("77");
    QVERIFY(scene.show());
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) {
        QTest::keyClick(scene.box, key);
        QCOMPARE(scene.wrapper->getString(), "77");
        QCOMPARE(scene.text(), QStringLiteral("77"));
    }
    QCOMPARE(scene.steps(), QStringLiteral("1 2"));
}

void tst_KSpinBoxWrapper::step_setStringInTheSlot_shows()
{
    Scene scene("[0-9]*");
    scene.wrapper->setString("5");
    QObject::connect(scene.wrapper.get(), &KSpinBoxWrapper::up, &scene.window, [&] {
        scene.wrapper->setString(
            QByteArray::number(QByteArray(scene.wrapper->getString()).toInt() + 1).constData());
    });
    QVERIFY(scene.show());
    for (int i = 6; i < 12; ++i) {
        QTest::keyClick(scene.box, Qt::Key_Up);
        QCOMPARE(scene.text(), QString::number(i));
        QCOMPARE(scene.wrapper->getString(), QByteArray::number(i).constData());
    }
}

void tst_KSpinBoxWrapper::holdingAnArrow_stepsOn()
{
    Scene scene;
    QVERIFY(scene.show());
    QPoint const place = scene.arrow(QStyle::SC_SpinBoxDown);
    QTest::mousePress(scene.box, Qt::LeftButton, Qt::ControlModifier, place);
    QTRY_VERIFY(scene.downs.count() >= 4);
    QTest::mouseRelease(scene.box, Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(scene.ups.isEmpty());
    QCOMPARE(scene.box->value(), -1);
}

void tst_KSpinBoxWrapper::clear_thenSetString_shows()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.box->clear();
    QCOMPARE(scene.wrapper->getString(), "");
    scene.wrapper->setString("back");
    QCOMPARE(scene.text(), QStringLiteral("back"));
}

void tst_KSpinBoxWrapper::validator_askedDirectly_takesTheText()
{
    Scene scene;
    auto const * const validator =
        qobject_cast<KSpinBoxValidator const *>(scene.editor()->validator());
    QVERIFY(validator);
    QCOMPARE(validator->parent(), scene.wrapper.get());
    QString input = QStringLiteral("direct");
    int pos = 0;
    QCOMPARE(validator->validate(input, pos), QValidator::Acceptable);
    QCOMPARE(scene.wrapper->getString(), "direct");
    QCOMPARE(scene.box->specialValueText(), QStringLiteral("direct"));
    QCOMPARE(scene.text(), QStringLiteral("direct"));
    input = QStringLiteral("No!");
    QCOMPARE(validator->validate(input, pos), QValidator::Invalid);
    QCOMPARE(scene.wrapper->getString(), "direct");
}

void tst_KSpinBoxWrapper::value_otherThanAStep_reportsNothing()
{
    Scene scene;
    scene.box->setRange(-1, 5);
    scene.box->setValue(4);
    QCOMPARE(scene.steps(), QStringLiteral("0 0"));
    QCOMPARE(scene.box->value(), 4);
}

void tst_KSpinBoxWrapper::box_deleted_isQuiet()
{
    Scene scene;
    delete scene.box;
    scene.wrapper->setString("later");
    QCOMPARE(scene.wrapper->getString(), "later");
}

void tst_KSpinBoxWrapper::wrapper_deleted_leavesTheBoxUsable()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.wrapper.reset();
    scene.type(QStringLiteral("x"));
    QTest::keyClick(scene.box, Qt::Key_Up);
    QCOMPARE(scene.box->value(), 0);
}

void tst_KSpinBoxWrapper::wrapper_deletedInUp_isQuiet()
{
    Scene scene;
    QVERIFY(scene.show());
    QObject::connect(scene.wrapper.get(), &KSpinBoxWrapper::up, &scene.window,
                     [&] { scene.wrapper.reset(); });
    QTest::keyClick(scene.box, Qt::Key_Up);
    QVERIFY(!scene.wrapper);
}

void tst_KSpinBoxWrapper::readOnlyBox_reportsNothing()
{
    Scene scene;
    scene.wrapper->setString("1");
    scene.box->setReadOnly(true);
    QVERIFY(scene.show());
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Return}) {
        QTest::keyClick(scene.box, key);
    }
    scene.wheel(120);
    QCOMPARE(scene.steps(), QStringLiteral("0 0"));
    QCOMPARE(scene.text(), QStringLiteral("1"));
}

void tst_KSpinBoxWrapper::step_insideOfAnother_reportsNothing()
{
    Scene scene;
    scene.wrapper->setString("text");
    QObject::connect(scene.wrapper.get(), &KSpinBoxWrapper::up, &scene.window,
                     [&] { scene.box->stepBy(1); }); // as an arrow that is held
    scene.box->stepBy(1);
    QCOMPARE(scene.steps(), QStringLiteral("1 0"));
    QCOMPARE(scene.box->value(), -1);
    QCOMPARE(scene.text(), QStringLiteral("text"));
    scene.box->stepBy(-1);
    QCOMPARE(scene.steps(), QStringLiteral("1 1"));
}

void tst_KSpinBoxWrapper::holdingAnArrow_controlPressedLater_keepsTheDirection()
{
    Scene scene;
    QVERIFY(scene.show());
    QPoint const place = scene.arrow(QStyle::SC_SpinBoxUp);
    QTest::mousePress(scene.box, Qt::LeftButton, Qt::NoModifier, place);
    // A press comes before the modifier that it is, and the event puts it in.
    QTest::keyPress(scene.box, Qt::Key_Control, Qt::NoModifier);
    QTRY_VERIFY(scene.ups.count() >= 4);
    QTest::mouseRelease(scene.box, Qt::LeftButton, Qt::NoModifier, place);
    QTest::keyRelease(scene.box, Qt::Key_Control, Qt::NoModifier);
    QVERIFY(scene.downs.isEmpty());
}

void tst_KSpinBoxWrapper::expression_null_letsEveryTextPass()
{
    Scene scene(nullptr);
    QVERIFY(scene.show());
    scene.type(QStringLiteral("X !"));
    QCOMPARE(scene.wrapper->getString(), "X !");
}

ZENU_TEST(tst_KSpinBoxWrapper)
#include "tst_KSpinBoxWrapper.moc"
