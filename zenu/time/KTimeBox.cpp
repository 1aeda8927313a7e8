#include "zenu/time/KTimeBox.h"

#include "zenu/overlay/NarrowText.h"
#include "zenu/time/inner/DefaultUnit.h"
#include "zenu/time/inner/ShownTime.h"
#include "zenu/time/inner/TimeTextValidator.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>

namespace zenu {

KTimeBox::KTimeBox(QWidget * parent, char const * name)
    : QSpinBox(parent)
    , m_validator(new TimeTextValidator(false, this))
{
    setObjectName(QString::fromLatin1(name));
    setKeyboardTracking(false);
    setRange(-1, 1);
    QSpinBox::setValue(0);
    lineEdit()->setValidator(m_validator);
    showText(shownTime(m_value));
    connect(this, &QSpinBox::valueChanged, this, &KTimeBox::keepAtRest);
}

KTimeBox::~KTimeBox() = default;

void KTimeBox::setValue(TimeValue const & value)
{
    m_value = value;
    m_unit = value.bestUnit();
    valueToEdit();
}

TimeValue KTimeBox::getValue() const
{
    return m_value;
}

void KTimeBox::setUnit(TimeUnit const & unit)
{
    if (unit != TimeUnit::unknown) {
        m_unit = showableUnit(unit, m_value);
    }
    valueToEdit();
}

TimeUnit KTimeBox::getUnit() const
{
    return m_unit;
}

void KTimeBox::setSigned(bool isSigned)
{
    delete m_validator;
    m_validator = new TimeTextValidator(isSigned, this);
    m_validator->setShownText(m_shownText);
    lineEdit()->setValidator(m_validator);
    m_signed = isSigned;
}

void KTimeBox::up()
{
    TimeValue sum = m_value;
    sum += TimeValue(1.0, m_unit, m_value.multiplier());
    bool const overflow = !m_value.negative() && sum.negative();
    if (overflow) {
        valueToEdit();
    } else {
        store(sum);
    }
}

// A subtraction that wraps from negative to positive is refused, too.
void KTimeBox::down()
{
    TimeValue difference = m_value;
    difference -= TimeValue(1.0, m_unit, m_value.multiplier());
    if (difference.negative() ? m_signed : !m_value.negative()) {
        store(difference);
    } else {
        valueToEdit();
    }
}

void KTimeBox::interpretText()
{
    QByteArray const text = qstring2chars(lineEdit()->text());
    TimeValue typed(0LL, m_value.multiplier());
    {
        DefaultUnit const unit(m_unit);
        typed.set(text.constData());
    }
    bool const changed = typed.valid() && typed != m_value;
    if (typed.valid()) {
        m_value = typed;
        m_unit = showableUnit(TimeValue::readUnit(text.constData()), m_value);
    }
    showText(shownTime(m_value));
    if (changed) {
        Q_EMIT timeChanged();
    }
}

QObject * KTimeBox::qObject()
{
    return this;
}

void KTimeBox::stepBy(int steps)
{
    if (steps == 0) { // a part of a notch of the wheel
        return;
    }
    QPointer<KTimeBox> const self(this);
    if (lineEdit()->isModified()) {
        interpretText();
    }
    if (!self) {
        return;
    }
    if (steps > 0) {
        up();
    } else {
        down();
    }
}

void KTimeBox::valueToEdit()
{
    showText(shownTime(m_value, m_unit));
}

void KTimeBox::focusOutEvent(QFocusEvent * event)
{
    QPointer<KTimeBox> const self(this);
    interpretText();
    if (self) {
        QSpinBox::focusOutEvent(event); // stops the arrows, too
    }
}

void KTimeBox::keyPressEvent(QKeyEvent * event)
{
    QPointer<KTimeBox> const self(this);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        interpretText();
    }
    if (self) {
        QSpinBox::keyPressEvent(event);
    }
}

QAbstractSpinBox::StepEnabled KTimeBox::stepEnabled() const
{
    return isReadOnly() ? StepEnabled(StepNone) : StepUpEnabled | StepDownEnabled;
}

// The base writes this whenever it thinks that the editor is behind, which would lose what is typed
// in a box that is hidden. The ends of the range are never shown: the base measures them, for its
// size.
QString KTimeBox::textFromValue(int value) const
{
    return value == 0 ? lineEdit()->text() : QStringLiteral("-999.999 sec");
}

int KTimeBox::valueFromText(QString const &) const
{
    return 0;
}

QValidator::State KTimeBox::validate(QString & input, int & pos) const
{
    return m_validator->validate(input, pos);
}

void KTimeBox::fixup(QString &) const {}

// What reads the same already keeps its selection: the editor's context menu takes the focus, and
// copies what is selected.
void KTimeBox::showText(QString const & text)
{
    m_shownText = text;
    m_validator->setShownText(m_shownText);
    if (lineEdit()->text() == m_shownText) {
        lineEdit()->setModified(false);
        return;
    }
    QSignalBlocker const quiet(lineEdit());
    lineEdit()->setText(m_shownText);
}

void KTimeBox::store(TimeValue const & value)
{
    m_value = value;
    valueToEdit();
    Q_EMIT timeChanged();
}

// Someone has set the integer through the base: that is an arrow, too.
void KTimeBox::keepAtRest(int value)
{
    if (value == 0) {
        return;
    }
    {
        QSignalBlocker const quiet(this);
        QSpinBox::setValue(0);
    }
    stepBy(value);
}

} // namespace zenu
