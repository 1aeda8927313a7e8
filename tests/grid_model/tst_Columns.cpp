#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"

using namespace zenu;
using namespace zenutest;

class tst_Columns : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void newColumn_allFields_areZero();
    void makeColumn_kind_buildsItsClass_data();
    void makeColumn_kind_buildsItsClass();
    void makeColumn_unknownKind_isNull();
    void makeColumn_kind_leavesTheFieldToTheRecord();
    void visitor_overridingOnlyVisit_isCalledForAllNineClasses();
    void visitor_ownOperation_isCalledInsteadOfVisit();
    void getRecord_anyMask_fillsAllButText();
    void getRecord_text_followsStrncpy_data();
    void getRecord_text_followsStrncpy();
    void getRecord_withoutBuffer_writesNothing();
    void setRecord_maskBit_storesItsFieldAlone_data();
    void setRecord_maskBit_storesItsFieldAlone();
    void setRecord_editFlags_stayOnlyOnEditableKinds_data();
    void setRecord_editFlags_stayOnlyOnEditableKinds();
    void setRecord_onlyWidthOnTextColumn_keepsEditFlags();
    void setRecord_onlyWidthOnIconColumn_dropsEditFlags();
    void setRecord_text_isCopiedAndNullIsKept();
    void makeColumnFrom_anyKind_keepsFieldsAndDuplicatesTitle();
    void makeColumnFrom_listKinds_copyChoicesOnlyFromListKinds();
    void setRecord_listItems_areIgnored();
    void setRecordWithChoices_splitsOnLastCharacter_data();
    void setRecordWithChoices_splitsOnLastCharacter();
    void setRecordWithChoices_withoutMaskOrText_keepsChoices();
    void setRecordWithChoices_anyMask_writesTheOtherFields();
    void setRecordWithChoices_fromItsOwnChoice_splitsACopy();
    void choice_outOfRange_isNull();
    void indexOf_text_isExact();
    void touch_doesNothing();
    void handle_isTheId();
};

namespace {

class VisitOnly : public IGCColumnVisitor
{
public:
    void Visit(CGCColumn * column) override { visited.push_back(column); }
    std::vector<CGCColumn *> visited;
};

class EachKind : public IGCColumnVisitor
{
public:
    void Visit(CGCColumn *) override { called += "column "; }
    void VisitIcon(CGCIconColumn *) override { called += "icon "; }
    void VisitText(CGCTextColumn *) override { called += "text "; }
    void VisitTextWithIcon(CGCTextWithIconColumn *) override { called += "textWithIcon "; }
    void VisitCheckBox(CGCCheckBoxColumn *) override { called += "checkBox "; }
    void VisitListBox(CGCListBoxColumn *) override { called += "listBox "; }
    void VisitComboBox(CGCComboBoxColumn *) override { called += "comboBox "; }
    void VisitOwnerDraw(CGCOwnerDrawColumn *) override { called += "ownerDraw "; }
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *) override { called += "checkIcon "; }
    QByteArray called;
};

QByteArray dump(CGCColumn const & column)
{
    return QByteArray("format=") + QByteArray::number(column.format) +
           " width=" + QByteArray::number(column.width) +
           " kind=" + QByteArray::number(column.kind) +
           " flags=" + QByteArray::number(column.flags, 16) + " text=" + textOf(column.Text());
}

QByteArray joined(std::vector<std::string> const & choices)
{
    QByteArray all;
    for (std::string const & choice : choices) {
        all += QByteArray::fromStdString(choice) + "|";
    }
    return all;
}

// Which classes share operations: a visitor or a cast may ask for the base.
static_assert(std::is_base_of_v<CGCColumn, CGCTextColumn>);
static_assert(std::is_base_of_v<CGCColumn, CGCIconColumn>);
static_assert(!std::is_base_of_v<CGCTextColumn, CGCIconColumn>);
static_assert(std::is_base_of_v<CGCTextColumn, CGCTextWithIconColumn>);
static_assert(std::is_base_of_v<CGCTextWithIconColumn, CGCOwnerDrawColumn>);
static_assert(std::is_base_of_v<CGCTextColumn, CGCCheckBoxColumn>);
static_assert(std::is_base_of_v<CGCTextColumn, CGCCheckBoxWithIconColumn>);
static_assert(!std::is_base_of_v<CGCCheckBoxColumn, CGCCheckBoxWithIconColumn>);
static_assert(std::is_base_of_v<CGCTextColumn, CGCListBoxColumn>);
static_assert(std::is_base_of_v<CGCListBoxColumn, CGCComboBoxColumn>);

} // namespace

void tst_Columns::newColumn_allFields_areZero()
{
    CGCColumn const column(4, 2);
    QCOMPARE(column.id, 4);
    QCOMPARE(column.itemIndex, 2);
    QCOMPARE(column.order, 0);
    QCOMPARE(column.left, 0);
    QCOMPARE(dump(column), QByteArray("format=0 width=0 kind=0 flags=0 text=(null)"));
}

void tst_Columns::makeColumn_kind_buildsItsClass_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("called");
    QTest::newRow("text") << int(GCCK_TEXT) << QByteArray("text ");
    QTest::newRow("text with icon") << int(GCCK_TEXTWITHICON) << QByteArray("textWithIcon ");
    QTest::newRow("icon") << int(GCCK_ICON) << QByteArray("icon ");
    QTest::newRow("owner draw") << int(GCCK_OWNERDRAW) << QByteArray("ownerDraw ");
    QTest::newRow("check box") << int(GCCK_CHECKBOX) << QByteArray("checkBox ");
    QTest::newRow("list box") << int(GCCK_LISTBOX) << QByteArray("listBox ");
    QTest::newRow("combo box") << int(GCCK_COMBOBOX) << QByteArray("comboBox ");
    QTest::newRow("check with icon") << int(GCCK_CHECKBOXWITHICON) << QByteArray("checkIcon ");
}

void tst_Columns::makeColumn_kind_buildsItsClass()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, called);
    std::unique_ptr<CGCColumn> const column = makeColumn(kind, 3, 1);
    EachKind visitor;
    column->Accept(&visitor);
    QCOMPARE(visitor.called, called);
    QCOMPARE(column->id, 3);
    QCOMPARE(column->itemIndex, 1);
}

void tst_Columns::makeColumn_unknownKind_isNull()
{
    CGCColumn const column(0, 0);
    for (int kind : {-1, 8, 0x7fffffff}) {
        QVERIFY(!makeColumn(kind, 0, 0));
        QVERIFY(!makeColumnFrom(kind, column));
    }
}

void tst_Columns::makeColumn_kind_leavesTheFieldToTheRecord()
{
    std::unique_ptr<CGCColumn> const column = makeColumn(GCCK_ICON, 0, 0);
    QCOMPARE(column->kind, 0);
    GC_COLUMN record;
    record.kind = GCCK_ICON;
    column->SetRecord(&record);
    QCOMPARE(column->kind, 0); // stored with its mask bit only
}

void tst_Columns::visitor_overridingOnlyVisit_isCalledForAllNineClasses()
{
    VisitOnly visitor;
    ColumnSet columns;
    addAllKinds(columns);
    CGCColumn root(99, 0);
    root.Accept(&visitor);
    std::vector<CGCColumn *> expected{&root};
    for (CGCColumn * const column : columns.all()) {
        column->Accept(&visitor);
        expected.push_back(column);
    }
    QCOMPARE(visitor.visited.size(), std::size_t(9));
    QCOMPARE(visitor.visited, expected);
}

void tst_Columns::visitor_ownOperation_isCalledInsteadOfVisit()
{
    EachKind visitor;
    ColumnSet columns;
    addAllKinds(columns);
    for (CGCColumn * const column : columns.all()) {
        column->Accept(&visitor);
    }
    CGCColumn(9, 0).Accept(&visitor);
    QCOMPARE(visitor.called, QByteArray("text textWithIcon icon ownerDraw checkBox listBox "
                                        "comboBox checkIcon column "));
}

void tst_Columns::getRecord_anyMask_fillsAllButText()
{
    CGCTextColumn column(1, 0);
    column.format = 4;
    column.kind = GCCK_TEXT;
    column.flags = GCCF_TREE;
    column.width = 55;
    column.order = 6;
    column.SetText("title");
    for (unsigned mask : {0U, ~0U & ~unsigned(GCCM_TEXT)}) {
        GC_COLUMN record;
        char buffer[8] = "keep";
        record.mask = mask;
        record.text = buffer;
        record.textMax = sizeof buffer;
        column.GetRecord(&record);
        QCOMPARE(record.format, 4);
        QCOMPARE(record.kind, int(GCCK_TEXT));
        QCOMPARE(record.flags, unsigned(GCCF_TREE));
        QCOMPARE(record.width, 55);
        QCOMPARE(record.order, 6);
        QCOMPARE(buffer, "keep");
    }
}

void tst_Columns::getRecord_text_followsStrncpy_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<int>("textMax");
    QTest::addColumn<QByteArray>("buffer");
    QByteArray const zeros(8, '\0');
    QTest::newRow("the rest is zeroed") << QByteArray("ab") << 6 << QByteArray("ab\0\0\0\0##", 8);
    QTest::newRow("room for the text alone: no terminator")
        << QByteArray("abc") << 3 << QByteArray("abc#####");
    QTest::newRow("a longer text is cut: no terminator")
        << QByteArray("abcdef") << 3 << QByteArray("abc#####");
    QTest::newRow("a null title empties the buffer") << QByteArray() << 8 << zeros;
    QTest::newRow("no room") << QByteArray("abc") << 0 << QByteArray(8, '#');
    QTest::newRow("negative room") << QByteArray("abc") << -1 << QByteArray(8, '#');
}

void tst_Columns::getRecord_text_followsStrncpy()
{
    QFETCH(QByteArray, title);
    QFETCH(int, textMax);
    QFETCH(QByteArray, buffer);
    CGCTextColumn column(1, 0);
    column.SetText(title.isNull() ? nullptr : title.constData());
    QByteArray read(8, '#');
    GC_COLUMN record;
    record.mask = GCCM_TEXT;
    record.text = read.data();
    record.textMax = textMax;
    column.GetRecord(&record);
    QCOMPARE(read, buffer);
}

void tst_Columns::getRecord_withoutBuffer_writesNothing()
{
    CGCTextColumn column(1, 0);
    column.SetText("title");
    GC_COLUMN record;
    record.mask = GCCM_TEXT;
    record.textMax = 100;
    column.GetRecord(&record);
    QVERIFY(!record.text);
}

void tst_Columns::setRecord_maskBit_storesItsFieldAlone_data()
{
    QTest::addColumn<unsigned>("mask");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("none") << 0U << QByteArray("format=1 width=2 kind=0 flags=8 text=old");
    QTest::newRow("format") << unsigned(GCCM_FORMAT)
                            << QByteArray("format=5 width=2 kind=0 flags=8 text=old");
    QTest::newRow("text") << unsigned(GCCM_TEXT)
                          << QByteArray("format=1 width=2 kind=0 flags=8 text=new");
    QTest::newRow("width") << unsigned(GCCM_WIDTH)
                           << QByteArray("format=1 width=6 kind=0 flags=8 text=old");
    QTest::newRow("kind") << unsigned(GCCM_KIND)
                          << QByteArray("format=1 width=2 kind=6 flags=8 text=old");
    QTest::newRow("flags") << unsigned(GCCM_FLAGS)
                           << QByteArray("format=1 width=2 kind=0 flags=90 text=old");
    QTest::newRow("list items") << unsigned(GCCM_LISTITEMS)
                                << QByteArray("format=1 width=2 kind=0 flags=8 text=old");
}

void tst_Columns::setRecord_maskBit_storesItsFieldAlone()
{
    QFETCH(unsigned, mask);
    QFETCH(QByteArray, expected);
    CGCTextColumn column(1, 0);
    column.format = 1;
    column.width = 2;
    column.flags = GCCF_TREE;
    column.order = 3;
    column.SetText("old");
    char text[] = "new";
    char items[] = "a;b;";
    GC_COLUMN record;
    record.mask = mask;
    record.format = 5;
    record.width = 6;
    record.kind = GCCK_COMBOBOX;
    record.flags = GCCF_HIDDEN | GCCF_TREELINES;
    record.text = text;
    record.listItems = items;
    record.order = 7;
    column.SetRecord(&record);
    QCOMPARE(dump(column), expected);
    QCOMPARE(column.order, 3);
}

void tst_Columns::setRecord_editFlags_stayOnlyOnEditableKinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<unsigned>("kept");
    for (int kind = 0; kind < kindCount; ++kind) {
        bool const editable = kind == GCCK_TEXT || kind == GCCK_TEXTWITHICON ||
                              kind == GCCK_LISTBOX || kind == GCCK_COMBOBOX;
        QTest::newRow(kindNames[std::size_t(kind)]) << kind << (editable ? 0x4802U : 0U);
    }
}

void tst_Columns::setRecord_editFlags_stayOnlyOnEditableKinds()
{
    QFETCH(int, kind);
    QFETCH(unsigned, kept);
    std::unique_ptr<CGCColumn> const column = makeColumn(kind, 0, 0);
    GC_COLUMN record;
    record.mask = GCCM_KIND | GCCM_FLAGS;
    record.kind = kind;
    record.flags = 0x4802;
    column->SetRecord(&record);
    QCOMPARE(column->flags, kept);
}

void tst_Columns::setRecord_onlyWidthOnTextColumn_keepsEditFlags()
{
    CGCTextColumn column(0, 0);
    column.flags = 0x4802;
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    record.width = 40;
    column.SetRecord(&record);
    QCOMPARE(column.flags, 0x4802U);
    QCOMPARE(column.width, 40);
}

void tst_Columns::setRecord_onlyWidthOnIconColumn_dropsEditFlags()
{
    CGCIconColumn column(0, 0);
    column.kind = GCCK_ICON;
    column.flags = 0x4802 | GCCF_TREE;
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    column.SetRecord(&record);
    QCOMPARE(column.flags, unsigned(GCCF_TREE));
}

void tst_Columns::setRecord_text_isCopiedAndNullIsKept()
{
    CGCTextColumn column(0, 0);
    char text[] = "title";
    GC_COLUMN record;
    record.mask = GCCM_TEXT;
    record.text = text;
    column.SetRecord(&record);
    text[0] = 'x';
    QCOMPARE(column.Text(), "title");
    column.SetText(column.Text());
    QCOMPARE(column.Text(), "title");
    record.text = nullptr;
    column.SetRecord(&record);
    QVERIFY(!column.Text());
}

void tst_Columns::makeColumnFrom_anyKind_keepsFieldsAndDuplicatesTitle()
{
    CGCCheckBoxColumn from(7, 3);
    from.order = 2;
    from.kind = GCCK_CHECKBOX;
    from.left = 100;
    from.width = 50;
    from.flags = GCCF_TREE;
    from.format = 4;
    from.SetText("title");
    for (int kind = 0; kind < kindCount; ++kind) {
        std::unique_ptr<CGCColumn> const column = makeColumnFrom(kind, from);
        QCOMPARE(column->id, 7);
        QCOMPARE(column->itemIndex, 3);
        QCOMPARE(column->order, 2);
        QCOMPARE(column->left, 100);
        QCOMPARE(dump(*column), dump(from));
        QVERIFY(column->Text() != from.Text());
    }
}

void tst_Columns::makeColumnFrom_listKinds_copyChoicesOnlyFromListKinds()
{
    CGCListBoxColumn list(0, 0);
    list.choices = {"a", "b"};
    std::unique_ptr<CGCColumn> const combo = makeColumnFrom(GCCK_COMBOBOX, list);
    QCOMPARE(joined(dynamic_cast<CGCComboBoxColumn &>(*combo).choices), QByteArray("a|b|"));
    std::unique_ptr<CGCColumn> const back = makeColumnFrom(GCCK_LISTBOX, *combo);
    QCOMPARE(joined(dynamic_cast<CGCListBoxColumn &>(*back).choices), QByteArray("a|b|"));
    CGCTextColumn const text(0, 0);
    std::unique_ptr<CGCColumn> const fresh = makeColumnFrom(GCCK_LISTBOX, text);
    QVERIFY(dynamic_cast<CGCListBoxColumn &>(*fresh).choices.empty());
}

void tst_Columns::setRecord_listItems_areIgnored()
{
    CGCListBoxColumn list(0, 0);
    char items[] = "a;b;";
    GC_COLUMN record;
    record.mask = GCCM_LISTITEMS;
    record.listItems = items;
    static_cast<CGCColumn &>(list).SetRecord(&record);
    QVERIFY(list.choices.empty());
}

void tst_Columns::setRecordWithChoices_splitsOnLastCharacter_data()
{
    QTest::addColumn<QByteArray>("items");
    QTest::addColumn<QByteArray>("choices");
    QTest::newRow("two words each with a semicolon")
        << QByteArray("one;two;") << QByteArray("one|two|");
    QTest::newRow("any last character separates")
        << QByteArray("one,two,three,") << QByteArray("one|two|three|");
    QTest::newRow("a letter at the end too") << QByteArray("alpha") << QByteArray("lph|");
    QTest::newRow("empty pieces are skipped")
        << QByteArray(";;one;;two;;") << QByteArray("one|two|");
    QTest::newRow("only separators") << QByteArray(";;;") << QByteArray();
    QTest::newRow("an empty text clears") << QByteArray("") << QByteArray();
}

void tst_Columns::setRecordWithChoices_splitsOnLastCharacter()
{
    QFETCH(QByteArray, items);
    QFETCH(QByteArray, choices);
    CGCListBoxColumn list(0, 0);
    list.choices = {"before"};
    GC_COLUMN record;
    record.mask = GCCM_LISTITEMS | GCCM_WIDTH;
    record.listItems = items.data();
    record.width = 12;
    list.SetRecordWithChoices(&record);
    QCOMPARE(joined(list.choices), choices);
    QCOMPARE(list.width, 12);
}

void tst_Columns::setRecordWithChoices_withoutMaskOrText_keepsChoices()
{
    CGCListBoxColumn list(0, 0);
    list.choices = {"before"};
    char items[] = "a;";
    GC_COLUMN record;
    record.listItems = items;
    list.SetRecordWithChoices(&record);
    record.mask = GCCM_LISTITEMS;
    record.listItems = nullptr;
    list.SetRecordWithChoices(&record);
    QCOMPARE(joined(list.choices), QByteArray("before|"));
}

void tst_Columns::setRecordWithChoices_anyMask_writesTheOtherFields()
{
    CGCListBoxColumn list(0, 0);
    list.kind = GCCK_LISTBOX;
    char title[] = "title";
    GC_COLUMN record;
    record.mask = GCCM_TEXT | GCCM_WIDTH;
    record.text = title;
    record.width = 30;
    list.SetRecordWithChoices(&record);
    QCOMPARE(dump(list), QByteArray("format=0 width=30 kind=5 flags=0 text=title"));
}

void tst_Columns::setRecordWithChoices_fromItsOwnChoice_splitsACopy()
{
    CGCListBoxColumn list(0, 0);
    list.choices = {"one of the longer choices;another;"};
    GC_COLUMN record;
    record.mask = GCCM_LISTITEMS;
    record.listItems = list.choices[0].data();
    list.SetRecordWithChoices(&record);
    QCOMPARE(joined(list.choices), QByteArray("one of the longer choices|another|"));
}

void tst_Columns::choice_outOfRange_isNull()
{
    CGCListBoxColumn list(0, 0);
    QVERIFY(!list.Choice(0));
    list.choices = {"a", "b"};
    QCOMPARE(list.Choice(1), "b");
    QVERIFY(!list.Choice(2));
    QVERIFY(!list.Choice(-1));
}

void tst_Columns::indexOf_text_isExact()
{
    CGCListBoxColumn list(0, 0);
    list.choices = {"a", "B", "a", ""};
    QCOMPARE(list.IndexOf("a"), 0);
    QCOMPARE(list.IndexOf("b"), -1);
    QCOMPARE(list.IndexOf(""), 3);
    QCOMPARE(list.IndexOf(nullptr), -1);
}

void tst_Columns::touch_doesNothing()
{
    CGCTextColumn column(0, 0);
    column.Touch(5);
    QCOMPARE(dump(column), QByteArray("format=0 width=0 kind=0 flags=0 text=(null)"));
}

void tst_Columns::handle_isTheId()
{
    CGCColumn const first(0, 0);
    QVERIFY(first.Handle() == nullptr);
    QCOMPARE(columnId(first.Handle()), 0);
    QCOMPARE(columnId(CGCColumn(41, 0).Handle()), 41);
    QCOMPARE(columnId(GC_NOCOLUMN), -1);
    QCOMPARE(columnId(reinterpret_cast<tag_HCOLUMN *>(0x80000000L)), -1);
    QCOMPARE(columnId(reinterpret_cast<tag_HCOLUMN *>(-5L)), -1);
}

ZENU_TEST(tst_Columns)
#include "tst_Columns.moc"
