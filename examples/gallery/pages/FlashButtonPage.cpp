#include "examples/gallery/Page.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/widgets/KFlashButton.h>

#include <QCoreApplication>
#include <QEnterEvent>
#include <QGridLayout>
#include <QLabel>

namespace gallery {

namespace {

// [code]
class Pictures : public QWidget
{
public:
    Pictures()
        : m_layout(this)
    {
        m_layout.setContentsMargins(0, 0, 0, 0);
        for (int i = 0; i < shapeCount; ++i) {
            auto * const button = new zenu::KFlashButton(shape(i, 48));
            connect(button, &zenu::KFlashButton::hilited, this, [=, this] { tell(i, "hilited"); });
            connect(button, &zenu::KFlashButton::unhilited, this,
                    [=, this] { tell(i, "unhilited"); });
            connect(button, &zenu::KFlashButton::clicked, this, [=, this] { tell(i, "clicked"); });
            m_layout.addWidget(button, 0, i);
        }
        m_layout.addWidget(&m_told, 1, 0, 1, shapeCount + 1);
        m_layout.setColumnStretch(shapeCount, 1);
    }

private:
    void tell(int button, char const * signal)
    {
        m_told.setText(QStringLiteral("Button %1: %2").arg(button + 1).arg(QLatin1String(signal)));
    }

    QGridLayout m_layout;
    QLabel m_told;
};
// [code]

class PicturesPage : public Pictures, public PictureScene
{
    void pose() override
    {
        QPointF const inside(5, 5);
        QEnterEvent enter(inside, inside, inside);
        QCoreApplication::sendEvent(findChildren<zenu::KFlashButton *>().at(1), &enter);
    }
};

QWidget * makePictures()
{
    return new PicturesPage;
}

} // namespace

Page flashButtonPage()
{
    return {"FlashButton",
            "Pictures that are buttons; the mouse is over the second one.",
            {"KFlashButton"},
            makePictures};
}

} // namespace gallery
