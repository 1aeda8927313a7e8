#include "zenu/widgets/KMainDialog.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace zenu {

namespace {

constexpr int lineHeight = 3; // pixels

} // namespace

struct KMainDialog::PrivateData
{
    explicit PrivateData(KMainDialog * dialog);
    QFrame * addLine(QVBoxLayout * layout);

    KMainDialog * owner;
    QHBoxLayout * toolRow; // ends in a stretch
    QHBoxLayout * centralRow;
    QMenuBar * menuBar;
    QFrame * topLine;
    QFrame * toolLine;
    QFrame * bottomLine;
    QStatusBar * statusBar;
    QPointer<QWidget> centralWidget;
};

KMainDialog::PrivateData::PrivateData(KMainDialog * dialog)
    : owner(dialog)
    , toolRow(new QHBoxLayout)
    , centralRow(new QHBoxLayout)
    , menuBar(new QMenuBar(dialog))
    , statusBar(new QStatusBar(dialog))
{
    auto * const layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(menuBar);
    topLine = addLine(layout);
    layout->addLayout(toolRow);
    toolLine = addLine(layout);
    layout->addLayout(centralRow);
    bottomLine = addLine(layout);
    layout->addWidget(statusBar);
    toolRow->addStretch();
    menuBar->hide();
    statusBar->hide();
}

QFrame * KMainDialog::PrivateData::addLine(QVBoxLayout * layout)
{
    auto * const line = new QFrame(owner);
    line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
    line->setFixedHeight(lineHeight);
    line->hide();
    layout->addWidget(line);
    return line;
}

KMainDialog::KMainDialog(QWidget * parent, bool modal)
    : QDialog(parent)
    , m_data(new PrivateData(this))
{
    setModal(modal);
}

KMainDialog::~KMainDialog() = default;

QMenuBar * KMainDialog::menuBar() const
{
    m_data->menuBar->show();
    m_data->topLine->show();
    return m_data->menuBar;
}

QStatusBar * KMainDialog::statusBar() const
{
    m_data->statusBar->show();
    m_data->bottomLine->show();
    return m_data->statusBar;
}

void KMainDialog::setCentralWidget(QWidget * widget)
{
    if (QWidget * const before = m_data->centralWidget) {
        before->setParent(nullptr);
        before->move(0, 0);
        before->hide();
    }
    m_data->centralWidget = widget;
    if (!widget) {
        return;
    }
    widget->setParent(this);
    widget->move(0, 0);
    widget->hide();
    m_data->centralRow->addWidget(widget);
    widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QWidget * KMainDialog::centralWidget() const
{
    return m_data->centralWidget;
}

// The size is that of now: a later change of the style or the icon does not move the row.
void KMainDialog::addActionToToolbar(QAction * action)
{
    if (!action) {
        return;
    }
    auto * const button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setIcon(action->icon());
    button->setFixedSize(button->sizeHint());
    button->setCheckable(action->isCheckable());
    m_data->toolRow->insertWidget(m_data->toolRow->count() - 1, button);
    m_data->toolLine->show();
    connect(button, &QToolButton::clicked, action,
            [action] { Q_EMIT action->triggered(action->isChecked()); });
}

} // namespace zenu
