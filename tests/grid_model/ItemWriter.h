#pragma once

#include "tests/grid_model/ModelFixture.h"
#include "zenu/grid/data/ItemAccess.h"

namespace zenutest {

// An item as dump() puts it.
inline QByteArray line(char const * flags, char const * images, char const * color,
                       char const * style, char const * text)
{
    return QByteArray("flags=") + flags + " images=" + images + " color=" + color +
           " style=" + style + " text=" + text;
}

// Each kind's fresh item.
inline QByteArray fresh(int kind)
{
    return line("0", "-1,-1,-1", kind == zenu::GCCK_LISTBOX ? "0" : "ff000000", "0", "(null)");
}

// Writes into a cell from a record that has something else than a fresh item in every field.
struct Writer
{
    explicit Writer(unsigned mask)
    {
        record.mask = mask;
        record.state = zenu::GCIS_MARKED;
        record.stateMask = zenu::GCIS_MARKED | zenu::GCIS_FOCUSED;
        record.value = 2;
        record.image = 9;
        record.text = text.data();
        record.textColor = QColor(0x44, 0x55, 0x66);
    }
    void write(zenu::IGCRow * row, zenu::CGCColumn * column)
    {
        zenu::CSetItemData visitor(&record, column);
        row->Accept(&visitor);
        changed = visitor.changed;
        result = visitor.result;
    }
    QByteArray text = "new";
    zenu::GC_ITEM record;
    bool changed = false;
    bool result = false;
};

} // namespace zenutest
