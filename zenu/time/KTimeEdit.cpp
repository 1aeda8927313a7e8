#include "zenu/time/KTimeEdit.h"

#include "zenu/overlay/NarrowText.h"
#include "zenu/time/inner/ShownTime.h"
#include "zenu/time/inner/TimeTextValidator.h"

#include <QPointer>

namespace zenu {

KTimeEdit::KTimeEdit(QWidget * parent, char const * name)
    : QLineEdit(parent)
    , m_validator(new TimeTextValidator(false, this))
{
    setObjectName(QString::fromLatin1(name));
    setValidator(m_validator);
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::returnPressed, this, &KTimeEdit::pressedReturn);
}

KTimeEdit::~KTimeEdit() = default;

void KTimeEdit::setValue(TimeValue const & value)
{
    m_value = value;
    showValue();
}

TimeValue KTimeEdit::getValue() const
{
    return m_value;
}

void KTimeEdit::setUnit(TimeUnit const & unit)
{
    m_unit = showableUnit(unit, m_value);
    showValue();
}

TimeUnit KTimeEdit::getUnit() const
{
    return m_unit;
}

void KTimeEdit::setSigned(bool isSigned)
{
    delete m_validator;
    m_validator = new TimeTextValidator(isSigned, this);
    m_validator->setShownText(text());
    setValidator(m_validator);
}

QObject * KTimeEdit::qObject()
{
    return this;
}

void KTimeEdit::focusOutEvent(QFocusEvent * event)
{
    QPointer<KTimeEdit> const self(this);
    QLineEdit::focusOutEvent(event);
    if (self) {
        updateValue();
    }
}

void KTimeEdit::pressedReturn()
{
    updateValue();
}

// Leaves the default unit raised to what this edit's resolution can show. Applications rely on it:
// zero reads the same in their other edits from then on.
void KTimeEdit::updateValue()
{
    TimeUnit::EUnit const savedDefault = TimeUnit::defaultUnit();
    TimeUnit::setDefaultUnit(m_unit);
    QByteArray const typedText = qstring2chars(text());
    TimeValue typed(0LL, m_value.multiplier());
    typed.set(typedText.constData());
    bool changed = false;
    if (typed.valid()) {
        changed = typed != m_value;
        m_value = typed;
        m_unit = TimeValue::readUnit(typedText.constData());
    }
    TimeUnit::setDefaultUnit(showableUnit(savedDefault, m_value));
    QPointer<KTimeEdit> const self(this);
    showValue();
    if (changed && self) {
        Q_EMIT timeChanged();
    }
}

// What reads the same already keeps its selection: the context menu takes the focus, and copies
// what is selected.
void KTimeEdit::showValue()
{
    QString const shownText = shownTime(m_value, m_unit);
    m_validator->setShownText(shownText);
    if (text() != shownText) {
        setText(shownText);
    }
}

} // namespace zenu
