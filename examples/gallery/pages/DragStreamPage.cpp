#include "examples/gallery/Page.h"

#include <zenu/events/KDragStream.h>
#include <zenu/events/KDropStream.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>

namespace gallery {

namespace {

// [code]
char const * const countType = "application/x-gallery-count";

// A field with a number that is dragged into another one: moved, or copied with Control.
class Field : public QLabel
{
public:
    explicit Field(qint32 count)
    {
        setAcceptDrops(true);
        setCount(count);
    }

private:
    void mouseMoveEvent(QMouseEvent *) override
    {
        auto * const drag = new zenu::KDragStream(countType, this, "count");
        *drag << m_count << QStringLiteral("apples");
        if (drag->drag() == zenu::DropEffect::DropEffectMove) {
            setCount(0);
        }
    }
    void dragEnterEvent(QDragEnterEvent * event) override
    {
        event->setAccepted(event->mimeData()->hasFormat(countType));
    }
    void dropEvent(QDropEvent * event) override
    {
        qint32 count = 0;
        QString what;
        zenu::KDropStream payload(countType, *event->mimeData());
        payload >> count >> what;
        setCount(m_count + count);
        event->acceptProposedAction();
    }
    void mousePressEvent(QMouseEvent *) override {} // or the press would go to the page

    void setCount(qint32 count)
    {
        m_count = count;
        setText(tr("%1 apples").arg(count));
    }

    qint32 m_count = 0;
};
// [code]

QWidget * makeFields()
{
    auto * const page = new QWidget;
    auto * const layout = new QHBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int const count : {5, 0}) {
        auto * const field = new Field(count);
        field->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        field->setAlignment(Qt::AlignCenter);
        field->setMinimumHeight(80);
        layout->addWidget(field);
    }
    return page;
}

} // namespace

Page dragStreamPage()
{
    return {"DragStream",
            "A drag whose payload is a data stream: drag the apples over.",
            {"KDragStream", "KDropStream"},
            makeFields};
}

} // namespace gallery
