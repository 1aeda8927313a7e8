#pragma once

#include "zenu/ZenuExport.h"

#include <QFrame>

#include <memory>

namespace zenu {

/// A form for one clock signal: a drawing of a single period, with edits for offset, period and
/// frequency, a handle that is dragged for the duty cycle, and two buttons for the level at the
/// start.
///
/// Times are femtoseconds and frequencies MHz, all as double. Period and frequency are two views of
/// one number: period times frequency is 1e9. A number out of its range shows as "????" and is kept
/// as -1. An edit's text, with three decimals of a time and six of a frequency, is what counts: a
/// setter writes it, and what it then says is what the getter gives. The widget has no signals:
/// owners read its state when they need it. GUI thread only.
class ZENU_EXPORT KClockWidget : public QFrame
{
    Q_OBJECT

public:
    /// 100 ns, 10MHz, no offset, 50 percent, low at the start. A null `name` leaves the object
    /// without a name.
    explicit KClockWidget(QWidget * parent = nullptr, char const * name = nullptr);
    ~KClockWidget() override;

    /// The time from the start to the first period: 0 to 3.6e18, -1 when it is not valid.
    double getOffset();
    void setOffset(double offset);

    /// The length of a period: the minimal period to 3.6e18, -1 when it is not valid. Drags the
    /// frequency along.
    double getPeriod();
    void setPeriod(double period);

    /// Above 0 and at most 5e8, the frequency of 2 femtoseconds; -1 when it is not valid. Drags the
    /// period along.
    double getFrequency();
    void setFrequency(double frequency);

    /// What a period must have at least: 2 at first, and 2 to 3.6e18, to which other numbers are
    /// moved. The present period is not tested again.
    double getMinimalPeriod();
    void setMinimalPeriod(double period);

    /// The share of the first level in a period, in percent. A drag keeps it in 1 to 99; set, any
    /// number is kept and painted as it is.
    int getFillingWith1();
    void setFillingWith1(int percent);

    /// Whether the period starts high; false at first.
    bool getHighStartValue();
    void setHighStartValue(bool high);

    /// The colour behind the drawing and the three edits: at first that of the palette for edits.
    virtual void setBackgroundColor(QColor const & color);

    /// Room for the drawing in the present font.
    QSize sizeHint() const override;

    /// The widget as an object.
    QObject * qObject();

public Q_SLOTS:
    // What the edits and buttons call. The texts are read from the edits, not from the arguments.

    /// Takes the period from its edit, and shows its frequency.
    void changedPeriod(QString const & text);
    /// Takes the frequency from its edit, and shows its period.
    void changedFrequency(QString const & text);
    /// Takes the offset from its edit.
    void changedOffset(QString const & text);
    /// Lets the clock start low.
    void buttonLowClicked();
    /// Lets the clock start high.
    void buttonHighClicked();

protected:
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void changeEvent(QEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;

private:
    struct PrivateData;
    std::unique_ptr<PrivateData> m_data;
};

} // namespace zenu
