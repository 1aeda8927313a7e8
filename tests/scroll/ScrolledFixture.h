#pragma once

#include <zenu/scroll/KScrolledWidget.h>

#include <QtGui/QResizeEvent>

#include <functional>

namespace zenutest {

// Writes every call down, and answers and scrolls as a test says.
class Scrolled : public zenu::KScrolledWidget
{
public:
    using KScrolledWidget::KScrolledWidget;

    bool OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll) override
    {
        calls << QStringLiteral("%1 %2 %3 %4").arg(hCode).arg(vCode).arg(pos).arg(doScroll);
        if (scroll)
            scroll(hCode, vCode);
        return answer;
    }
    int contentsWidth() const override { return contents.width(); }
    int contentsHeight() const override { return contents.height(); }

    void resizeWithin(QSize const & size)
    {
        resize(size);
        QResizeEvent event(size, size);
        resizeEvent(&event);
    }

    void paintEvent(QPaintEvent *) override { ++paints; }

    QSize contents{0, 0};
    int paints = 0;
    QStringList calls;
    bool answer = true;
    std::function<void(int, int)> scroll;
};

} // namespace zenutest
