#include "examples/gallery/Page.h"

#include <zenu/events/KSlotForwarderBase.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
// No QObject, and still told of each click.
struct Count
{
    int clicks = 0;
    QLabel * told = nullptr;
};

class Forwarder : public zenu::KSlotForwarderBase
{
public:
    Forwarder(Count & count, QObject * parent)
        : KSlotForwarderBase(parent)
        , m_count(count)
    {
    }

private:
    void forward() override
    {
        m_count.told->setText(QStringLiteral("Clicked %1 times").arg(++m_count.clicks));
    }

    Count & m_count;
};

class Counted : public QWidget
{
public:
    Counted()
    {
        m_count.told = &m_told;
        auto * const forwarder = new Forwarder(m_count, this);
        connect(&m_button, &QPushButton::clicked, forwarder, &zenu::KSlotForwarderBase::slot);
    }
    // [code]

protected:
    Count m_count;
    QPushButton m_button{tr("Click")};
    QLabel m_told{tr("Not clicked yet")};
};

class CountedPage : public Counted
{
public:
    CountedPage()
    {
        m_button.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_button);
        layout->addWidget(&m_told);
    }
};

QWidget * makeCounted()
{
    return new CountedPage;
}

} // namespace

Page slotForwarderPage()
{
    return {"SlotForwarder",
            "A signal that ends in a class that is no QObject.",
            {"KSlotForwarderBase"},
            makeCounted};
}

} // namespace gallery
