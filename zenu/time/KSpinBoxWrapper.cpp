#include "zenu/time/KSpinBoxWrapper.h"

#include "zenu/overlay/NarrowText.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSpinBox>
#include <QWheelEvent>

namespace zenu {

namespace {

constexpr int restingValue = -1; // where the box shows its special value text
constexpr int notch = 120;       // of a wheel, in eighths of a degree

QLineEdit * editorOf(QSpinBox const & box)
{
    return box.findChild<QLineEdit *>(QStringLiteral("qt_spinbox_lineedit"));
}

} // namespace

KSpinBoxValidator::KSpinBoxValidator(char const * regexp, QString * text, QSpinBox * box,
                                     QObject * parent)
    : QRegularExpressionValidator(QRegularExpression(QString::fromLatin1(regexp ? regexp : "")),
                                  parent)
    , m_text(text)
    , m_box(box)
{
}

// Asked by the box's editor, which has taken the input already, the special value text follows when
// the editor is done: setting it in here would set the editor's text in the midst of an edit, and
// lose what can be undone. While the box is on its way back from a step its number is no input.
QValidator::State KSpinBoxValidator::validate(QString & input, int & pos) const
{
    State const state = QRegularExpressionValidator::validate(input, pos);
    bool const isText = m_box && m_box->value() == restingValue;
    if (state == Invalid || !isText || input == *m_text) {
        return state;
    }
    *m_text = input;
    QLineEdit const * const editor = editorOf(*m_box);
    if (!editor || editor->text() != input) {
        m_box->setSpecialValueText(input);
    }
    return state;
}

KSpinBoxWrapper::KSpinBoxWrapper(QSpinBox & box, char const * regexp, QObject * parent)
    : QObject(parent)
    , m_text(QStringLiteral("Dupny12"))
    , m_box(&box)
    , m_editor(editorOf(box))
    , m_validator(new KSpinBoxValidator(regexp, &m_text, &box, this))
{
    if (m_editor) {
        // The box must not read a number out of what is typed: a typed 1 is text and no step.
        disconnect(m_editor, &QLineEdit::textChanged, &box, nullptr);
        connect(m_editor, &QLineEdit::textChanged, this, &KSpinBoxWrapper::takeTyped);
    }
    box.setWrapping(true);
    box.setRange(restingValue, 1);
    box.setValue(restingValue);
    setString(m_text.toLatin1().constData());
    if (m_editor) {
        m_editor->setValidator(m_validator);
    }
    box.installEventFilter(this);
    connect(&box, &QSpinBox::valueChanged, this, &KSpinBoxWrapper::valueChanged);
}

KSpinBoxWrapper::~KSpinBoxWrapper() = default;

void KSpinBoxWrapper::setString(char const * text)
{
    m_text = chars2qstring(text);
    if (m_box) {
        m_box->setSpecialValueText(m_text);
    }
    if (m_editor && m_editor->text() != m_text) { // a cleared box does not follow its special text
        m_editor->setText(m_text);
    }
}

char const * KSpinBoxWrapper::getString() const
{
    return qstring2chars(m_text);
}

QObject * KSpinBoxWrapper::qObject()
{
    return this;
}

bool KSpinBoxWrapper::eventFilter(QObject * object, QEvent * event)
{
    if (object != m_box) {
        return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        return takeKey(static_cast<QKeyEvent *>(event));
    case QEvent::Wheel:
        takeWheel(static_cast<QWheelEvent *>(event));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // With the modifier of large steps a step would pass the end of the range.
        static_cast<QMouseEvent *>(event)->setModifiers(Qt::NoModifier);
        return false;
    default:
        return false;
    }
}

// An arrow that is held steps on while a slot runs the event loop: from where the box stands then,
// its next number would mean the other arrow.
void KSpinBoxWrapper::valueChanged(int value)
{
    if (m_isReporting || (value != 0 && value != 1)) {
        return;
    }
    m_isReporting = true;
    QPointer<KSpinBoxWrapper> const self(this);
    if (value == 0) {
        Q_EMIT up();
    } else {
        Q_EMIT down();
    }
    if (!self) {
        return;
    }
    if (m_box) {
        m_box->setValue(restingValue);
    }
    m_isReporting = false;
}

// Every key that steps makes one step; Return ends the edit and does not read a number from the
// text.
bool KSpinBoxWrapper::takeKey(QKeyEvent * event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        step(1);
        return true;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        step(-1);
        return true;
    case Qt::Key_Control:
    case Qt::Key_Shift:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
        event->ignore(); // the box would make large steps of an arrow that is held
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->ignore(); // the default button of a dialog has it
        m_box->selectAll();
        Q_EMIT m_box->editingFinished();
        return true;
    default:
        return false;
    }
}

void KSpinBoxWrapper::step(int steps)
{
    if (!m_box->isReadOnly()) {
        m_box->stepBy(steps);
    }
}

void KSpinBoxWrapper::takeWheel(QWheelEvent * event)
{
    m_wheelRest += event->angleDelta().y();
    int const notches = m_wheelRest / notch;
    m_wheelRest -= notches * notch;
    if (notches != 0) {
        step(notches > 0 ? 1 : -1);
    }
    event->accept();
}

// The editor lets a refused text stand where the one before was refused, too: then that one comes
// back.
void KSpinBoxWrapper::takeTyped(QString const & text)
{
    if (!m_box || m_box->value() != restingValue) {
        return;
    }
    if (text == m_text) {
        m_box->setSpecialValueText(text);
    } else {
        m_editor->setText(m_text);
    }
}

} // namespace zenu
