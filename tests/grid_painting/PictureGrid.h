#pragma once

#include "tests/grid_painting/Scene.h"
#include "tests/surface/SurfaceHost.h"
#include "zenu/grid/ISlimGridCallback.h"
#include "zenu/grid/KGridCtrl.h"
#include "zenu/grid/frame/KGridCtrlPrivate.h"

#include <QPaintEvent>
#include <QScrollBar>

namespace zenutest {

// A grid whose picture can be taken, whole or in part, from a fresh paint or from the screen.
class PictureGrid : public KGridCtrl
{
public:
    explicit PictureGrid(long style = 0, QWidget * parent = nullptr)
        : KGridCtrl(parent, 0, nullptr, 0, style)
    {
        setFocusPolicy(Qt::NoFocus); // the first focus would select a row
        for (int number = 1; number <= GCC_COUNT; ++number) {
            if (number != GCC_FOCUSTEXT && number != GCC_FOCUSBACKGROUND) {
                SetColor(number, colorOf(number));
            }
        }
    }

    // What the colour of this number is set to: those of texts are dark, the others bright.
    static QColor colorOf(int number)
    {
        bool const isText = number == GCC_TEXT || number == GCC_SELTEXT ||
                            number == GCC_INACTIVESELTEXT || number == GCC_SECTIONTEXT ||
                            number == GCC_SELSECTIONTEXT || number == GCC_INACTIVESELSECTIONTEXT;
        return QColor::fromRgb(QColor::fromHsv(number * 137 % 360, 200, isText ? 70 : 240).rgb());
    }

    bool showSized(int width, int height)
    {
        resize(width, height);
        return showAndSettle(*window());
    }
    // Activates the window and takes the focus.
    bool takeFocus()
    {
        window()->activateWindow();
        bool const active = QTest::qWaitForWindowActive(window());
        setFocus();
        settle(*this);
        return active && hasFocus();
    }

    tag_HCOLUMN * addColumn(int width, int kind = GCCK_TEXT, unsigned flags = 0, int format = 1)
    {
        GC_COLUMN record;
        record.mask = GCCM_FORMAT | GCCM_WIDTH | GCCM_KIND | GCCM_FLAGS;
        record.width = width;
        record.kind = kind;
        record.flags = flags;
        record.format = format;
        return AddColumn(&record);
    }
    // With a text in each column.
    tag_HROW * addRow(char const * text = "", tag_HROW * parent = GC_ROOT)
    {
        tag_HROW * const row = InsertRow(parent, GCI_LAST);
        for (CGCColumn const * column : GetPriv().columns.all()) {
            SetItemText(row, column->Handle(), text);
        }
        return row;
    }
    tag_HROW * addSection(char const * title)
    {
        tag_HROW * const row = InsertSection(nullptr, GCI_LAST);
        GC_SECTION record;
        record.mask = GCRM_SECTIONTEXT;
        record.text = const_cast<char *>(title);
        SetSection(row, &record);
        return row;
    }
    void setImages(int list, QSize const & size, QList<QColor> const & colors)
    {
        QPixmap strip(size.width() * static_cast<int>(colors.size()), size.height());
        QPainter painter(&strip);
        for (int i = 0; i < colors.size(); ++i) {
            painter.fillRect(i * size.width(), 0, size.width(), size.height(), colors[i]);
        }
        painter.end();
        SetImageList(list, strip, size.width(), size.height(), static_cast<int>(colors.size()),
                     false);
    }
    void focusRow(tag_HROW * row)
    {
        if (GetFocusedColumn() == GC_NOCOLUMN) {
            SetFocusedColumn(GetPriv().shownColumns.front()->Handle());
        }
        GC_ROW record;
        record.mask = GCRM_STATE;
        record.stateMask = GCRS_FOCUSED;
        record.state = GCRS_FOCUSED;
        SetRow(row, &record);
    }
    QRect rowRect(tag_HROW * row) const
    {
        QRect rect;
        GetRowRect(row, &rect);
        return rect;
    }
    int headerHeight() const { return GetPriv().headerHeight; }

    // All that the header leaves.
    QRect below() const { return rect().adjusted(0, headerHeight(), 0, 0); }
    // In pixels of a picture.
    QRect onDevice(QRect const & rect) const
    {
        double const ratio = devicePixelRatioF();
        QRect device;
        device.setCoords(qRound(rect.left() * ratio), qRound(rect.top() * ratio),
                         qRound((rect.right() + 1) * ratio) - 1,
                         qRound((rect.bottom() + 1) * ratio) - 1);
        return device;
    }
    QImage blank(QColor const & ground = untouched) const
    {
        QImage image((QSizeF(size()) * devicePixelRatioF()).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(devicePixelRatioF());
        image.fill(ground);
        return image;
    }
    // A paint of a part of the grid, which is not empty. The header is left out.
    QImage paintPart(QRegion const & part, QColor const & ground = untouched)
    {
        QImage image = blank(ground);
        render(&image, part.boundingRect().topLeft(), part, QWidget::RenderFlags());
        return image;
    }
    QImage paintAll(QColor const & ground = untouched) { return paintPart(rect(), ground); }
    // What differs between the window on the screen and a paint of all of it; empty for nothing.
    QString stalePixels()
    {
        settle(*this);
        QImage const screen = picture(*this);
        QImage const fresh = window()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        return difference(screen, fresh);
    }

    // Paints as the paint event does, within another paint.
    void paintNested()
    {
        QPaintEvent event(rect());
        paintEvent(&event);
    }
    std::function<int(PaintDeviceMetric)> pretendedMetric; // 0 for the true one

protected:
    int metric(PaintDeviceMetric which) const override
    {
        int const pretended = pretendedMetric ? pretendedMetric(which) : 0;
        return pretended != 0 ? pretended : KGridCtrl::metric(which);
    }
};

// Slim rows that show their number, and a hook in each question that painting asks.
class SlimRows : public ISlimGridCallback
{
public:
    void BeginPaint() override { note("begin"); }
    void EndPaint() override { note("end"); }
    void GetRowDrawInfo(GC_DRAWROWINFO *, tag_HROW *, long, bool) override { note("row"); }
    void ReleaseRowDrawInfo(GC_DRAWROWINFO *, tag_HROW *, long) override { note("release"); }
    void GetItemDrawInfo(GC_DRAWITEMINFO *, tag_HROW *, long, tag_HCOLUMN *, int, bool,
                         bool) override
    {
        note("item");
    }
    char const * GetItemText(tag_HROW *, long param, tag_HCOLUMN *) override
    {
        note("text");
        text = "Row " + QByteArray::number(static_cast<int>(param));
        return text.constData();
    }
    bool HasSubRows(tag_HROW *, long param) override
    {
        note("children");
        return hasChildren(param);
    }
    int GetSubRowCount(tag_HROW *, long param) override { return hasChildren(param) ? 4 : 0; }
    void GetSubRows(tag_HROW *, long param, int count, GC_SLIMROWDATA * rows) override
    {
        for (int i = 0; i < count; ++i) {
            rows[i].param = (param + 1) * 10 + i;
        }
    }

    int count(char const * what) const { return static_cast<int>(calls.count(what)); }

    QByteArrayList calls;
    QByteArray text;
    std::function<void(char const *)> hook; // not called while it runs

private:
    static bool hasChildren(long param) { return param % 3 == 0 && param < 40; }
    void note(char const * what)
    {
        calls << what;
        if (hook && !inHook) {
            inHook = true;
            hook(what);
            inHook = false;
        }
    }
    bool inHook = false;
};

// The half-tone of the grid's lines in a picture of it: white and the colour, both of them.
inline bool isHalfTone(QImage const & picture, QRect const & rect, QColor const & color)
{
    int counts[2] = {0, 0};
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            QRgb const pixel = picture.pixel(x, y);
            if (pixel != 0xffffffff && pixel != color.rgb()) {
                return false;
            }
            ++counts[pixel == color.rgb() ? 1 : 0];
        }
    }
    return counts[0] > 0 && counts[1] > 0;
}

inline bool isFilled(QImage const & picture, QRect const & rect, QColor const & color)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (picture.pixel(x, y) != color.rgb()) {
                return false;
            }
        }
    }
    return true;
}

constexpr int threeRowsHeight = 20;

// Two columns of 60 and 40 pixels and three rows of 20, the second selected.
struct ThreeRows
{
    explicit ThreeRows(long style = 0, QWidget * parent = nullptr)
        : grid(style, parent)
    {
        grid.SetDefaultHeight(threeRowsHeight);
        first = grid.addColumn(60);
        second = grid.addColumn(40);
        for (zenu::tag_HROW *& row : rows) {
            row = grid.addRow();
        }
    }
    // Of a cell of the row, in widget coordinates.
    QRect cell(int row, zenu::tag_HCOLUMN * column) const
    {
        QRect rect;
        grid.GetItemRect(rows[row], column, &rect);
        return rect.adjusted(0, 0, -1, 0);
    }

    PictureGrid grid;
    zenu::tag_HCOLUMN * first;
    zenu::tag_HCOLUMN * second;
    zenu::tag_HROW * rows[3] = {};
};

} // namespace zenutest
