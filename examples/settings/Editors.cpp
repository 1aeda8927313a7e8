#include "Editors.h"

#include "Fills.h"

#include <zenu/overlay/NarrowText.h>

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

#include <algorithm>
#include <array>

using zenu::KConfig;

namespace {

// A field of colour over squares, which show how much of it one can look through.
QIcon swatch(QWidget const & widget, QColor const & color)
{
    qreal const ratio = widget.devicePixelRatioF();
    QSize const size(widget.fontMetrics().height() * 2, widget.fontMetrics().height());
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    QRect const area(QPoint(), size);
    painter.fillRect(area, QBrush(Qt::lightGray, Qt::Dense4Pattern));
    painter.fillRect(area, color);
    painter.setPen(widget.palette().color(QPalette::Mid));
    painter.drawRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5));
    return pixmap;
}

class ColorButton : public QToolButton
{
public:
    explicit ColorButton(std::function<void(QColor const &)> chosen)
    {
        connect(this, &QToolButton::clicked, this, [this, chosen = std::move(chosen)] {
            QColor const color =
                QColorDialog::getColor(m_color, this, {}, QColorDialog::ShowAlphaChannel);
            if (color.isValid()) {
                chosen(color);
            }
        });
    }

    void setColor(QColor const & color)
    {
        m_color = color;
        showColor();
        setToolTip(color.isValid() ? color.name(QColor::HexArgb) : tr("no colour"));
    }

protected:
    void changeEvent(QEvent * event) override
    {
        QToolButton::changeEvent(event);
        if (event->type() == QEvent::FontChange) {
            showColor();
        }
    }

private:
    void showColor()
    {
        setIconSize({fontMetrics().height() * 2, fontMetrics().height()});
        setIcon(swatch(*this, m_color));
    }

    QColor m_color;
};

struct Row
{
    QWidget * widget = new QWidget;
    QHBoxLayout * layout = new QHBoxLayout(widget);

    Row() { layout->setContentsMargins(0, 0, 0, 0); }
};

// A number that no spin box can hold. A text that is no such number is not taken, and is red.
template <typename Number>
Editor makeNumberEditor(std::function<Number()> const & value,
                        std::function<Number(QString const &, bool *)> const & convert,
                        std::function<void(Number)> const & chosen)
{
    auto * const edit = new QLineEdit;
    auto const show = [=] {
        if (edit->text() != QString::number(value())) {
            edit->setText(QString::number(value()));
        }
        edit->setPalette({});
    };
    QObject::connect(edit, &QLineEdit::textEdited, edit, [=](QString const & text) {
        bool isNumber = false;
        Number const number = convert(text, &isNumber);
        QPalette palette;
        palette.setColor(QPalette::Text, Qt::red);
        edit->setPalette(isNumber ? QPalette() : palette);
        if (isNumber) {
            chosen(number);
        }
    });
    QObject::connect(edit, &QLineEdit::editingFinished, edit, show);
    return {edit, show};
}

struct NamedStyle
{
    char const * name;
    Qt::PenStyle style;
};

constexpr std::array penStyles = {
    NamedStyle{"solid", Qt::SolidLine},
    NamedStyle{"dashes", Qt::DashLine},
    NamedStyle{"dots", Qt::DotLine},
    NamedStyle{"dash, dot", Qt::DashDotLine},
    NamedStyle{"own pattern", Qt::CustomDashLine},
    NamedStyle{"none", Qt::NoPen},
};

QComboBox * makePenStyles()
{
    auto * const box = new QComboBox;
    for (NamedStyle const & each : penStyles) {
        box->addItem(QString::fromLatin1(each.name), int(each.style));
    }
    return box;
}

} // namespace

Editor makeColorEditor(KConfig & config, int id, Changed const & changed)
{
    auto * const button = new ColorButton([=, &config](QColor const & color) {
        config.setColor(id, color);
        changed();
    });
    return {button, [=, &config] { button->setColor(config.getColor(id)); }};
}

Editor makeBoolEditor(KConfig & config, int id, Changed const & changed)
{
    auto * const box = new QCheckBox;
    QObject::connect(box, &QCheckBox::clicked, box, [=, &config](bool on) {
        config.setBool(id, on);
        changed();
    });
    return {box, [=, &config] { box->setChecked(config.getBool(id)); }};
}

Editor makeIntEditor(KConfig & config, int id, int least, int most, Changed const & changed)
{
    auto * const box = new QSpinBox;
    box->setRange(least, most);
    QObject::connect(box, &QSpinBox::valueChanged, box, [=, &config](int value) {
        config.setInt(id, value);
        changed();
    });
    return {box, [=, &config] {
                QSignalBlocker const blocker(box);
                box->setValue(config.getInt(id));
            }};
}

Editor makeUIntEditor(KConfig & config, int id, Changed const & changed)
{
    return makeNumberEditor<unsigned int>(
        [=, &config] { return config.getUInt(id); },
        [](QString const & text, bool * ok) { return text.toUInt(ok); },
        [=, &config](unsigned int value) {
            config.setUInt(id, value);
            changed();
        });
}

Editor makeInt64Editor(KConfig & config, int id, Changed const & changed)
{
    return makeNumberEditor<long long>(
        [=, &config] { return config.getInt64(id); },
        [](QString const & text, bool * ok) { return text.toLongLong(ok); },
        [=, &config](long long value) {
            config.setInt64(id, value);
            changed();
        });
}

// Colour, width and style; what else the pen has stays.
Editor makePenEditor(KConfig & config, int id, Changed const & changed)
{
    auto const change = [=, &config](std::function<void(QPen &)> const & part) {
        QPen pen = config.getPen(id);
        part(pen);
        config.setPen(id, pen);
        changed();
    };
    Row const row;
    auto * const color = new ColorButton(
        [=](QColor const & chosen) { change([&](QPen & pen) { pen.setColor(chosen); }); });
    auto * const width = new QDoubleSpinBox;
    width->setRange(0, 50);
    width->setSingleStep(0.5);
    width->setDecimals(1);
    auto * const style = makePenStyles();
    QObject::connect(width, &QDoubleSpinBox::valueChanged, width,
                     [=](double value) { change([=](QPen & pen) { pen.setWidthF(value); }); });
    QObject::connect(style, &QComboBox::activated, style, [=](int index) {
        auto const chosen = Qt::PenStyle(style->itemData(index).toInt());
        change([=](QPen & pen) {
            if (chosen == Qt::CustomDashLine) {
                pen.setDashPattern({6, 2, 1, 2, 1, 2});
            } else {
                pen.setStyle(chosen);
            }
        });
    });
    row.layout->addWidget(color);
    row.layout->addWidget(width);
    row.layout->addWidget(style, 1);
    return {row.widget, [=, &config] {
                QPen const pen = config.getPen(id);
                QSignalBlocker const blocker(width);
                color->setColor(pen.color());
                width->setValue(pen.widthF());
                style->setCurrentIndex(style->findData(int(pen.style())));
            }};
}

Editor makeFontEditor(KConfig & config, int id, Changed const & changed)
{
    auto * const button = new QPushButton;
    QObject::connect(button, &QPushButton::clicked, button, [=, &config] {
        bool isChosen = false;
        QFont const font = QFontDialog::getFont(&isChosen, config.getFont(id), button);
        if (isChosen) {
            config.setFont(id, font);
            changed();
        }
    });
    return {button, [=, &config] {
                QFont const font = config.getFont(id);
                QString const size = font.pixelSize() > 0
                                         ? QObject::tr("%1 pixels").arg(font.pixelSize())
                                         : QObject::tr("%1 points").arg(font.pointSizeF());
                button->setText(QStringLiteral("%1, %2").arg(font.family(), size));
            }};
}

Editor makeBrushEditor(KConfig & config, int id, Changed const & changed)
{
    Row const row;
    auto const shown = [=, &config](int index, QColor const & color) {
        config.setBrush(id, makeFill(Fill(index), color));
        changed();
    };
    auto * const kind = new QComboBox;
    for (int i = 0; i < int(Fill::Count); ++i) {
        kind->addItem(fillName(Fill(i)));
    }
    auto * const color = new ColorButton(
        [=](QColor const & chosen) { shown(std::max(0, kind->currentIndex()), chosen); });
    QObject::connect(kind, &QComboBox::activated, kind,
                     [=, &config](int index) { shown(index, fillColor(config.getBrush(id))); });
    row.layout->addWidget(color);
    row.layout->addWidget(kind, 1);
    return {row.widget, [=, &config] {
                QBrush const brush = config.getBrush(id);
                color->setColor(fillColor(brush));
                kind->setCurrentIndex(int(fillOf(brush)));
            }};
}

// Letters outside Latin-1 would come back as question marks, so the field does not take them.
Editor makeStringEditor(KConfig & config, int id, Changed const & changed)
{
    auto * const edit = new QLineEdit;
    edit->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[\\x{20}-\\x{ff}]*")), edit));
    QObject::connect(edit, &QLineEdit::textEdited, edit, [=, &config](QString const & text) {
        config.setString(id, zenu::qstring2chars(text));
        changed();
    });
    return {edit, [=, &config] {
                QString const text = zenu::chars2qstring(config.getString(id));
                if (edit->text() != text) {
                    edit->setText(text);
                }
            }};
}
