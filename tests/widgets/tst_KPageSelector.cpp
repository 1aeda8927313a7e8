#include "tests/support/TestMain.h"
#include "tests/widgets/PageSelectorFixture.h"

#include <QStyle>
#include <QStyleFactory>

using namespace zenu;
using namespace zenutest;

class tst_KPageSelector : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { initSelectorTest(); }
    void construction_popupWithoutParent();
    void construction_sizesAndItems();
    void text_fitsItsPlace_data();
    void text_fitsItsPlace();
    void items_standInTheMiddle_data();
    void items_standInTheMiddle();
    void images_arePages();
    void images_comeFromTheCache();
    void painting_selectionFromTheLeftTop_data();
    void painting_selectionFromTheLeftTop();
    void painting_ratio_coversTheAreaOnce_data();
    void painting_ratio_coversTheAreaOnce();
    void painting_ratio2_doublesThePixels();
    void emptyGrid_isQuiet_data();
    void emptyGrid_isQuiet();
    void hugeGrid_saturates();
    void signal_hasItsArguments();
};

void tst_KPageSelector::construction_popupWithoutParent()
{
    auto owner = std::make_unique<QWidget>();
    KPageSelector selector(owner.get(), 2, 3);
    QVERIFY(!selector.parent());
    QCOMPARE(selector.qObject(), static_cast<QObject *>(&selector));
    owner.reset();
    QCOMPARE(selector.actions().size(), 2);
}

void tst_KPageSelector::construction_sizesAndItems()
{
    Selector selector;
    QCOMPARE(selector.minimumSize(), gridSize + QSize(6, 35));
    QCOMPARE(selector.maximumSize(), gridSize + QSize(6, 35));
    QCOMPARE(selector.sizeHint(), gridSize + QSize(6, 35));
    QCOMPARE(selector.actions().size(), 2);

    QWidget * const area = selector.area();
    QCOMPARE(area->parentWidget(), &selector);
    QVERIFY(area->objectName().isEmpty());
    QVERIFY(area->testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(area->hasMouseTracking());
    QCOMPARE(area->minimumSize(), gridSize);
    QCOMPARE(area->maximumSize(), gridSize);

    QLabel * const label = selector.label();
    QVERIFY(label);
    QCOMPARE(label->parentWidget(), &selector);
    QCOMPARE(label->text(), QString());
    QCOMPARE(label->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QCOMPARE(label->frameShape(), QFrame::Panel);
    QCOMPARE(label->frameShadow(), QFrame::Sunken);
    QCOMPARE(label->minimumSize(), QSize(gridSize.width(), 24));
    QCOMPARE(label->maximumSize(), QSize(gridSize.width(), 24));
}

void tst_KPageSelector::text_fitsItsPlace_data()
{
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<int>("columnCount");
    for (int pointSize : {7, 12, 20, 48}) {
        for (int columnCount : {3, 6, 20}) {
            QTest::addRow("%d points, %d columns", pointSize, columnCount)
                << pointSize << columnCount;
        }
    }
}

void tst_KPageSelector::text_fitsItsPlace()
{
    QFETCH(int, pointSize);
    QFETCH(int, columnCount);
    Selector selector(3, columnCount);
    QFont const usual = selector.label()->font();
    QFont font = selector.font();
    font.setPointSize(pointSize);
    selector.setFont(font);
    selector.dragTo(middle(3, columnCount));
    QLabel const & label = *selector.label();
    QSize const text = label.fontMetrics().size(0, label.text());
    QVERIFY(text.width() <= label.contentsRect().width());
    QVERIFY(text.height() <= label.contentsRect().height());
    QVERIFY(label.fontInfo().pixelSize() <= QFontInfo(font).pixelSize());
    // A font that fits is used as it is, also after a larger one.
    if (pointSize == 7 && columnCount == 20) {
        QCOMPARE(label.font().pointSize(), 7);
    }
    selector.setFont(QFont());
    if (columnCount == 20) {
        QCOMPARE(label.font(), usual);
    }
}

void tst_KPageSelector::items_standInTheMiddle_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (QString const & style : QStyleFactory::keys()) {
        QByteArray const name = style.toLatin1();
        QTest::newRow(name.constData()) << style << Qt::LeftToRight;
        QTest::newRow((name + " from right to left").constData()) << style << Qt::RightToLeft;
    }
}

void tst_KPageSelector::items_standInTheMiddle()
{
    QFETCH(QString, style);
    QFETCH(Qt::LayoutDirection, direction);
    std::unique_ptr<QStyle> const used(QStyleFactory::create(style));
    Selector selector;
    selector.setStyle(used.get());
    selector.setLayoutDirection(direction);
    selector.open();
    QCOMPARE(selector.size(), gridSize + QSize(6, 35));
    QRect const area = selector.area()->geometry();
    QRect const label = selector.label()->geometry();
    QCOMPARE(area.size(), gridSize);
    QCOMPARE(area.left(), 3);
    QCOMPARE(label, QRect(area.left(), area.bottom() + 1, gridSize.width(), 24));
    int const above = area.top();
    int const below = selector.height() - label.bottom() - 1;
    QVERIFY2(below - above == 1, qPrintable(QStringLiteral("%1 and %2").arg(above).arg(below)));
    selector.setStyle(nullptr);
}

void tst_KPageSelector::images_arePages()
{
    Selector selector;
    QPixmap unselected;
    QPixmap selected;
    QVERIFY(QPixmapCache::find(QLatin1String(unselectedKey), &unselected));
    QVERIFY(QPixmapCache::find(QLatin1String(selectedKey), &selected));
    QCOMPARE(unselected.toImage().convertToFormat(QImage::Format_RGB32), pageImage(grey));
    QCOMPARE(selected.toImage().convertToFormat(QImage::Format_RGB32), pageImage(blue));
}

void tst_KPageSelector::images_comeFromTheCache()
{
    QPixmap unselected(7, 9);
    unselected.fill(Qt::red);
    QPixmap selected(7, 9);
    selected.fill(Qt::green);
    QPixmapCache::insert(QLatin1String(unselectedKey), unselected);
    QPixmapCache::insert(QLatin1String(selectedKey), selected);
    Selector selector(2, 3);
    QCOMPARE(selector.area()->size(), QSize(21, 18));
    selector.dragTo(QPointF(7, 8)); // the second page of the first row
    QCOMPARE(selector.label()->text(), QStringLiteral("1 x 2 pages"));
    QImage const picture = selector.picture();
    QCOMPARE(picture.pixelColor(13, 8), QColor(Qt::green));
    QCOMPARE(picture.pixelColor(14, 8), QColor(Qt::red));
    QCOMPARE(picture.pixelColor(13, 9), QColor(Qt::red));
}

void tst_KPageSelector::painting_selectionFromTheLeftTop_data()
{
    QTest::addColumn<int>("selectedRows");
    QTest::addColumn<int>("selectedColumns");
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("some") << 3 << 2;
    QTest::newRow("a whole row") << 1 << columns;
    QTest::newRow("a whole column") << rows << 1;
    QTest::newRow("all") << rows << columns;
    QTest::newRow("beyond the right edge") << 2 << columns + 7;
    QTest::newRow("beyond the bottom") << rows + 1 << 2;
    QTest::newRow("beyond both") << rows + 3 << columns + 3;
    QTest::newRow("no row") << 0 << 2;
    QTest::newRow("no column") << 2 << 0;
    QTest::newRow("before the left edge") << 2 << -3;
    QTest::newRow("above the top") << -1 << 2;
    QTest::newRow("before both") << -4 << -1;
}

void tst_KPageSelector::painting_selectionFromTheLeftTop()
{
    QFETCH(int, selectedRows);
    QFETCH(int, selectedColumns);
    Selector selector;
    QCOMPARE(selector.picture(), gridImage(0, 0));
    // Of a page before the first one the last pixel.
    selector.dragTo(QPointF(pageWidth * (selectedColumns - 1) - (selectedColumns < 1 ? 0 : -1),
                            pageHeight * (selectedRows - 1) - (selectedRows < 1 ? 0 : -1)));
    QCOMPARE(selector.label()->text(),
             QStringLiteral("%1 x %2 pages").arg(selectedRows).arg(selectedColumns));
    QCOMPARE(selector.picture(), gridImage(selectedRows, selectedColumns));
}

void tst_KPageSelector::painting_ratio_coversTheAreaOnce_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

// With half transparent images a pixel that is drawn twice is darker, one that is left out lighter.
void tst_KPageSelector::painting_ratio_coversTheAreaOnce()
{
    QFETCH(double, ratio);
    QPixmap half(pageWidth, pageHeight);
    half.fill(QColor(0, 0, 0, 128));
    QPixmapCache::insert(QLatin1String(unselectedKey), half);
    QPixmapCache::insert(QLatin1String(selectedKey), half);
    Selector selector;
    for (QPoint const & corner : {QPoint(1, 1), QPoint(3, 2), QPoint(columns, rows)}) {
        selector.dragTo(middle(corner.y(), corner.x()));
        QImage const picture = selector.picture(ratio);
        QRgb const once = picture.pixel(0, 0);
        QVERIFY(qRed(once) > 120 && qRed(once) < 135 && qGreen(once) == 0);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                QVERIFY2(picture.pixel(x, y) == once,
                         qPrintable(QStringLiteral("at %1,%2").arg(x).arg(y)));
            }
        }
    }
}

void tst_KPageSelector::painting_ratio2_doublesThePixels()
{
    Selector selector;
    selector.dragTo(middle(2, 3));
    QCOMPARE(selector.picture(2), gridImage(2, 3).scaled(gridSize * 2));
}

void tst_KPageSelector::emptyGrid_isQuiet_data()
{
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("columnCount");
    QTest::addColumn<QSize>("area");
    QTest::newRow("nothing") << 0 << 0 << QSize(0, 0);
    QTest::newRow("no rows") << 0 << 3 << QSize(63, 0);
    QTest::newRow("no columns") << 2 << 0 << QSize(0, 52);
    QTest::newRow("negative") << -1 << -7 << QSize(0, 0);
    QTest::newRow("most negative") << INT_MIN << 1 << QSize(21, 0);
}

void tst_KPageSelector::emptyGrid_isQuiet()
{
    QFETCH(int, rowCount);
    QFETCH(int, columnCount);
    QFETCH(QSize, area);
    Selector selector(rowCount, columnCount);
    QCOMPARE(selector.area()->size(), area);
    QCOMPARE(selector.size(), area + QSize(6, 35));
    selector.open();
    QTest::keyClick(&selector, Qt::Key_Down);
    QTest::keyClick(&selector, Qt::Key_Right);
    QCOMPARE(selector.label()->text(), QString());
    selector.dragTo(QPointF(0, 0));
    QCOMPARE(selector.label()->text(), QStringLiteral("1 x 1 pages"));
    QTest::mousePress(selector.area(), Qt::LeftButton);
    QCOMPARE(selector.picked, QStringList(QStringLiteral("1,1")));
}

void tst_KPageSelector::hugeGrid_saturates()
{
    Selector selector(INT_MAX, INT_MAX);
    QCOMPARE(selector.maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    QCOMPARE(selector.area()->maximumSize(), QSize(QWIDGETSIZE_MAX - 6, QWIDGETSIZE_MAX - 35));
}

void tst_KPageSelector::signal_hasItsArguments()
{
    QVERIFY(KPageSelector::staticMetaObject.indexOfSignal("pageRangeSelected(int,int)") >= 0);
}

ZENU_TEST(tst_KPageSelector)
#include "tst_KPageSelector.moc"
