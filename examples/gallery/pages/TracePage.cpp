#include "examples/gallery/Page.h"

#include <zenu/util/Trace.h>

#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
// Shows the messages instead of the standard error stream.
class Messages : public QWidget
{
public:
    Messages()
    {
        s_shown = &m_list;
        m_before = zenu::setTraceOutput(
            [](char const * message) { s_shown->appendPlainText(QString::fromLatin1(message)); });
        trace();
    }
    ~Messages() override { zenu::setTraceOutput(m_before); }

    void trace()
    {
        zenu::Trace("", "%d. Everyone reads this", ++m_count);
        zenu::Trace("somebody", "%d. Only somebody reads this", m_count);
    }
    // [code]

protected:
    QPlainTextEdit m_list;

private:
    static inline QPointer<QPlainTextEdit> s_shown;
    zenu::TraceOutput m_before = nullptr;
    int m_count = 0;
};

class MessagesPage : public Messages
{
public:
    MessagesPage()
    {
        auto * const button = new QPushButton(tr("Trace"));
        button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, [this] { trace(); });
        m_list.setReadOnly(true);
        m_list.setFixedHeight(100);
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(button);
        layout->addWidget(&m_list);
    }
};

QWidget * makeMessages()
{
    return new MessagesPage;
}

} // namespace

Page tracePage()
{
    return {"Trace",
            "Messages for one developer, who is known by the login name.",
            {"Trace.h"},
            makeMessages};
}

} // namespace gallery
