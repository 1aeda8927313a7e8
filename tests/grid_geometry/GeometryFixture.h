#pragma once

#include <zenu/grid/geometry/CElementRects.h>
#include <zenu/grid/look/KGridImages.h>

#include <QFont>
#include <QFontMetrics>
#include <QString>

#include <algorithm>
#include <memory>

namespace zenutest {

// A set of images of one size; what they show does not matter here.
inline std::unique_ptr<zenu::KPixmapSet> images(int width, int height)
{
    QPixmap strip(width * 2, height);
    strip.fill(Qt::red);
    return std::make_unique<zenu::KPixmapSet>(strip, QSize(width, height), 2, false);
}

// All elements that a cell has, each by its inclusive edges: "cell=0,0,99,16 editor=2,0,98,16".
inline QString dump(zenu::CElementRects const & rects)
{
    struct Named
    {
        char const * name;
        QRect rect;
    };
    Named const all[] = {
        {"cell", rects.cellRect},     {"indent", rects.indentRect}, {"button", rects.buttonRect},
        {"image", rects.imageRect},   {"text", rects.textRect},     {"full", rects.fullTextRect},
        {"check", rects.checkRect},   {"drop", rects.dropRect},     {"lead", rects.leadRect},
        {"editor", rects.editorRect},
    };
    QStringList parts;
    for (Named const & element : all) {
        if (!element.rect.isNull()) {
            parts << QStringLiteral("%1=%2,%3,%4,%5")
                         .arg(QLatin1String(element.name))
                         .arg(element.rect.left())
                         .arg(element.rect.top())
                         .arg(element.rect.right())
                         .arg(element.rect.bottom());
        }
    }
    if (rects.treeOffset != 0) {
        parts << QStringLiteral("offset=%1").arg(rects.treeOffset);
    }
    return parts.join(QLatin1Char(' '));
}

struct NaiveFit
{
    int count = 0;
    int width = 0;
};

// The rule of the fit, step by step: lowers the count by one until the text fits with its dots.
inline NaiveFit naiveFit(QFont const & font, QString const & text, int room, bool fromEnd)
{
    QFontMetrics const metrics(font);
    int const length = static_cast<int>(text.size());
    auto const measured = [&](int count) {
        QString const kept = fromEnd ? text.right(count) : text.left(count);
        int const width = metrics.boundingRect(kept).width();
        return width > 0 || count == 1 ? width : metrics.horizontalAdvance(kept);
    };
    int count = length > room / 2 ? std::min(length, room / 2 + 1) : length;
    count = std::max(count, 0);
    int width = count > 0 ? measured(count) : 0;
    if (width <= room) {
        return {count, width};
    }
    int const dots = metrics.boundingRect(QStringLiteral("...")).width();
    while (count >= 1) {
        --count;
        width = count > 0 ? measured(count) : 0;
        if (width + dots <= room) {
            break;
        }
    }
    return {count, width};
}

} // namespace zenutest
