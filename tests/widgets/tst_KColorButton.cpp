#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolBar>

using namespace zenu;
using zenutest::Button;
using zenutest::settle;
using zenutest::styled;
using zenutest::Window;

namespace {

void sendEnter(QWidget & widget)
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&widget, &event);
}

void sendLeave(QWidget & widget)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

QSize textSize(QString const & text)
{
    return QFontMetrics(QApplication::font()).boundingRect(text).size() + QSize(2, 0);
}

} // namespace

class tst_KColorButton : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void construction_givesTheDefaults();
    void construction_inAToolBar_isFlat();
    void toggle_needsAToggleButton();
    void setters_ofPopupDelayAndRaise_repaint();
    void setters_thatOnlyStore_doNotRepaint();
    void setPopup_isGuarded();
    void uses3D_byTheRule();
    void hovering_disabledButton_staysFlat();
    void hovering_repaintsAFlatButtonOnly_data();
    void hovering_repaintsAFlatButtonOnly();
    void move_insideWithoutEnter_hovers();
    void moved_overAPixmap_repaintsAFlatButtonOnly();
    void hint_byTheRule_data();
    void hint_byTheRule();
    void hint_ofTheArrow_is9x6();
    void hint_withArrowPart_isWider();
    void hint_followsTheApplicationsFont();
    void text_makesNoShortcut();
    void text_isReadByAssistiveTechnology();
    void paletteChange_isToldThePaletteBefore();
    void drawButton_withoutPainter_isSafe();
    void huge_numbers_areSafe();
    void click_emitsClicked();
};

void tst_KColorButton::construction_givesTheDefaults()
{
    KColorButton button;
    QCOMPARE(button.popupDelay(), 10);
    QVERIFY(!button.popup());
    QVERIFY(!button.autoRaise());
    QVERIFY(!button.isCheckable());
    QCOMPARE(button.focusPolicy(), Qt::NoFocus);
    QCOMPARE(button.backgroundRole(), QPalette::Button);
    QCOMPARE(button.sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QVERIFY(button.hasMouseTracking());
    QVERIFY(button.objectName().isEmpty());
    QCOMPARE(button.qObject(), static_cast<QObject *>(&button));
    QCOMPARE(KColorButton(nullptr, "line").objectName(), QStringLiteral("line"));
}

void tst_KColorButton::construction_inAToolBar_isFlat()
{
    QToolBar bar;
    QWidget other;
    QVERIFY((new KColorButton(&bar))->autoRaise());
    QVERIFY(!(new KColorButton(&other))->autoRaise());
}

void tst_KColorButton::toggle_needsAToggleButton()
{
    KColorButton button;
    button.setOn(true);
    button.toggle();
    QVERIFY(!button.isChecked());
    button.setToggleButton(true);
    QVERIFY(button.isCheckable());
    button.setOn(true);
    QVERIFY(button.isChecked());
    button.toggle();
    QVERIFY(!button.isChecked());
    button.toggle();
    QVERIFY(button.isChecked());
    button.setOn(false);
    QVERIFY(!button.isChecked());
    QMetaObject::invokeMethod(&button, "toggle");
    QVERIFY(button.isChecked());
}

void tst_KColorButton::setters_ofPopupDelayAndRaise_repaint()
{
    Window window;
    QVERIFY(window.open());
    QMenu menu;
    std::function<void()> const changes[] = {
        [&] { window.button->setPopup(&menu); },
        [&] { window.button->setPopupDelay(20); },
        [&] { window.button->setAutoRaise(true); },
        [&] { window.button->setFillColor(Qt::red); },
        [&] { window.button->setBorderColor(Qt::blue); },
        [&] { window.button->setText(QStringLiteral("A")); },
        [&] { window.button->setTextNoColor(QStringLiteral("A")); },
        [&] { window.button->setArrow(Qt::UpArrow); },
    };
    for (auto const & change : changes) {
        settle();
        window.button->drawn = 0;
        change();
        QTRY_VERIFY(window.button->drawn > 0);
    }
}

void tst_KColorButton::setters_thatOnlyStore_doNotRepaint()
{
    Window window;
    QVERIFY(window.open());
    settle();
    window.button->drawn = 0;
    window.button->setMinColorSize(QSize(5, 5));
    window.button->setMaxColorSize(QSize(5, 5));
    window.button->setTextColorSpacing(7);
    window.button->setMargin(7);
    window.button->setFrame(true);
    settle();
    QCOMPARE(window.button->drawn, 0);
}

void tst_KColorButton::setPopup_isGuarded()
{
    KColorButton button;
    button.setPopup(nullptr);
    auto menu = std::make_unique<QMenu>();
    button.setPopup(menu.get());
    QCOMPARE(button.popup(), menu.get());
    QCOMPARE(button.findChildren<QTimer *>().size(), 1);
    QMenu second;
    button.setPopup(&second);
    QCOMPARE(button.findChildren<QTimer *>().size(), 1); // made once
    button.setPopup(menu.get());
    menu.reset();
    QVERIFY(!button.popup());
    button.setPopup(&second);
    button.setPopup(nullptr);
    QVERIFY(!button.popup());
}

void tst_KColorButton::uses3D_byTheRule()
{
    KColorButton button;
    QVERIFY(button.uses3D()); // not flat at all
    button.setAutoRaise(true);
    QVERIFY(!button.uses3D());
    sendEnter(button);
    QVERIFY(button.uses3D());
    sendLeave(button);
    QVERIFY(!button.uses3D());
    QMenu menu;
    menu.addAction(QStringLiteral("A"));
    button.setPopup(&menu);
    menu.popup(QPoint(300, 300)); // not by the button
    QVERIFY(!button.uses3D());
    button.setPopupDelay(0);
    QVERIFY(button.uses3D());
    button.setPopupDelay(-1);
    QVERIFY(button.uses3D());
    menu.close();
    QVERIFY(!button.uses3D());
}

void tst_KColorButton::hovering_disabledButton_staysFlat()
{
    KColorButton button;
    button.setAutoRaise(true);
    sendEnter(button);
    button.setEnabled(false);
    QVERIFY(!button.uses3D());
    button.setEnabled(true);
    QVERIFY(button.uses3D());
}

void tst_KColorButton::hovering_repaintsAFlatButtonOnly_data()
{
    QTest::addColumn<bool>("flat");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("flat") << true << true;
    QTest::newRow("flat, disabled") << true << false;
    QTest::newRow("raised") << false << true;
}

void tst_KColorButton::hovering_repaintsAFlatButtonOnly()
{
    QFETCH(bool, flat);
    QFETCH(bool, enabled);
    Window window;
    window.button->setAutoRaise(flat);
    window.button->setEnabled(enabled);
    QVERIFY(window.open());
    for (auto const & send : {sendEnter, sendLeave}) {
        settle();
        window.button->drawn = 0;
        send(*window.button);
        settle();
        QCOMPARE(window.button->drawn > 0, flat && enabled);
    }
}

// A widget that shows its parent's pixmap has to draw it anew where it comes to lie.
void tst_KColorButton::moved_overAPixmap_repaintsAFlatButtonOnly()
{
    QPixmap tile(7, 5);
    tile.fill(Qt::yellow);
    QPalette const plain = QApplication::palette();
    QPalette tiled = plain;
    tiled.setBrush(QPalette::Window, QBrush(tile));
    Window window;
    QVERIFY(window.open());
    for (bool const flat : {true, false}) {
        for (bool const pixmap : {true, false}) {
            window.button->setAutoRaise(flat);
            window.setPalette(pixmap ? tiled : plain);
            settle();
            window.button->drawn = 0;
            QMoveEvent event(window.button->pos(), QPoint(1, 1));
            QApplication::sendEvent(window.button, &event);
            settle();
            QCOMPARE(window.button->drawn > 0, flat && pixmap);
        }
    }
}

void tst_KColorButton::move_insideWithoutEnter_hovers()
{
    KColorButton button;
    button.setAutoRaise(true);
    button.resize(20, 20);
    auto const move = [&button](QPoint const & pos) {
        QMouseEvent event(QEvent::MouseMove, pos, pos, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&button, &event);
    };
    move(QPoint(20, 5));
    QVERIFY(!button.uses3D());
    move(QPoint(19, 5));
    QVERIFY(button.uses3D());
}

void tst_KColorButton::hint_byTheRule_data()
{
    QTest::addColumn<bool>("swatch");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("smallest");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("spacing");
    QTest::newRow("nothing") << false << QString() << QSize(0, 0) << 2 << 2;
    QTest::newRow("swatch") << true << QString() << QSize(12, 12) << 2 << 2;
    QTest::newRow("text") << false << QStringLiteral("Lines") << QSize(0, 0) << 2 << 2;
    QTest::newRow("both") << true << QStringLiteral("Lines") << QSize(12, 12) << 3 << 5;
    QTest::newRow("high swatch") << true << QStringLiteral("Lines") << QSize(12, 80) << 3 << 5;
}

void tst_KColorButton::hint_byTheRule()
{
    QFETCH(bool, swatch);
    QFETCH(QString, text);
    QFETCH(QSize, smallest);
    QFETCH(int, margin);
    QFETCH(int, spacing);
    KColorButton button;
    button.setMinColorSize(smallest);
    button.setMargin(margin);
    button.setTextColorSpacing(spacing);
    if (swatch)
        button.setFillColor(Qt::red);
    if (!text.isEmpty())
        button.setText(text);
    QSize const label = text.isEmpty() ? QSize(0, 0) : textSize(text);
    int const separator = swatch && !text.isEmpty() ? 1 : 0;
    QSize const content(smallest.width() + label.width() + 2 * margin + spacing * separator,
                        qMax(label.height(), smallest.height()) + 2 * margin);
    QCOMPARE(button.minimumSizeHint(), styled(button, content));
    QCOMPARE(button.sizeHint(), button.minimumSizeHint());
}

void tst_KColorButton::hint_ofTheArrow_is9x6()
{
    KColorButton button;
    button.setArrow(Qt::DownArrow);
    QCOMPARE(button.sizeHint(), styled(button, QSize(9 + 4, 6 + 4)));
    button.setText(QStringLiteral("A"));
    QCOMPARE(button.sizeHint(), styled(button, textSize(QStringLiteral("A")) + QSize(4, 4)));
    button.setArrow(Qt::DownArrow);
    QCOMPARE(button.sizeHint(), styled(button, QSize(9 + 4, 6 + 4)));
}

void tst_KColorButton::hint_withArrowPart_isWider()
{
    KColorButton button;
    QMenu menu;
    button.setMinColorSize(QSize(10, 10));
    int const indicator = button.style()->pixelMetric(QStyle::PM_MenuButtonIndicator);
    QSize const plain = styled(button, QSize(14, 14));
    button.setPopupDelay(0);
    QCOMPARE(button.sizeHint(), plain); // no menu, no arrow part
    button.setPopup(&menu);
    QCOMPARE(button.sizeHint(), styled(button, QSize(14 + indicator, 14)));
    button.setPopupDelay(-1);
    QCOMPARE(button.sizeHint(), plain);
    button.setPopupDelay(10);
    QCOMPARE(button.sizeHint(), plain);
}

void tst_KColorButton::hint_followsTheApplicationsFont()
{
    QFont const before = QApplication::font();
    KColorButton button;
    button.setText(QStringLiteral("Lines"));
    QSize const small = button.sizeHint();
    QFont large = before;
    large.setPointSize(before.pointSize() * 3);
    QApplication::setFont(large);
    QCOMPARE(button.sizeHint(), styled(button, textSize(QStringLiteral("Lines")) + QSize(4, 4)));
    QVERIFY(button.sizeHint().height() > small.height());
    QApplication::setFont(before);
}

void tst_KColorButton::text_makesNoShortcut()
{
    KColorButton button;
    button.setText(QStringLiteral("&Lines"));
    QVERIFY(button.shortcut().isEmpty());
    button.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    button.setTextNoColor(QStringLiteral("&Dots"));
    QCOMPARE(button.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_L));
}

void tst_KColorButton::text_isReadByAssistiveTechnology()
{
    KColorButton button;
    button.setText(QStringLiteral("Lines"));
    QCOMPARE(button.text(), QStringLiteral("Lines"));
    QAccessibleInterface * const interface = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(interface);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Lines"));
}

void tst_KColorButton::paletteChange_isToldThePaletteBefore()
{
    Button button;
    QPalette const before = button.palette();
    QPalette red = before;
    red.setColor(QPalette::Button, Qt::red);
    button.setPalette(red);
    QCOMPARE(button.palettes.size(), 1);
    QCOMPARE(button.palettes.at(0).color(QPalette::Button), before.color(QPalette::Button));
    QPalette blue = before;
    blue.setColor(QPalette::Button, Qt::blue);
    button.setPalette(blue);
    QCOMPARE(button.palettes.at(1).color(QPalette::Button), QColor(Qt::red));
}

void tst_KColorButton::drawButton_withoutPainter_isSafe()
{
    KColorButton button;
    button.drawButton(nullptr);
    QPainter idle;
    button.drawButton(&idle);
}

void tst_KColorButton::huge_numbers_areSafe()
{
    KColorButton button;
    button.setAutoRaise(true);
    button.setText(QStringLiteral("A"));
    button.setFillColor(QColor());
    button.setFrame(true);
    QImage image(40, 20, QImage::Format_RGB32);
    for (int const value : {INT_MAX, INT_MIN, -5, 0}) {
        button.setMargin(value);
        button.setTextColorSpacing(value);
        button.setMinColorSize(QSize(value, value));
        button.setMaxColorSize(QSize(value, value));
        static_cast<void>(button.sizeHint());
        for (QSize const size : {QSize(40, 20), QSize(1, 1), QSize(0, 0)}) {
            button.resize(size);
            QPainter painter(&image);
            button.drawButton(&painter);
        }
    }
}

void tst_KColorButton::click_emitsClicked()
{
    Window window;
    QVERIFY(window.open());
    QSignalSpy const clicks(window.button, &QAbstractButton::clicked);
    window.click(window.onButton());
    QCOMPARE(clicks.size(), 1);
}

ZENU_TEST(tst_KColorButton)
#include "tst_KColorButton.moc"
