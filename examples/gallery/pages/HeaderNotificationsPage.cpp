#include "examples/gallery/Page.h"

#include <zenu/header/IHeaderNotification.h>
#include <zenu/header/KHeader.h>
#include <zenu/overlay/KPainter.h>

#include <QLabel>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
// Clicks sort, one item may not be resized, and another one is drawn here.
class Titles : public QWidget, private zenu::IHeaderNotification
{
public:
    Titles()
        : m_header(this)
    {
        for (char const * const title : {"Click to sort", "Click to sort", "Not resized"}) {
            m_header.insertItem(
                -1, zenu::KHeaderItem(title, nullptr, zenu::HeaderFormatText, 40, 150, 0));
        }
        m_header.insertItem(
            -1, zenu::KHeaderItem("", nullptr, zenu::HeaderFormatOwnerDraw, 40, 120, 0));
        m_header.setButtons(true);
        m_header.setNotification(this);
        onItemClick(0);
    }
    ~Titles() override { m_header.setNotification(nullptr); }

private:
    bool onBeginTrack(int item, int *) override { return item == 2; }
    void onItemClick(int item) override
    {
        bool const up = m_header.getItem(item)->getFmt() & zenu::HeaderFormatSortFirst;
        for (int i = 0; i < 2; ++i) {
            m_header.setSortBitmap(i, i != item ? zenu::HeaderSortNone
                                      : up      ? zenu::HeaderSortSecond
                                                : zenu::HeaderSortFirst);
        }
        m_told.setText(tr("Item %1 was clicked").arg(item));
    }
    void onDrawItem(zenu::KPainter * painter, int, QRect * rect, bool, unsigned int) override
    {
        QLinearGradient colors(rect->topLeft(), rect->topRight());
        colors.setColorAt(0, zenu::KPainter::getSysColor(7));
        colors.setColorAt(1, zenu::KPainter::getSysColor(10));
        painter->fillRect(*rect, colors);
    }
    // [code]

protected:
    zenu::KHeader m_header;
    QLabel m_told;
};

class TitlesPage : public Titles
{
public:
    TitlesPage()
    {
        m_header.setFixedHeight(m_header.getLayout(QRect(0, 0, 100, 0)).height());
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_header);
        layout->addWidget(&m_told);
    }
};

QWidget * makeTitles()
{
    return new TitlesPage;
}

} // namespace

Page headerNotificationsPage()
{
    return {"HeaderNotifications",
            "What a header tells its client, and an item that draws itself.",
            {"IHeaderNotification"},
            makeTitles};
}

} // namespace gallery
