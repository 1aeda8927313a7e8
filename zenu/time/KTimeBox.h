#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/time/TimeValue.h"

#include <QSpinBox>

namespace zenu {

class TimeTextValidator;

/// A spin box for a time with its unit. An arrow key, a press on an arrow and a notch of the wheel
/// step by one of the current unit; what is typed counts when the focus leaves, at Return, and
/// before a step.
///
/// The integer of the spin box carries no meaning: it rests at 0, in a range of -1 to 1, and its
/// signals valueChanged and textChanged are not emitted. Listen to timeChanged. GUI thread only.
class ZENU_EXPORT KTimeBox : public QSpinBox
{
    Q_OBJECT

public:
    /// Holds an invalid time at 1 femtosecond, which reads "<error>", in an unknown unit, and takes
    /// no sign. A null `name` leaves the object without a name.
    explicit KTimeBox(QWidget * parent = nullptr, char const * name = nullptr);
    ~KTimeBox() override;

    /// Takes a time, and its best unit. Emits nothing.
    void setValue(TimeValue const & value);
    /// The time as last set, stepped or taken from the text.
    TimeValue getValue() const;

    /// Shows the time in a unit, at the finest in the smallest that the resolution allows;
    /// `unknown` changes nothing. The time stays. Emits nothing.
    void setUnit(TimeUnit const & unit);
    /// The unit of the next step; after text without a unit behind its first number it is unknown,
    /// and a step is one femtosecond then.
    TimeUnit getUnit() const;

    /// Whether a sign may be typed and steps go below zero; false at first.
    void setSigned(bool isSigned);

    /// One step. It is refused, and the text is merely written anew, when the sum would overflow; a
    /// step down also when it would make the time of an unsigned box negative, or when that is
    /// negative already.
    void up();
    void down();

    /// Takes the time and unit of the text, with the rules of TimeValue::set, and then shows the
    /// time in its best unit with three decimals: digits beyond these are lost. Text too large for
    /// a time changes nothing.
    virtual void interpretText();

    /// The widget as an object.
    QObject * qObject();

    // The integer of the base, one notch or key at a time.
    void stepBy(int steps) override;

Q_SIGNALS:
    /// The user has changed the time.
    void timeChanged();

protected:
    /// Writes the time in the box's unit into the editor.
    void valueToEdit();

    void focusOutEvent(QFocusEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    StepEnabled stepEnabled() const override;
    QString textFromValue(int value) const override;
    int valueFromText(QString const & text) const override;
    QValidator::State validate(QString & input, int & pos) const override;
    void fixup(QString & input) const override;

private:
    void showText(QString const & text);
    void store(TimeValue const & value);
    void keepAtRest(int value);

    TimeValue m_value;
    TimeUnit m_unit;
    TimeTextValidator * m_validator; // a child
    QString m_shownText;             // what the editor says when nothing is typed
    bool m_signed = false;
};

} // namespace zenu
