#pragma once

#include <zenu/header/IHeaderNotification.h>
#include <zenu/header/KHeader.h>

#include <QWidget>

#include <functional>

// A header over an empty area that stands for the list it would belong to. It places the header,
// shows one sort arrow at a time when an item is clicked, fits an item to its title on a double
// click on the divider, and reports every gesture as a line of text.
class HeaderStrip : public QWidget, private zenu::IHeaderNotification
{
public:
    explicit HeaderStrip(std::function<void(QString const &)> report, QWidget * parent = nullptr);
    ~HeaderStrip() override;

    zenu::KHeader & header() { return *m_header; }

    // Adds an item with the given title and width.
    int add(char const * title, int width, int fmt = zenu::HeaderFormatText, int minWidth = 24);

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent * event) override;

private:
    bool onBeginTrack(int item, int * wh) override;
    bool onTrack(int item, int * wh) override;
    void onItemClick(int item) override;
    void onItemRightClick(int item) override;
    void onItemDoubleClick(int item) override;
    void onDividerDoubleClick(int item) override;
    void onDrawItem(zenu::KPainter * painter, int index, QRect * rect, bool pressed,
                    unsigned int lParam) override;

    void report(QString const & what, int item);

    zenu::KHeader * m_header;
    std::function<void(QString const &)> m_report;
};
