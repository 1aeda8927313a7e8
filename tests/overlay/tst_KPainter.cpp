#include "tests/support/TestMain.h"

#include "tests/overlay/PixelPicture.h"

#include <zenu/overlay/KPainter.h>

#include <QApplication>
#include <QFontMetrics>

using namespace zenu;
using zenutest::DistinctPalette;
using zenutest::PixelPicture;

class tst_KPainter : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getSysColor_everyNumber_isItsRoleInTheActiveGroup_data();
    void getSysColor_everyNumber_isItsRoleInTheActiveGroup();
    void getSysColor_zeroAndFifteen_areTheWindowColor();
    void getSysColor_paletteChanges_isReadAnew();
    void getSysColor_HotTrack_isColor6();
    void getSysColor_Light_data();
    void getSysColor_Light();
    void constructor_nullDevice_isInactiveAndHarmless();
    void fastRectangle_anyRatio_fillsAndKeepsPenAndBrush_data() { zenutest::addRatios(); }
    void fastRectangle_anyRatio_fillsAndKeepsPenAndBrush();
    void fastRectangle2_corners_areBothInside_data() { zenutest::addRatios(); }
    void fastRectangle2_corners_areBothInside();
    void ditherRectangle_member_laysWhiteUnderTheDots_data() { zenutest::addRatios(); }
    void ditherRectangle_member_laysWhiteUnderTheDots();
    void ditherRectangle_static_leavesWhatIsBetweenTheDots_data() { zenutest::addRatios(); }
    void ditherRectangle_static_leavesWhatIsBetweenTheDots();
    void ditherRectangle_secondColor_isNotUsed();
    void ditherLine_bothEnds_dotsOnWhiteAndKeepsTheDottedPen();
    void ditherLine_anyRatio_whiteLiesUnderTheDotsAlone_data() { zenutest::addRatios(); }
    void ditherLine_anyRatio_whiteLiesUnderTheDotsAlone();
    void ditherFrame2_anyRatio_isFourStripsWithoutTheLastCorner_data() { zenutest::addRatios(); }
    void ditherFrame2_anyRatio_isFourStripsWithoutTheLastCorner();
    void drawEdge_anyRatio_staysInsideItsRectangle_data() { zenutest::addRatios(); }
    void drawEdge_anyRatio_staysInsideItsRectangle();
    void drawEdge_edgeAndFlags_areNotUsed();
    void drawEdge_painterBrush_fillsTheInside();
    void drawEdge_thinAndEmptyRectangles_data();
    void drawEdge_thinAndEmptyRectangles();
    void GetTextExtent_emptyText_isZero();
    void GetTextExtent_lengthZero_goesThroughTheMetrics();
    void GetTextExtent_text_isASingleLineInThePaintersFont();
    void GetTextExtent_length_cutsTheText();
    void getAveCharWidth_isTheWidthOfTheBoundsOfX();
    void IsPrinting_isFalse();
    void drawDragIndicator_atTop_isABarOverTheWidth_data() { zenutest::addRatios(); }
    void drawDragIndicator_atTop_isABarOverTheWidth();
    void drawDragIndicator_notAtTop_isTheBarAloneWithoutEndImages_data() { zenutest::addRatios(); }
    void drawDragIndicator_notAtTop_isTheBarAloneWithoutEndImages();
    void KPenSelector_fourConstructors_selectTheirPenAndRestore();
    void KPenSelector_nested_restoresInOrder();
    void KPenSelector_nullOrInactivePainter_isLeftAlone();
};

namespace {

QSize const size(24, 18);
QColor const background(0, 90, 160);

} // namespace

void tst_KPainter::getSysColor_everyNumber_isItsRoleInTheActiveGroup_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QPalette::ColorRole>("role");
    auto const row = [](int number, QPalette::ColorRole role) {
        QTest::newRow(QByteArray::number(number).constData()) << number << role;
    };
    for (int number : {1, 2, 3}) {
        row(number, QPalette::Button);
    }
    row(4, QPalette::ButtonText);
    row(5, QPalette::Text);
    row(6, QPalette::Highlight);
    row(7, QPalette::Highlight);
    row(8, QPalette::HighlightedText);
    row(9, QPalette::Text);
    row(10, QPalette::Base);
    row(11, QPalette::Dark);
    for (int number : {12, 13, 14}) {
        row(number, QPalette::Light);
    }
    for (int number : {-2147483647 - 1, -1, 0, 15, 16, 2147483647}) {
        row(number, QPalette::Window);
    }
}

void tst_KPainter::getSysColor_everyNumber_isItsRoleInTheActiveGroup()
{
    QFETCH(int, number);
    QFETCH(QPalette::ColorRole, role);
    DistinctPalette const palette;
    QCOMPARE(KPainter::getSysColor(number), DistinctPalette::active(role));
}

void tst_KPainter::getSysColor_zeroAndFifteen_areTheWindowColor()
{
    DistinctPalette const palette;
    QCOMPARE(KPainter::getSysColor(0), DistinctPalette::active(QPalette::Window));
    QCOMPARE(KPainter::getSysColor(15), DistinctPalette::active(QPalette::Window));
}

void tst_KPainter::getSysColor_paletteChanges_isReadAnew()
{
    QColor const before = KPainter::getSysColor(1);
    {
        DistinctPalette const palette;
        QCOMPARE(KPainter::getSysColor(1), DistinctPalette::active(QPalette::Button));
    }
    QCOMPARE(KPainter::getSysColor(1), before);
}

void tst_KPainter::getSysColor_HotTrack_isColor6()
{
    DistinctPalette const palette;
    QCOMPARE(KPainter::getSysColor_HotTrack(), DistinctPalette::active(QPalette::Highlight));
}

void tst_KPainter::getSysColor_Light_data()
{
    QTest::addColumn<QColor>("button");
    QTest::addColumn<QColor>("highlight");
    QTest::addColumn<QColor>("light");
    QTest::addColumn<bool>("avoidButton");
    QTest::addColumn<QColor>("expected");
    QColor const r(Qt::red);
    QColor const g(Qt::green);
    QColor const b(Qt::blue);
    QTest::newRow("not avoided") << r << r << b << false << r;
    QTest::newRow("avoided, not equal") << r << g << b << true << g;
    QTest::newRow("avoided and equal: light") << r << r << b << true << b;
    QTest::newRow("light is the button's too: button") << r << r << r << true << r;
}

void tst_KPainter::getSysColor_Light()
{
    QFETCH(QColor, button);
    QFETCH(QColor, highlight);
    QFETCH(QColor, light);
    QFETCH(bool, avoidButton);
    QFETCH(QColor, expected);
    DistinctPalette const restoring;
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Active, QPalette::Button, button);
    palette.setColor(QPalette::Active, QPalette::Highlight, highlight);
    palette.setColor(QPalette::Active, QPalette::Light, light);
    QApplication::setPalette(palette);
    QCOMPARE(KPainter::getSysColor_Light(avoidButton), expected);
}

void tst_KPainter::constructor_nullDevice_isInactiveAndHarmless()
{
    KPainter painter(nullptr);
    QVERIFY(!painter.isActive());
    QRect rect(0, 0, 20, 10);
    painter.fastRectangle(0, 0, 1, 1, Qt::red);
    painter.fastRectangle2(0, 0, 1, 1, Qt::red);
    painter.ditherRectangle(0, 0, 1, 1, Qt::red, Qt::red);
    painter.ditherLine(0, 0, 1, 1, Qt::red, Qt::red);
    painter.ditherFrame2(0, 0, 1, 1, Qt::red, Qt::red);
    painter.drawEdge(&rect, 1, 1);
    painter.drawEdge(nullptr, 1, 1);
    painter.drawDragIndicator(10, 0, 0, true);
    painter.drawItemButton(&rect, 0);
    painter.drawItemButton(nullptr, 0);
    QCOMPARE(rect, QRect(3, 1, 14, 8));
    QCOMPARE(painter.GetTextExtent("text"), QSize(0, 0));
    QCOMPARE(painter.GetTextExtent("text", 2), QSize(0, 0));
    QCOMPARE(painter.getAveCharWidth(), 0);
    KPainter::ditherRectangle(nullptr, 0, 0, 1, 1, Qt::red, Qt::red);
    KPainter::changeColor(nullptr, 0, 0, 1, 1, Qt::red, Qt::blue);
    QCOMPARE(KPainter::GetTextExtent(nullptr, "text"), QSize(0, 0));
    QCOMPARE(KPainter::getAveCharWidth(nullptr), 0);
}

void tst_KPainter::fastRectangle_anyRatio_fillsAndKeepsPenAndBrush()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.fill(3, 5, 7, 4, Qt::red);
    auto const draw = [](QPaintDevice * device) {
        KPainter painter(device);
        painter.setPen(QPen(Qt::green, 3));
        painter.setBrush(Qt::yellow);
        painter.fastRectangle(3, 5, 7, 4, Qt::red);
        QCOMPARE(painter.pen(), QPen(Qt::green, 3));
        QCOMPARE(painter.brush(), QBrush(Qt::yellow));
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::fastRectangle2_corners_areBothInside()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.fill(3, 5, 8, 5, Qt::red);
    auto const draw = [](QPaintDevice * device) {
        KPainter(device).fastRectangle2(3, 5, 10, 9, Qt::red);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::ditherRectangle_member_laysWhiteUnderTheDots()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.fill(3, 4, 9, 7, Qt::white);
    expected.dither(3, 4, 9, 7, Qt::red);
    auto const draw = [](QPaintDevice * device) {
        KPainter(device).ditherRectangle(3, 4, 9, 7, Qt::red, Qt::black);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::ditherRectangle_static_leavesWhatIsBetweenTheDots()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.dither(3, 4, 9, 7, Qt::red);
    auto const draw = [](QPaintDevice * device) {
        QPainter painter(device);
        KPainter::ditherRectangle(&painter, 3, 4, 9, 7, Qt::red, Qt::black);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::ditherRectangle_secondColor_isNotUsed()
{
    auto const draw = [](QColor const & second) {
        return zenutest::painted<QImage>(size, 1, background, [&second](QPaintDevice * device) {
            KPainter painter(device);
            painter.ditherRectangle(1, 1, 6, 6, Qt::red, second);
            KPainter::ditherRectangle(&painter, 9, 1, 6, 6, Qt::red, second);
            painter.ditherFrame2(1, 9, 8, 15, Qt::red, second);
            painter.ditherLine(12, 12, 20, 12, Qt::red, second);
        });
    };
    QCOMPARE(zenutest::difference(draw(Qt::green), draw(Qt::black)), QByteArray());
}

void tst_KPainter::ditherLine_bothEnds_dotsOnWhiteAndKeepsTheDottedPen()
{
    QImage const image = zenutest::painted<QImage>(size, 1, background, [](QPaintDevice * device) {
        KPainter painter(device);
        painter.ditherLine(2, 5, 20, 5, Qt::red, Qt::black);
        QCOMPARE(painter.pen(), QPen(Qt::red, 0, Qt::DotLine));
    });
    int dots = 0;
    int gaps = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            bool const onLine = y == 5 && x >= 2 && x <= 20;
            QRgb const pixel = image.pixel(x, y);
            dots += pixel == QColor(Qt::red).rgb() ? 1 : 0;
            gaps += pixel == QColor(Qt::white).rgb() ? 1 : 0;
            QCOMPARE(pixel == background.rgb(), !onLine);
        }
    }
    QCOMPARE(dots + gaps, 19);
    QVERIFY(dots >= 5);
    QVERIFY(gaps >= 5);
}

void tst_KPainter::ditherLine_anyRatio_whiteLiesUnderTheDotsAlone()
{
    QFETCH(double, ratio);
    QImage const image =
        zenutest::painted<QImage>(size, ratio, background, [](QPaintDevice * device) {
            KPainter(device).ditherLine(2, 5, 20, 5, Qt::red, Qt::black);
        });
    QSet<int> rows;
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != background.rgb()) {
                rows << y;
                colors << image.pixel(x, y);
            }
        }
    }
    QCOMPARE(rows.size(), 1);
    QCOMPARE(colors, QSet<QRgb>({QColor(Qt::red).rgb(), QColor(Qt::white).rgb()}));
}

void tst_KPainter::ditherFrame2_anyRatio_isFourStripsWithoutTheLastCorner()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    QRect const strips[] = {{3, 4, 1, 9}, {15, 4, 1, 9}, {3, 4, 12, 1}, {3, 13, 12, 1}};
    for (QRect const & strip : strips) {
        expected.fill(strip.x(), strip.y(), strip.width(), strip.height(), Qt::white);
        expected.dither(strip.x(), strip.y(), strip.width(), strip.height(), Qt::red);
    }
    auto const draw = [](QPaintDevice * device) {
        KPainter(device).ditherFrame2(3, 4, 15, 13, Qt::red, Qt::black);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::drawEdge_anyRatio_staysInsideItsRectangle()
{
    QFETCH(double, ratio);
    DistinctPalette const palette;
    PixelPicture expected(size, ratio, background);
    expected.frame(3, 4, 11, 9, DistinctPalette::active(QPalette::Button));
    auto const draw = [](QPaintDevice * device) {
        KPainter painter(device);
        painter.setPen(QPen(Qt::green, 3));
        QRect rect(3, 4, 11, 9);
        painter.drawEdge(&rect, 2, 3);
        QCOMPARE(rect, QRect(3, 4, 11, 9));
        QCOMPARE(painter.pen(), QPen(Qt::green, 3));
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::drawEdge_edgeAndFlags_areNotUsed()
{
    auto const draw = [](unsigned int edge, unsigned int flags) {
        return zenutest::painted<QImage>(size, 1, background, [=](QPaintDevice * device) {
            QRect rect(3, 4, 11, 9);
            KPainter(device).drawEdge(&rect, edge, flags);
        });
    };
    QCOMPARE(zenutest::difference(draw(0, 0), draw(~0U, ~0U)), QByteArray());
}

void tst_KPainter::drawEdge_painterBrush_fillsTheInside()
{
    DistinctPalette const palette;
    PixelPicture expected(size, 1, background);
    expected.fill(3, 4, 11, 9, Qt::yellow);
    expected.frame(3, 4, 11, 9, DistinctPalette::active(QPalette::Button));
    auto const draw = [](QPaintDevice * device) {
        KPainter painter(device);
        painter.setBrush(Qt::yellow);
        QRect rect(3, 4, 11, 9);
        painter.drawEdge(&rect, 1, 1);
        QCOMPARE(painter.brush(), QBrush(Qt::yellow));
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_KPainter::drawEdge_thinAndEmptyRectangles_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::newRow("empty") << QRect();
    QTest::newRow("no width") << QRect(3, 4, 0, 5);
    QTest::newRow("one pixel") << QRect(3, 4, 1, 1);
    QTest::newRow("one column") << QRect(3, 4, 1, 6);
    QTest::newRow("one row") << QRect(3, 4, 6, 1);
    QTest::newRow("two by two") << QRect(3, 4, 2, 2);
}

void tst_KPainter::drawEdge_thinAndEmptyRectangles()
{
    QFETCH(QRect, rect);
    DistinctPalette const palette;
    PixelPicture expected(size, 1, background);
    if (!rect.isEmpty()) {
        expected.fill(rect.x(), rect.y(), rect.width(), rect.height(),
                      DistinctPalette::active(QPalette::Button));
    }
    auto const draw = [&rect](QPaintDevice * device) { KPainter(device).drawEdge(&rect, 1, 1); };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_KPainter::GetTextExtent_emptyText_isZero()
{
    QImage image(8, 8, QImage::Format_RGB32);
    KPainter painter(&image);
    QCOMPARE(painter.GetTextExtent(""), QSize(0, 0));
    QCOMPARE(painter.GetTextExtent(nullptr), QSize(0, 0));
    QCOMPARE(KPainter::GetTextExtent(&painter, ""), QSize(0, 0));
}

void tst_KPainter::GetTextExtent_lengthZero_goesThroughTheMetrics()
{
    QImage image(8, 8, QImage::Format_RGB32);
    KPainter painter(&image);
    QSize const expected = painter.fontMetrics().size(Qt::TextSingleLine, QString());
    QVERIFY(expected.height() > 0);
    QCOMPARE(painter.GetTextExtent("", 0), expected);
    QCOMPARE(painter.GetTextExtent("abc", 0), expected);
    QCOMPARE(painter.GetTextExtent(nullptr, 3), expected);
    QCOMPARE(KPainter::GetTextExtent(&painter, "abc", 0), expected);
}

void tst_KPainter::GetTextExtent_text_isASingleLineInThePaintersFont()
{
    QImage image(8, 8, QImage::Format_RGB32);
    KPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(31);
    painter.setFont(font);
    QFontMetrics const metrics(font, &image);
    QSize const expected = metrics.size(Qt::TextSingleLine, QStringLiteral("two\nlines"));
    QCOMPARE(painter.GetTextExtent("two\nlines"), expected);
    QCOMPARE(KPainter::GetTextExtent(&painter, "two\nlines"), expected);
    QVERIFY(expected.height() < 2 * metrics.height());
    QCOMPARE(painter.GetTextExtent("\xe4"), metrics.size(Qt::TextSingleLine, QString(QChar(0xe4))));
}

void tst_KPainter::GetTextExtent_length_cutsTheText()
{
    QImage image(8, 8, QImage::Format_RGB32);
    KPainter painter(&image);
    QCOMPARE(painter.GetTextExtent("wide text", 4), painter.GetTextExtent("wide"));
    QCOMPARE(painter.GetTextExtent("wide text", -1), painter.GetTextExtent("wide text"));
    QCOMPARE(painter.GetTextExtent("wide", 100), painter.GetTextExtent("wide"));
    QCOMPARE(KPainter::GetTextExtent(&painter, "wide text", 4), painter.GetTextExtent("wide"));
}

void tst_KPainter::getAveCharWidth_isTheWidthOfTheBoundsOfX()
{
    QImage image(8, 8, QImage::Format_RGB32);
    KPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(29);
    painter.setFont(font);
    int const expected = QFontMetrics(font, &image).boundingRect(QLatin1Char('x')).width();
    QVERIFY(expected > 0);
    QCOMPARE(painter.getAveCharWidth(), expected);
    QCOMPARE(KPainter::getAveCharWidth(&painter), expected);
}

void tst_KPainter::IsPrinting_isFalse()
{
    QImage image(8, 8, QImage::Format_RGB32);
    QVERIFY(!KPainter(&image).IsPrinting());
}

void tst_KPainter::drawDragIndicator_atTop_isABarOverTheWidth()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.fill(0, 0, 20, 5, QColor(255, 0, 0));
    auto const draw = [](QPaintDevice * device) {
        KPainter(device).drawDragIndicator(20, 9, 2, true);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::drawDragIndicator_notAtTop_isTheBarAloneWithoutEndImages()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.fill(6, 11, 15, 5, QColor(255, 0, 0));
    auto const draw = [](QPaintDevice * device) {
        KPainter(device).drawDragIndicator(15, 9, 2, false);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_KPainter::KPenSelector_fourConstructors_selectTheirPenAndRestore()
{
    QImage image(8, 8, QImage::Format_RGB32);
    QPainter painter(&image);
    QPen const before(Qt::green, 4, Qt::DashDotLine);
    painter.setPen(before);
    {
        KPenSelector const pen(&painter);
        QCOMPARE(painter.pen(), QPen());
    }
    QCOMPARE(painter.pen(), before);
    {
        KPenSelector const pen(&painter, Qt::NoPen);
        QCOMPARE(painter.pen(), QPen(Qt::NoPen));
    }
    QCOMPARE(painter.pen(), before);
    {
        KPenSelector const pen(&painter, Qt::red, 3U, Qt::DotLine);
        QCOMPARE(painter.pen(), QPen(Qt::red, 3, Qt::DotLine));
    }
    QCOMPARE(painter.pen(), before);
    {
        KPenSelector const pen(&painter, Qt::red, 3U, Qt::DotLine, Qt::RoundCap, Qt::MiterJoin);
        QCOMPARE(painter.pen(), QPen(Qt::red, 3, Qt::DotLine, Qt::RoundCap, Qt::MiterJoin));
    }
    QCOMPARE(painter.pen(), before);
}

void tst_KPainter::KPenSelector_nested_restoresInOrder()
{
    QImage image(8, 8, QImage::Format_RGB32);
    QPainter painter(&image);
    KPenSelector const outer(&painter, Qt::red, 2U, Qt::SolidLine);
    {
        KPenSelector const inner(&painter, Qt::DotLine);
        QCOMPARE(painter.pen(), QPen(Qt::DotLine));
    }
    QCOMPARE(painter.pen(), QPen(Qt::red, 2));
}

void tst_KPainter::KPenSelector_nullOrInactivePainter_isLeftAlone()
{
    KPenSelector const forNull(nullptr);
    QImage image(8, 8, QImage::Format_RGB32);
    QPainter painter;
    {
        KPenSelector const inactive(&painter, Qt::DotLine);
        painter.begin(&image);
        painter.setPen(Qt::red);
    }
    QCOMPARE(painter.pen(), QPen(Qt::red));
    {
        KPenSelector const ended(&painter, Qt::DotLine);
        painter.end();
    }
    QVERIFY(!painter.isActive());
}

ZENU_TEST(tst_KPainter)
#include "tst_KPainter.moc"
