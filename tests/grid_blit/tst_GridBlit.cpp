#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

using namespace zenu;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

constexpr int steps = 60;

struct Look
{
    char const * name;
    long style;
    int rowHeight; // -1 for the automatic one
    bool various;  // some rows have heights of their own
    bool framed;
    bool selected;
};

constexpr Look looks[] = {
    {"plain rows", 0, 20, false, false, false},
    {"odd row height", GCS_VERTLINES | GCS_HORZLINES, 21, false, false, false},
    {"automatic height", GCS_VERTLINES | GCS_HORZLINES, -1, false, false, true},
    {"whole rows only", GCS_WHOLEROWS | GCS_VERTLINES | GCS_HORZLINES, 19, false, false, false},
    {"explicit heights", GCS_VERTLINES | GCS_HORZLINES, 17, true, false, true},
    {"whole rows of explicit heights", GCS_WHOLEROWS | GCS_HORZLINES, 17, true, false, false},
    {"framed cells", GCS_VERTLINES, 21, false, true, true},
    {"full row selection", GCS_FULLROWSELECT | GCS_SHOWSELALWAYS, 15, true, false, true},
    {"no header", GCS_NOHEADER | GCS_HORZLINES | GCS_VERTLINES, 13, false, false, true},
    {"one pixel rows", GCS_VERTLINES, 1, false, false, false},
};

// Texts whose glyphs reach beyond their advance, sections, trees, check boxes, all kinds of marks.
void fill(TestGrid & grid, Look const & look)
{
    unsigned const frame = look.framed ? GCCF_FRAMED : 0U;
    grid.addKind(GCCK_TEXT, 150, GCCF_TREE | GCCF_TREELINES);
    grid.addKind(GCCK_CHECKBOX, 61, frame);
    grid.addKind(GCCK_TEXT, 87);
    GC_COLUMN format;
    format.mask = GCCM_FORMAT;
    format.format = 2;
    grid.SetColumn(grid.addKind(GCCK_TEXT, 120, frame), &format);
    grid.addKind(GCCK_TEXTWITHICON, 203);
    if (look.rowHeight != -1) {
        grid.SetDefaultHeight(look.rowHeight);
    }
    std::vector<tag_HROW *> rows;
    for (int i = 0; i < 40; ++i) {
        tag_HROW * const parent = i % 10 == 9 ? grid.InsertSection(nullptr, GCI_LAST)
                                              : grid.add("jfj Wjf parent", GC_ROOT);
        rows.push_back(parent);
        for (int j = 0; j < i % 5; ++j) {
            rows.push_back(grid.add(QByteArray::number(i * 100 + j).constData(), parent));
        }
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (int id = 1; id < 5; ++id) {
            tag_HCOLUMN * const column = grid.GetPriv().columns.find(id)->Handle();
            grid.SetItemText(rows[i], column, i % 3 ? "some longer text, fjord" : "j");
        }
        if (look.various && i % 4 == 1) {
            grid.SetRowHeight(rows[i], static_cast<int>(5 + (i * 7) % 60));
        }
        if (look.selected && i % 3 == 0) {
            grid.SetRowSel(rows[i], true);
        }
    }
    GC_SECTION section;
    section.mask = GCRM_SECTIONTEXT;
    section.text = const_cast<char *>("Section title");
    grid.SetSection(rows[9 * 3], &section);
}

// At fractional ratios Qt puts a glyph that starts left of the window a quarter of a device pixel
// off. So the shades of a glyph that a left edge of the window cut, and of nothing else, depend on
// whether it was painted there or moved there. This notes the edges since all was painted.
class CutGlyphs
{
public:
    explicit CutGlyphs(TestGrid const & watched)
        : grid(watched)
    {
        forget();
        for (char const * letter = "WM@mjf0S"; *letter; ++letter) {
            QRect const box = QFontMetrics(grid.font()).boundingRect(QLatin1Char(*letter));
            widest = std::max(widest, box.right() + 2);
        }
    }
    void forget() { edges = {grid.GetPriv().hScrollPos}; }
    void noteScroll()
    {
        if (edges.back() != grid.GetPriv().hScrollPos) {
            edges.push_back(grid.GetPriv().hScrollPos);
        }
    }
    // Whether the column of device pixels may show a part of such a glyph.
    bool mayShowAt(int deviceX) const
    {
        qreal const ratio = grid.devicePixelRatioF();
        if (ratio == std::floor(ratio) || edges.size() < 2) {
            return false; // no rounding, or nothing moved sideways
        }
        return std::ranges::any_of(edges, [&](int edge) {
            int const x = edge - grid.GetPriv().hScrollPos;
            return deviceX >= std::floor(x * ratio) && deviceX <= std::ceil((x + widest) * ratio);
        });
    }

private:
    TestGrid const & grid;
    std::vector<int> edges; // contents coordinates
    int widest = 0;
};

// The most that a quarter of a device pixel changes of a shade.
constexpr int glyphTolerance = 64;

bool areLike(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance &&
           std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

// Where the grid's picture differs from that of a fresh paint, in device pixels; empty when it does
// not.
QString staleness(TestGrid & grid, CutGlyphs & cut)
{
    zenutest::settle();
    cut.noteScroll();
    QImage const actual = zenutest::picture(grid);
    grid.update();
    grid.getHeader()->QWidget::update();
    zenutest::settle();
    QImage const fresh = zenutest::picture(grid);
    QRegion wrong;
    QString first;
    for (int x = 0; x < actual.width(); ++x) {
        int const tolerance = cut.mayShowAt(x) ? glyphTolerance : 0;
        for (int y = 0; y < actual.height(); ++y) {
            if (!areLike(actual.pixel(x, y), fresh.pixel(x, y), tolerance)) {
                if (wrong.isEmpty()) {
                    first = QStringLiteral("%1 not %2")
                                .arg(QColor(actual.pixel(x, y)).name(),
                                     QColor(fresh.pixel(x, y)).name());
                }
                wrong += QRect(x, y, 1, 1);
            }
        }
    }
    cut.forget();
    return wrong.isEmpty() ? QString()
                           : QStringLiteral("%1 stale pixels, %2, in %3, place %4")
                                 .arg(TestGrid::area(wrong))
                                 .arg(first, QDebug::toString(wrong.boundingRect()), grid.place());
}

bool scrollAtRandom(TestGrid & grid, QRandomGenerator & random)
{
    int const code = random.bounded(8);
    bool const vertical = random.bounded(3) != 0;
    QScrollBar const * const bar = vertical ? grid.getVScrollBar() : grid.getHScrollBar();
    auto const pos = static_cast<unsigned>(random.bounded(bar->maximum() + 1));
    grid.SetHScrollDelta(random.bounded(1, 40));
    return grid.OnScroll(vertical ? -1 : code, vertical ? code : -1, pos, true);
}

} // namespace

class tst_GridBlit : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void scrolledPicture_isThatOfAFreshPaint_data();
    void scrolledPicture_isThatOfAFreshPaint();
    void scrollsWithoutATurnOfTheEventLoop_addUp();
    void lineScroll_paintsTheExposedStripAlone_data();
    void lineScroll_paintsTheExposedStripAlone();
    void columnScroll_paintsTheExposedStripAlone();
    void scrollBeyondAPage_paintsAll();
    void wholeRows_blankStripBelow_isPainted();
    void partlyShownLastRow_isCompletedWhenScrolled();
    void changesBetweenScrolls_arePaintedWhereTheyMoved();
};

void tst_GridBlit::scrolledPicture_isThatOfAFreshPaint_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(std::size(looks)); ++i) {
        QTest::newRow(looks[i].name) << i;
    }
}

void tst_GridBlit::scrolledPicture_isThatOfAFreshPaint()
{
    QFETCH(int, index);
    Look const & look = looks[index];
    TestGrid grid(look.style);
    fill(grid, look);
    QVERIFY(grid.showSized(333, 247));
    quint32 const seed = 20240 + static_cast<quint32>(index);
    QRandomGenerator random(seed);
    CutGlyphs cut(grid);
    for (int step = 0; step < steps; ++step) {
        scrollAtRandom(grid, random);
        QString const stale = staleness(grid, cut);
        QVERIFY2(stale.isEmpty(),
                 qPrintable(QStringLiteral("seed %1 step %2: %3").arg(seed).arg(step).arg(stale)));
    }
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridBlit::scrollsWithoutATurnOfTheEventLoop_addUp()
{
    TestGrid grid(GCS_VERTLINES | GCS_HORZLINES);
    fill(grid, looks[1]);
    QVERIFY(grid.showSized(333, 247));
    QRandomGenerator random(77);
    CutGlyphs cut(grid);
    for (int step = 0; step < 10; ++step) {
        for (int i = 0; i < 5; ++i) {
            scrollAtRandom(grid, random);
            cut.noteScroll();
        }
        QCOMPARE(staleness(grid, cut), QString());
    }
}

void tst_GridBlit::lineScroll_paintsTheExposedStripAlone_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<int>("code");
    QTest::newRow("down") << 0L << 3;
    QTest::newRow("up") << 0L << 0;
    QTest::newRow("down, whole rows only") << long(GCS_WHOLEROWS) << 3;
}

void tst_GridBlit::lineScroll_paintsTheExposedStripAlone()
{
    QFETCH(long, style);
    QFETCH(int, code);
    TestGrid grid(style);
    grid.addColumns({200});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(100);
    QVERIFY(grid.showSized(200, 248));
    grid.OnScroll(-1, 6, 400, true);
    grid.takePainted();
    QString const before = grid.place();
    grid.OnScroll(-1, code, 0, true);
    QRegion const painted = grid.takePainted();
    QVERIFY(grid.place() != before);
    // The row that came in, and below it what was cut or blank.
    QRegion strip(0, grid.headerHeight(), 200, 20);
    if (code == 3) {
        QRect lastBefore;
        grid.GetRowRect(grid.GetBottomIndex(), &lastBefore);
        strip = QRegion(0, lastBefore.top() - 20, 200, 248);
    }
    if (!zenutest::movesPixels()) {
        QCOMPARE(painted.boundingRect(), grid.rect().adjusted(0, grid.headerHeight(), 0, 0));
    } else if (grid.devicePixelRatioF() == std::floor(grid.devicePixelRatioF())) {
        QVERIFY2((painted - strip).isEmpty(), qPrintable(QDebug::toString(painted)));
        QVERIFY(TestGrid::area(painted) <= 200 * 60);
    }
    QVERIFY(!painted.isEmpty());
}

void tst_GridBlit::columnScroll_paintsTheExposedStripAlone()
{
    TestGrid grid;
    grid.addColumns({200, 200, 200});
    grid.addMany(100);
    QVERIFY(grid.showSized(200, 240));
    grid.SetHScrollDelta(8);
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 8);
    QRect const all(0, grid.headerHeight(), 200, 240 - grid.headerHeight());
    bool const moves = zenutest::movesPixels();
    QRegion const right = grid.takePainted();
    QCOMPARE(right.boundingRect(), moves ? all.adjusted(192, 0, 0, 0) : all);
    grid.OnScroll(0, -1, 0, true);
    QRegion const left = grid.takePainted();
    QCOMPARE(left.boundingRect(), moves ? all.adjusted(0, 0, -192, 0) : all);
}

void tst_GridBlit::scrollBeyondAPage_paintsAll()
{
    TestGrid grid;
    grid.addColumns({200});
    grid.SetDefaultHeight(20);
    grid.addMany(100);
    QVERIFY(grid.showSized(200, 240));
    grid.OnScroll(-1, 4, 0, true);
    int const header = grid.headerHeight();
    QCOMPARE(grid.takePainted().boundingRect(), QRect(0, header, 200, 240 - header));
}

void tst_GridBlit::wholeRows_blankStripBelow_isPainted()
{
    TestGrid grid(GCS_WHOLEROWS);
    grid.addColumns({200});
    grid.SetDefaultHeight(20);
    grid.SetBkColor(Qt::white);
    std::vector<tag_HROW *> const rows = grid.addMany(100);
    GC_ROW yellow;
    yellow.mask = GCRM_BKCOLOR;
    yellow.bkColor = Qt::yellow;
    for (tag_HROW * const row : rows) {
        grid.SetRow(row, &yellow);
    }
    QVERIFY(grid.showSized(200, grid.getHeader()->getLayout(QRect()).height() + 9 + 5 * 20));
    int const below = grid.headerHeight() + 5 * 20;
    for (int i = 0; i < 7; ++i) {
        grid.OnScroll(-1, i == 3 ? 2 : 3, 0, true);
        zenutest::settle();
        QImage const picture = zenutest::picture(grid);
        qreal const ratio = grid.devicePixelRatioF();
        QCOMPARE(grid.GetVisibleCount(), 5u);
        QCOMPARE(picture.pixelColor(qRound(150 * ratio), qRound((below - 3) * ratio)),
                 QColor(Qt::yellow));
        QCOMPARE(picture.pixelColor(qRound(150 * ratio), qRound((below + 3) * ratio)),
                 QColor(Qt::white));
    }
}

void tst_GridBlit::partlyShownLastRow_isCompletedWhenScrolled()
{
    TestGrid grid;
    grid.addColumns({200});
    grid.SetDefaultHeight(20);
    grid.addMany(100);
    QVERIFY(grid.showSized(200, 251));
    CutGlyphs cut(grid);
    for (int i = 0; i < 5; ++i) {
        grid.OnScroll(-1, 3, 0, true);
        QCOMPARE(staleness(grid, cut), QString());
    }
}

void tst_GridBlit::changesBetweenScrolls_arePaintedWhereTheyMoved()
{
    TestGrid grid(GCS_HORZLINES);
    grid.addColumns({200, 100});
    grid.SetDefaultHeight(21);
    std::vector<tag_HROW *> const rows = grid.addMany(100);
    QVERIFY(grid.showSized(200, 251));
    CutGlyphs cut(grid);
    for (int i = 0; i < 20; ++i) {
        tag_HROW * const row = grid.GetTopIndex();
        grid.SetItemText(row, grid.firstColumn(), "changed");
        grid.SetItemText(grid.GetBottomIndex(), grid.firstColumn(), "changed");
        grid.OnScroll(i % 5 == 4 ? 3 : -1, i % 5 == 4 ? -1 : 3, 0, true);
        grid.SetRowSel(grid.GetNextRow(GCN_VISIBLE_NEXT, row), true);
        QCOMPARE(staleness(grid, cut), QString());
    }
}

ZENU_TEST(tst_GridBlit)
#include "tst_GridBlit.moc"
