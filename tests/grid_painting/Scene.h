#pragma once

#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/geometry/CGetElementPos.h"
#include "zenu/grid/geometry/TextCache.h"
#include "zenu/grid/inner/IDrawOwnerDraw.h"
#include "zenu/grid/inner/IIsLastChild.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/inner/ITextCallback.h"
#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/look/KGridImages.h"
#include "zenu/grid/painting/CDrawRowVisitor.h"
#include "zenu/grid/painting/PaintPass.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"
#include "zenu/grid/rows/ColumnSet.h"
#include "zenu/overlay/KPainter.h"

#include <QApplication>
#include <QImage>
#include <QtTest/QtTest>

#include <functional>
#include <memory>
#include <vector>

namespace zenutest {

using namespace zenu;

// What no one painted.
inline QColor const untouched(255, 0, 255);

// The last rows are those that were said to be.
class LastRows : public IIsLastChild
{
public:
    bool IsLastChild(IGCRow const * row) const override
    {
        ++asked;
        return rows.contains(row);
    }
    QSet<IGCRow const *> rows;
    mutable int asked = 0;
};

// Rows and columns without a grid, painted on an image as the paint event does it.
class Scene
{
public:
    using Drawing = std::function<void(KPainter &)>;

    Scene()
    {
        font = QApplication::font();
        for (int number = 1; number <= GCC_COUNT; ++number) {
            context.colors.set(number, QColor(number * 10, 255 - number * 10, 40));
        }
        context.colors.set(GCC_FOCUSTEXT, QColor::fromRgb(GC_UNSETCOLOR));
        context.colors.set(GCC_FOCUSBACKGROUND, QColor::fromRgb(GC_UNSETCOLOR));
        images.set(KGridImages::Buttons, makeGridGlyphs());
        context.font = &font;
        context.images = &images;
        context.lastChild = &lastRows;
        context.texts = &texts;
        context.indent = 16;
    }
    ~Scene()
    {
        for (IGCRow * row : rows) {
            row->DestroyItems(columns);
            delete row;
        }
    }

    CGCColumn * addColumn(int kind, int width, unsigned flags = 0, int format = 0)
    {
        CGCColumn * const column = columns.add(makeColumn(kind, columns.count(), columns.count()));
        column->kind = kind;
        column->width = width;
        column->flags = flags;
        column->format = format;
        column->order = column->itemIndex;
        column->left = context.contentsWidth;
        context.contentsWidth += column->IsHidden() ? 0 : width;
        context.anyFramedColumn = context.anyFramedColumn || column->HasFlag(GCCF_FRAMED);
        shown.push_back(column);
        return column;
    }

    // After the columns.
    CGCOrdinaryRow * addRow(IGCRow * parent = nullptr)
    {
        auto * const row = new CGCOrdinaryRow(parent, columns);
        rows.push_back(row);
        return row;
    }
    CGCSection * addSection(char const * text)
    {
        auto * const row = new CGCSection(columns);
        row->SetText(text);
        rows.push_back(row);
        return row;
    }
    template <typename Row>
    Row * addSlim(IGCRow * parent = nullptr)
    {
        auto * const row = new Row(parent);
        rows.push_back(row);
        return row;
    }
    static void setText(CGCOrdinaryRow * row, CGCColumn const * column, char const * text)
    {
        row->ItemOf(column)->text = duplicateText(text);
    }
    // A list of images of one colour each.
    void setImages(KGridImages::Member member, QSize const & size, QList<QColor> const & colors)
    {
        QPixmap strip(size.width() * static_cast<int>(colors.size()), size.height());
        QPainter painter(&strip);
        for (int i = 0; i < colors.size(); ++i) {
            painter.fillRect(i * size.width(), 0, size.width(), size.height(), colors[i]);
        }
        painter.end();
        images.set(member, std::make_unique<KPixmapSet>(strip, size,
                                                        static_cast<int>(colors.size()), false));
    }

    QImage blank() const
    {
        QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(untouched);
        return image;
    }
    QImage draw(Drawing const & drawing)
    {
        QImage image = blank();
        texts.setDevice(&image);
        {
            KPainter painter(&image);
            painter.translate(-offset.x(), -offset.y());
            painter.setFont(font);
            drawing(painter);
        }
        texts.setDevice(nullptr);
        return image;
    }
    // The rows at `place` and below it.
    QImage paint(std::vector<IGCRow *> const & drawnRows, DrawnRow place = standing())
    {
        return draw([&](KPainter & painter) {
            PaintPass pass(&painter, context, shown);
            for (IGCRow * row : drawnRows) {
                CDrawRowVisitor visitor(pass, shown, place);
                row->Accept(&visitor);
                place.y += place.height;
            }
        });
    }
    // A row of 20 pixels in the middle of its siblings.
    static DrawnRow standing()
    {
        DrawnRow place;
        place.height = 20;
        return place;
    }

    // The element rectangles of a cell at the top of the contents.
    CElementRects rectsOf(CGCColumn * column, char const * text, int height = 20, int level = 0)
    {
        CElementRects rects;
        CellInputs inputs;
        inputs.images = &images;
        inputs.texts = &texts;
        inputs.font = &font;
        inputs.text = text;
        inputs.level = level;
        inputs.indent = context.indent;
        inputs.width = column->width;
        inputs.height = height;
        CGetElementPos position(inputs, &rects);
        column->Accept(&position);
        rects.translate(column->left, 0);
        return rects;
    }

    QColor color(GCColor number) const { return context.colors[number]; }

    QSize size{120, 40};
    QPoint offset; // of the contents
    double ratio = 1;
    QFont font;
    ColumnSet columns;
    std::vector<CGCColumn *> shown;
    std::vector<IGCRow *> rows; // owned
    KGridImages images;
    LastRows lastRows;
    TextCache texts;
    CDrawContext context;
};

inline QColor lineColor()
{
    return KPainter::getSysColor(11);
}

// The half-tone as the rules give it: white, and every other pixel in the colour.
inline void halfTone(QPainter & painter, QRect const & rect, QColor const & color)
{
    painter.fillRect(rect, Qt::white);
    painter.fillRect(rect, QBrush(color, Qt::Dense4Pattern));
}

inline void glyph(QPainter & painter, GridGlyph index, QPoint const & at)
{
    makeGridGlyphs()->drawImage(&painter, index, at.x(), at.y(), 9, 9);
}

// Inside the rectangle, one pixel wide.
inline void outline(QPainter & painter, QRect const & rect, QColor const & color)
{
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height(), color);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), color);
}

// A left-aligned text that is not cut.
inline void textAt(QPainter & painter, QRect const & rect, QColor const & color, char const * text)
{
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignVCenter | Qt::TextSingleLine, QString::fromLatin1(text));
}

// The width of what is left of a text that does not fit, 0 for one that does.
inline int cutWidth(CElementRects const & rects)
{
    return rects.fitted && rects.fitted->isCut() ? rects.fitted->fitWidth : 0;
}

// Where two pictures differ, empty when they are equal.
inline QString difference(QImage const & actual, QImage const & expected)
{
    if (actual.size() != expected.size()) {
        return QStringLiteral("sizes differ");
    }
    QRect bounds;
    int count = 0;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y)) {
                bounds |= QRect(x, y, 1, 1);
                ++count;
            }
        }
    }
    if (count == 0) {
        return {};
    }
    if (qEnvironmentVariableIsSet("ZENU_TEST_PICTURES")) {
        actual.save(QStringLiteral("actual.png"));
        expected.save(QStringLiteral("expected.png"));
    }
    return QStringLiteral("%1 pixels differ within (%2,%3 %4x%5), first is %6 and should be %7")
        .arg(count)
        .arg(bounds.x())
        .arg(bounds.y())
        .arg(bounds.width())
        .arg(bounds.height())
        .arg(QColor(actual.pixel(bounds.topLeft())).name(),
             QColor(expected.pixel(bounds.topLeft())).name());
}

} // namespace zenutest

#define COMPARE_PICTURES(actual, expected)                                                         \
    QCOMPARE(zenutest::difference((actual), (expected)), QString())

// Columns of pixel ratios for data-driven tests.
inline void addPixelRatios()
{
    QTest::addColumn<double>("ratio");
    for (double const ratio : {1.0, 1.25, 1.5, 2.0}) {
        QTest::addRow("ratio %g", ratio) << ratio;
    }
}
