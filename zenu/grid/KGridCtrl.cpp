#include "zenu/grid/KGridCtrl.h"

#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/header/KHeader.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <climits>

namespace zenu {

KGridCtrl::KGridCtrl(QWidget * parent, int id, char const * name, unsigned int flags, long style,
                     long /*reserved*/)
    : KScrolledWidget(parent, name, flags)
    , d(std::make_unique<PrivateData>(this, id))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    // Columns run from left to right in every locale, and so must the bar that shows where they
    // are.
    getHScrollBar()->setLayoutDirection(Qt::LeftToRight);
    d->style = static_cast<unsigned>(style);
    d->font = QApplication::font();
    d->ComputeAutoHeight();
    d->toolTip = std::make_unique<KToolTip>(this);
    d->CreateHeader();
}

KGridCtrl::~KGridCtrl()
{
    if (d->LeaveGrid()) {
        PrivateData::Keep(std::move(d));
    }
}

QColor KGridCtrl::GetColor(int number) const
{
    return d->colors.get(number);
}

QColor KGridCtrl::SetColor(int number, QColor const & color)
{
    return d->SwapColor(number, color);
}

QColor KGridCtrl::GetTextColor() const
{
    return GetColor(GCC_TEXT);
}

QColor KGridCtrl::SetTextColor(QColor const & color)
{
    return SetColor(GCC_TEXT, color);
}

QColor KGridCtrl::GetBkColor() const
{
    return GetColor(GCC_BACKGROUND);
}

QColor KGridCtrl::SetBkColor(QColor const & color)
{
    return SetColor(GCC_BACKGROUND, color);
}

QColor KGridCtrl::GetSepColor() const
{
    return GetColor(GCC_SEPARATOR);
}

QColor KGridCtrl::SetSepColor(QColor const & color)
{
    return SetColor(GCC_SEPARATOR, color);
}

int KGridCtrl::GetDefaultHeight() const
{
    return d->DefaultHeight();
}

void KGridCtrl::SetDefaultHeight(int height)
{
    d->defaultHeight = height;
}

int KGridCtrl::GetIndent() const
{
    return d->Indent();
}

void KGridCtrl::SetIndent(unsigned int indent)
{
    d->indent = static_cast<int>(indent);
    update();
}

int KGridCtrl::GetHScrollDelta() const
{
    return d->hScrollDelta;
}

void KGridCtrl::SetHScrollDelta(int delta)
{
    d->hScrollDelta = delta;
}

KPixmapSet * KGridCtrl::GetImageList(int list) const
{
    return d->images.list(list);
}

void KGridCtrl::SetImageList(int list, QPixmap const & strip, int width, int height, int count,
                             bool useMask)
{
    d->SetImages(list, strip, QSize(width, height), count, useMask);
}

unsigned long KGridCtrl::GetExStyle() const
{
    return GetGridExStyle();
}

unsigned long KGridCtrl::SetExStyle(unsigned long style)
{
    return SetGridExStyle(style);
}

unsigned long KGridCtrl::GetGridExStyle() const
{
    return d->gridExStyle;
}

unsigned long KGridCtrl::SetGridExStyle(unsigned long style)
{
    return d->SetExtendedStyle(style);
}

void KGridCtrl::setNotification(IGridNotification * notification)
{
    d->notification = notification;
}

IGridNotification * KGridCtrl::getNotification() const
{
    return d->notification;
}

void KGridCtrl::SetSlimGridCallback(ISlimGridCallback * callback)
{
    d->slimCallback = callback;
}

ISlimGridCallback * KGridCtrl::GetSlimGridCallback() const
{
    return d->slimCallback;
}

bool KGridCtrl::AssertValid() const
{
    return true;
}

void KGridCtrl::SetRedraw(bool) {}

bool KGridCtrl::OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll)
{
    return d->updatingBars || d->Scroll(hCode, vCode, pos, doScroll);
}

int KGridCtrl::contentsWidth() const
{
    return d->contentsWidth;
}

int KGridCtrl::contentsHeight() const
{
    PrivateData & frame = *d;
    long long const rows = frame.GetTotalHeight();
    int const header = frame.HasStyle(GCS_NOHEADER) ? 0 : frame.headerHeight;
    return static_cast<int>(std::min<long long>(rows + header, INT_MAX));
}

void KGridCtrl::paintEvent(QPaintEvent * event)
{
    d->Paint(event->region());
}

void KGridCtrl::resizeEvent(QResizeEvent * event)
{
    PrivateData & frame = *d;
    KScrolledWidget::resizeEvent(event);
    frame.Resized(event);
}

void KGridCtrl::showEvent(QShowEvent * event)
{
    KScrolledWidget::showEvent(event);
    d->shown = true;
    d->UpdateAutoHeight();
    // Rows and items were not repainted meanwhile, and a window that was minimised comes back with
    // the picture it had.
    update();
    d->UpdateNow();
}

void KGridCtrl::hideEvent(QHideEvent * event)
{
    KScrolledWidget::hideEvent(event);
    d->shown = false;
    d->UpdateAutoHeight();
}

void KGridCtrl::changeEvent(QEvent * event)
{
    KScrolledWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        d->LookChanged();
    }
}

void KGridCtrl::focusInEvent(QFocusEvent *)
{
    d->GainFocus();
}

void KGridCtrl::focusOutEvent(QFocusEvent *)
{
    d->LoseFocus();
}

void KGridCtrl::keyPressEvent(QKeyEvent * event)
{
    d->PressKey(event);
}

void KGridCtrl::mousePressEvent(QMouseEvent * event)
{
    if (event->button() == Qt::LeftButton) {
        d->PressLeft(event);
    } else if (event->button() == Qt::RightButton) {
        d->PressRight(event);
    }
}

void KGridCtrl::mouseReleaseEvent(QMouseEvent * event)
{
    if (event->button() == Qt::LeftButton) {
        d->pressState = PrivateData::PressState::Idle;
    }
}

void KGridCtrl::mouseDoubleClickEvent(QMouseEvent * event)
{
    if (event->button() == Qt::LeftButton) {
        d->DoubleClick(event);
    }
}

void KGridCtrl::mouseMoveEvent(QMouseEvent * event)
{
    d->MoveMouse(event->position().toPoint());
}

void KGridCtrl::leaveEvent(QEvent *)
{
    d->dataTipsEnabled = false;
    d->LeaveHover();
}

void KGridCtrl::timerEvent(QTimerEvent * event)
{
    d->TimeOut(event);
}

void KGridCtrl::dragEnterEvent(QDragEnterEvent * event)
{
    d->TellDrag(&IGridNotification::OnDragEnter, event);
}

void KGridCtrl::dragMoveEvent(QDragMoveEvent * event)
{
    d->TellDrag(&IGridNotification::OnDragMove, event);
}

void KGridCtrl::dragLeaveEvent(QDragLeaveEvent * event)
{
    if (d->notification) {
        d->notification->OnDragLeave(event);
    }
}

void KGridCtrl::dropEvent(QDropEvent * event)
{
    d->TellDrag(&IGridNotification::OnDrop, event);
}

void KGridCtrl::customEvent(QEvent * event)
{
    d->EndEditEvent(event);
}

} // namespace zenu
