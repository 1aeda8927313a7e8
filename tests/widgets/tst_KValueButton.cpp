#include "tests/overlay/PixelPicture.h"
#include "tests/support/TestMain.h"

#include <zenu/widgets/KValueButton.h>

using namespace zenu;
using zenutest::PixelPicture;

namespace {

QImage drawn(KValueButton & button, double ratio = 1)
{
    return zenutest::painted<QImage>(button.size(), ratio, Qt::green, [&](QPaintDevice * device) {
        QPainter painter(device);
        button.drawButton(&painter);
    });
}

} // namespace

class tst_KValueButton : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void construction_isAToggleButtonThatIsOff();
    void picture_withoutCharacter_byTheRule_data() { zenutest::addRatios(); }
    void picture_withoutCharacter_byTheRule();
    void picture_ofTheCharacter_isBlackAndCentred();
    void picture_isTheSameUnderEveryPalette();
    void drawButton_drawsTheLabel();
    void drawButton_withoutPainter_isSafe();
    void click_togglesAndEmits();
    void size_fitsTheCharacter();
};

void tst_KValueButton::construction_isAToggleButtonThatIsOff()
{
    QWidget parent;
    auto * const button = new KValueButton(QLatin1Char('1'), &parent);
    QCOMPARE(button->parentWidget(), &parent);
    QVERIFY(button->isCheckable());
    QVERIFY(!button->isChecked());
}

void tst_KValueButton::picture_withoutCharacter_byTheRule()
{
    QFETCH(double, ratio);
    KValueButton button{QChar()};
    button.resize(16, 20);
    for (bool const on : {false, true}) {
        button.setChecked(on);
        PixelPicture expected(button.size(), ratio, on ? QColor(192, 192, 192) : QColor(Qt::white));
        expected.frame(0, 0, 16, 20, QColor(126, 126, 126));
        QCOMPARE(zenutest::difference(drawn(button, ratio), expected.image()), QByteArray());
    }
}

void tst_KValueButton::picture_ofTheCharacter_isBlackAndCentred()
{
    KValueButton button(QLatin1Char('0'));
    button.resize(31, 27);
    QImage const expected =
        zenutest::painted<QImage>(button.size(), 1, Qt::white, [&](QPaintDevice * device) {
            QPainter painter(device);
            painter.fillRect(0, 0, 31, 27, QColor(126, 126, 126));
            painter.fillRect(1, 1, 29, 25, Qt::white);
            painter.setPen(Qt::black);
            painter.drawText(QRect(0, 0, 31, 27), Qt::AlignCenter, QStringLiteral("0"));
        });
    QCOMPARE(zenutest::difference(drawn(button), expected), QByteArray());
}

void tst_KValueButton::picture_isTheSameUnderEveryPalette()
{
    KValueButton button(QLatin1Char('0'));
    button.resize(20, 20);
    QImage const before = drawn(button);
    button.setPalette(QPalette(QColor(40, 40, 40)));
    QVERIFY(drawn(button) == before);
}

void tst_KValueButton::drawButton_drawsTheLabel()
{
    class Plain : public KValueButton
    {
    public:
        using KValueButton::KValueButton;
        void drawButtonLabel(QPainter *) override { ++labels; }
        int labels = 0;
    };
    Plain button(QLatin1Char('1'));
    button.resize(20, 20);
    static_cast<void>(button.grab());
    QVERIFY(button.labels > 0);
}

void tst_KValueButton::drawButton_withoutPainter_isSafe()
{
    KValueButton button(QLatin1Char('1'));
    button.drawButton(nullptr);
    QPainter idle;
    button.drawButton(&idle);
    button.resize(0, 0);
    static_cast<void>(button.grab());
}

void tst_KValueButton::click_togglesAndEmits()
{
    KValueButton button(QLatin1Char('1'));
    button.resize(20, 20);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QSignalSpy const clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(button.isChecked());
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(!button.isChecked());
    QCOMPARE(clicks.size(), 2);
}

void tst_KValueButton::size_fitsTheCharacter()
{
    KValueButton button(QLatin1Char('0'));
    QFontMetrics const metrics(button.font());
    QVERIFY(button.sizeHint().height() > metrics.height());
    QVERIFY(button.sizeHint().width() > metrics.horizontalAdvance(QLatin1Char('0')));
}

ZENU_TEST(tst_KValueButton)
#include "tst_KValueButton.moc"
