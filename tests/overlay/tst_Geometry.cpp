#include "tests/support/TestMain.h"

#include <zenu/overlay/Geometry.h>

#include <QApplication>
#include <QBitmap>
#include <QCursor>
#include <QFontMetrics>
#include <QWidget>

#include <climits>

using namespace zenu;

class tst_Geometry : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void scaledRect_values_followTheReferenceFont_data();
    void scaledRect_values_followTheReferenceFont();
    void scaledRect_applicationFontChanges_factorsStay();
    void scaledRect_hugeValues_saturate();
    void scaledResize_bothForms_scaleTheSize();
    void remapPoint_betweenSiblings_goesOverTheScreen();
    void remapPoint_nullWidget_isTheScreen();
    void remapRect_betweenSiblings_keepsTheSize();
    void ptInRect_data();
    void ptInRect();
    void ptInRect_onePixelBeyondRightBottomCorner_isInside();
    void ptInRect_edgeOfTheRange_doesNotWrap();
    void inflateRect_positiveAndNegative_movesEveryEdge();
    void inflateRect_extremes_saturate();
    void cursorsDifferent_shapes_decide();
    void cursorsDifferent_bitmapCursorsSharingABitmap_areTheSame();
    void cursorsDifferent_bitmapCursorsWithOwnBitmaps_differ();
    void cursorsDifferent_cursorsOfOnePixmap_differUnlessCopied();
    void ConvertPT2Pixel_anyFont_changesNothing();
};

namespace {

// The factors, summed letter by letter from the definition of the reference font.
struct Factors
{
    double x = 0;
    double y = 0;
};

Factors factorsOf(QFont const & font)
{
    QFontMetrics const metrics(font);
    int capitals = 0;
    int smalls = 0;
    for (int i = 0; i < 26; ++i) {
        capitals += metrics.horizontalAdvance(QChar('A' + i));
        smalls += metrics.horizontalAdvance(QChar('a' + i));
    }
    double const average = (capitals * 0.1 + smalls * 0.9) * 0.04;
    return {average / 5.7, metrics.height() / 13.5};
}

} // namespace

void tst_Geometry::scaledRect_values_followTheReferenceFont_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::newRow("origin") << QRect(0, 0, 0, 0);
    QTest::newRow("whole") << QRect(7, 11, 100, 250);
    QTest::newRow("truncated towards zero") << QRect(-7, -11, 33, 77);
    QTest::newRow("large") << QRect(1001, 2003, 3011, 4019);
}

void tst_Geometry::scaledRect_values_followTheReferenceFont()
{
    QFETCH(QRect, rect);
    Factors const f = factorsOf(QApplication::font());
    QRect const expected(int(rect.x() * f.x), int(rect.y() * f.y), int(rect.width() * f.x),
                         int(rect.height() * f.y));
    QCOMPARE(scaledRect(rect.x(), rect.y(), rect.width(), rect.height()), expected);
}

void tst_Geometry::scaledRect_applicationFontChanges_factorsStay()
{
    QRect const before = scaledRect(10, 20, 300, 400);
    QFont const font = QApplication::font();
    QFont larger = font;
    larger.setPointSize(3 * std::max(font.pointSize(), 8));
    QApplication::setFont(larger);
    QRect const after = scaledRect(10, 20, 300, 400);
    QApplication::setFont(font);
    QCOMPARE(after, before);
}

void tst_Geometry::scaledRect_hugeValues_saturate()
{
    Factors const f = factorsOf(QApplication::font());
    QRect const rect = scaledRect(0, 0, INT_MAX, INT_MAX);
    QCOMPARE(rect.width(), f.x >= 1 ? INT_MAX : int(INT_MAX * f.x));
    QCOMPARE(rect.height(), f.y >= 1 ? INT_MAX : int(INT_MAX * f.y));
}

void tst_Geometry::scaledResize_bothForms_scaleTheSize()
{
    Factors const f = factorsOf(QApplication::font());
    QWidget widget;
    scaledResize(&widget, 101, 203);
    QCOMPARE(widget.size(), QSize(int(101 * f.x), int(203 * f.y)));
    scaledResize(&widget, QSize(55, 77));
    QCOMPARE(widget.size(), QSize(int(55 * f.x), int(77 * f.y)));
    scaledResize(nullptr, 1, 2);
}

void tst_Geometry::remapPoint_betweenSiblings_goesOverTheScreen()
{
    QWidget window;
    QWidget left(&window);
    QWidget right(&window);
    left.move(10, 20);
    right.move(100, 5);
    QCOMPARE(remapPoint(&left, &right, QPoint(3, 4)), QPoint(3 + 10 - 100, 4 + 20 - 5));
    QCOMPARE(remapPoint(&left, &window, QPoint(3, 4)), QPoint(13, 24));
}

void tst_Geometry::remapPoint_nullWidget_isTheScreen()
{
    QWidget window;
    window.move(30, 40);
    QCOMPARE(remapPoint(&window, nullptr, QPoint(1, 2)), window.mapToGlobal(QPoint(1, 2)));
    QCOMPARE(remapPoint(nullptr, &window, QPoint(1, 2)), window.mapFromGlobal(QPoint(1, 2)));
    QCOMPARE(remapPoint(nullptr, nullptr, QPoint(1, 2)), QPoint(1, 2));
}

void tst_Geometry::remapRect_betweenSiblings_keepsTheSize()
{
    QWidget window;
    QWidget child(&window);
    child.move(7, 9);
    QCOMPARE(remapRect(&child, &window, QRect(1, 2, 30, 40)), QRect(8, 11, 30, 40));
}

void tst_Geometry::ptInRect_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("inside");
    QTest::newRow("top left corner") << QPoint(10, 20) << true;
    QTest::newRow("left of it") << QPoint(9, 20) << false;
    QTest::newRow("above it") << QPoint(10, 19) << false;
    QTest::newRow("right edge") << QPoint(14, 20) << true;
    QTest::newRow("one beyond the right edge") << QPoint(15, 20) << true;
    QTest::newRow("two beyond the right edge") << QPoint(16, 20) << false;
    QTest::newRow("one beyond the bottom edge") << QPoint(10, 27) << true;
    QTest::newRow("two beyond the bottom edge") << QPoint(10, 28) << false;
}

void tst_Geometry::ptInRect()
{
    QFETCH(QPoint, point);
    QFETCH(bool, inside);
    QCOMPARE(zenu::ptInRect(QRect(10, 20, 5, 7), point), inside);
}

void tst_Geometry::ptInRect_onePixelBeyondRightBottomCorner_isInside()
{
    QRect const rect(10, 20, 5, 7);
    QVERIFY(zenu::ptInRect(rect, QPoint(rect.right() + 1, rect.bottom() + 1)));
    QVERIFY(!rect.contains(QPoint(rect.right() + 1, rect.bottom() + 1)));
}

void tst_Geometry::ptInRect_edgeOfTheRange_doesNotWrap()
{
    QRect rect;
    rect.setCoords(0, 0, INT_MAX, INT_MAX);
    QVERIFY(zenu::ptInRect(rect, QPoint(INT_MAX, 5)));
    QVERIFY(!zenu::ptInRect(rect, QPoint(-1, 5)));
}

void tst_Geometry::inflateRect_positiveAndNegative_movesEveryEdge()
{
    QRect rect(10, 20, 30, 40);
    inflateRect(&rect, 2, 3);
    QCOMPARE(rect, QRect(8, 17, 34, 46));
    inflateRect(&rect, -5, -1);
    QCOMPARE(rect, QRect(13, 18, 24, 44));
    inflateRect(nullptr, 1, 1);
}

void tst_Geometry::inflateRect_extremes_saturate()
{
    QRect rect;
    rect.setCoords(0, INT_MIN, 10, INT_MAX);
    inflateRect(&rect, INT_MAX, INT_MAX);
    QCOMPARE(rect.left(), -INT_MAX);
    QCOMPARE(rect.right(), INT_MAX);
    QCOMPARE(rect.top(), INT_MIN);
    QCOMPARE(rect.bottom(), INT_MAX);
}

void tst_Geometry::cursorsDifferent_shapes_decide()
{
    QVERIFY(!cursorsDifferent(QCursor(Qt::ArrowCursor), QCursor(Qt::ArrowCursor)));
    QVERIFY(cursorsDifferent(QCursor(Qt::ArrowCursor), QCursor(Qt::SizeHorCursor)));
    QVERIFY(cursorsDifferent(QCursor(Qt::ArrowCursor), QCursor(QPixmap(8, 8))));
}

void tst_Geometry::cursorsDifferent_bitmapCursorsSharingABitmap_areTheSame()
{
    QBitmap bitmap(16, 16);
    bitmap.fill(Qt::color1);
    QBitmap mask(16, 16);
    mask.fill(Qt::color1);
    QCursor const a(bitmap, mask);
    QCursor const b(bitmap, mask, 3, 3);
    QCOMPARE(a.shape(), Qt::BitmapCursor);
    QVERIFY(!cursorsDifferent(a, b));
    QVERIFY(!cursorsDifferent(a, QCursor(a)));
}

void tst_Geometry::cursorsDifferent_bitmapCursorsWithOwnBitmaps_differ()
{
    QBitmap one(16, 16);
    one.fill(Qt::color1);
    QBitmap same(16, 16);
    same.fill(Qt::color1);
    QVERIFY(cursorsDifferent(QCursor(one, one), QCursor(same, same)));
}

void tst_Geometry::cursorsDifferent_cursorsOfOnePixmap_differUnlessCopied()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    QCursor const cursor(pixmap);
    QCOMPARE(cursor.shape(), Qt::BitmapCursor);
    QVERIFY(cursorsDifferent(cursor, QCursor(pixmap)));
    QCursor const copy(cursor);
    QVERIFY(!cursorsDifferent(cursor, copy));
}

void tst_Geometry::ConvertPT2Pixel_anyFont_changesNothing()
{
    QFont font(QStringLiteral("Sans"), 17);
    QFont const before = font;
    ConvertPT2Pixel(&font);
    QCOMPARE(font, before);
    ConvertPT2Pixel(nullptr);
}

ZENU_TEST(tst_Geometry)
#include "tst_Geometry.moc"
