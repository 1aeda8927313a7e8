#pragma once

#include "zenu/ZenuExport.h"

#include <QObject>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QString>

class QKeyEvent;
class QLineEdit;
class QSpinBox;
class QWheelEvent;

namespace zenu {

/// The validator of a KSpinBoxWrapper: what it lets pass becomes the wrapper's text at once.
class ZENU_EXPORT KSpinBoxValidator : public QRegularExpressionValidator
{
    Q_OBJECT

public:
    /// `text` must outlive the validator. A null or empty `regexp` lets every text pass.
    KSpinBoxValidator(char const * regexp, QString * text, QSpinBox * box, QObject * parent);

    State validate(QString & input, int & pos) const override;

private:
    QString * m_text;
    QPointer<QSpinBox> m_box;
};

/// Makes a field for free text with two arrows of an ordinary spin box: the arrows only report that
/// they were pressed, and the text is what its owner sets or the user types.
///
/// The box's integer rests at -1, the end of a range of -1 to 1, where a spin box shows its special
/// value text. The box stays its owner's and must not be used as a spin box any more; once it is
/// deleted the wrapper does nothing. GUI thread only.
class ZENU_EXPORT KSpinBoxWrapper : public QObject
{
    Q_OBJECT

public:
    /// Changes validator, wrapping, range, value and special value text of the box. The text is a
    /// placeholder: set one next. `regexp` is what may be typed, from the first to the last
    /// character.
    KSpinBoxWrapper(QSpinBox & box, char const * regexp, QObject * parent);
    ~KSpinBoxWrapper() override;

    /// Shows a Latin-1 text, which the expression need not accept; null is the empty text.
    void setString(char const * text);
    /// The text as set or typed, in Latin-1, never null; see qstring2chars for how long it lives.
    char const * getString() const;

    /// The wrapper as an object.
    QObject * qObject();

    bool eventFilter(QObject * object, QEvent * event) override;

Q_SIGNALS:
    /// The arrow was pressed: by the mouse, a key or the wheel.
    void up();
    void down();

private Q_SLOTS:
    void valueChanged(int value);

private:
    bool takeKey(QKeyEvent * event);
    void step(int steps);
    void takeWheel(QWheelEvent * event);
    void takeTyped(QString const & text);

    QString m_text;
    QPointer<QSpinBox> m_box;
    QPointer<QLineEdit> m_editor;
    KSpinBoxValidator * m_validator; // a child
    int m_wheelRest = 0;             // eighths of a degree that make no notch yet
    bool m_isReporting = false;      // up or down is on its way
};

} // namespace zenu
