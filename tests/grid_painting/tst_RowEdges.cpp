#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Content that is larger than its cell.
class tst_RowEdges : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void largeContent_staysInItsCell_data();
    void largeContent_staysInItsCell();
    void rowAfterALowOne_hasItsFontAndColor();
};

void tst_RowEdges::largeContent_staysInItsCell_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("as high as the text") << 20;
    QTest::newRow("lower than the text") << 12;
    QTest::newRow("lower than the check box") << 7;
    QTest::newRow("one pixel") << 1;
}

// The rows above and the columns before, which may stand untouched, keep their pixels.
void tst_RowEdges::largeContent_staysInItsCell()
{
    QFETCH(int, height);
    Scene scene;
    scene.setImages(KGridImages::Normal, QSize(60, 40), {Qt::red});
    scene.context.indent = 0;
    scene.addColumn(GCCK_TEXT, 20);
    CGCColumn * const column = scene.addColumn(GCCK_TEXTWITHICON, 50, GCCF_TREE);
    CGCColumn * const check = scene.addColumn(GCCK_CHECKBOX, 50, GCCF_FRAMED);
    CGCOrdinaryRow * const row = scene.addRow();
    Scene::setText(row, column, "Text");
    Scene::setText(row, check, "Wjg");
    row->ItemOf(column)->images[0] = 0;
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
    CGCSection * const section = scene.addSection("Wjg");
    DrawnRow place = Scene::standing();
    place.y = 20;
    place.height = height;
    place.focused = true;
    scene.shown = {column, check}; // as when the first one is not exposed
    for (IGCRow * const drawn : std::initializer_list<IGCRow *>{row, section}) {
        int const left = drawn == row ? 20 : 0;
        QImage const picture = scene.paint({drawn}, place);
        QImage const none = scene.blank();
        COMPARE_PICTURES(picture.copy(0, 0, 120, 20), none.copy(0, 0, 120, 20));
        COMPARE_PICTURES(picture.copy(0, 20, left, 20), none.copy(0, 20, left, 20));
    }
}

// What is cut leaves pen and font as the next row expects them.
void tst_RowEdges::rowAfterALowOne_hasItsFontAndColor()
{
    constexpr int height = 7;
    Scene other;
    CGCColumn * const text = other.addColumn(GCCK_TEXT, 60);
    CGCOrdinaryRow * const low = other.addRow();
    Scene::setText(low, text, "Wjg");
    QImage const both = other.draw([&](KPainter & painter) {
        PaintPass pass(&painter, other.context, other.shown);
        DrawnRow at = Scene::standing();
        at.height = height;
        CDrawRowVisitor first(pass, other.shown, at);
        low->Accept(&first);
        at.y = height;
        at.height = 20;
        CDrawRowVisitor second(pass, other.shown, at);
        low->Accept(&second);
    });
    DrawnRow at = Scene::standing();
    at.y = height;
    COMPARE_PICTURES(both.copy(0, height, 60, 20), other.paint({low}, at).copy(0, height, 60, 20));
}

ZENU_TEST(tst_RowEdges)
#include "tst_RowEdges.moc"
