#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Texts of cells against pictures of QPainter::drawText with what the rules give it.
class tst_CellText : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void itemAlignment_data();
    void itemAlignment();
    void text_equalsDrawText_data();
    void text_equalsDrawText();
    void text_thatFits_hasNoDots();
    void text_withControlCharacters_staysOnItsLine();
    void text_ownFont_isUsed();
    void text_fontChangedBetweenRows_isSeen();
    void text_nullOrEmpty_drawsNothing();
    void text_narrowerThanTheDots_isClippedToItsRectangle();
    void text_paintedAgain_isNotMeasuredAgain();
};

namespace {

struct Flags
{
    int format;
    Qt::Alignment alignment;
};

// What is drawn of a text, by the rules: the characters that fit, then the dots.
void drawByRule(QPainter & painter, CElementRects const & rects, QString const & text, int format)
{
    if (rects.textRect.isNull()) {
        return;
    }
    QRect dots = rects.textRect;
    if (format & 2) {
        painter.drawText(rects.textRect, Qt::TextSingleLine | Qt::AlignVCenter | Qt::AlignRight,
                         text.right(rects.fitCount));
        dots.setRight(dots.right() - cutWidth(rects));
    } else {
        painter.drawText(rects.textRect,
                         Qt::TextSingleLine | Qt::AlignVCenter |
                             (format & 4 ? Qt::AlignHCenter : Qt::AlignLeft),
                         text.left(rects.fitCount));
        dots.setLeft(dots.left() + cutWidth(rects));
    }
    if (rects.fitCount < text.size()) {
        painter.drawText(dots,
                         Qt::TextSingleLine | Qt::AlignVCenter |
                             (format & 2 ? Qt::AlignRight : Qt::AlignLeft),
                         QStringLiteral("..."));
    }
}

} // namespace

void tst_CellText::itemAlignment_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("alignment");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("left") << 1 << 1;
    QTest::newRow("right") << 2 << 2;
    QTest::newRow("centre") << 4 << 0x44;
    QTest::newRow("right and centre") << 6 << 0x46;
    QTest::newRow("other bits do not count") << 0x10008 << 0;
}

void tst_CellText::itemAlignment()
{
    QFETCH(int, format);
    Scene scene;
    QTEST(zenu::itemAlignment(*scene.addColumn(GCCK_TEXT, 10, 0, format)), "alignment");
}

void tst_CellText::text_equalsDrawText_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (auto const & [name, format] : {std::pair{"left", 1},
                                            {"right", 2},
                                            {"centred", 4},
                                            {"unset", 0},
                                            {"right beats centred", 6}}) {
            for (int const width : {200, 113, 90, 51, 30, 12, 6}) {
                QTest::addRow("%s in %d at %g", name, width, ratio) << ratio << format << width;
            }
        }
    }
}

void tst_CellText::text_equalsDrawText()
{
    QFETCH(double, ratio);
    QFETCH(int, format);
    QFETCH(int, width);
    for (char const * text :
         {"Wave form, AVAVA", "fji\xe4\xf6\xdf i", "x", "--- 12,345.67 ---", " blank ends "}) {
        Scene scene;
        scene.size = QSize(240, 40);
        scene.ratio = ratio;
        CGCColumn * const column = scene.addColumn(GCCK_TEXT, width, 0, format);
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, column, text);
        for (int const height : {20, 23}) {
            DrawnRow place = Scene::standing();
            place.height = height;
            QImage const actual = scene.paint({row}, place);
            QImage const expected = scene.draw([&](KPainter & painter) {
                painter.fillRect(0, 0, width, height, scene.color(GCC_BACKGROUND));
                painter.setPen(scene.color(GCC_TEXT));
                drawByRule(painter, scene.rectsOf(column, text, height), QString::fromLatin1(text),
                           format);
            });
            COMPARE_PICTURES(actual, expected);
            // Once more from what was kept.
            COMPARE_PICTURES(scene.paint({row}, place), expected);
        }
    }
}

void tst_CellText::text_thatFits_hasNoDots()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 100);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, column, "Text");
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 100, 20, scene.color(GCC_BACKGROUND));
        painter.setPen(scene.color(GCC_TEXT));
        painter.drawText(scene.rectsOf(column, "Text").textRect,
                         Qt::TextSingleLine | Qt::AlignVCenter, QStringLiteral("Text"));
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CellText::text_withControlCharacters_staysOnItsLine()
{
    char const * const text = "a\tb\nc\rd&e";
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 100);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, column, text);
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 100, 20, scene.color(GCC_BACKGROUND));
        painter.setPen(scene.color(GCC_TEXT));
        drawByRule(painter, scene.rectsOf(column, text), QString::fromLatin1(text), 0);
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

void tst_CellText::text_ownFont_isUsed()
{
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        Scene scene;
        scene.ratio = ratio;
        CGCColumn * const column = scene.addColumn(GCCK_TEXT, 100);
        CGCOrdinaryRow * const row = scene.addRow();
        CGCOrdinaryRow * const plain = scene.addRow();
        Scene::setText(row, column, "Large");
        Scene::setText(plain, column, "Small");
        QFont own = scene.font;
        own.setPointSize(own.pointSize() + 3);
        own.setItalic(true);
        own.setUnderline(true);
        row->font = &own;
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 100, 40, scene.color(GCC_BACKGROUND));
            painter.setPen(scene.color(GCC_TEXT));
            QFont const grids = scene.font;
            scene.font = own;
            painter.setFont(own);
            drawByRule(painter, scene.rectsOf(column, "Large"), QStringLiteral("Large"), 0);
            scene.font = grids;
            painter.setFont(grids);
            painter.translate(0, 20);
            drawByRule(painter, scene.rectsOf(column, "Small"), QStringLiteral("Small"), 0);
        });
        COMPARE_PICTURES(scene.paint({row, plain}), expected);
    }
}

void tst_CellText::text_fontChangedBetweenRows_isSeen()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 100);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, column, "Text");
    QFont own = scene.font;
    row->font = &own;
    QImage const plain = scene.paint({row});
    QImage bold;
    QImage const both = scene.draw([&](KPainter & painter) {
        PaintPass pass(&painter, scene.context, scene.shown);
        DrawnRow place = Scene::standing();
        CDrawRowVisitor first(pass, scene.shown, place);
        row->Accept(&first);
        own.setBold(true);
        place.y = 20;
        CDrawRowVisitor second(pass, scene.shown, place);
        row->Accept(&second);
    });
    bold = scene.paint({row});
    QVERIFY(bold != plain);
    QCOMPARE(both.copy(0, 0, 120, 20), plain.copy(0, 0, 120, 20));
    QCOMPARE(both.copy(0, 20, 120, 20), bold.copy(0, 0, 120, 20));
}

void tst_CellText::text_nullOrEmpty_drawsNothing()
{
    for (char const * text : {static_cast<char const *>(nullptr), ""}) {
        Scene scene;
        CGCColumn * const column = scene.addColumn(GCCK_TEXT, 100);
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, column, text);
        QImage const expected = scene.draw([&](KPainter & painter) {
            painter.fillRect(0, 0, 100, 20, scene.color(GCC_BACKGROUND));
        });
        COMPARE_PICTURES(scene.paint({row}), expected);
    }
}

void tst_CellText::text_narrowerThanTheDots_isClippedToItsRectangle()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_TEXT, 9);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, column, "WWWW");
    CElementRects const rects = scene.rectsOf(column, "WWWW");
    QCOMPARE(rects.fitCount, 0);
    QImage const picture = scene.paint({row});
    for (int x = rects.textRect.right() + 1; x < 9; ++x) {
        for (int y = 0; y < 20; ++y) {
            QCOMPARE(QColor(picture.pixel(x, y)), scene.color(GCC_BACKGROUND));
        }
    }
    QCOMPARE(QColor(picture.pixel(9, 10)), untouched);
}

void tst_CellText::text_paintedAgain_isNotMeasuredAgain()
{
    Scene scene;
    scene.size = QSize(200, 200);
    CGCColumn * const left = scene.addColumn(GCCK_TEXT, 60);
    CGCColumn * const right = scene.addColumn(GCCK_TEXT, 60, 0, 2);
    std::vector<IGCRow *> rows;
    for (int i = 0; i < 10; ++i) {
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, left, qPrintable(QStringLiteral("Some longer text %1").arg(i)));
        Scene::setText(row, right, qPrintable(QString::number(i)));
        rows.push_back(row);
    }
    long long before = 0;
    scene.draw([&](KPainter & painter) {
        for (int times = 0; times < 3; ++times) {
            PaintPass pass(&painter, scene.context, scene.shown);
            DrawnRow place = Scene::standing();
            for (IGCRow * row : rows) {
                CDrawRowVisitor visitor(pass, scene.shown, place);
                row->Accept(&visitor);
                place.y += place.height;
            }
            if (times == 0) {
                before = scene.texts.measurements();
            }
        }
        QVERIFY(before > 0);
        QCOMPARE(scene.texts.measurements(), before);
    });
}

ZENU_TEST(tst_CellText)
#include "tst_CellText.moc"
