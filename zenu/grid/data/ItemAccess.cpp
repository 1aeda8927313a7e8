#include "zenu/grid/data/ItemAccess.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/columns/GridItem.h"
#include "zenu/grid/data/TextBuffer.h"
#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/ItemLifetime.h"

namespace zenu {

namespace {

constexpr unsigned largestAlignment = 7;

// Bits of GC_ITEM::value under GCIM_CHECKSTYLE.
constexpr int styleRadio = 0x1;
constexpr int styleHideCheck = 0x2;
// Bits of GC_ITEM::value of a check box with icon.
constexpr int valueChecked = 0x1;
constexpr int valueGrayed = 0x2;

} // namespace

void KGetItem::readHead()
{
    record->state = item->flags & GridItem::stateMask;
    if (record->mask & GCIM_ALIGN) {
        record->value = item->alignment();
    }
}

void KGetItem::readText()
{
    readHead();
    if (record->mask & GCIM_TEXT) {
        bool const callback = isTextCallback(item->text);
        result =
            fillBuffer(record->text, record->textMax, callback ? nullptr : item->text) && !callback;
    }
    if (record->mask & GCIM_TEXTLEN) {
        record->value = textLength(item->text);
    }
    record->textColor = QColor::fromRgb(item->textColor());
}

void KGetItem::readImages()
{
    if (record->mask & GCIM_OVERLAY) {
        record->image = item->images[1];
    }
    if (record->mask & GCIM_STATEIMAGE) {
        record->image = item->images[2];
    }
}

void KGetItem::readCheckStyle()
{
    // The radio bit is not told: applications rely on the plain 0 or 2.
    if (record->mask & GCIM_CHECKSTYLE) {
        record->value = (item->checkStyle() & GridItem::hideCheck) ? styleHideCheck : 0;
    }
}

void KGetItem::VisitIcon(CGCIconColumn *)
{
    readHead();
    if (record->mask & GCIM_IMAGE) {
        record->image = item->images[0];
    }
    readImages();
}

void KGetItem::VisitText(CGCTextColumn *)
{
    readText();
}

void KGetItem::VisitTextWithIcon(CGCTextWithIconColumn *)
{
    readText();
    record->image = item->images[0];
    readImages();
}

void KGetItem::VisitCheckBox(CGCCheckBoxColumn *)
{
    readText();
    record->value = item->hasState(GCIS_CHECKED) ? 1 : 0;
    readCheckStyle();
}

void KGetItem::VisitListBox(CGCListBoxColumn * column)
{
    readHead();
    record->textColor = QColor::fromRgb(item->textColor());
    char const * const choice = column->Choice(item->listIndex());
    if (record->mask & GCIM_TEXT) {
        result = fillBuffer(record->text, record->textMax, choice);
    }
    record->value = (record->mask & GCIM_TEXTLEN) ? textLength(choice) : item->listIndex();
}

void KGetItem::VisitComboBox(CGCComboBoxColumn *)
{
    readText();
}

void KGetItem::VisitOwnerDraw(CGCOwnerDrawColumn *)
{
    readText();
}

void KGetItem::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *)
{
    readText();
    record->value = (item->hasState(GCIS_CHECKED) ? valueChecked : 0) |
                    ((item->checkStyle() & GridItem::grayed) ? valueGrayed : 0);
    record->image = item->images[0];
    readImages();
    readCheckStyle();
}

bool KSetItem::writeHead()
{
    if (record->mask & GCIM_STATE) {
        item->flags = static_cast<std::uint8_t>((item->flags & ~record->stateMask) | record->state);
        changed = true;
    }
    if (record->mask & GCIM_ALIGN) {
        if (static_cast<unsigned>(record->value) > largestAlignment) {
            result = false;
            return false;
        }
        item->setAlignment(record->value);
        changed = true;
    }
    return true;
}

void KSetItem::writeTextColor()
{
    if (record->mask & GCIM_TEXTCOLOR) {
        item->setTextColor(record->textColor.rgb());
        changed = true;
    }
}

void KSetItem::replaceText()
{
    bool const callback = isTextCallback(record->text);
    char * const newText = callback ? GC_TEXTCALLBACK : record->text;
    changed = changed || !areSameTexts(item->text, newText);
    // The copy first: the new text may be the old one's own bytes.
    char * const stored = callback ? GC_TEXTCALLBACK : duplicateText(newText);
    destroyItem(*item);
    item->text = stored;
}

bool KSetItem::writeText()
{
    if (!writeHead()) {
        return false;
    }
    writeTextColor();
    if (record->mask & GCIM_TEXT) {
        replaceText();
    }
    return true;
}

void KSetItem::writeImages()
{
    constexpr unsigned bits[] = {GCIM_IMAGE, GCIM_OVERLAY, GCIM_STATEIMAGE};
    auto const image = static_cast<std::int8_t>(record->image);
    for (std::size_t i = 0; i < item->images.size(); ++i) {
        if ((record->mask & bits[i]) && item->images[i] != image) {
            item->images[i] = image;
            changed = true;
        }
    }
}

void KSetItem::writeCheckStyle()
{
    if (record->mask & GCIM_CHECKSTYLE) {
        unsigned const kept = item->checkStyle() & GridItem::grayed;
        unsigned const radio = (record->value & styleRadio) ? GridItem::radio : 0;
        unsigned const hide = (record->value & styleHideCheck) ? GridItem::hideCheck : 0;
        item->setCheckStyle(kept | radio | hide);
        changed = true;
    }
}

void KSetItem::writeListIndex(int index)
{
    int const before = item->listIndex();
    item->setListIndex(index);
    changed = changed || item->listIndex() != before;
}

void KSetItem::VisitIcon(CGCIconColumn *)
{
    if (writeHead()) {
        writeImages();
    }
}

void KSetItem::VisitText(CGCTextColumn *)
{
    writeText();
}

void KSetItem::VisitTextWithIcon(CGCTextWithIconColumn *)
{
    if (writeText()) {
        writeImages();
    }
}

void KSetItem::VisitCheckBox(CGCCheckBoxColumn *)
{
    if (!writeText()) {
        return;
    }
    if (record->mask & GCIM_VALUE) {
        item->setState(GCIS_CHECKED, record->value > 0);
        changed = true;
    }
    writeCheckStyle();
}

void KSetItem::VisitListBox(CGCListBoxColumn * column)
{
    if (!writeHead()) {
        return;
    }
    writeTextColor();
    if (record->mask & GCIM_VALUE) {
        writeListIndex(record->value);
    } else if (record->mask & GCIM_TEXT) {
        int const index = isTextCallback(record->text) ? -1 : column->IndexOf(record->text);
        // A choice that the item can't name is none, rather than another one.
        result = index >= 0 && index <= GridItem::largestListIndex;
        writeListIndex(result ? index : -1);
    }
}

void KSetItem::VisitComboBox(CGCComboBoxColumn *)
{
    writeText();
}

void KSetItem::VisitOwnerDraw(CGCOwnerDrawColumn *)
{
    writeText();
}

void KSetItem::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *)
{
    if (!writeText()) {
        return;
    }
    if (record->mask & GCIM_VALUE) {
        item->setState(GCIS_CHECKED, (record->value & valueChecked) != 0);
        unsigned const kept = item->checkStyle() & ~GridItem::grayed;
        item->setCheckStyle(kept | ((record->value & valueGrayed) ? GridItem::grayed : 0U));
        changed = true;
    }
    writeImages();
    writeCheckStyle();
}

void CGetItemData::VisitOrdinary(CGCOrdinaryRow * row)
{
    GridItem const * const item = row->ItemOf(column);
    if (!item || !record) {
        return;
    }
    KGetItem visitor(item, record);
    column->Accept(&visitor);
    result = visitor.result;
}

void CGetItemData::VisitSection(CGCSection * row)
{
    if (!record) {
        return;
    }
    if (record->mask & GCIM_TEXT) {
        fillBuffer(record->text, record->textMax, row->Text());
    }
    if (record->mask & GCIM_TEXTLEN) {
        record->value = textLength(row->Text());
    }
    record->textColor = QColor::fromRgb(row->textColor);
}

void CSetItemData::VisitOrdinary(CGCOrdinaryRow * row)
{
    GridItem * const item = row->ItemOf(column);
    if (!item || !record) {
        return;
    }
    KSetItem visitor(item, record);
    column->Accept(&visitor);
    changed = visitor.changed;
    result = visitor.result;
}

void CSetItemData::VisitSection(CGCSection * row)
{
    wholeRow = true;
    if (!record) {
        return;
    }
    if (record->mask & GCIM_TEXTCOLOR) {
        row->textColor = record->textColor.rgb();
    }
    if ((record->mask & GCIM_TEXT) && !isTextCallback(record->text)) {
        changed = !areSameTexts(row->Text(), record->text);
        row->SetText(record->text);
    }
}

} // namespace zenu
