#include "zenu/grid/data/RowAccess.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/data/TextBuffer.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

void CGetRowData::readCommon(IGCRow const * row)
{
    record->state = state;
    record->parent = row->parent ? row->parent->Handle() : GC_ROOT;
    record->top = top;
    record->param = row->param;
}

void CGetRowData::takeFont(CGCOrdinaryRow * row)
{
    // Not a read of the font: with the bit set the record's font goes to a row that has one, and
    // is deleted with this visitor otherwise. Callers don't set the bit on a read.
    if ((record->mask & GCRM_FONT) && record->font) {
        if (row->font) {
            row->font = record->font;
        } else {
            takenFont.reset(record->font);
        }
    }
}

void CGetRowData::VisitOrdinary(CGCOrdinaryRow * row)
{
    if (!record) {
        return;
    }
    readCommon(row);
    record->height = height;
    record->textColor = QColor::fromRgb(row->textColor);
    record->bkColor = QColor::fromRgb(row->bkColor);
    takeFont(row);
    result = true;
}

void CGetRowData::VisitSlim(CGCSlimRow * row)
{
    if (record) {
        readCommon(row);
    }
}

void CGetRowData::VisitLonelySlim(CGCLonelySlimRow * row)
{
    if (record) {
        readCommon(row);
        record->height = height;
    }
}

void CGetRowData::VisitSection(CGCSection * row)
{
    VisitOrdinary(row);
    if (section && (section->mask & GCRM_SECTIONTEXT)) {
        fillBuffer(section->text, section->textMax, row->Text());
    }
}

void CSetRowData::request(unsigned bit, bool & on, bool & off) const
{
    if (record->stateMask & bit) {
        ((record->state & bit) ? on : off) = true;
    }
}

void CSetRowData::writeCommon(IGCRow * row)
{
    if (record->mask & GCRM_STATE) {
        request(GCRS_SELECTED, select, deselect);
        request(GCRS_FOCUSED, focus, unfocus);
        request(GCRS_EXPANDED, expand, collapse);
    }
    if (record->mask & GCRM_PARAM) {
        row->param = record->param;
    }
}

void CSetRowData::VisitOrdinary(CGCOrdinaryRow * row)
{
    if (!record) {
        return;
    }
    writeCommon(row);
    if ((record->mask & GCRM_STATE) && (record->stateMask & GCRS_HASCHILDREN)) {
        row->SetHasChildren((record->state & GCRS_HASCHILDREN) != 0);
    }
    if (record->mask & GCRM_TEXTCOLOR) {
        row->textColor = record->textColor.rgb();
        repaint = true;
    }
    if (record->mask & GCRM_BKCOLOR) {
        row->bkColor = record->bkColor.rgb();
        repaint = true;
    }
    if (record->mask & GCRM_FONT) {
        row->font = record->font;
        repaint = true;
    }
    result = true;
}

void CSetRowData::VisitSlim(CGCSlimRow * row)
{
    if (record) {
        writeCommon(row);
    }
}

void CSetRowData::VisitLonelySlim(CGCLonelySlimRow * row)
{
    if (record) {
        writeCommon(row);
    }
}

void CSetRowData::VisitSection(CGCSection * row)
{
    VisitOrdinary(row);
    if (section && (section->mask & GCRM_SECTIONTEXT) && !isTextCallback(section->text)) {
        repaint = repaint || !areSameTexts(row->Text(), section->text);
        row->SetText(section->text);
    }
}

} // namespace zenu
