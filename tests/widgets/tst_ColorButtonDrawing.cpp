#include "tests/overlay/PixelPicture.h"
#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleOptionToolButton>
#include <QtWidgets/QToolBar>

using namespace zenu;
using zenutest::PixelPicture;

namespace {

// Writes down which primitives a button asks for.
class Recorder : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement element, QStyleOption const * option, QPainter *,
                       QWidget const *) const override
    {
        static QMap<int, char const *> const names = {{PE_PanelButtonTool, "panel"},
                                                      {PE_IndicatorButtonDropDown, "drop-down"},
                                                      {PE_IndicatorArrowDown, "arrow"},
                                                      {PE_FrameFocusRect, "focus"}};
        QRect const & r = option->rect;
        QByteArray line = names.value(element, "other");
        line += ' ' + QByteArray::number(r.x()) + ' ' + QByteArray::number(r.y()) + ' ' +
                QByteArray::number(r.width()) + ' ' + QByteArray::number(r.height());
        static QList<QPair<StateFlag, char const *>> const flags = {
            {State_Sunken, " down"},   {State_On, " on"},          {State_Raised, " raised"},
            {State_MouseOver, " hot"}, {State_AutoRaise, " flat"}, {State_Enabled, " enabled"}};
        for (auto const & [flag, name] : flags) {
            if (element != PE_FrameFocusRect && (option->state & flag))
                line += name;
        }
        calls << line;
    }
    int pixelMetric(PixelMetric metric, QStyleOption const * option,
                    QWidget const * widget) const override
    {
        return metric == PM_MenuButtonIndicator ? 13
                                                : QProxyStyle::pixelMetric(metric, option, widget);
    }

    mutable QByteArrayList calls;
};

void enter(QWidget & widget)
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&widget, &event);
}

// A flat button draws nothing but its content.
std::unique_ptr<KColorButton> flatButton(QSize const & size)
{
    auto button = std::make_unique<KColorButton>();
    button->setAutoRaise(true);
    button->resize(size);
    return button;
}

QImage drawn(KColorButton & button, double ratio = 1)
{
    return zenutest::painted<QImage>(button.size(), ratio, Qt::green, [&](QPaintDevice * device) {
        QPainter painter(device);
        button.drawButton(&painter);
    });
}

void addArrow(PixelPicture & picture, int x, int y, QColor const & color)
{
    picture.fill(x + 1, y + 1, 7, 1, color);
    picture.fill(x + 2, y + 2, 5, 1, color);
    picture.fill(x + 3, y + 3, 3, 1, color);
    picture.fill(x + 4, y + 4, 1, 1, color);
}

} // namespace

class tst_ColorButtonDrawing : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void parts_byTheRule_data();
    void parts_byTheRule();
    void arrowPart_byTheRule();
    void arrowPart_whileOpen_isDown();
    void focus_isDrawnInsetBy3();
    void focus_ofAProxy_isNotDrawn();
    void flat_parentsPixmap_isTiled();
    void content_usualNumbersAndColors();
    void swatch_byTheRule_data() { zenutest::addRatios(); }
    void swatch_byTheRule();
    void swatch_withoutLargestSize_isNotDrawn();
    void swatch_translucent_leavesItsOutline();
    void arrow_byTheRule_data() { zenutest::addRatios(); }
    void arrow_byTheRule();
    void arrow_typeHasNoEffect();
    void arrow_onADarkPalette_isLight();
    void arrow_afterText_removesTheText();
    void text_byTheRule();
    void text_disabled_isInTheDisabledColor();
    void text_noColor_thenFillColor_bringsTheSwatchBack();
    void frame_byTheRule_data() { zenutest::addRatios(); }
    void frame_byTheRule();
    void content_isNotMirrored();
};

void tst_ColorButtonDrawing::parts_byTheRule_data()
{
    QTest::addColumn<bool>("flat");
    QTest::addColumn<bool>("hot");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("on");
    QTest::addColumn<QByteArray>("call");
    QTest::newRow("raised") << false << false << false << false << QByteArray(" raised enabled");
    QTest::newRow("raised, mouse over")
        << false << true << false << false << QByteArray(" raised enabled");
    QTest::newRow("down") << false << false << true << false << QByteArray(" down enabled");
    QTest::newRow("on") << false << false << false << true << QByteArray(" on enabled");
    QTest::newRow("down and on") << false << false << true << true
                                 << QByteArray(" down on enabled");
    QTest::newRow("flat") << true << false << false << false << QByteArray();
    QTest::newRow("flat, mouse over")
        << true << true << false << false << QByteArray(" raised hot flat enabled");
    QTest::newRow("flat, mouse over, down")
        << true << true << true << false << QByteArray(" down hot flat enabled");
    QTest::newRow("flat, down") << true << false << true << false
                                << QByteArray(" down flat enabled");
    QTest::newRow("flat, on") << true << false << false << true << QByteArray(" on flat enabled");
}

void tst_ColorButtonDrawing::parts_byTheRule()
{
    QFETCH(bool, flat);
    QFETCH(bool, hot);
    QFETCH(bool, down);
    QFETCH(bool, on);
    QFETCH(QByteArray, call);
    Recorder style;
    KColorButton button;
    button.setStyle(&style);
    button.resize(60, 30);
    button.setAutoRaise(flat);
    button.setToggleButton(true);
    button.setOn(on);
    button.setDown(down);
    if (hot)
        enter(button);
    drawn(button);
    QCOMPARE(style.calls,
             call.isEmpty() ? QByteArrayList() : QByteArrayList{"panel 0 0 60 30" + call});
}

void tst_ColorButtonDrawing::arrowPart_byTheRule()
{
    Recorder style;
    QMenu menu;
    KColorButton button;
    button.setStyle(&style);
    button.resize(60, 30);
    button.setPopup(&menu);
    button.setPopupDelay(0);
    drawn(button);
    QCOMPARE(style.calls, QByteArrayList({"panel 0 0 47 30 raised enabled",
                                          "drop-down 47 0 13 30 raised enabled",
                                          "arrow 47 0 13 30 raised enabled"}));
    style.calls.clear();
    button.setDown(true);
    drawn(button);
    QCOMPARE(style.calls,
             QByteArrayList({"panel 0 0 47 30 down enabled", "drop-down 47 0 13 30 down enabled",
                             "arrow 47 0 13 30 down enabled"}));
    // Flat: the arrow alone.
    style.calls.clear();
    button.setDown(false);
    button.setAutoRaise(true);
    drawn(button);
    QCOMPARE(style.calls, QByteArrayList({"arrow 47 0 13 30 flat enabled"}));
    // A delay above or below 0 leaves the button in one part.
    for (int const delay : {-1, 10}) {
        style.calls.clear();
        button.setAutoRaise(false);
        button.setPopupDelay(delay);
        drawn(button);
        QCOMPARE(style.calls, QByteArrayList({"panel 0 0 60 30 raised enabled"}));
    }
}

void tst_ColorButtonDrawing::arrowPart_whileOpen_isDown()
{
    Recorder style;
    QMenu menu;
    menu.addAction(QStringLiteral("A"));
    zenutest::Window window;
    window.button->setStyle(&style);
    window.button->setPopup(&menu);
    window.button->setPopupDelay(0);
    QVERIFY(window.open());
    QByteArrayList whileOpen;
    zenutest::whenOpen(menu, [&] {
        style.calls.clear();
        drawn(*window.button);
        whileOpen = style.calls;
        menu.close();
    });
    window.press(window.onArrow());
    QCOMPARE(whileOpen, QByteArrayList({"panel 0 0 47 30 raised enabled",
                                        "drop-down 47 0 13 30 down raised enabled",
                                        "arrow 47 0 13 30 down raised enabled"}));
    style.calls.clear();
    drawn(*window.button);
    QCOMPARE(style.calls.value(1), QByteArray("drop-down 47 0 13 30 raised enabled"));
}

void tst_ColorButtonDrawing::focus_isDrawnInsetBy3()
{
    Recorder style;
    zenutest::Window window;
    window.button->setStyle(&style);
    window.button->setFocusPolicy(Qt::StrongFocus);
    QVERIFY(window.open());
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.button->setFocus();
    QVERIFY(window.button->hasFocus());
    style.calls.clear();
    drawn(*window.button);
    QCOMPARE(style.calls, QByteArrayList({"panel 0 0 60 30 raised enabled", "focus 3 3 54 24"}));
}

void tst_ColorButtonDrawing::focus_ofAProxy_isNotDrawn()
{
    Recorder style;
    zenutest::Window window;
    QWidget proxy(&window);
    proxy.setFocusPolicy(Qt::StrongFocus);
    window.button->setStyle(&style);
    window.button->setFocusPolicy(Qt::StrongFocus);
    window.button->setFocusProxy(&proxy);
    QVERIFY(window.open());
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    proxy.setFocus();
    QVERIFY(window.button->hasFocus());
    style.calls.clear();
    drawn(*window.button);
    QCOMPARE(style.calls, QByteArrayList({"panel 0 0 60 30 raised enabled"}));
}

void tst_ColorButtonDrawing::flat_parentsPixmap_isTiled()
{
    QPixmap tile(7, 5);
    tile.fill(Qt::yellow);
    {
        QPainter painter(&tile);
        painter.fillRect(0, 0, 3, 2, Qt::blue);
    }
    QWidget parent;
    QPalette palette = parent.palette();
    palette.setBrush(QPalette::Window, QBrush(tile));
    parent.setPalette(palette);
    KColorButton button(&parent);
    button.setAutoRaise(true);
    button.setGeometry(10, 9, 40, 20);
    QImage const picture = drawn(button);
    for (QPoint const pos : {QPoint(0, 0), QPoint(4, 1), QPoint(39, 19), QPoint(17, 6)}) {
        QPoint const inParent = pos + button.pos();
        bool const blue = inParent.x() % 7 < 3 && inParent.y() % 5 < 2;
        QCOMPARE(picture.pixelColor(pos), QColor(blue ? Qt::blue : Qt::yellow));
    }
    enter(button); // a raised one has a panel instead
    QVERIFY(drawn(button) != picture);
}

// White with a black border, margin 2, spacing 2.
void tst_ColorButtonDrawing::content_usualNumbersAndColors()
{
    auto const button = flatButton(QSize(60, 30));
    button->setMaxColorSize(QSize(24, 12));
    button->setArrow(Qt::DownArrow);
    PixelPicture arrowAlone(button->size(), 1, Qt::green);
    addArrow(arrowAlone, 13, 12, Qt::black); // x = (60 - 9 - 24) / 2
    QCOMPARE(zenutest::difference(drawn(*button), arrowAlone.image()), QByteArray());
    button->setBorderColor(Qt::black);
    PixelPicture both(button->size(), 1, Qt::green);
    both.fill(12, 9, 24, 12, Qt::white); // x = (60 - 9 - 2 - 24) / 2
    both.frame(12, 9, 24, 12, Qt::black);
    addArrow(both, 38, 12, Qt::black);
    QCOMPARE(zenutest::difference(drawn(*button), both.image()), QByteArray());
    button->setFillColor(Qt::white);
    QCOMPARE(zenutest::difference(drawn(*button), both.image()), QByteArray());
}

void tst_ColorButtonDrawing::swatch_byTheRule()
{
    QFETCH(double, ratio);
    auto const button = flatButton(QSize(60, 30));
    button->setMaxColorSize(QSize(24, 12));
    button->setFillColor(Qt::red);
    button->setBorderColor(Qt::blue);
    // x = (60 - 0 - 0 - 24) / 2 = 18, y = (30 - 12) / 2 = 9
    PixelPicture expected(button->size(), ratio, Qt::green);
    expected.fill(18, 9, 24, 12, Qt::red);
    expected.frame(18, 9, 24, 12, Qt::blue);
    QCOMPARE(zenutest::difference(drawn(*button, ratio), expected.image()), QByteArray());
}

void tst_ColorButtonDrawing::swatch_withoutLargestSize_isNotDrawn()
{
    auto const button = flatButton(QSize(60, 30));
    button->setFillColor(Qt::red);
    PixelPicture const expected(button->size(), 1, Qt::green);
    QCOMPARE(zenutest::difference(drawn(*button), expected.image()), QByteArray());
}

void tst_ColorButtonDrawing::swatch_translucent_leavesItsOutline()
{
    auto const button = flatButton(QSize(60, 30));
    button->setMaxColorSize(QSize(24, 12));
    button->setFillColor(Qt::transparent);
    PixelPicture expected(button->size(), 1, Qt::green);
    expected.frame(18, 9, 24, 12, Qt::black);
    QCOMPARE(zenutest::difference(drawn(*button), expected.image()), QByteArray());
}

void tst_ColorButtonDrawing::arrow_byTheRule()
{
    QFETCH(double, ratio);
    auto const button = flatButton(QSize(60, 30));
    button->setMaxColorSize(QSize(24, 12));
    button->setFillColor(Qt::red);
    button->setTextColorSpacing(5);
    button->setArrow(Qt::DownArrow);
    // w = 60 - 9 - 4 - 5 > 24, so x = (60 - 9 - 2 - 24) / 2 = 12; the arrow at 5 + 24 + 12
    PixelPicture expected(button->size(), ratio, Qt::green);
    expected.fill(12, 9, 24, 12, Qt::red);
    expected.frame(12, 9, 24, 12, Qt::black);
    addArrow(expected, 41, 12, Qt::black);
    QCOMPARE(zenutest::difference(drawn(*button, ratio), expected.image()), QByteArray());
}

void tst_ColorButtonDrawing::arrow_typeHasNoEffect()
{
    auto const button = flatButton(QSize(60, 30));
    button->setArrow(Qt::DownArrow);
    QImage const down = drawn(*button);
    for (Qt::ArrowType const type : {Qt::NoArrow, Qt::UpArrow, Qt::LeftArrow, Qt::RightArrow}) {
        button->setArrow(type);
        QVERIFY(drawn(*button) == down);
    }
}

void tst_ColorButtonDrawing::arrow_onADarkPalette_isLight()
{
    auto const button = flatButton(QSize(60, 30));
    button->setArrow(Qt::DownArrow);
    button->setPalette(QPalette(QColor(40, 40, 40)));
    QColor const text = button->palette().color(QPalette::Text);
    QVERIFY(text.lightness() > 200);
    PixelPicture expected(button->size(), 1, Qt::green);
    addArrow(expected, 25, 12, text); // w = 0, so x = (60 - 9) / 2
    QCOMPARE(zenutest::difference(drawn(*button), expected.image()), QByteArray());
}

void tst_ColorButtonDrawing::arrow_afterText_removesTheText()
{
    auto const button = flatButton(QSize(60, 30));
    button->setArrow(Qt::DownArrow);
    QImage const arrow = drawn(*button);
    button->setText(QStringLiteral("Lines"));
    QVERIFY(drawn(*button) != arrow);
    button->setArrow(Qt::UpArrow);
    QVERIFY(drawn(*button) == arrow);
}

void tst_ColorButtonDrawing::text_byTheRule()
{
    auto const button = flatButton(QSize(160, 40));
    button->setMaxColorSize(QSize(24, 12));
    button->setFillColor(Qt::red);
    button->setMargin(3);
    button->setTextColorSpacing(6);
    QString const text = QStringLiteral("&Lines");
    button->setText(text);
    QPalette palette = button->palette();
    palette.setColor(QPalette::Active, QPalette::Text, Qt::blue);
    palette.setColor(QPalette::Inactive, QPalette::Text, Qt::cyan);
    button->setPalette(palette);

    QSize const label = QFontMetrics(QApplication::font()).boundingRect(text).size() + QSize(2, 0);
    int const x = (160 - label.width() - 3 - 24) / 2;
    QImage const expected =
        zenutest::painted<QImage>(button->size(), 1, Qt::green, [&](QPaintDevice * device) {
            QPainter painter(device);
            painter.setFont(button->font());
            painter.fillRect(x, 14, 24, 12, Qt::black);
            painter.fillRect(x + 1, 15, 22, 10, Qt::red);
            painter.setPen(Qt::blue);
            painter.drawText(6 + 24 + x, (40 - label.height()) / 2, label.width(), label.height(),
                             Qt::AlignHCenter | Qt::AlignVCenter, text);
        });
    QCOMPARE(zenutest::difference(drawn(*button), expected), QByteArray());
}

void tst_ColorButtonDrawing::text_disabled_isInTheDisabledColor()
{
    auto const button = flatButton(QSize(80, 30));
    button->setText(QStringLiteral("Lines"));
    QPalette palette = button->palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::magenta);
    button->setPalette(palette);
    auto const hasMagenta = [&] {
        QImage const picture = drawn(*button);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == QColor(Qt::magenta))
                    return true;
            }
        }
        return false;
    };
    QVERIFY(!hasMagenta());
    button->setEnabled(false);
    QVERIFY(hasMagenta());
}

void tst_ColorButtonDrawing::text_noColor_thenFillColor_bringsTheSwatchBack()
{
    auto const button = flatButton(QSize(80, 30));
    button->setMaxColorSize(QSize(12, 12));
    button->setFillColor(Qt::red);
    button->setText(QStringLiteral("Lines"));
    QImage const both = drawn(*button);
    button->setTextNoColor(QStringLiteral("Lines"));
    QVERIFY(drawn(*button) != both);
    button->setFillColor(Qt::red);
    QVERIFY(drawn(*button) == both);
    button->setTextNoColor(QStringLiteral("Lines"));
    button->setBorderColor(Qt::black);
    QVERIFY(drawn(*button) == both);
}

void tst_ColorButtonDrawing::frame_byTheRule()
{
    QFETCH(double, ratio);
    auto const button = flatButton(QSize(60, 30));
    button->setBorderColor(Qt::blue); // shows the swatch, which has no size
    button->setFrame(true);
    PixelPicture expected(button->size(), ratio, Qt::green);
    expected.frame(2, 2, 56, 26, Qt::blue);
    QCOMPARE(zenutest::difference(drawn(*button, ratio), expected.image()), QByteArray());
}

void tst_ColorButtonDrawing::content_isNotMirrored()
{
    auto const button = flatButton(QSize(60, 30));
    button->setMaxColorSize(QSize(24, 12));
    button->setFillColor(Qt::red);
    button->setArrow(Qt::DownArrow);
    QImage const picture = drawn(*button);
    button->setLayoutDirection(Qt::RightToLeft);
    QVERIFY(drawn(*button) == picture);
}

ZENU_TEST(tst_ColorButtonDrawing)
#include "tst_ColorButtonDrawing.moc"
