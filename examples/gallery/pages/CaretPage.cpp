#include "examples/gallery/Page.h"
#include "examples/gallery/support/Canvas.h"

#include <zenu/overlay/KCaret.h>

#include <QKeyEvent>
#include <QMouseEvent>

namespace gallery {

namespace {

// [code]
class Place : public Canvas
{
public:
    Place()
        : m_caret(nullptr, &layer(), QSize(3, 28), 530)
    {
        setFocusPolicy(Qt::StrongFocus);
        m_caret.setColor(palette().color(QPalette::Text));
        m_caret.moveTo(QPoint(120, 66));
        m_caret.showCaret();
    }

private:
    void moveCaret(int x)
    {
        m_caret.moveTo(QPoint(x, 66));
        m_caret.holdCaret(); // no blinking on the way
        layer().update();
    }
    void mousePressEvent(QMouseEvent * event) override { moveCaret(event->pos().x()); }
    void keyPressEvent(QKeyEvent * event) override
    {
        int const step = event->key() == Qt::Key_Left ? -5 : event->key() == Qt::Key_Right ? 5 : 0;
        moveCaret(m_caret.pos().x() + step);
    }

protected:
    zenu::KCaret m_caret;
};
// [code]

class PlacePage : public Place, public PictureScene
{
    void pose() override
    {
        m_caret.show();
        layer().update();
    }
};

QWidget * makePlace()
{
    return new PlacePage;
}

} // namespace

Page caretPage()
{
    return {"Caret",
            "A caret that blinks over a picture; click, or use the arrow keys.",
            {"KCaret"},
            makePlace};
}

} // namespace gallery
