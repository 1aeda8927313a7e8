#pragma once

#include <zenu/grid/KGridCtrl.h>

#include <functional>
#include <string>

class QLineEdit;

namespace gallery {

// An expression as it is written, and as it is evaluated.
#define SHOW(expression) #expression, gallery::shown(expression)

// Values as a reader expects them.
std::string shown(bool value);
std::string shown(double value);
std::string shown(char const * text);
std::string shown(std::string const & text);
std::string shown(QPoint const & point);
std::string shown(QSize const & size);
std::string shown(QRect const & rect);
std::string shown(QColor const & color);
std::string shown(QString const & text);
template <std::integral Number>
std::string shown(Number number)
{
    return std::to_string(number);
}

// A grid of expressions and what they give.
class ValueGrid : public zenu::KGridCtrl
{
public:
    explicit ValueGrid(QWidget * parent = nullptr);

    // Appends a row; used with SHOW.
    void add(char const * expression, std::string const & value);

    // All rows and both columns.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    zenu::tag_HCOLUMN * m_expression;
    zenu::tag_HCOLUMN * m_value;
};

// A field to type into, and the values that follow from its text.
class TypedValues : public QWidget
{
public:
    using Fill = std::function<void(ValueGrid & values, std::string const & text)>;
    TypedValues(QString const & label, char const * text, Fill fill);

private:
    void show(QString const & text);

    ValueGrid * m_values;
    Fill m_fill;
};

} // namespace gallery
