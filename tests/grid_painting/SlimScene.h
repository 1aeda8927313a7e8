#pragma once

#include "tests/grid_painting/Scene.h"

namespace zenutest {

// The application behind slim rows: records what it is asked.
class Application : public ISlimGridCallbackWrapper
{
public:
    void GetRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row) override
    {
        calls << QStringLiteral("row %1").arg(row->param);
        given = *info;
        if (onRow) {
            onRow(*info);
        }
    }
    void ReleaseRowDrawInfo(GC_DRAWROWINFO * info, IGCRow * row) override
    {
        calls << QStringLiteral("release %1").arg(row->param);
        released = *info;
    }
    void GetItemDrawInfo(GC_DRAWITEMINFO * info, IGCRow *, CGCColumn * column, bool selected,
                         bool focusCell) override
    {
        calls << QStringLiteral("item %1 %2%3")
                     .arg(column->id)
                     .arg(QChar(selected ? u'S' : u'-'))
                     .arg(QChar(focusCell ? u'F' : u'-'));
        givenColors << info->textColor;
        if (onItem) {
            onItem(*info);
        }
    }
    char const * GetItemText(IGCRow *, CGCColumn * column) override
    {
        calls << QStringLiteral("text %1").arg(column->id);
        buffer = text;
        return buffer.isNull() ? nullptr : buffer.constData();
    }
    void SetItemText(IGCRow *, CGCColumn *, char const *) override {}
    void SetItemCheck(IGCRow *, CGCColumn *, bool) override {}
    int IsItemChecked(IGCRow *, CGCColumn *) override { return 0; }
    bool HasSubRows(IGCRow * row) override
    {
        calls << QStringLiteral("children %1").arg(row->param);
        return children;
    }
    int GetSubRowCount(IGCRow *) override { return 0; }
    void LoadSubRows(CGCSlimRow *, bool, int) override {}
    int GetDefaultRowHeight() override { return 20; }

    std::function<void(GC_DRAWROWINFO &)> onRow;
    std::function<void(GC_DRAWITEMINFO &)> onItem;
    QByteArray text;
    QByteArray buffer;
    bool children = false;
    QStringList calls;
    GC_DRAWROWINFO given;
    GC_DRAWROWINFO released;
    QList<QColor> givenColors;
};

// A slim row and a lonely one over two columns, with a hidden one between.
struct SlimScene : Scene
{
    SlimScene()
    {
        context.slimCallback = &application;
        first = addColumn(GCCK_TEXT, 60);
        addColumn(GCCK_TEXT, 20, GCCF_HIDDEN);
        second = addColumn(GCCK_TEXT, 40);
        row = addSlim<CGCSlimRow>();
        row->param = 7;
        lonely = addSlim<CGCLonelySlimRow>();
        lonely->param = 8;
    }
    Application application;
    CGCColumn * first;
    CGCColumn * second;
    CGCSlimRow * row;
    CGCLonelySlimRow * lonely;
    DrawnRow place = standing();
};

} // namespace zenutest
