#pragma once

#include "zenu/time/KClockWidget.h"
#include "zenu/time/clock/ClockDrawing.h"

class QLineEdit;

namespace zenu {

class KValueButton;

struct KClockWidget::PrivateData
{
    static constexpr long long smallestPeriod = 2; // femtoseconds

    explicit PrivateData(KClockWidget * widget);

    // From its start: the first digits of a text that is too long for the edit are the ones to see.
    static void write(QLineEdit & edit, QString const & text);
    static void writeTime(QLineEdit & edit, long long femtoseconds);
    static void writeInvalid(QLineEdit & edit);
    // Numbers that are not valid are written as the -1 that is kept.
    void writeTimes();
    // Neither period nor frequency is valid; the edit says so, which the mark keeps from being
    // read.
    void writeInvalidPair(QLineEdit & edit, bool & ignoreChange);

    // The rectangle in which a press takes the handle.
    QRect handle() const { return layout.hitRect(layout.pulse(filling)); }
    bool canDragTo(int x, int pulse) const;
    void dragTo(int x);
    void showCursor(QPoint const & place);
    void updatePart(QRect const & part);
    void placeParts();

    KClockWidget * owner;
    // The next change of the edit comes from the other view of the number. A text that does not
    // change leaves the mark in place, and the user's next change of that edit is swallowed.
    bool ignorePeriodChange = false;
    bool ignoreFrequencyChange = false;
    bool highStart = false;
    long long offset = 0;           // femtoseconds; -1: not valid
    long long period = 100'000'000; // femtoseconds; -1: not valid
    long long minimalPeriod = smallestPeriod;
    double frequency = 1.0; // MHz; -1: not valid
    long long filling = 50; // percent
    bool dragging = false;
    ClockLayout layout;
    QLineEdit * offsetEdit;
    QLineEdit * periodEdit;
    QLineEdit * frequencyEdit;
    KValueButton * highButton;
    KValueButton * lowButton;
};

} // namespace zenu
