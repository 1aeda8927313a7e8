#include "zenu/time/inner/TimeTextValidator.h"

#include "zenu/time/TimeValue.h"

namespace zenu {

TimeTextValidator::TimeTextValidator(bool isSigned, QObject * parent)
    : QRegularExpressionValidator(QRegularExpression(QLatin1String(
                                      isSigned ? TimeValue::s_rxSigned : TimeValue::s_rxUnsigned)),
                                  parent)
{
}

QValidator::State TimeTextValidator::validate(QString & input, int & pos) const
{
    State const state = QRegularExpressionValidator::validate(input, pos);
    return state == Invalid && input == m_shownText ? Intermediate : state;
}

} // namespace zenu
