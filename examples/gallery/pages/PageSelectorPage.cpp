#include "examples/gallery/Page.h"
#include "examples/gallery/support/Popups.h"

#include <zenu/widgets/KPageSelector.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
class Sheets : public QWidget
{
public:
    Sheets()
        : m_selector(nullptr, 3, 4)
    {
        connect(&m_selector, &zenu::KPageSelector::pageRangeSelected, this,
                [this](int rows, int columns) {
                    m_told.setText(tr("%1 down and %2 across").arg(rows).arg(columns));
                });
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_told);
        layout->addWidget(new OpenButton(tr("Choose pages"), m_selector));
        layout->addStretch();
    }
    // [code]

protected:
    zenu::KPageSelector m_selector;
    QLabel m_told{tr("How many pages on a sheet?")};
};

class SheetsPage : public Sheets, public PictureScene
{
    void pose() override
    {
        for (int const key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&m_selector, &press);
        }
    }
};

QWidget * makeSheets()
{
    return new SheetsPage;
}

} // namespace

Page pageSelectorPage()
{
    return {"PageSelector",
            "A menu in which pages are chosen by moving over them.",
            {"KPageSelector"},
            makeSheets};
}

} // namespace gallery
