#include "tests/grid_painting/Scene.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/painting/KGetDrawItemInfo.h"

using namespace zenutest;

class tst_KGetDrawItemInfo : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fields_eachKind_areItsOwn_data();
    void fields_eachKind_areItsOwn();
    void color_underSelection_isKept();
    void color_unset_isKept();
    void color_ofFreshListItem_isBlack();
    void missingItem_changesNothing();
};

namespace {

QString dump(GC_DRAWITEMINFO const & info)
{
    QString flags;
    for (auto const & [on, letter] : {std::pair{info.checked, 'c'},
                                      {info.grayed, 'g'},
                                      {info.radio, 'r'},
                                      {info.hideCheck, 'h'}}) {
        if (on) {
            flags += QLatin1Char(letter);
        }
    }
    return QStringLiteral("%1 %2 %3 %4 lead %5 %6")
        .arg(info.image)
        .arg(info.overlay)
        .arg(info.state)
        .arg(flags)
        .arg(info.lead)
        .arg(info.textColor.name());
}

} // namespace

void tst_KGetDrawItemInfo::fields_eachKind_areItsOwn_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("fields");
    QTest::newRow("text") << int(GCCK_TEXT) << "-1 -1 -1  lead -1 #010203";
    QTest::newRow("text with icon") << int(GCCK_TEXTWITHICON) << "1 2 3  lead -1 #010203";
    QTest::newRow("icon has no text") << int(GCCK_ICON) << "1 2 3  lead -1 #ff0000";
    QTest::newRow("owner draw") << int(GCCK_OWNERDRAW) << "-1 -1 -1  lead -1 #010203";
    QTest::newRow("check box") << int(GCCK_CHECKBOX) << "-1 -1 -1 cgrh lead -1 #010203";
    QTest::newRow("list box") << int(GCCK_LISTBOX) << "-1 -1 -1  lead -1 #010203";
    QTest::newRow("combo box") << int(GCCK_COMBOBOX) << "-1 -1 -1  lead -1 #010203";
    QTest::newRow("check box with icon")
        << int(GCCK_CHECKBOXWITHICON) << "1 2 3 cgrh lead -1 #010203";
}

void tst_KGetDrawItemInfo::fields_eachKind_areItsOwn()
{
    QFETCH(int, kind);
    auto const column = makeColumn(kind, 0, 0);
    GridItem item;
    item.images = {1, 2, 3};
    item.setTextColor(QColor(1, 2, 3).rgb());
    item.setState(GCIS_CHECKED, true);
    item.setCheckStyle(7);
    GC_DRAWITEMINFO info;
    info.textColor = Qt::red;
    KGetDrawItemInfo visitor(&item, true, &info);
    column->Accept(&visitor);
    QTEST(dump(info), "fields");
}

void tst_KGetDrawItemInfo::color_underSelection_isKept()
{
    auto const column = makeColumn(GCCK_TEXT, 0, 0);
    GridItem item;
    item.setTextColor(QColor(1, 2, 3).rgb());
    GC_DRAWITEMINFO info;
    info.textColor = Qt::red;
    KGetDrawItemInfo visitor(&item, false, &info);
    column->Accept(&visitor);
    QCOMPARE(info.textColor, QColor(Qt::red));
}

void tst_KGetDrawItemInfo::color_unset_isKept()
{
    auto const column = makeColumn(GCCK_TEXT, 0, 0);
    GridItem const item;
    GC_DRAWITEMINFO info;
    info.textColor = Qt::red;
    KGetDrawItemInfo visitor(&item, true, &info);
    column->Accept(&visitor);
    QCOMPARE(info.textColor, QColor(Qt::red));
}

void tst_KGetDrawItemInfo::color_ofFreshListItem_isBlack()
{
    Scene scene;
    CGCColumn * const column = scene.addColumn(GCCK_LISTBOX, 10);
    CGCOrdinaryRow * const row = scene.addRow();
    GC_DRAWITEMINFO info;
    info.textColor = Qt::red;
    KGetDrawItemInfo visitor(row->ItemOf(column), true, &info);
    column->Accept(&visitor);
    QCOMPARE(info.textColor, QColor(0, 0, 0));
}

void tst_KGetDrawItemInfo::missingItem_changesNothing()
{
    auto const column = makeColumn(GCCK_CHECKBOXWITHICON, 0, 0);
    GC_DRAWITEMINFO info;
    info.textColor = Qt::red;
    KGetDrawItemInfo visitor(nullptr, true, &info);
    column->Accept(&visitor);
    QCOMPARE(dump(info), QStringLiteral("-1 -1 -1  lead -1 #ff0000"));
}

ZENU_TEST(tst_KGetDrawItemInfo)
#include "tst_KGetDrawItemInfo.moc"
