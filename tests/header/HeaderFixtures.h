#pragma once

#include <zenu/header/IHeaderNotification.h>
#include <zenu/header/KHeader.h>

#include <QtTest/QtTest>

#include <functional>
#include <memory>

namespace zenutest {

// A header with its protected operations in reach.
class TestHeader : public zenu::KHeader
{
public:
    using KHeader::KHeader;

    using KHeader::calculateFixed;
    using KHeader::calculatePercent;
    using KHeader::canTrack;
    using KHeader::doTrack;
    using KHeader::drawDragLine;
    using KHeader::getOrderArray;
    using KHeader::m_hcrNoDragOver;
    using KHeader::m_hcrVertSplit;
    using KHeader::postItemsChange;
    using KHeader::prepareTrack;
    using KHeader::proportionateAllItems;
    using KHeader::setResizeCursor;
    using KHeader::trackDivider;

    // What paint events were told to paint, put together.
    QRegion painted;
    int cursorCalls = 0;
    std::function<void()> onCursor;

    void addItems(std::vector<int> const & widths, int fmt = zenu::HeaderFormatText, int minWH = 0)
    {
        for (int const wh : widths) {
            QByteArray const name = "T" + QByteArray::number(getItemsCount());
            insertItem(-1, zenu::KHeaderItem(name.constData(), nullptr, fmt, minWH, wh, 0));
        }
    }

    QString widths() const
    {
        QStringList list;
        for (int i = 0; i < getItemsCount(); ++i) {
            list << QString::number(getItem(i)->getWH());
        }
        return list.join(u' ');
    }

    QString order() const
    {
        std::vector<int> array(static_cast<std::size_t>(getItemsCount()));
        getOrderArray(getItemsCount(), array.data());
        QStringList list;
        for (int i = 0; i < getItemsCount(); ++i) {
            list << QString::number(array[std::size_t(i)]);
        }
        return list.join(u' ');
    }

protected:
    void paintEvent(QPaintEvent * event) override
    {
        painted += event->region();
        KHeader::paintEvent(event);
    }

    void onSetCursor(QMouseEvent * event) override
    {
        ++cursorCalls;
        KHeader::onSetCursor(event);
        if (onCursor) {
            onCursor();
        }
    }
};

// Writes every call down, and answers and acts as a test says.
class Recorder : public zenu::IHeaderNotification
{
public:
    QStringList calls;
    bool refuseBegin = false;
    bool cancelTrack = false;
    std::function<void()> act; // runs in every call
    std::function<void(zenu::KPainter *, QRect *)> draw;

    QString taken()
    {
        QString const text = calls.join(QStringLiteral("; "));
        calls.clear();
        return text;
    }

    void onLeftButtonDown() override { note(QStringLiteral("left")); }
    void onRightButtonDown() override { note(QStringLiteral("right")); }
    void onDoubleClick() override { note(QStringLiteral("double")); }
    bool onBeginTrack(int item, int * wh) override
    {
        note(QStringLiteral("begin %1 %2").arg(item).arg(*wh));
        return refuseBegin;
    }
    bool onTrack(int item, int * wh) override
    {
        note(QStringLiteral("track %1 %2").arg(item).arg(*wh));
        return cancelTrack;
    }
    bool onEndTrack(int item, int * wh) override
    {
        note(QStringLiteral("end %1 %2").arg(item).arg(*wh));
        return true;
    }
    void onItemClick(int item) override { note(QStringLiteral("click %1").arg(item)); }
    void onItemRightClick(int item) override { note(QStringLiteral("rightclick %1").arg(item)); }
    void onItemDoubleClick(int item) override { note(QStringLiteral("doubleclick %1").arg(item)); }
    void onDividerDoubleClick(int item) override { note(QStringLiteral("divider %1").arg(item)); }
    void onFocusIn() override { note(QStringLiteral("in")); }
    void onFocusOut() override { note(QStringLiteral("out")); }
    void onDrawItem(zenu::KPainter * painter, int index, QRect * rect, bool pressed,
                    unsigned int lParam) override
    {
        note(QStringLiteral("draw %1 %2 %3").arg(index).arg(pressed).arg(lParam));
        if (draw) {
            draw(painter, rect);
        }
    }

private:
    void note(QString const & call)
    {
        calls << call;
        if (act) {
            act();
        }
    }
};

// A header 400 x 20 on a shown window, with a recorder.
struct ShownHeader
{
    explicit ShownHeader(std::vector<int> const & widths = {}, int width = 400)
        : header(new TestHeader(&window))
    {
        window.resize(600, 60);
        header->setGeometry(0, 0, width, 20);
        header->setNotification(&recorder);
        header->addItems(widths);
    }

    ~ShownHeader()
    {
        if (held != Qt::NoButton) {
            QTest::mouseRelease(window.windowHandle(), held, {}, QPoint(500, 50));
        }
    }

    // Separate, so that options can be set first and QVERIFY can tell.
    bool show()
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowExposed(&window) || !QTest::qWaitForWindowActive(&window)) {
            return false;
        }
        // Away from the header: a move to where the mouse is already would not be delivered.
        QTest::mouseMove(window.windowHandle(), QPoint(550, 50));
        return true;
    }

    // These go the way of the window system's events.
    void press(int x, Qt::MouseButton button = Qt::LeftButton, int y = 10)
    {
        QTest::mousePress(window.windowHandle(), button, {}, header->pos() + QPoint(x, y));
        held = button;
    }
    void move(int x, int y = 10)
    {
        QTest::mouseMove(window.windowHandle(), header->pos() + QPoint(x, y));
    }
    void release(int x)
    {
        QTest::mouseRelease(window.windowHandle(), std::exchange(held, Qt::NoButton), {},
                            header->pos() + QPoint(x, 10));
    }
    void doubleClick(int x) { QTest::mouseDClick(header, Qt::LeftButton, {}, QPoint(x, 10)); }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(header, &event);
    }

    Recorder recorder;
    QWidget window;
    QPointer<TestHeader> header;
    Qt::MouseButton held = Qt::NoButton;
};

inline QString dump(zenu::KHeaderHitInfo const & hit)
{
    QString text = QStringLiteral("item=%1").arg(hit.item);
    text += hit.nowhere ? QStringLiteral(" nowhere") : QString();
    text += hit.onDivider ? QStringLiteral(" divider") : QString();
    text += hit.onDividerNoWidth ? QStringLiteral(" nowidth") : QString();
    text += hit.outside ? QStringLiteral(" outside=%1").arg(hit.outside) : QString();
    return text;
}

inline void paintPending()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

inline bool resizeCursorShown()
{
    return QApplication::overrideCursor() &&
           QApplication::overrideCursor()->shape() == Qt::SplitHCursor;
}

} // namespace zenutest
