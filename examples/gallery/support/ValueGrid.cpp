#include "examples/gallery/support/ValueGrid.h"

#include "examples/gallery/support/GridHelp.h"

#include <zenu/overlay/NarrowText.h>
#include <zenu/util/StringUtils.h>

#include <QFormLayout>
#include <QLineEdit>

#include <utility>

namespace gallery {

std::string shown(bool value)
{
    return value ? "true" : "false";
}

std::string shown(double value)
{
    return zenu::num2string(value);
}

std::string shown(char const * text)
{
    return text == nullptr ? "null" : '"' + std::string(text) + '"';
}

std::string shown(std::string const & text)
{
    return '"' + text + '"';
}

std::string shown(QPoint const & point)
{
    return '(' + shown(point.x()) + ", " + shown(point.y()) + ')';
}

std::string shown(QSize const & size)
{
    return shown(size.width()) + " x " + shown(size.height());
}

std::string shown(QRect const & rect)
{
    return shown(rect.topLeft()) + ", " + shown(rect.size());
}

std::string shown(QColor const & color)
{
    return zenu::qstring2chars(color.name());
}

std::string shown(QString const & text)
{
    return shown(zenu::qstring2chars(text));
}

ValueGrid::ValueGrid(QWidget * parent)
    : KGridCtrl(parent, 0, "values", 0, zenu::GCS_HORZLINES | zenu::GCS_VERTLINES)
    , m_expression(AddColumn("Expression", 0, 10))
    , m_value(AddColumn("Value", 0, 10))
{
    setVScrollBarMode(AsNeeded);
    setHScrollBarMode(AsNeeded);
}

void ValueGrid::add(char const * expression, std::string const & value)
{
    zenu::tag_HROW * const row = InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
    SetItemText(row, m_expression, expression);
    SetItemText(row, m_value, value.c_str());
    UpdateVisibleRows();
    fitColumns(*this);
}

QSize ValueGrid::sizeHint() const
{
    return QSize(300, heightOf(*this, int(GetExpandedCount())));
}

TypedValues::TypedValues(QString const & label, char const * text, Fill fill)
    : m_values(new ValueGrid)
    , m_fill(std::move(fill))
{
    auto * const field = new QLineEdit(QString::fromLatin1(text));
    auto * const layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addRow(label, field);
    layout->addRow(m_values);
    connect(field, &QLineEdit::textChanged, this, &TypedValues::show);
    show(field->text());
}

void TypedValues::show(QString const & text)
{
    m_values->DeleteAllRows();
    m_fill(*m_values, zenu::qstring2chars(text));
    m_values->UpdateVisibleRows();
    m_values->update();
}

} // namespace gallery
