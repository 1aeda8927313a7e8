#include "zenu/time/clock/KClockWidgetPrivate.h"

#include "zenu/time/inner/ShownTime.h"
#include "zenu/widgets/KValueButton.h"

#include <QLineEdit>

namespace zenu {

KClockWidget::PrivateData::PrivateData(KClockWidget * widget)
    : owner(widget)
    , offsetEdit(new QLineEdit(QStringLiteral("0"), widget))
    , periodEdit(new QLineEdit(QStringLiteral("1"), widget))
    , frequencyEdit(new QLineEdit(QStringLiteral("1"), widget))
    , highButton(new KValueButton(u'1', widget))
    , lowButton(new KValueButton(u'0', widget))
{
    for (QLineEdit * edit : {offsetEdit, periodEdit, frequencyEdit}) {
        edit->setFrame(true);
    }
}

void KClockWidget::PrivateData::write(QLineEdit & edit, QString const & text)
{
    if (edit.text() == text) {
        return; // which would say nothing, and move the cursor
    }
    edit.setText(text);
    if (!edit.hasFocus()) {
        edit.setCursorPosition(0);
    }
}

void KClockWidget::PrivateData::writeTime(QLineEdit & edit, long long femtoseconds)
{
    write(edit, shownTime(TimeValue(femtoseconds, 1.0)));
}

void KClockWidget::PrivateData::writeInvalid(QLineEdit & edit)
{
    write(edit, QStringLiteral("????"));
}

void KClockWidget::PrivateData::writeTimes()
{
    writeTime(*offsetEdit, offset);
    writeTime(*periodEdit, period);
}

void KClockWidget::PrivateData::writeInvalidPair(QLineEdit & edit, bool & ignoreChange)
{
    frequency = -1;
    period = -1;
    ignoreChange = true;
    writeInvalid(edit);
}

// At the ends a mouse beyond the drawing moves nothing.
bool KClockWidget::PrivateData::canDragTo(int x, int pulse) const
{
    bool const beyondRight = x > owner->contentsRect().right() && filling == 99;
    bool const beyondLeft = x < layout.periodStart() && filling == 1;
    bool const moves = x - pulse - layout.periodStart() != 0;
    return moves && !beyondRight && !beyondLeft && layout.periodLength() > 0;
}

void KClockWidget::PrivateData::dragTo(int x)
{
    int const before = layout.pulse(filling);
    if (!canDragTo(x, before)) {
        return;
    }
    int const delta = x - before - layout.periodStart();
    filling += static_cast<int>(100.0 / layout.periodLength() * delta);
    if (filling >= 100) {
        filling = 99;
    } else if (filling <= 0) {
        filling = 1;
    }
    updatePart(layout.strip(before, layout.pulse(filling)));
    updatePart(layout.waveInterior());
}

void KClockWidget::PrivateData::showCursor(QPoint const & place)
{
    owner->setCursor(handle().contains(place) ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

// The drawing is moved by the frame, the rectangles are not.
void KClockWidget::PrivateData::updatePart(QRect const & part)
{
    owner->update(part | part.translated(owner->contentsRect().topLeft()));
}

void KClockWidget::PrivateData::placeParts()
{
    QFontMetrics const metrics(owner->font(), owner);
    layout = ClockLayout(ClockMeasures::of(metrics), owner->contentsRect().size());
    offsetEdit->setGeometry(layout.offsetEdit());
    periodEdit->setGeometry(layout.periodEdit());
    frequencyEdit->setGeometry(layout.frequencyEdit());
    highButton->setGeometry(layout.highButton());
    lowButton->setGeometry(layout.lowButton());
}

} // namespace zenu
