#include "zenu/grid/geometry/CGetElementPos.h"

#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/geometry/TextCache.h"
#include "zenu/grid/inner/SaturatedInt.h"
#include "zenu/grid/look/KGridImages.h"

#include <QSize>

namespace zenu {

namespace {

constexpr int margin = 2; // free at both ends of a cell
constexpr int buttonSize = 9;
constexpr int checkSize = 11;
constexpr int dropWidth = 9;
constexpr int formatIndents = 0x10000;
constexpr int formatRight = 0x2;
constexpr int formatCentre = 0x4;
constexpr int alignLeft = 1;
constexpr int alignRight = 2;
constexpr int alignCentre = 68;

// Edges as they stand, inclusive.
QRect edges(int left, int top, int right, int bottom)
{
    QRect rect;
    rect.setCoords(left, top, right, bottom);
    return rect;
}

QSize cellImageSize(KGridImages const & images, KGridImages::Member member)
{
    QSize const size = images.imageSize(member);
    return QSize(cellCoordinate(size.width()), cellCoordinate(size.height()));
}

// Left and right edge of a text in its span, before they are clamped to it.
struct Extent
{
    int left;
    int right;
};

Extent cutTextExtent(int from, int to, int width, int alignment)
{
    return alignment == alignRight ? Extent{to - width, to} : Extent{from, from + width};
}

Extent wholeTextExtent(int from, int to, int width, int alignment)
{
    if (alignment == alignCentre) {
        int const free = (to - from - width) / 2;
        return {from + free, to - free};
    }
    return cutTextExtent(from, to, width, alignment);
}

} // namespace

int textAlignment(CGCColumn const & column)
{
    if ((column.format & formatRight) != 0) {
        return alignRight;
    }
    return (column.format & formatCentre) != 0 ? alignCentre : alignLeft;
}

bool isIndented(CGCColumn const & column)
{
    return (column.format & formatIndents) != 0 || column.HasFlag(GCCF_TREELINES);
}

void placeTextInSpan(CellInputs const & inputs, int from, int to, int alignment,
                     CElementRects * rects)
{
    if (inputs.text == nullptr || *inputs.text == '\0') {
        return;
    }
    FittedText const & fitted =
        inputs.texts->fit(*inputs.font, inputs.text, to - from,
                          alignment == alignRight ? FitSide::End : FitSide::Front);
    int const fullWidth = cellCoordinate(fitted.fullWidth);
    int const top = (inputs.height - fitted.textHeight) / 2;
    int const bottom = top + fitted.textHeight;

    Extent const full = wholeTextExtent(from, to, fullWidth, alignment);
    Extent shown = full;
    if (fitted.isCut()) {
        int const cutWidth = cellCoordinate(std::int64_t{fitted.fitWidth} + fitted.dotsWidth);
        shown = cutTextExtent(from, to, cutWidth, alignment);
    }
    bool const centred = alignment == alignCentre;
    Extent const unclipped = centred ? shown : full;

    rects->fitted = &fitted;
    rects->fitCount = fitted.fitCount;
    rects->fullTextRect = edges(unclipped.left, top, unclipped.right, bottom);
    rects->textRect = edges(std::max(shown.left, from), top, std::min(shown.right, to), bottom);
}

CGetElementPos::CGetElementPos(CellInputs const & cellInputs, CElementRects * result)
    : inputs(cellInputs)
    , rects(result)
{
    inputs.width = cellCoordinate(inputs.width);
    inputs.height = cellCoordinate(inputs.height);
    inputs.indent = cellCoordinate(inputs.indent);
}

bool CGetElementPos::layoutCommon(CGCColumn const & column)
{
    *rects = CElementRects();
    rects->cellRect.setRect(0, 0, inputs.width, inputs.height);
    left = margin;
    right = inputs.width - margin;
    if (isIndented(column)) {
        int const indentation = cellCoordinate(std::int64_t{inputs.level} * inputs.indent);
        rects->indentRect.setRect(0, 0, indentation, inputs.height);
        left = cellCoordinate(std::int64_t{left} + indentation);
    }
    if (column.HasFlag(GCCF_TREE)) {
        int const top = (inputs.height - buttonSize) / 2;
        if (right - left <= buttonSize) {
            // One pixel higher than the others, and inverted when the indentation leaves no room.
            rects->buttonRect = edges(left, top, right, top + buttonSize);
            return false;
        }
        rects->buttonRect = QRect(left, top, buttonSize, buttonSize);
        left += rects->buttonRect.width();
    }
    layoutLead(column);
    return true;
}

void CGetElementPos::layoutLead(CGCColumn const & column)
{
    bool const shown =
        column.HasFlag(GCCF_LEAD) || (column.HasFlag(GCCF_LEADONHOVER) && inputs.hover);
    QSize const size = cellImageSize(*inputs.images, KGridImages::Lead);
    if (!shown || size.width() >= right - left) {
        return;
    }
    int const x = inputs.width - size.width() - margin;
    int const top = (inputs.height - size.height()) / 2;
    // Its edges are a pixel further than the image on the right and below.
    rects->leadRect = edges(x, top, x + size.width(), top + size.height());
    right -= margin + size.width();
}

int CGetElementPos::contentStart(CGCColumn const & column, int treeOffset, int gap)
{
    if (!column.HasFlag(GCCF_TREE)) {
        return left;
    }
    rects->treeOffset = treeOffset;
    int const centre = (rects->buttonRect.left() + rects->buttonRect.right()) / 2;
    return cellCoordinate(std::int64_t{centre} + treeOffset + gap);
}

void CGetElementPos::placeImage(int start)
{
    QSize const size = cellImageSize(*inputs.images, KGridImages::Normal);
    int const top = (inputs.height - size.height()) / 2;
    int const end = right - start > size.width() ? start + size.width() : right;
    rects->imageRect = edges(start, top, end, top + size.height());
}

void CGetElementPos::placeIcon(CGCColumn const & column)
{
    int const iconWidth = cellImageSize(*inputs.images, KGridImages::Normal).width();
    placeImage(contentStart(column, inputs.indent - iconWidth / 2, 0));
}

void CGetElementPos::placeTextAfterImage(CGCColumn const & column)
{
    int const start = rects->imageRect.right() + 2;
    if (start < right) {
        placeText(column, start, right);
    }
}

bool CGetElementPos::placeCheck(int & start, int gap)
{
    if (right - start <= checkSize) {
        return false;
    }
    if (!inputs.hideCheck) {
        int const top = (inputs.height - checkSize) / 2;
        rects->checkRect = edges(start, top, start + checkSize, top + checkSize);
        start = rects->checkRect.right() + gap;
    }
    return true;
}

void CGetElementPos::placeText(CGCColumn const & column, int from, int to)
{
    rects->editorRect = rects->cellRect;
    rects->editorRect.setLeft(from);
    rects->editorRect.setRight(to);
    placeTextInSpan(inputs, from, to, textAlignment(column), rects);
}

bool CGetElementPos::placeDropButton(int start)
{
    if (!inputs.hover || right - start <= dropWidth) {
        return false;
    }
    rects->dropRect = edges(right - dropWidth, 2, right, inputs.height - 2);
    return true;
}

void CGetElementPos::placeTextBeforeDrop(CGCColumn const & column)
{
    int const start = contentStart(column, inputs.indent / 2 - 2, 2);
    bool const dropped = placeDropButton(start);
    placeText(column, start, dropped ? rects->dropRect.left() - 2 : right);
}

void CGetElementPos::Visit(CGCColumn * column)
{
    layoutCommon(*column);
}

void CGetElementPos::VisitIcon(CGCIconColumn * column)
{
    if (layoutCommon(*column)) {
        placeIcon(*column);
    }
}

void CGetElementPos::VisitText(CGCTextColumn * column)
{
    if (layoutCommon(*column)) {
        placeText(*column, contentStart(*column, inputs.indent / 2 - 2, 2), right);
    }
}

void CGetElementPos::VisitTextWithIcon(CGCTextWithIconColumn * column)
{
    if (layoutCommon(*column)) {
        placeIcon(*column);
        placeTextAfterImage(*column);
    }
}

void CGetElementPos::VisitCheckBox(CGCCheckBoxColumn * column)
{
    if (!layoutCommon(*column)) {
        return;
    }
    int start = contentStart(*column, inputs.indent - 7, 2);
    if (placeCheck(start, 4)) {
        placeText(*column, start, right);
    }
}

void CGetElementPos::VisitListBox(CGCListBoxColumn * column)
{
    if (layoutCommon(*column)) {
        placeTextBeforeDrop(*column);
        // The editor of a list box covers its drop-down button, that of a combo box does not.
        rects->editorRect.setRight(right);
    }
}

void CGetElementPos::VisitComboBox(CGCComboBoxColumn * column)
{
    if (layoutCommon(*column)) {
        placeTextBeforeDrop(*column);
    }
}

void CGetElementPos::VisitOwnerDraw(CGCOwnerDrawColumn * column)
{
    if (layoutCommon(*column)) {
        // Tree or not, the content stands half an indentation off.
        rects->treeOffset = inputs.indent / 2;
        placeText(*column, cellCoordinate(std::int64_t{left} + rects->treeOffset + 2), right);
    }
}

void CGetElementPos::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column)
{
    if (!layoutCommon(*column)) {
        return;
    }
    int start = contentStart(*column, inputs.indent - 7, 2);
    if (placeCheck(start, 2)) {
        placeImage(start);
        placeTextAfterImage(*column);
    }
}

} // namespace zenu
