#pragma once

#include <QRegularExpressionValidator>
#include <QString>

namespace zenu {

/// Lets pass what TimeValue's expressions let pass. What the widget itself shows, such as "<error>"
/// or a negative time where no sign may be typed, is not acceptable and not refused either: it is
/// the ground to which an edit that is refused goes back.
class TimeTextValidator : public QRegularExpressionValidator
{
public:
    TimeTextValidator(bool isSigned, QObject * parent);

    /// The text that the widget has set.
    void setShownText(QString const & text) { m_shownText = text; }

    State validate(QString & input, int & pos) const override;

private:
    QString m_shownText;
};

} // namespace zenu
