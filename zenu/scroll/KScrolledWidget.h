#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <memory>

class QResizeEvent;
class QScrollBar;

namespace zenu {

/// A widget with two scroll bars and a corner, and one virtual call for every gesture on a bar.
///
/// It places the bars at its right and bottom edge and turns what the user does with them into
/// `OnScroll`. It scrolls nothing itself and keeps no scroll position: the derived class does the
/// scrolling, in units of its own, and sets range, value and steps of the bars. The layout never
/// touches those and repaints nothing.
///
/// The bars and the label in the corner are children of the widget and go with it. All sizes are
/// logical pixels.
class ZENU_EXPORT KScrolledWidget : public QWidget
{
    Q_OBJECT
public:
    /// When a bar shows.
    enum EScrollMode
    {
        AsNeeded = 0, ///< when the contents do not fit
        AlwaysOn = 1,
        AlwaysOff = 2 ///< however large the contents are
    };

    /// What `OnScroll` is asked to do on one axis.
    enum EScrollCode
    {
        ScrollNothing = -1, ///< the axis stays as it is
        ScrollLineBack = 0,
        ScrollPageBack = 1,
        ScrollPageForward = 2,
        ScrollLineForward = 3,
        ScrollToEnd = 4,
        ScrollToPosition = 5,
        ScrollThumb = 6, ///< to the position, while the thumb is tracked
        ScrollToBegin = 7
    };

    /// Both modes start as `AlwaysOff`. `flags` are `Qt::WindowFlags`; `name` may be null.
    explicit KScrolledWidget(QWidget * parent = nullptr, char const * name = nullptr,
                             unsigned int flags = 0);
    ~KScrolledWidget() override;

    /// The widget's rectangle without the bars that the last layout showed, in widget coordinates.
    /// Null before the first layout.
    QRect getClientRect() const;

    /// The bars, never null, owned by the widget. Set their range, value, single and page step
    /// freely; setting a value calls `OnScroll` with `ScrollThumb` as dragging the thumb does.
    QScrollBar * getHScrollBar() const;
    QScrollBar * getVScrollBar() const;

    /// Only stores the mode: the next layout (a resize or `contentsSizeChanged`) follows it.
    void setHScrollBarMode(EScrollMode mode);
    void setVScrollBarMode(EScrollMode mode);
    EScrollMode getHScrollBarMode() const;
    EScrollMode getVScrollBarMode() const;

    /// Makes `corner` the widget where the bars meet, null the empty label. The new corner is shown
    /// at once and the next layout gives it a place or hides it; the old one is hidden. Neither is
    /// reparented or deleted: pass a child of this widget. A corner that is deleted while it is in
    /// use is replaced by the label.
    void setCornerWidget(QWidget * corner);
    QWidget * getCornerWidget() const;

    /// Runs the layout. To be called by the derived class when `contentsWidth` or `contentsHeight`
    /// has changed.
    void contentsSizeChanged();

    /// Scrolls. `hCode` and `vCode` are of `EScrollCode`; `pos` counts for the two codes that go to
    /// a position. With `doScroll` false it only answers. Returns whether it scrolled, or would.
    /// This class asks for one axis at a time, always with `doScroll` true, and ignores the answer.
    virtual bool OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll) = 0;

    /// The size of the contents, for the decision whether bars are needed. Called by each layout,
    /// so it must be answerable whenever a resize can happen.
    virtual int contentsWidth() const = 0;
    virtual int contentsHeight() const = 0;

protected:
    void resizeEvent(QResizeEvent * event) override;

private Q_SLOTS:
    void onHValueChanged(int value);
    void onHNextLine();
    void onHPrevLine();
    void onHNextPage();
    void onHPrevPage();
    void onVValueChanged(int value);
    void onVNextLine();
    void onVPrevLine();
    void onVNextPage();
    void onVPrevPage();

private:
    struct PrivateData;

    using Step = void (KScrolledWidget::*)();
    struct Steps;

    void onAction(QScrollBar * bar, int action, Steps const & steps);

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
