#include "tests/grid_painting/PictureGrid.h"
#include "tests/support/TestMain.h"

#include <QRandomGenerator>
#include <QStyle>
#include <QStyleFactory>

using namespace zenutest;

// A shown grid after something has changed: no pixel and no measure of before is left.
class tst_PictureChanges : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void applicationPalette_change_isPainted();
    void gridPalette_change_leavesTheColors();
    void gridFont_change_equalsAFreshGrid();
    void applicationFont_change_equalsAFreshGrid();
    void style_change_equalsAFreshGrid();
    void pixelRatio_change_equalsAFreshGrid();
    void rightToLeft_looksTheSame();
    void randomOperations_leaveNoStalePixel_data();
    void randomOperations_leaveNoStalePixel();
};

namespace {

constexpr int kinds = GCCK_CHECKBOXWITHICON + 1;

// All column kinds, a tree and sections.
void fill(PictureGrid & grid)
{
    grid.setVScrollBarMode(KScrolledWidget::AsNeeded);
    grid.setHScrollBarMode(KScrolledWidget::AsNeeded);
    grid.setImages(GCIL_NORMAL, QSize(16, 16), {Qt::red, Qt::blue});
    grid.setImages(GCIL_SELECTED, QSize(16, 16), {Qt::darkRed, Qt::darkBlue});
    for (int kind = 0; kind < kinds; ++kind) {
        unsigned const flags = kind == 0 ? GCCF_TREE | GCCF_TREELINES : 0U;
        tag_HCOLUMN * const column = grid.addColumn(70, kind, flags, kind % 5);
        GC_COLUMN record;
        record.mask = GCCM_TEXT;
        record.text = const_cast<char *>("Column");
        grid.SetColumn(column, &record);
    }
    for (int i = 0; i < 6; ++i) {
        tag_HROW * const parent = i == 2 ? grid.addSection("Section") : grid.addRow("Some text");
        for (int j = 0; j < i; ++j) {
            grid.addRow("Fjord, a longer text", parent);
        }
    }
    grid.SelectAll();
    grid.focusRow(grid.GetNextRow(GCN_VISIBLE_FIRST, nullptr));
    // The kinds that have no images leave them out.
    for (auto at = grid.begin(GCN_ALL_FIRST, nullptr); at != grid.end(); ++at) {
        for (CGCColumn const * column : grid.GetPriv().columns.all()) {
            grid.SetItem(*at, column->Handle(), GCIM_IMAGE, nullptr, 1, 0);
        }
    }
}

struct FilledGrid : PictureGrid
{
    explicit FilledGrid(long style = GCS_VERTLINES | GCS_HORZLINES | GCS_SHOWSELALWAYS)
        : PictureGrid(style)
    {
        setFocusPolicy(Qt::NoFocus); // two of them shall look alike
        fill(*this);
    }
    bool show() { return showSized(400, 300); }
    QImage whole() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(220, 220, 220));
    palette.setColor(QPalette::Button, QColor(60, 60, 64));
    palette.setColor(QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::Dark, QColor(200, 90, 90));
    palette.setColor(QPalette::Light, QColor(90, 90, 95));
    return palette;
}

} // namespace

void tst_PictureChanges::cleanup()
{
    if (QApplication::style()->name() != QLatin1String("fusion")) {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    }
    QApplication::setPalette(QPalette());
    QApplication::setFont(QFont());
}

void tst_PictureChanges::applicationPalette_change_isPainted()
{
    FilledGrid grid;
    QVERIFY(grid.show());
    QColor const line = lineColor();
    QColor const text = grid.GetColor(GCC_TEXT);
    QApplication::setPalette(darkPalette());
    QCOMPARE(grid.stalePixels(), QString());
    // Lines and check boxes are the palette's at once, the numbered colours stay as they are.
    QVERIFY(lineColor() != line);
    QCOMPARE(grid.GetColor(GCC_TEXT), text);
    FilledGrid fresh;
    QVERIFY(fresh.show());
    COMPARE_PICTURES(picture(grid), fresh.whole());
    // A grid that has not set its colours keeps those of the palette it was made under.
    KGridCtrl plain;
    QCOMPARE(plain.GetColor(GCC_BACKGROUND), QColor(30, 30, 30));
    QApplication::setPalette(QPalette());
    QCOMPARE(plain.GetColor(GCC_BACKGROUND), QColor(30, 30, 30));
}

void tst_PictureChanges::gridPalette_change_leavesTheColors()
{
    FilledGrid grid;
    QVERIFY(grid.show());
    QImage const before = grid.paintAll();
    grid.setPalette(darkPalette());
    QCOMPARE(grid.stalePixels(), QString());
    COMPARE_PICTURES(grid.paintAll(), before);
}

void tst_PictureChanges::gridFont_change_equalsAFreshGrid()
{
    FilledGrid grid;
    QVERIFY(grid.show());
    QFont font = grid.font();
    for (int const size : {20, 7}) {
        font.setPointSize(size);
        grid.setFont(font);
        QCOMPARE(grid.stalePixels(), QString());
        FilledGrid fresh;
        fresh.setFont(font);
        QVERIFY(fresh.show());
        COMPARE_PICTURES(picture(grid), fresh.whole());
        QCOMPARE(grid.GetDefaultHeight(), fresh.GetDefaultHeight());
        QCOMPARE(grid.GetIndent(), fresh.GetIndent());
    }
}

void tst_PictureChanges::applicationFont_change_equalsAFreshGrid()
{
    FilledGrid grid;
    QVERIFY(grid.show());
    QFont font = QApplication::font();
    font.setPointSize(19);
    font.setBold(true);
    QApplication::setFont(font);
    QCOMPARE(grid.stalePixels(), QString());
    FilledGrid fresh;
    QVERIFY(fresh.show());
    COMPARE_PICTURES(picture(grid), fresh.whole());
}

void tst_PictureChanges::style_change_equalsAFreshGrid()
{
    FilledGrid grid;
    QVERIFY(grid.show());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("windows")));
    QCOMPARE(grid.stalePixels(), QString());
    FilledGrid fresh;
    QVERIFY(fresh.show());
    COMPARE_PICTURES(picture(grid), fresh.whole());
}

void tst_PictureChanges::pixelRatio_change_equalsAFreshGrid()
{
    auto const twice = [](QPaintDevice::PaintDeviceMetric which) {
        switch (which) {
        case QPaintDevice::PdmDevicePixelRatio:
            return 2;
        case QPaintDevice::PdmDevicePixelRatioScaled:
            return static_cast<int>(2 * QPaintDevice::devicePixelRatioFScale());
        default:
            return 0;
        }
    };
    FilledGrid grid;
    QVERIFY(grid.show());
    grid.paintAll();
    long long const measured = grid.GetPriv().textCache.measurements();
    grid.pretendedMetric = twice;
    FilledGrid fresh;
    fresh.pretendedMetric = twice;
    QVERIFY(fresh.show());
    COMPARE_PICTURES(grid.paintAll(), fresh.paintAll());
    QVERIFY(grid.GetPriv().textCache.measurements() > measured);
    // And back.
    grid.pretendedMetric = nullptr;
    FilledGrid other;
    QVERIFY(other.show());
    COMPARE_PICTURES(grid.paintAll(), other.paintAll());
}

void tst_PictureChanges::rightToLeft_looksTheSame()
{
    FilledGrid grid;
    QVERIFY(grid.show());
    grid.getHScrollBar()->setValue(40);
    QCOMPARE(grid.GetPriv().hScrollPos, 40);
    settle(grid);
    QImage const before = grid.whole();
    grid.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(grid.stalePixels(), QString());
    QRect const client = grid.onDevice(grid.getClientRect());
    COMPARE_PICTURES(grid.whole().copy(client), before.copy(client));
    // The bar that shows where the columns are runs with them.
    QCOMPARE(grid.getHScrollBar()->layoutDirection(), Qt::LeftToRight);
    QRect const bar = grid.onDevice(grid.getHScrollBar()->geometry());
    COMPARE_PICTURES(grid.whole().copy(bar), before.copy(bar));
}

namespace {

class RandomUser
{
public:
    RandomUser(PictureGrid & usedGrid, unsigned seed)
        : grid(usedGrid)
        , random(seed)
    {
    }

    // One operation of an application or a user; answers what it was.
    QString act()
    {
        static constexpr int count = 24;
        int const which = random.bounded(count);
        if (which < 8) {
            return actOnView(which);
        }
        return which < 17 ? actOnRows(which - 8) : actOnColumns(which - 17);
    }

private:
    QString actOnView(int which)
    {
        switch (which) {
        case 0: {
            int const code = random.bounded(8);
            grid.OnScroll(-1, code, static_cast<unsigned>(random.bounded(400)), true);
            return QStringLiteral("scroll rows by code %1").arg(code);
        }
        case 1: {
            int const code = random.bounded(8);
            grid.OnScroll(code, -1, static_cast<unsigned>(random.bounded(300)), true);
            return QStringLiteral("scroll columns by code %1").arg(code);
        }
        case 2: {
            QSize const size(random.bounded(60, 600), random.bounded(40, 450));
            grid.resize(size);
            return QStringLiteral("resize to %1 %2").arg(size.width()).arg(size.height());
        }
        case 3:
            grid.EnsureVisible(row(), column());
            return QStringLiteral("ensure visible");
        case 4: {
            int const number = random.bounded(1, 22);
            grid.SetColor(number, color());
            return QStringLiteral("color %1").arg(number);
        }
        case 5: {
            int const indent = random.bounded(30) - 1;
            grid.SetIndent(static_cast<unsigned>(indent));
            return QStringLiteral("indent %1").arg(indent);
        }
        case 6: {
            int const list = random.bounded(5);
            grid.setImages(list, QSize(random.bounded(4, 30), random.bounded(4, 30)),
                           {color(), color()});
            return QStringLiteral("image list %1").arg(list);
        }
        default:
            grid.Sort(random.bounded(3) ? column() : GC_NOCOLUMN, random.bounded(2) != 0);
            return QStringLiteral("sort");
        }
    }

    QString actOnRows(int which)
    {
        switch (which) {
        case 0:
            grid.addRow("New row, fjord", random.bounded(2) ? row() : GC_ROOT);
            return QStringLiteral("insert");
        case 1:
            if (random.bounded(3) == 0) {
                grid.DeleteRow(row());
            }
            return QStringLiteral("delete");
        case 2: {
            int const code = random.bounded(3) | (random.bounded(2) ? int(GCE_NOSCROLL) : 0);
            grid.Expand(row(), static_cast<unsigned>(code));
            return QStringLiteral("expand with %1").arg(code);
        }
        case 3:
            grid.Expand(nullptr, random.bounded(2) ? GCE_EXPANDALL : GCE_COLLAPSEALL);
            return QStringLiteral("expand all");
        case 4:
            grid.SetRowSel(row(), random.bounded(2) != 0);
            return QStringLiteral("select");
        case 5:
            random.bounded(2) ? grid.SelectAll() : grid.ClearSelection();
            return QStringLiteral("select all");
        case 6: {
            int const height = random.bounded(60);
            grid.SetRowHeight(row(), height);
            return QStringLiteral("height %1").arg(height);
        }
        case 7:
            changeItem();
            return QStringLiteral("item");
        default: {
            GC_ROW record;
            record.mask = GCRM_TEXTCOLOR | GCRM_BKCOLOR | GCRM_STATE;
            record.textColor = color();
            record.bkColor = random.bounded(2) ? color() : QColor::fromRgb(GC_UNSETCOLOR);
            record.stateMask = GCRS_FOCUSED | GCRS_HASCHILDREN;
            record.state = static_cast<unsigned>(random.bounded(32));
            grid.SetRow(row(), &record);
            return QStringLiteral("row record, state %1").arg(record.state);
        }
        }
    }

    void changeItem()
    {
        char const * const texts[] = {"", "j", "Some text", "A text that is cut, fjord"};
        tag_HROW * const where = row();
        tag_HCOLUMN * const at = column();
        GC_ITEM item;
        item.mask = GCIM_TEXT | GCIM_TEXTCOLOR;
        item.text = const_cast<char *>(texts[random.bounded(4)]);
        item.textColor = color();
        grid.SetItem(where, at, &item);
        unsigned const masks[] = {GCIM_IMAGE, GCIM_OVERLAY, GCIM_STATEIMAGE};
        grid.SetItem(where, at, masks[random.bounded(3)], nullptr, random.bounded(3) - 1, 0);
        GC_ITEM check;
        check.mask = GCIM_VALUE;
        check.value = random.bounded(3);
        grid.SetItem(where, at, &check);
    }

    QString actOnColumns(int which)
    {
        switch (which) {
        case 0: {
            int const width = random.bounded(200);
            grid.SetColumnWidth(column(), width);
            return QStringLiteral("width %1").arg(width);
        }
        case 1:
            grid.ShowColumn(column(), random.bounded(3) != 0);
            return QStringLiteral("show column");
        case 2: {
            std::vector<tag_HCOLUMN *> order(static_cast<std::size_t>(grid.GetColumnsCount()));
            grid.GetColumnOrderArray(order.data(), grid.GetColumnsCount());
            std::shuffle(order.begin(), order.end(), random);
            grid.SetColumnOrderArray(order.data(), grid.GetColumnsCount());
            return QStringLiteral("order");
        }
        case 3: {
            GC_COLUMN record;
            record.mask = GCCM_FORMAT | GCCM_FLAGS;
            record.format = random.bounded(8) | (random.bounded(4) ? 0 : 0x10000);
            unsigned const bits[] = {GCCF_TREE, GCCF_TREELINES, GCCF_FRAMED, GCCF_LEAD};
            for (unsigned const bit : bits) {
                record.flags |= random.bounded(2) ? bit : 0U;
            }
            grid.SetColumn(column(), &record);
            return QStringLiteral("format %1, flags %2").arg(record.format).arg(record.flags);
        }
        case 4: {
            GC_COLUMN record;
            record.mask = GCCM_KIND;
            record.kind = random.bounded(kinds);
            grid.SetColumn(column(), &record);
            return QStringLiteral("kind %1").arg(record.kind);
        }
        case 5:
            if (grid.GetColumnsCount() < 12) {
                grid.InsertColumn(random.bounded(12), "New", 0, random.bounded(150));
            }
            return QStringLiteral("insert column");
        default:
            if (grid.GetColumnsCount() > 4) {
                grid.DeleteColumn(column());
            }
            return QStringLiteral("delete column");
        }
    }

    tag_HROW * row()
    {
        std::vector<tag_HROW *> rows;
        for (auto at = grid.begin(GCN_ALL_FIRST, nullptr); at != grid.end(); ++at) {
            rows.push_back(*at);
        }
        return rows.empty() ? nullptr : rows[below(rows.size())];
    }
    tag_HCOLUMN * column()
    {
        auto const columns = grid.GetPriv().columns.all();
        return columns[below(columns.size())]->Handle();
    }
    std::size_t below(std::size_t count)
    {
        return static_cast<std::size_t>(random.bounded(static_cast<int>(count)));
    }
    QColor color() { return QColor::fromRgb(random.generate() | 0xff000000U); }

    PictureGrid & grid;
    QRandomGenerator random;
};

} // namespace

void tst_PictureChanges::randomOperations_leaveNoStalePixel_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("plain") << 0;
    QTest::newRow("lines") << int(GCS_VERTLINES | GCS_HORZLINES | GCS_SHOWSELALWAYS);
    QTest::newRow("whole rows") << int(GCS_WHOLEROWS | GCS_VERTLINES | GCS_FULLROWSELECT |
                                       GCS_SHOWSELALWAYS);
    QTest::newRow("no header") << int(GCS_NOHEADER | GCS_HORZLINES);
}

void tst_PictureChanges::randomOperations_leaveNoStalePixel()
{
    QFETCH(int, style);
    bool chosen = false;
    int const seedFrom = qEnvironmentVariableIntValue("ZENU_TEST_SEED", &chosen);
    int const seeds = chosen ? 1 : 4;
    for (int i = 0; i < seeds; ++i) {
        int const seed = seedFrom + i;
        FilledGrid grid(style);
        QVERIFY(grid.show());
        if (seed % 2) {
            grid.setFocusPolicy(Qt::StrongFocus);
            QVERIFY(grid.takeFocus());
        }
        RandomUser user(grid, static_cast<unsigned>(seed));
        QStringList done;
        for (int step = 0; step < 150; ++step) {
            done << user.act();
            if (grid.GetPriv().IsDirty()) {
                grid.update(); // rows that come and go wait for the application to say so
            }
            if (step % 3 == 0) {
                QString const stale = grid.stalePixels();
                QVERIFY2(stale.isEmpty(),
                         qPrintable(QStringLiteral("seed %1, step %2: %3 after %4")
                                        .arg(seed)
                                        .arg(step)
                                        .arg(stale, done.mid(done.size() - 4).join(u", "))));
            }
        }
    }
}

ZENU_TEST(tst_PictureChanges)
#include "tst_PictureChanges.moc"
