#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/time/TimeValue.h"

#include <QLineEdit>

namespace zenu {

class TimeTextValidator;

/// A line edit for a time with its unit. What is typed counts when the focus leaves and at Return;
/// it is then written anew with three decimals: "1.50ms" becomes "1.5 ms". A bare number counts as
/// zero and comes back as "0 ?". GUI thread only.
class ZENU_EXPORT KTimeEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// Empty, with an invalid time at 1 femtosecond, in nanoseconds, and takes no sign. A null
    /// `name` leaves the object without a name.
    explicit KTimeEdit(QWidget * parent = nullptr, char const * name = nullptr);
    ~KTimeEdit() override;

    /// Takes a time and shows it in the present unit. Emits nothing.
    void setValue(TimeValue const & value);
    TimeValue getValue() const;

    /// Shows the time in a unit, at the finest in the smallest that the resolution allows.
    /// `unknown` is taken, too: it counts as the greatest. The time stays. Emits nothing.
    void setUnit(TimeUnit const & unit);
    TimeUnit getUnit() const;

    /// Whether a sign may be typed; false at first.
    void setSigned(bool isSigned);

    /// The widget as an object.
    QObject * qObject();

Q_SIGNALS:
    /// The user has changed the time.
    void timeChanged();

protected:
    void focusOutEvent(QFocusEvent * event) override;

private Q_SLOTS:
    void pressedReturn();

private:
    void updateValue();
    void showValue();

    TimeValue m_value;
    TimeUnit m_unit{TimeUnit::ns};
    TimeTextValidator * m_validator; // a child
};

} // namespace zenu
