#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/editing/CItemEditor.h"
#include "zenu/grid/editing/KItemLineEditor.h"
#include "zenu/grid/handles/CFastLocator.h"
#include "zenu/grid/handles/CSafeLocator.h"
#include "zenu/grid/inner/SaturatedInt.h"
#include "zenu/header/KHeader.h"
#include "zenu/widgets/KPixmapSet.h"

#include <QApplication>
#include <QFontMetrics>

#include <algorithm>

namespace zenu {

namespace {

class FrameKeeper final : public QObject
{
public:
    explicit FrameKeeper(std::unique_ptr<KGridCtrl::PrivateData> keptFrame)
        : frame(std::move(keptFrame))
    {
    }

private:
    std::unique_ptr<KGridCtrl::PrivateData> frame;
};

} // namespace

KGridCtrl::PrivateData::PrivateData(KGridCtrl * owner, int gridId)
    : SlimWrapperHolder(this)
    , CVisibleRows(&slimWrapper)
    , grid(owner)
    , id(gridId)
    , notification(owner)
    , colors(GridColors::fromPalette())
    , locator(std::make_unique<CSafeLocator>())
{
    images.set(KGridImages::Buttons, makeGridGlyphs());
}

KGridCtrl::PrivateData::~PrivateData()
{
    destroying = true;
    DropWalks();
    DeleteAllRows();
}

bool KGridCtrl::PrivateData::LeaveGrid()
{
    LoseDropMark();
    bool const inUse = watches || treeLocks != 0;
    tellAllRowsDie();
    for (RowWatch * watch = watches; watch; watch = watch->outer) {
        watch->frame = nullptr;
    }
    watches = nullptr;
    notification = nullptr;
    slimCallback = nullptr;
    textProc = nullptr;
    sortCompare = nullptr;
    for (QBasicTimer * const timer : {&searchTimer, &hoverTimer, &editTimer}) {
        timer->stop();
    }
    toolTip.reset();
    textCache.setDevice(nullptr);
    editor.reset();
    KItemLineEditor::CloseAllOf(grid); // also one whose edit is just ending
    header->setNotification(nullptr);
    if (inUse) {
        header->setParent(nullptr);
        header->deleteLater();
    } else {
        delete header;
    }
    grid = nullptr;
    return inUse;
}

void KGridCtrl::PrivateData::Keep(std::unique_ptr<PrivateData> frame)
{
    (new FrameKeeper(std::move(frame)))->deleteLater();
}

void KGridCtrl::PrivateData::CreateHeader()
{
    header = new KHeader(grid);
    header->setVert(false);
    header->setDragWhenResized(true);
    if (HasStyle(GCS_NOHEADER)) {
        header->setHidden(true);
        header->hide();
    }
    header->setFont(font, false);
    header->setNotification(this);
}

void KGridCtrl::PrivateData::ComputeAutoHeight()
{
    int const textHeight = QFontMetrics(grid->font(), grid).height() + 4;
    int const imageHeight = images.imageSize(KGridImages::Normal).height();
    autoHeight = saturatedSum(std::max(textHeight, imageHeight), HasStyle(GCS_HORZLINES) ? 3 : 0);
}

void KGridCtrl::PrivateData::UpdateAutoHeight()
{
    int const before = DefaultHeight();
    ComputeAutoHeight();
    if (DefaultHeight() != before) {
        Invalidate();
    }
}

int KGridCtrl::PrivateData::Indent() const
{
    if (indent != -1) {
        return indent;
    }
    bool const tree = std::ranges::any_of(
        shownColumns, [](CGCColumn const * column) { return column->HasFlag(GCCF_TREELINES); });
    int const ofText = 2 * QFontMetrics(grid->font(), grid).horizontalAdvance(QLatin1Char('x'));
    int const ofImages = images.imageSize(KGridImages::Normal).width() / 2 + 6;
    return std::max({ofText, ofImages, tree ? 19 : 13});
}

void KGridCtrl::PrivateData::SetImages(int list, QPixmap const & strip, QSize const & size,
                                       int count, bool useMask)
{
    if (!images.setList(list, std::make_unique<KPixmapSet>(strip, size, count, useMask))) {
        return;
    }
    UpdateAutoHeight();
    Repaint();
}

QColor KGridCtrl::PrivateData::SwapColor(int number, QColor const & color)
{
    QColor const old = colors.set(number, color);
    if (GridColors::isNumber(number) && old != color) {
        Repaint();
    }
    return old;
}

unsigned long KGridCtrl::PrivateData::SetExtendedStyle(unsigned long word)
{
    unsigned const old = gridExStyle;
    gridExStyle = static_cast<unsigned>(word);
    if (HasStyle(GCS_NOHEADER)) {
        gridExStyle &= ~static_cast<unsigned>(GCXS_HEADERDRAG);
    }
    header->setDragDrop((gridExStyle & GCXS_HEADERDRAG) != 0);
    bool const fast = (gridExStyle & GCXS_FASTLOCATOR) != 0;
    if (((old ^ gridExStyle) & GCXS_FASTLOCATOR) && locator->IsEmpty()) {
        DropWalks();
        if (fast) {
            locator = std::make_unique<CFastLocator>(Wrapper(), this);
        } else {
            locator = std::make_unique<CSafeLocator>();
        }
    }
    return old;
}

bool KGridCtrl::PrivateData::Reset()
{
    RowGuard const guard(this, nullptr);
    LeaveHover();
    StopEditing();
    if (!guard.hasGrid() || IsTreeLocked() || !loading.empty()) {
        return false;
    }
    nextColumnId = 0;
    DeleteAllRows();
    DeleteAllColumns();
    if (!HasStyle(GCS_KEEPIMAGES)) {
        images.clearLists();
    }
    Repaint();
    return true;
}

void KGridCtrl::PrivateData::LookChanged()
{
    font = grid->font();
    textCache.clear();
    header->setFont(font, true);
    UpdateAutoHeight();
    grid->contentsSizeChanged();
    if (!grid) {
        return;
    }
    FitToClient();
    LayOutBars();
    Repaint();
}

int KGridCtrl::PrivateData::GetChildCount(ISlimGridCallbackWrapper *)
{
    return rootRows.count();
}

IGCRow * KGridCtrl::PrivateData::GetChild(int index)
{
    return rootRows.at(index);
}

RowSpan KGridCtrl::PrivateData::GetChildren(ISlimGridCallbackWrapper *)
{
    return rootRows.span();
}

// Without a sink the answer is no; nothing looks at it.
bool KGridCtrl::PrivateData::OnTopRowChanging(IGCRow * newTop)
{
    RowGuard const guard(this, nullptr);
    return notification && notification->OnScrolling(newTop ? newTop->Handle() : nullptr);
}

void KGridCtrl::PrivateData::OnTopRowChanged()
{
    RowGuard const guard(this, nullptr);
    if (notification) {
        notification->OnScrolled();
    }
}

void KGridCtrl::PrivateData::OnRowsLaidOut()
{
    LayOutBars();
    UpdateVerticalBar();
    if (!paintsAll) {
        Repaint();
    }
}

int KGridCtrl::PrivateData::GetPageHeight()
{
    return std::max(ClientRect().bottom() - headerHeight, 0);
}

} // namespace zenu
