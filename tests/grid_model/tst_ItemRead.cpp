#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/data/ItemAccess.h"

using namespace zenu;
using namespace zenutest;

class tst_ItemRead : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getItem_maskBitOnKind_fillsItsFields_data();
    void getItem_maskBitOnKind_fillsItsFields();
    void getItem_text_followsStrncpy_data();
    void getItem_text_followsStrncpy();
    void getItem_nullBuffer_isFalse_data();
    void getItem_nullBuffer_isFalse();
    void getItem_callbackText_isFalseWithEmptyBuffer_data();
    void getItem_callbackText_isFalseWithEmptyBuffer();
    void getItem_cachedText_isRead();
    void getItem_textLength_ofNoRealText_isZero_data();
    void getItem_textLength_ofNoRealText_isZero();
    void getItem_alignment_isFieldMinusOne_data();
    void getItem_alignment_isFieldMinusOne();
    void getItem_listIndexOutOfRange_readsAsNoText_data();
    void getItem_listIndexOutOfRange_readsAsNoText();
    void getItem_checkStyle_losesTheRadioBit_data();
    void getItem_checkStyle_losesTheRadioBit();
    void getItem_fullMask_lastFieldReadWins();
    void getItem_slimRows_answerFalseAndFillNothing_data();
    void getItem_slimRows_answerFalseAndFillNothing();
    void getItem_section_answersFalseWithRecordFilled_data();
    void getItem_section_answersFalseWithRecordFilled();
    void getItem_sectionBuffers_areRespected();
    void getItem_nullRecordOrMissingItem_isFalse_data();
    void getItem_nullRecordOrMissingItem_isFalse();
};

namespace {

// What a kind reads, 77 standing for a field that is left alone: value and image for no bit, then
// those for the bits that differ from it.
struct Reading
{
    int kind;
    char const * text; // for GCIM_TEXT, null when the buffer is left alone
    bool colour;
    int value;
    int image;
    std::map<unsigned, int> values;
    std::map<unsigned, int> images;
};

std::map<unsigned, int> const plainValues{{GCIM_TEXTLEN, 4}, {GCIM_ALIGN, 2}};
std::map<unsigned, int> const otherImages{{GCIM_OVERLAY, 6}, {GCIM_STATEIMAGE, 7}};
std::map<unsigned, int> const allImages{{GCIM_IMAGE, 5}, {GCIM_OVERLAY, 6}, {GCIM_STATEIMAGE, 7}};

std::vector<Reading> const readings{
    {GCCK_TEXT, "mine", true, 77, 77, plainValues, {}},
    {GCCK_TEXTWITHICON, "mine", true, 77, 5, plainValues, otherImages},
    {GCCK_ICON, nullptr, false, 77, 77, {{GCIM_ALIGN, 2}}, allImages},
    {GCCK_OWNERDRAW, "mine", true, 77, 77, plainValues, {}},
    {GCCK_CHECKBOX, "mine", true, 1, 77, {{GCIM_CHECKSTYLE, 2}}, {}},
    {GCCK_LISTBOX, "c5", true, 5, 77, {{GCIM_TEXTLEN, 2}}, {}},
    {GCCK_COMBOBOX, "mine", true, 77, 77, plainValues, {}},
    {GCCK_CHECKBOXWITHICON, "mine", true, 3, 5, {{GCIM_CHECKSTYLE, 2}}, otherImages},
};

int valueFor(std::map<unsigned, int> const & fields, unsigned mask, int otherwise)
{
    auto const found = fields.find(mask);
    return found == fields.end() ? otherwise : found->second;
}

struct Reader
{
    Reader()
    {
        record.text = buffer.data();
        record.textMax = int(buffer.size());
        record.value = 77;
        record.image = 77;
        record.state = 77;
        record.textColor = QColor(1, 2, 3);
    }
    bool read(IGCRow * row, CGCColumn * column)
    {
        CGetItemData visitor(&record, column);
        row->Accept(&visitor);
        return visitor.result;
    }
    QByteArray buffer = QByteArray(8, '#');
    GC_ITEM record;
};

void fill(GridItem * item)
{
    item->setState(GCIS_CHECKED, true);
    item->setState(GCIS_MARKED, true);
    item->setAlignment(2);
    item->images = {5, 6, 7};
    item->setTextColor(0xff112233U);
    item->setCheckStyle(GridItem::grayed | GridItem::radio | GridItem::hideCheck);
    item->text = duplicateText("mine");
}

QByteArray padded(QByteArray text)
{
    return text.append(QByteArray(8 - text.size(), '\0'));
}

} // namespace

void tst_ItemRead::getItem_maskBitOnKind_fillsItsFields_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<unsigned>("mask");
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("image");
    QTest::addColumn<unsigned>("color");
    for (Reading const & reading : readings) {
        for (MaskBit const & bit : itemMaskBits) {
            bool const fills = bit.mask == GCIM_TEXT && reading.text;
            QTest::addRow("%s, %s", kindNames[std::size_t(reading.kind)], bit.name)
                << reading.kind << bit.mask << (fills ? padded(reading.text) : QByteArray(8, '#'))
                << valueFor(reading.values, bit.mask, reading.value)
                << valueFor(reading.images, bit.mask, reading.image)
                << (reading.colour ? 0xff112233U : 0xff010203U);
        }
    }
}

void tst_ItemRead::getItem_maskBitOnKind_fillsItsFields()
{
    QFETCH(int, kind);
    QFETCH(unsigned, mask);
    QFETCH(QByteArray, buffer);
    QFETCH(int, value);
    QFETCH(int, image);
    QFETCH(unsigned, color);
    RowsOfAllClasses rows;
    fill(rows.ordinary.ItemOf(rows.column(kind)));
    Reader reader;
    reader.record.mask = mask;
    QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
    QCOMPARE(reader.buffer, buffer);
    QCOMPARE(reader.record.value, value);
    QCOMPARE(reader.record.image, image);
    QCOMPARE(reader.record.textColor.rgb(), color);
    QCOMPARE(reader.record.state, unsigned(GCIS_CHECKED | GCIS_MARKED)); // without the alignment
    QCOMPARE(reader.record.mask, mask);
    QCOMPARE(reader.record.textMax, 8);
}

void tst_ItemRead::getItem_text_followsStrncpy_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("textMax");
    QTest::addColumn<QByteArray>("buffer");
    for (int kind : {int(GCCK_TEXT), int(GCCK_CHECKBOXWITHICON), int(GCCK_LISTBOX)}) {
        QByteArray const text = kind == GCCK_LISTBOX ? "c5" : "mine";
        int const length = int(text.size());
        char const * const name = kindNames[std::size_t(kind)];
        QTest::addRow("%s: the rest is zeroed", name) << kind << 7 << padded(text).left(7) + "#";
        QTest::addRow("%s: room for the text alone, no terminator", name)
            << kind << length << text + QByteArray(8 - length, '#');
        QTest::addRow("%s: a longer text is cut, no terminator", name)
            << kind << 1 << text.left(1) + QByteArray(7, '#');
        QTest::addRow("%s: no room", name) << kind << 0 << QByteArray(8, '#');
        QTest::addRow("%s: the default size, negative", name) << kind << -1 << QByteArray(8, '#');
        QTest::addRow("%s: least size", name)
            << kind << std::numeric_limits<int>::min() << QByteArray(8, '#');
    }
}

void tst_ItemRead::getItem_text_followsStrncpy()
{
    QFETCH(int, kind);
    QFETCH(int, textMax);
    QFETCH(QByteArray, buffer);
    RowsOfAllClasses rows;
    fill(rows.ordinary.ItemOf(rows.column(kind)));
    Reader reader;
    reader.record.mask = GCIM_TEXT;
    reader.record.textMax = textMax;
    QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
    QCOMPARE(reader.buffer, buffer);
}

void tst_ItemRead::getItem_nullBuffer_isFalse_data()
{
    addKinds();
}

void tst_ItemRead::getItem_nullBuffer_isFalse()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    fill(rows.ordinary.ItemOf(rows.column(kind)));
    for (int textMax : {100, 0, -1}) {
        Reader reader;
        reader.record.mask = GCIM_TEXT;
        reader.record.text = nullptr;
        reader.record.textMax = textMax;
        QCOMPARE(reader.read(&rows.ordinary, rows.column(kind)), kind == GCCK_ICON);
        reader.record.mask = 0; // nothing is asked of the buffer
        QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
    }
}

void tst_ItemRead::getItem_callbackText_isFalseWithEmptyBuffer_data()
{
    addTextKinds();
}

void tst_ItemRead::getItem_callbackText_isFalseWithEmptyBuffer()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(kind))->text = GC_TEXTCALLBACK;
    Reader reader;
    reader.record.mask = GCIM_TEXT;
    QVERIFY(!reader.read(&rows.ordinary, rows.column(kind)));
    QCOMPARE(reader.buffer, QByteArray(8, '\0'));
}

void tst_ItemRead::getItem_cachedText_isRead()
{
    RowsOfAllClasses rows;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(GCCK_TEXT));
    item->text = duplicateText("copy");
    item->setState(GCIS_CACHEDTEXT, true);
    Reader reader;
    reader.record.mask = GCIM_TEXT | GCIM_TEXTLEN;
    QVERIFY(reader.read(&rows.ordinary, rows.column(GCCK_TEXT)));
    QCOMPARE(reader.buffer, padded("copy"));
    QCOMPARE(reader.record.value, 4);
    QCOMPARE(reader.record.state, unsigned(GCIS_CACHEDTEXT));
}

void tst_ItemRead::getItem_textLength_ofNoRealText_isZero_data()
{
    addTextKinds();
}

void tst_ItemRead::getItem_textLength_ofNoRealText_isZero()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    for (char * text : {static_cast<char *>(nullptr), GC_TEXTCALLBACK}) {
        rows.ordinary.ItemOf(rows.column(kind))->text = text;
        Reader reader;
        reader.record.mask = GCIM_TEXTLEN;
        QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
        QCOMPARE(reader.record.value, 0); // check kinds say that they are not checked
    }
    rows.ordinary.ItemOf(rows.column(kind))->text = nullptr;
    Reader reader;
    reader.record.mask = GCIM_TEXT;
    QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
    QCOMPARE(reader.buffer, QByteArray(8, '\0'));
}

void tst_ItemRead::getItem_alignment_isFieldMinusOne_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<int>("value");
    for (int field = 0; field < 8; ++field) {
        QTest::addRow("field %d", field) << (unsigned(field) << 5 | 0x1fU) << field - 1;
    }
}

void tst_ItemRead::getItem_alignment_isFieldMinusOne()
{
    QFETCH(unsigned, flags);
    QFETCH(int, value);
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(GCCK_ICON))->flags = static_cast<std::uint8_t>(flags);
    Reader reader;
    reader.record.mask = GCIM_ALIGN;
    QVERIFY(reader.read(&rows.ordinary, rows.column(GCCK_ICON)));
    QCOMPARE(reader.record.value, value);
    QCOMPARE(reader.record.state, 0x1fU);
}

void tst_ItemRead::getItem_listIndexOutOfRange_readsAsNoText_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none") << -1;
    QTest::newRow("one past the last") << 10;
    QTest::newRow("more than half of a byte") << 200;
    QTest::newRow("largest") << 254;
}

void tst_ItemRead::getItem_listIndexOutOfRange_readsAsNoText()
{
    QFETCH(int, index);
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(GCCK_LISTBOX))->setListIndex(index);
    Reader reader;
    reader.record.mask = GCIM_TEXT | GCIM_TEXTLEN;
    QVERIFY(reader.read(&rows.ordinary, rows.column(GCCK_LISTBOX)));
    QCOMPARE(reader.buffer, QByteArray(8, '\0'));
    QCOMPARE(reader.record.value, 0);
    reader.record.mask = 0;
    QVERIFY(reader.read(&rows.ordinary, rows.column(GCCK_LISTBOX)));
    QCOMPARE(reader.record.value, index);
}

void tst_ItemRead::getItem_checkStyle_losesTheRadioBit_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<int>("value");
    for (int kind : {int(GCCK_CHECKBOX), int(GCCK_CHECKBOXWITHICON)}) {
        for (unsigned style = 0; style < 8; ++style) {
            QTest::addRow("%s, style %u", kindNames[std::size_t(kind)], style)
                << kind << style << ((style & GridItem::hideCheck) ? 2 : 0);
        }
    }
}

void tst_ItemRead::getItem_checkStyle_losesTheRadioBit()
{
    QFETCH(int, kind);
    QFETCH(unsigned, style);
    QFETCH(int, value);
    RowsOfAllClasses rows;
    rows.ordinary.ItemOf(rows.column(kind))->setCheckStyle(style);
    Reader reader;
    reader.record.mask = GCIM_CHECKSTYLE;
    QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
    QCOMPARE(reader.record.value, value);
    bool const grayed = kind == GCCK_CHECKBOXWITHICON && (style & GridItem::grayed);
    reader.record.mask = 0;
    QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
    QCOMPARE(reader.record.value, grayed ? 2 : 0);
}

void tst_ItemRead::getItem_fullMask_lastFieldReadWins()
{
    RowsOfAllClasses rows;
    std::map<int, QByteArray> const expected{
        {GCCK_TEXT, "4 77"},      {GCCK_TEXTWITHICON, "4 7"},    {GCCK_ICON, "2 7"},
        {GCCK_OWNERDRAW, "4 77"}, {GCCK_CHECKBOX, "2 77"},       {GCCK_LISTBOX, "2 77"},
        {GCCK_COMBOBOX, "4 77"},  {GCCK_CHECKBOXWITHICON, "2 7"}};
    for (auto const & [kind, valueAndImage] : expected) {
        fill(rows.ordinary.ItemOf(rows.column(kind)));
        Reader reader;
        reader.record.mask = ~0U;
        QVERIFY(reader.read(&rows.ordinary, rows.column(kind)));
        QCOMPARE(QByteArray::number(reader.record.value) + " " +
                     QByteArray::number(reader.record.image),
                 valueAndImage);
    }
}

void tst_ItemRead::getItem_slimRows_answerFalseAndFillNothing_data()
{
    addKinds();
}

void tst_ItemRead::getItem_slimRows_answerFalseAndFillNothing()
{
    QFETCH(int, kind);
    RowsOfAllClasses rows;
    for (IGCRow * const row :
         {static_cast<IGCRow *>(&rows.slim), static_cast<IGCRow *>(&rows.lonely)}) {
        Reader reader;
        reader.record.mask = ~0U;
        QVERIFY(!reader.read(row, rows.column(kind)));
        QCOMPARE(reader.buffer, QByteArray(8, '#'));
        QCOMPARE(reader.record.value, 77);
        QCOMPARE(reader.record.state, 77U);
        QCOMPARE(reader.record.textColor, QColor(1, 2, 3));
    }
}

void tst_ItemRead::getItem_section_answersFalseWithRecordFilled_data()
{
    addKindsAndMaskBits();
}

void tst_ItemRead::getItem_section_answersFalseWithRecordFilled()
{
    QFETCH(int, kind);
    QFETCH(unsigned, mask);
    RowsOfAllClasses rows;
    fill(rows.section.ItemOf(rows.column(kind)));
    rows.section.textColor = 0xff445566U;
    rows.section.SetText("title");
    Reader reader;
    reader.record.mask = mask;
    QVERIFY(!reader.read(&rows.section, rows.column(kind)));
    QCOMPARE(reader.buffer, mask == GCIM_TEXT ? padded("title") : QByteArray(8, '#'));
    QCOMPARE(reader.record.value, mask == GCIM_TEXTLEN ? 5 : 77);
    QCOMPARE(reader.record.textColor.rgb(), 0xff445566U);
    QCOMPARE(reader.record.state, 77U);
    QCOMPARE(reader.record.image, 77);
}

void tst_ItemRead::getItem_sectionBuffers_areRespected()
{
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_TEXT);
    Reader reader;
    reader.record.mask = GCIM_TEXT | GCIM_TEXTLEN;
    QVERIFY(!reader.read(&rows.section, column));
    QCOMPARE(reader.buffer, QByteArray(8, '\0')); // a null title
    QCOMPARE(reader.record.value, 0);
    rows.section.SetText("title");
    for (int textMax : {0, -1}) {
        Reader none;
        none.record.mask = GCIM_TEXT;
        none.record.textMax = textMax;
        QVERIFY(!none.read(&rows.section, column));
        QCOMPARE(none.buffer, QByteArray(8, '#'));
    }
    Reader cut;
    cut.record.mask = GCIM_TEXT;
    cut.record.textMax = 5;
    QVERIFY(!cut.read(&rows.section, column));
    QCOMPARE(cut.buffer, QByteArray("title###"));
    cut.record.text = nullptr;
    QVERIFY(!cut.read(&rows.section, column));
}

void tst_ItemRead::getItem_nullRecordOrMissingItem_isFalse_data()
{
    addRowClasses();
}

void tst_ItemRead::getItem_nullRecordOrMissingItem_isFalse()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    CGetItemData noRecord(nullptr, rows.column(0));
    row->Accept(&noRecord);
    QVERIFY(!noRecord.result);
    std::unique_ptr<CGCColumn> const foreign = makeColumn(GCCK_TEXT, 50, 50);
    Reader reader;
    reader.record.mask = ~0U;
    QVERIFY(!reader.read(row, foreign.get()));
    QCOMPARE(reader.record.state, 77U);
}

ZENU_TEST(tst_ItemRead)
#include "tst_ItemRead.moc"
