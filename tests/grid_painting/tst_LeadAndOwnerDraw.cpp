#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Lead images and owner-draw cells, by the pixels of the rules.
class tst_LeadAndOwnerDraw : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void leadImage_withRectangle_isNotDrawn();
    void leadImage_withoutRectangle_isDrawnAtTheLeftTop();
    void leadImage_withoutIndex_isNotDrawn();
    void leadImageOnHover_isForTheHoverCell();
    void ownerDraw_getsRowColumnAndPositions();
    void ownerDraw_changesOfThePainter_areTakenBack();
    void ownerDraw_withoutDrawer_showsTreePartsOnly();
};

namespace {

QRect const wholeButton(2, 5, 9, 9);

} // namespace

namespace {

// A slim row with a lead image, which ordinary items can't have.
class LeadApplication : public ISlimGridCallbackWrapper
{
public:
    void GetRowDrawInfo(GC_DRAWROWINFO *, IGCRow *) override {}
    void ReleaseRowDrawInfo(GC_DRAWROWINFO *, IGCRow *) override {}
    void GetItemDrawInfo(GC_DRAWITEMINFO * info, IGCRow *, CGCColumn *, bool, bool) override
    {
        info->lead = lead;
    }
    char const * GetItemText(IGCRow *, CGCColumn *) override { return nullptr; }
    void SetItemText(IGCRow *, CGCColumn *, char const *) override {}
    void SetItemCheck(IGCRow *, CGCColumn *, bool) override {}
    int IsItemChecked(IGCRow *, CGCColumn *) override { return 0; }
    bool HasSubRows(IGCRow *) override { return false; }
    int GetSubRowCount(IGCRow *) override { return 0; }
    void LoadSubRows(CGCSlimRow *, bool, int) override {}
    int GetDefaultRowHeight() override { return 20; }

    int lead = 1;
};

QImage paintLead(int width, unsigned flags, bool hover, int lead)
{
    Scene scene;
    LeadApplication application;
    application.lead = lead;
    scene.context.slimCallback = &application;
    scene.context.hoverColumn = hover ? 0 : -1;
    scene.setImages(KGridImages::Lead, QSize(10, 12), {Qt::red, Qt::blue});
    scene.addColumn(GCCK_TEXT, width, flags);
    auto * const row = scene.addSlim<CGCLonelySlimRow>();
    DrawnRow place = Scene::standing();
    place.hoverRow = hover;
    return scene.paint({row}, place);
}

QImage expectedLead(int width, bool drawn)
{
    Scene scene;
    return scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, width, 20, scene.color(GCC_BACKGROUND));
        if (drawn) {
            painter.fillRect(1, 1, 10, 12, Qt::blue);
        }
    });
}

} // namespace

void tst_LeadAndOwnerDraw::leadImage_withRectangle_isNotDrawn()
{
    COMPARE_PICTURES(paintLead(50, GCCF_LEAD, false, 1), expectedLead(50, false));
}

void tst_LeadAndOwnerDraw::leadImage_withoutRectangle_isDrawnAtTheLeftTop()
{
    // The room of 14 - 4 pixels is not more than the image's 10.
    COMPARE_PICTURES(paintLead(14, GCCF_LEAD, false, 1), expectedLead(14, true));
    COMPARE_PICTURES(paintLead(15, GCCF_LEAD, false, 1), expectedLead(15, false));
}

void tst_LeadAndOwnerDraw::leadImage_withoutIndex_isNotDrawn()
{
    COMPARE_PICTURES(paintLead(14, GCCF_LEAD, false, -1), expectedLead(14, false));
    COMPARE_PICTURES(paintLead(14, GCCF_LEAD, false, 7), expectedLead(14, false));
}

void tst_LeadAndOwnerDraw::leadImageOnHover_isForTheHoverCell()
{
    COMPARE_PICTURES(paintLead(14, GCCF_LEADONHOVER, false, 1), expectedLead(14, false));
    COMPARE_PICTURES(paintLead(14, GCCF_LEADONHOVER, true, 1), expectedLead(14, true));
}

namespace {

class OwnerDraw : public IDrawOwnerDraw
{
public:
    void DrawItem(KPainter * painter, IGCRow * row, CGCColumn * column,
                  CElementRects const & positions, bool selected, bool focusCell) override
    {
        calls << QStringLiteral("%1 %2 text %3 %4%5")
                     .arg(row->param)
                     .arg(column->id)
                     .arg(positions.cellRect.left())
                     .arg(QChar(selected ? u'S' : u'-'))
                     .arg(QChar(focusCell ? u'F' : u'-'));
        fonts << painter->font();
        pens << painter->pen();
        painter->setPen(Qt::red);
        painter->setFont(QFont(QStringLiteral("x"), 40));
        painter->translate(30, 30);
        painter->setOpacity(0.1);
    }
    QStringList calls;
    QList<QFont> fonts;
    QList<QPen> pens;
};

} // namespace

void tst_LeadAndOwnerDraw::ownerDraw_getsRowColumnAndPositions()
{
    Scene scene;
    OwnerDraw drawer;
    scene.context.ownerDraw = &drawer;
    scene.context.focusColumn = 1;
    scene.addColumn(GCCK_TEXT, 30);
    CGCColumn * const column = scene.addColumn(GCCK_OWNERDRAW, 50);
    CGCOrdinaryRow * const row = scene.addRow();
    row->param = 17;
    Scene::setText(row, column, "Text");
    DrawnRow place = Scene::standing();
    scene.paint({row}, place);
    place.selected = true;
    place.focused = true;
    scene.paint({row}, place);
    QCOMPARE(drawer.calls, QStringList({"17 1 text 30 --", "17 1 text 30 SF"}));
}

void tst_LeadAndOwnerDraw::ownerDraw_changesOfThePainter_areTakenBack()
{
    auto const paint = [](OwnerDraw * drawer) {
        Scene scene;
        scene.context.ownerDraw = drawer;
        CGCColumn * const first = scene.addColumn(GCCK_TEXT, 30);
        scene.addColumn(GCCK_OWNERDRAW, 20);
        CGCColumn * const last = scene.addColumn(GCCK_TEXT, 50);
        CGCOrdinaryRow * const row = scene.addRow();
        Scene::setText(row, first, "One");
        Scene::setText(row, last, "Two");
        QFont own = scene.font;
        own.setBold(true);
        row->font = &own;
        return scene.paint({row, row});
    };
    OwnerDraw drawer;
    COMPARE_PICTURES(paint(&drawer), paint(nullptr));
    QCOMPARE(drawer.fonts.size(), 2);
    QVERIFY(!drawer.fonts[1].bold());
    QCOMPARE(drawer.pens[1], QPen());
}

void tst_LeadAndOwnerDraw::ownerDraw_withoutDrawer_showsTreePartsOnly()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_OWNERDRAW, 60, GCCF_TREE);
    CGCOrdinaryRow * const row = scene.addRow();
    row->rowFlags = CGCOrdinaryRow::hasChildrenFlag;
    Scene::setText(row, column, "Text");
    QImage const expected = scene.draw([&](KPainter & painter) {
        painter.fillRect(0, 0, 60, 20, scene.color(GCC_BACKGROUND));
        glyph(painter, GlyphCollapsed, wholeButton.topLeft());
    });
    COMPARE_PICTURES(scene.paint({row}), expected);
}

ZENU_TEST(tst_LeadAndOwnerDraw)
#include "tst_LeadAndOwnerDraw.moc"
