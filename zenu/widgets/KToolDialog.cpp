#include "zenu/widgets/KToolDialog.h"

#include "zenu/widgets/KFlashButton.h"
#include "zenu/widgets/inner/FlashColors.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalMapper>
#include <QVBoxLayout>

#include <algorithm>

namespace zenu {

namespace {

constexpr int panelWidth = 2;       // pixels
constexpr int buttonSpacing = 5;    // pixels
constexpr int descriptionSpace = 5; // pixels between the pictures and the line
constexpr QSize pictureSize(32, 32);

} // namespace

struct KToolDialog::PrivateData
{
    explicit PrivateData(KToolDialog * owner)
        : toolRow(new QHBoxLayout)
        , description(new QLabel(owner))
        , mapper(new QSignalMapper(owner))
    {
    }

    QHBoxLayout * toolRow;
    QLabel * description;
    QSignalMapper * mapper;
    QString noActionText;
    FlashColors colors;
};

KToolDialog::KToolDialog(int margin)
    : QFrame(nullptr, Qt::Popup)
    , m_data(new PrivateData(this))
{
    setFrameStyle(int(QFrame::Panel) | int(QFrame::Raised));
    setLineWidth(panelWidth);
    m_data->toolRow->setSpacing(buttonSpacing);
    m_data->description->setFixedHeight(2 * fontMetrics().height());
    m_data->description->setFrameStyle(int(QFrame::Panel) | int(QFrame::Sunken));
    m_data->description->setAlignment(Qt::AlignCenter);
    connect(m_data->mapper, &QSignalMapper::mappedString, this, &KToolDialog::hilite);

    // The layout begins inside of the frame.
    auto * const layout = new QVBoxLayout(this);
    int const space = std::max(margin, 0);
    layout->setContentsMargins(space, space, space, space);
    layout->setSpacing(0);
    layout->addLayout(m_data->toolRow);
    layout->addSpacing(descriptionSpace);
    layout->addWidget(m_data->description);
}

KToolDialog::~KToolDialog() = default;

void KToolDialog::addTool(QAction * action)
{
    if (!action) {
        return;
    }
    QPixmap const picture =
        action->icon().pixmap(pictureSize, devicePixelRatioF(), QIcon::Normal, QIcon::Off);
    auto * const button = new KFlashButton(picture, this);
    button->setActiveColor(m_data->colors.active);
    button->setInactiveColor(m_data->colors.inactive);
    m_data->toolRow->addWidget(button);
    connect(button, &KFlashButton::clicked, action,
            [action] { Q_EMIT action->triggered(action->isChecked()); });
    m_data->mapper->setMapping(button, action->statusTip());
    connect(button, &KFlashButton::hilited, m_data->mapper, qOverload<>(&QSignalMapper::map));
    connect(button, &KFlashButton::unhilited, this, &KToolDialog::unhilite);
}

void KToolDialog::setNoActionText(QString const & text)
{
    m_data->noActionText = text;
}

QString KToolDialog::noActionText()
{
    return m_data->noActionText;
}

void KToolDialog::setButtonSpacing(int spacing)
{
    m_data->toolRow->setSpacing(std::max(spacing, 0));
}

void KToolDialog::setActiveColor(QColor const & color)
{
    m_data->colors.active = color;
}

QColor KToolDialog::activeColor()
{
    return m_data->colors.active;
}

void KToolDialog::setInactiveColor(QColor const & color)
{
    m_data->colors.inactive = color;
}

QColor KToolDialog::inactiveColor()
{
    return m_data->colors.inactive;
}

QObject * KToolDialog::qObject()
{
    return this;
}

void KToolDialog::mousePressEvent(QMouseEvent *)
{
    hide();
}

void KToolDialog::hilite(QString const & text)
{
    m_data->description->setText(text);
}

void KToolDialog::unhilite()
{
    m_data->description->setText(m_data->noActionText);
}

} // namespace zenu
