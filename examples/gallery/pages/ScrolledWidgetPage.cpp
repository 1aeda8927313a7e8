#include "examples/gallery/Page.h"

#include <zenu/scroll/KScrolledWidget.h>

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace gallery {

namespace {

// [code]
// A large board of which a part is seen. It scrolls itself, as the bars ask it to.
class Board : public zenu::KScrolledWidget
{
public:
    Board()
    {
        setHScrollBarMode(AsNeeded);
        setVScrollBarMode(AsNeeded);
    }

    int contentsWidth() const override { return 2000; }
    int contentsHeight() const override { return 1000; }

    bool OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll) override
    {
        int const across = wanted(*getHScrollBar(), m_origin.x(), hCode, pos);
        int const down = wanted(*getVScrollBar(), m_origin.y(), vCode, pos);
        QPoint const origin(across, down);
        bool const moves = origin != m_origin;
        if (moves && doScroll) {
            m_origin = origin;
            getHScrollBar()->setValue(origin.x());
            getVScrollBar()->setValue(origin.y());
            update();
        }
        return moves;
    }

private:
    static int wanted(QScrollBar const & bar, int now, int code, unsigned int pos)
    {
        switch (code) {
        case ScrollLineBack:
            return std::max(now - bar.singleStep(), 0);
        case ScrollLineForward:
            return std::min(now + bar.singleStep(), bar.maximum());
        case ScrollPageBack:
            return std::max(now - bar.pageStep(), 0);
        case ScrollPageForward:
            return std::min(now + bar.pageStep(), bar.maximum());
        case ScrollThumb:
            return int(pos);
        default:
            return now;
        }
    }
    // [code]
    void resizeEvent(QResizeEvent * event) override
    {
        KScrolledWidget::resizeEvent(event);
        setRange(*getHScrollBar(), contentsWidth(), getClientRect().width());
        setRange(*getVScrollBar(), contentsHeight(), getClientRect().height());
    }

    static void setRange(QScrollBar & bar, int contents, int seen)
    {
        bar.setRange(0, std::max(contents - seen, 0));
        bar.setPageStep(seen);
        bar.setSingleStep(20);
    }

    void paintEvent(QPaintEvent *) override
    {
        constexpr int side = 80;
        QPainter painter(this);
        painter.setClipRect(getClientRect());
        painter.translate(-m_origin);
        painter.fillRect(0, 0, contentsWidth(), contentsHeight(), palette().base());
        painter.setPen(palette().color(QPalette::Text));
        for (int y = 0; y < contentsHeight(); y += side) {
            for (int x = 0; x < contentsWidth(); x += side) {
                QRect const field(x, y, side, side);
                bool const dark = (x + y) / side % 2 != 0;
                painter.fillRect(field, dark ? palette().alternateBase() : palette().base());
                painter.drawText(field, Qt::AlignCenter,
                                 QStringLiteral("%1, %2").arg(x / side).arg(y / side));
            }
        }
    }

    QPoint m_origin; // of what is seen, in the contents
};

class BoardPage : public Board, public PictureScene
{
public:
    BoardPage() { setMinimumHeight(200); }
    void pose() override
    {
        getHScrollBar()->setValue(300);
        getVScrollBar()->setValue(150);
    }
};

QWidget * makeBoard()
{
    return new BoardPage;
}

} // namespace

Page scrolledWidgetPage()
{
    return {"ScrolledWidget",
            "A widget that is told each gesture on its scroll bars.",
            {"KScrolledWidget"},
            makeBoard};
}

} // namespace gallery
