#pragma once

#include <QCoreApplication>
#include <QPaintEvent>

namespace bench {

constexpr int windowWidth = 1600;
constexpr int windowHeight = 1000;
constexpr int rowHeight = 20; // of all, so that all show as many rows

// Eight columns fill the window; more are as narrow as they must be.
constexpr int columnWidth(int columns)
{
    return windowWidth / (columns > 8 ? columns : 8);
}

// A widget that counts what it paints, so that a frame is known to be in the backing store.
template <typename Widget>
class Counted : public Widget
{
public:
    using Widget::Widget;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent * event) override
    {
        Widget::paintEvent(event);
        ++paints;
    }
};

// Lets the event loop turn until the widget has painted. False if it never does.
template <typename Widget>
bool frame(Counted<Widget> & widget)
{
    int const before = widget.paints;
    for (int turn = 0; widget.paints == before; ++turn) {
        if (turn == 100) {
            return false;
        }
        QCoreApplication::processEvents();
    }
    return true;
}

// Lets the event loop turn until nothing is painted any more.
template <typename Widget>
void settle(Counted<Widget> & widget)
{
    int before = 0;
    do {
        before = widget.paints;
        for (int turn = 0; turn < 3; ++turn) {
            QCoreApplication::processEvents();
        }
    } while (widget.paints != before);
}

} // namespace bench
