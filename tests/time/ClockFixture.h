#pragma once

#include <zenu/time/KClockWidget.h>
#include <zenu/widgets/KValueButton.h>

#include <QtTest/QtTest>
#include <QtWidgets/QLineEdit>

#include <cstdlib>

namespace zenutest {

// The numbers of the layout, worked out once more from the rule.
struct ClockRule
{
    static constexpr int margin = 5;

    explicit ClockRule(QWidget const & clock)
    {
        QFontMetrics const metrics(clock.font(), &clock);
        auto const measure = [&](char const * text) {
            return metrics
                .boundingRect(QRect(0, 0, 2000, 2000), Qt::AlignLeft | Qt::AlignTop,
                              QString::fromLatin1(text))
                .size();
        };
        int const w = clock.contentsRect().width();
        int const h = clock.contentsRect().height();
        E = measure("000000").height() + 2;
        OW = measure("000000").width() + 2;
        PW = measure("000000000").width() + 2;
        FW = measure("Frequency:").width() + 2;
        L = T = E + 2 * margin;
        WH = h - 2 * (E + 2 * margin);
        OG = int(double(w - 3 * margin - PW - E - OW) * (1.0 / 6.0));
        int const sum = w - 3 * margin - 2 * OG - PW - OW - E;
        HP = sum / 2;
        OW += std::abs(sum) % 2;
        K = int(double(h) * (1.0 / 30.0));
    }
    int pulse(int filling) const { return int((PW + 2 * HP) * double(filling) * 0.01); }
    // The middle of the edge, where the mouse takes the handle.
    QPoint edge(int filling) const { return QPoint(pulse(filling) + 2 * OG + L + OW, WH / 2 + T); }

    int E, OW, PW, FW, L, T, WH, OG, HP, K;
};

// A clock and its parts.
struct ClockScene
{
    ClockScene()
    {
        clock.resize(520, 240);
        auto edits = clock.findChildren<QLineEdit *>();
        offset = edits.at(0);
        period = edits.at(1);
        frequency = edits.at(2);
        high = clock.findChildren<zenu::KValueButton *>().at(0);
        low = clock.findChildren<zenu::KValueButton *>().at(1);
    }
    bool show()
    {
        clock.show();
        return QTest::qWaitForWindowExposed(&clock);
    }
    QString texts() const
    {
        return offset->text() + QStringLiteral(" | ") + period->text() + QStringLiteral(" | ") +
               frequency->text();
    }
    // What the user does.
    static void type(QLineEdit * edit, QString const & text)
    {
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void press(QPoint const & place) { QTest::mousePress(&clock, Qt::LeftButton, {}, place); }
    void drag(QPoint const & place)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(place), clock.mapToGlobal(QPointF(place)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&clock, &move);
    }
    void release(QPoint const & place) { QTest::mouseRelease(&clock, Qt::LeftButton, {}, place); }
    ClockRule expected() const { return ClockRule(clock); }

    zenu::KClockWidget clock;
    QLineEdit * offset;
    QLineEdit * period;
    QLineEdit * frequency;
    zenu::KValueButton * high;
    zenu::KValueButton * low;
};

} // namespace zenutest
