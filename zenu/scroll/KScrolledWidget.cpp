#include "zenu/scroll/KScrolledWidget.h"

#include <QtCore/QPointer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>

namespace zenu {

namespace {

// The bar has moved its slider, not its value, by a step of its own when it announces an action.
// Putting the slider back leaves the bar where OnScroll left it, or where it was after a veto.
void dropOwnStep(QPointer<QScrollBar> const & bar)
{
    if (bar)
        bar->setSliderPosition(bar->value());
}

} // namespace

/// What a bar calls for its line and page actions.
struct ZENU_HIDDEN KScrolledWidget::Steps
{
    Step nextLine;
    Step prevLine;
    Step nextPage;
    Step prevPage;
};

struct ZENU_HIDDEN KScrolledWidget::PrivateData
{
    explicit PrivateData(KScrolledWidget * widget);

    QWidget * currentCorner() const;
    // Runs `work`, which a bar has called for. The bar goes on with itself after that, so it stays
    // for a while if the widget is deleted meanwhile.
    template <typename Work>
    static void serveBar(KScrolledWidget * widget, Work const & work)
    {
        QPointer<KScrolledWidget> const guarded(widget);
        ++widget->d->servedBars;
        work();
        if (guarded)
            --widget->d->servedBars;
    }
    void letBarsFinish();
    void layout();
    void placeHBar(bool show, bool besideV);
    void placeVBar(bool show, bool aboveH);
    void placeCorner(bool show);

    KScrolledWidget * owner;
    QScrollBar * hBar;
    QScrollBar * vBar;
    QRect clientRect;
    EScrollMode hMode = AlwaysOff;
    EScrollMode vMode = AlwaysOff;
    QLabel * defaultCorner;
    QPointer<QWidget> corner;
    int servedBars = 0; // calls of bars that are on the stack
};

KScrolledWidget::PrivateData::PrivateData(KScrolledWidget * widget)
    : owner(widget)
    , hBar(new QScrollBar(Qt::Horizontal, widget))
    , vBar(new QScrollBar(Qt::Vertical, widget))
    , defaultCorner(new QLabel(widget))
    , corner(defaultCorner)
{
    hBar->hide();
    vBar->hide();
    defaultCorner->hide();
    // The contents below it are not for the eye.
    defaultCorner->setAutoFillBackground(true);
}

QWidget * KScrolledWidget::PrivateData::currentCorner() const
{
    return corner ? corner.data() : defaultCorner;
}

void KScrolledWidget::PrivateData::letBarsFinish()
{
    for (QScrollBar * const bar : {hBar, vBar}) {
        bar->setParent(nullptr);
        bar->deleteLater();
    }
}

void KScrolledWidget::PrivateData::layout()
{
    // The derived class may ask its application for the size of the contents.
    QPointer<KScrolledWidget> const guarded(owner);
    int const contentsWidth = owner->contentsWidth();
    int const contentsHeight = guarded ? owner->contentsHeight() : 0;
    if (!guarded)
        return;
    int const width = owner->width();
    int const height = owner->height();
    int const barWidth = vBar->sizeHint().width();
    int const barHeight = hBar->sizeHint().height();

    auto const needs = [](EScrollMode mode, int contents, int room) {
        return (contents > room && mode != AlwaysOff) || mode == AlwaysOn;
    };
    bool const needV = needs(vMode, contentsHeight, height);
    bool const needH = needs(hMode, contentsWidth, width);
    bool const needVwithH = needs(vMode, contentsHeight, height - barHeight);
    bool const needHwithV = needs(hMode, contentsWidth, width - barWidth);
    bool const showH = needH || (needV && needHwithV);
    bool const showV = needV || (needH && needVwithH);

    clientRect = owner->rect().adjusted(0, 0, showV ? -barWidth : 0, showH ? -barHeight : 0);
    placeVBar(showV, showH);
    placeHBar(showH, showV);
    placeCorner(showH && showV);
}

void KScrolledWidget::PrivateData::placeVBar(bool show, bool aboveH)
{
    int const barWidth = vBar->sizeHint().width();
    int const below = aboveH ? hBar->sizeHint().height() : 0;
    if (show)
        vBar->setGeometry(owner->width() - barWidth, 0, barWidth, owner->height() - below);
    vBar->setVisible(show);
}

void KScrolledWidget::PrivateData::placeHBar(bool show, bool besideV)
{
    int const barHeight = hBar->sizeHint().height();
    int const beside = besideV ? vBar->sizeHint().width() : 0;
    if (show)
        hBar->setGeometry(0, owner->height() - barHeight, owner->width() - beside, barHeight);
    hBar->setVisible(show);
}

void KScrolledWidget::PrivateData::placeCorner(bool show)
{
    int const barWidth = vBar->sizeHint().width();
    int const barHeight = hBar->sizeHint().height();
    QWidget * const widget = currentCorner();
    if (show)
        widget->setGeometry(owner->width() - barWidth, owner->height() - barHeight, barWidth,
                            barHeight);
    widget->setVisible(show);
}

KScrolledWidget::KScrolledWidget(QWidget * parent, char const * name, unsigned int flags)
    : QWidget(parent, Qt::WindowFlags(QFlag(flags)))
    , d(std::make_unique<PrivateData>(this))
{
    setObjectName(QLatin1String(name));
    connect(d->hBar, &QScrollBar::valueChanged, this, &KScrolledWidget::onHValueChanged);
    connect(d->vBar, &QScrollBar::valueChanged, this, &KScrolledWidget::onVValueChanged);
    connect(d->hBar, &QScrollBar::actionTriggered, this, [this](int action) {
        onAction(d->hBar, action,
                 {&KScrolledWidget::onHNextLine, &KScrolledWidget::onHPrevLine,
                  &KScrolledWidget::onHNextPage, &KScrolledWidget::onHPrevPage});
    });
    connect(d->vBar, &QScrollBar::actionTriggered, this, [this](int action) {
        onAction(d->vBar, action,
                 {&KScrolledWidget::onVNextLine, &KScrolledWidget::onVPrevLine,
                  &KScrolledWidget::onVNextPage, &KScrolledWidget::onVPrevPage});
    });
}

KScrolledWidget::~KScrolledWidget()
{
    if (d->servedBars != 0)
        d->letBarsFinish();
}

QRect KScrolledWidget::getClientRect() const
{
    return d->clientRect;
}

QScrollBar * KScrolledWidget::getHScrollBar() const
{
    return d->hBar;
}

QScrollBar * KScrolledWidget::getVScrollBar() const
{
    return d->vBar;
}

void KScrolledWidget::setHScrollBarMode(EScrollMode mode)
{
    d->hMode = mode;
}

void KScrolledWidget::setVScrollBarMode(EScrollMode mode)
{
    d->vMode = mode;
}

KScrolledWidget::EScrollMode KScrolledWidget::getHScrollBarMode() const
{
    return d->hMode;
}

KScrolledWidget::EScrollMode KScrolledWidget::getVScrollBarMode() const
{
    return d->vMode;
}

void KScrolledWidget::setCornerWidget(QWidget * corner)
{
    QWidget * const old = d->currentCorner();
    QWidget * const now = corner ? corner : d->defaultCorner;
    d->corner = now;
    now->show();
    if (old != now)
        old->hide();
}

QWidget * KScrolledWidget::getCornerWidget() const
{
    return d->currentCorner();
}

void KScrolledWidget::contentsSizeChanged()
{
    d->layout();
}

void KScrolledWidget::resizeEvent(QResizeEvent * event)
{
    QWidget::resizeEvent(event);
    d->layout();
}

void KScrolledWidget::onAction(QScrollBar * bar, int action, Steps const & steps)
{
    Step step = nullptr;
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        step = steps.nextLine;
        break;
    case QAbstractSlider::SliderSingleStepSub:
        step = steps.prevLine;
        break;
    case QAbstractSlider::SliderPageStepAdd:
        step = steps.nextPage;
        break;
    case QAbstractSlider::SliderPageStepSub:
        step = steps.prevPage;
        break;
    default:
        return; // the rest arrives as a change of value
    }
    QPointer<QScrollBar> const guarded(bar);
    PrivateData::serveBar(this, [=, this] { (this->*step)(); });
    dropOwnStep(guarded);
}

void KScrolledWidget::onHValueChanged(int value)
{
    PrivateData::serveBar(this, [=, this] {
        OnScroll(ScrollThumb, ScrollNothing, static_cast<unsigned int>(value), true);
    });
}

void KScrolledWidget::onHNextLine()
{
    OnScroll(ScrollLineForward, ScrollNothing, 0, true);
}

void KScrolledWidget::onHPrevLine()
{
    OnScroll(ScrollLineBack, ScrollNothing, 0, true);
}

void KScrolledWidget::onHNextPage()
{
    OnScroll(ScrollPageForward, ScrollNothing, 0, true);
}

void KScrolledWidget::onHPrevPage()
{
    OnScroll(ScrollPageBack, ScrollNothing, 0, true);
}

void KScrolledWidget::onVValueChanged(int value)
{
    PrivateData::serveBar(this, [=, this] {
        OnScroll(ScrollNothing, ScrollThumb, static_cast<unsigned int>(value), true);
    });
}

void KScrolledWidget::onVNextLine()
{
    OnScroll(ScrollNothing, ScrollLineForward, 0, true);
}

void KScrolledWidget::onVPrevLine()
{
    OnScroll(ScrollNothing, ScrollLineBack, 0, true);
}

void KScrolledWidget::onVNextPage()
{
    OnScroll(ScrollNothing, ScrollPageForward, 0, true);
}

void KScrolledWidget::onVPrevPage()
{
    OnScroll(ScrollNothing, ScrollPageBack, 0, true);
}

} // namespace zenu
