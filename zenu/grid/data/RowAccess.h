#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <QFont>

#include <memory>

namespace zenu {

struct GC_ROW;
struct GC_SECTION;

// Fills a row record. What only the grid knows (state, top, height) is given. Slim rows fill what
// they have and answer false.
class ZENU_TEST_EXPORT CGetRowData : public IGCRowVisitor
{
public:
    // Each record may be null; for a section with title both are the same one.
    CGetRowData(GC_ROW * rowRecord, GC_SECTION * sectionRecord, int rowTop, int rowHeight,
                unsigned rowState)
        : record(rowRecord)
        , section(sectionRecord)
        , top(rowTop)
        , height(rowHeight)
        , state(rowState)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    // No height and no colours: the record keeps what it had there.
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;
    void VisitSection(CGCSection * row) override;

    bool result = false;

private:
    void readCommon(IGCRow const * row);
    void takeFont(CGCOrdinaryRow * row);

    GC_ROW * record;
    GC_SECTION * section;
    int top;
    int height;
    unsigned state;
    std::unique_ptr<QFont> takenFont;
};

// Writes a row record into a row and says what the grid is to do after it.
class ZENU_TEST_EXPORT CSetRowData : public IGCRowVisitor
{
public:
    // Each record may be null; for a section with title both are the same one.
    CSetRowData(GC_ROW const * rowRecord, GC_SECTION const * sectionRecord)
        : record(rowRecord)
        , section(sectionRecord)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    // Slim rows take param and requests, and answer false.
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;
    void VisitSection(CGCSection * row) override;

    bool select = false;
    bool deselect = false;
    bool focus = false;
    bool unfocus = false;
    bool expand = false;
    bool collapse = false;
    bool repaint = false;
    bool result = false;

private:
    void writeCommon(IGCRow * row);
    void request(unsigned bit, bool & on, bool & off) const;

    GC_ROW const * record;
    GC_SECTION const * section;
};

} // namespace zenu
