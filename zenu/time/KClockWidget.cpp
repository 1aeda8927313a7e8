#include "zenu/time/KClockWidget.h"

#include "zenu/overlay/NarrowText.h"
#include "zenu/time/Frequency.h"
#include "zenu/time/TimeValue.h"
#include "zenu/time/clock/ClockPicture.h"
#include "zenu/time/clock/KClockWidgetPrivate.h"
#include "zenu/widgets/KValueButton.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zenu {

namespace {

constexpr long long largestTime = 3'600'000'000'000'000'000; // femtoseconds
constexpr double largestFrequency = 5e8;                     // MHz: that of the smallest period
constexpr double periodTimesFrequency = 1e9;

bool isTime(double value, long long least)
{
    return value >= static_cast<double>(least) && value <= static_cast<double>(largestTime);
}

bool isFrequency(double value)
{
    return value > 0 && value <= largestFrequency;
}

TimeValue timeOf(QLineEdit const & edit)
{
    return TimeValue(qstring2chars(edit.text()), 1.0);
}

void setBackground(QWidget & widget, QColor const & color)
{
    QPalette palette = widget.palette();
    palette.setColor(widget.backgroundRole(), color);
    widget.setPalette(palette);
}

} // namespace

KClockWidget::KClockWidget(QWidget * parent, char const * name)
    : QFrame(parent)
    , m_data(new PrivateData(this))
{
    setObjectName(QString::fromLatin1(name));
    setMouseTracking(true);
    setAutoFillBackground(true);
    connect(m_data->offsetEdit, &QLineEdit::textChanged, this, &KClockWidget::changedOffset);
    connect(m_data->frequencyEdit, &QLineEdit::textChanged, this, &KClockWidget::changedFrequency);
    connect(m_data->periodEdit, &QLineEdit::textChanged, this, &KClockWidget::changedPeriod);
    connect(m_data->highButton, &KValueButton::clicked, this, &KClockWidget::buttonHighClicked);
    connect(m_data->lowButton, &KValueButton::clicked, this, &KClockWidget::buttonLowClicked);
    KClockWidget::setBackgroundColor(
        m_data->periodEdit->palette().color(m_data->periodEdit->backgroundRole()));
    m_data->writeTimes();
    m_data->highButton->setChecked(false);
    m_data->lowButton->setChecked(true);
}

KClockWidget::~KClockWidget() = default;

double KClockWidget::getOffset()
{
    return static_cast<double>(m_data->offset);
}

// The mark for an invalid offset reads as zero: it is set last.
void KClockWidget::setOffset(double offset)
{
    if (isTime(offset, 0)) {
        m_data->offset = static_cast<long long>(offset);
        PrivateData::writeTime(*m_data->offsetEdit, m_data->offset);
    } else {
        PrivateData::writeInvalid(*m_data->offsetEdit);
        m_data->offset = -1;
    }
    update();
}

double KClockWidget::getPeriod()
{
    return static_cast<double>(m_data->period);
}

void KClockWidget::setPeriod(double period)
{
    if (isTime(period, m_data->minimalPeriod)) {
        m_data->period = static_cast<long long>(period);
        PrivateData::writeTime(*m_data->periodEdit, m_data->period);
    } else {
        m_data->writeInvalidPair(*m_data->periodEdit, m_data->ignorePeriodChange);
    }
    update();
}

double KClockWidget::getFrequency()
{
    return m_data->frequency;
}

void KClockWidget::setFrequency(double frequency)
{
    if (isFrequency(frequency)) {
        m_data->frequency = frequency;
        PrivateData::write(*m_data->frequencyEdit,
                           QString::fromStdString(Frequency::Double2String(frequency)));
    } else {
        m_data->writeInvalidPair(*m_data->frequencyEdit, m_data->ignoreFrequencyChange);
    }
    update();
}

double KClockWidget::getMinimalPeriod()
{
    return static_cast<double>(m_data->minimalPeriod);
}

void KClockWidget::setMinimalPeriod(double period)
{
    double const limit = std::clamp(std::isnan(period) ? 0.0 : period,
                                    static_cast<double>(PrivateData::smallestPeriod),
                                    static_cast<double>(largestTime));
    m_data->minimalPeriod = static_cast<long long>(limit);
}

int KClockWidget::getFillingWith1()
{
    return static_cast<int>(m_data->filling);
}

void KClockWidget::setFillingWith1(int percent)
{
    m_data->filling = percent;
    update();
}

bool KClockWidget::getHighStartValue()
{
    return m_data->highStart;
}

// The two buttons are a pair of which one is on.
void KClockWidget::setHighStartValue(bool high)
{
    if (m_data->highStart != high) {
        m_data->highStart = high;
        update();
    }
    m_data->highButton->setChecked(high);
    m_data->lowButton->setChecked(!high);
}

void KClockWidget::setBackgroundColor(QColor const & color)
{
    setBackground(*this, color);
    setBackground(*m_data->periodEdit, color);
    setBackground(*m_data->frequencyEdit, color);
    setBackground(*m_data->offsetEdit, color);
}

QSize KClockWidget::sizeHint() const
{
    ClockMeasures const measures = ClockMeasures::of(QFontMetrics(font(), this));
    int const edits = measures.offsetWidth + 2 * measures.periodWidth;
    int const rows = 3 * (measures.editHeight + 2 * clockMargin);
    return QSize(2 * edits, 2 * rows) + QSize(2 * frameWidth(), 2 * frameWidth());
}

QObject * KClockWidget::qObject()
{
    return this;
}

// The user's typing stays in the edit that is read; the other view of the number is written.
void KClockWidget::changedPeriod(QString const &)
{
    if (m_data->ignorePeriodChange) {
        m_data->ignorePeriodChange = false;
        return;
    }
    TimeValue const typed = timeOf(*m_data->periodEdit);
    auto const count = static_cast<double>(typed.internal());
    if (!typed.valid() || !isTime(count, m_data->minimalPeriod)) {
        m_data->writeInvalidPair(*m_data->frequencyEdit, m_data->ignoreFrequencyChange);
        return;
    }
    m_data->period = typed.internal();
    if (m_data->period != 0 && count * m_data->frequency != periodTimesFrequency) {
        m_data->frequency = periodTimesFrequency / count;
        m_data->ignoreFrequencyChange = true;
        setFrequency(m_data->frequency);
    }
}

void KClockWidget::changedFrequency(QString const &)
{
    if (m_data->ignoreFrequencyChange) {
        m_data->ignoreFrequencyChange = false;
        return;
    }
    double typed = 0;
    bool const isRead = Frequency::String2Double(
        &typed, nullptr, qstring2chars(m_data->frequencyEdit->text()), Frequency::MHz);
    if (!isRead || !isFrequency(typed)) {
        m_data->writeInvalidPair(*m_data->periodEdit, m_data->ignorePeriodChange);
        return;
    }
    m_data->frequency = typed;
    if (static_cast<double>(m_data->period) * typed == periodTimesFrequency) {
        return;
    }
    double const period = periodTimesFrequency / typed;
    double const whole = std::floor(period);
    m_data->ignorePeriodChange = true;
    setPeriod(period - whole < 0.5 ? whole : std::ceil(period));
}

void KClockWidget::changedOffset(QString const &)
{
    TimeValue const typed = timeOf(*m_data->offsetEdit);
    bool const isOffset = typed.valid() && typed.internal() >= 0 && typed.internal() <= largestTime;
    m_data->offset = isOffset ? typed.internal() : -1;
    ClockLayout const & layout = m_data->layout;
    int const middle = layout.waveHeight / 2 + layout.waveTop;
    update(QRect(layout.waveLeft, middle - 1,
                 layout.offsetWidth + 2 * layout.offsetGap + layout.waveLeft, middle + 2));
}

void KClockWidget::buttonLowClicked()
{
    setHighStartValue(false);
}

void KClockWidget::buttonHighClicked()
{
    setHighStartValue(true);
}

void KClockWidget::paintEvent(QPaintEvent * event)
{
    {
        QPainter painter(this);
        QPoint const frame = contentsRect().topLeft();
        painter.translate(frame);
        ClockPicture(painter, m_data->layout, frame).draw(m_data->filling, m_data->highStart);
    }
    QFrame::paintEvent(event);
}

void KClockWidget::resizeEvent(QResizeEvent * event)
{
    m_data->placeParts();
    m_data->writeTimes();
    QFrame::resizeEvent(event);
}

void KClockWidget::changeEvent(QEvent * event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_data->placeParts();
        updateGeometry();
        update();
    }
}

void KClockWidget::mouseMoveEvent(QMouseEvent * event)
{
    QPoint const place = event->position().toPoint();
    if (m_data->dragging && event->buttons() & Qt::LeftButton) {
        m_data->dragTo(place.x());
    } else {
        m_data->showCursor(place);
    }
}

void KClockWidget::mousePressEvent(QMouseEvent * event)
{
    if (!m_data->dragging && m_data->handle().contains(event->position().toPoint())) {
        m_data->dragging = true;
        setCursor(Qt::SizeHorCursor);
    }
}

void KClockWidget::mouseReleaseEvent(QMouseEvent * event)
{
    m_data->dragging = false;
    if (m_data->handle().contains(event->position().toPoint())) {
        setCursor(Qt::SizeHorCursor);
    }
}

} // namespace zenu
