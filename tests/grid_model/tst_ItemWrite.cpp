#include "tests/grid_model/ItemWriter.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

class tst_ItemWrite : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void setItem_maskBitOnKind_writesItsBytes_data();
    void setItem_maskBitOnKind_writesItsBytes();
    void setItem_alignment_belowEight_data();
    void setItem_alignment_belowEight();
    void setItem_alignmentOutOfRange_endsTheWork_data();
    void setItem_alignmentOutOfRange_endsTheWork();
    void setItem_state_isMaskedByStateMaskOnly();
    void setItem_state_givesAndTakesTheMarkOfCachedText();
    void setItem_sameText_isNoChange();
    void setItem_text_changesFromEachToEach_data();
    void setItem_text_changesFromEachToEach();
    void setItem_callbackTextByEitherValue_isStoredAsTheOne();
    void setItem_itsOwnText_isCopiedBeforeItIsFreed();
    void setItem_sameImages_areNoChange();
    void setItem_imageOfManyBits_isCutToAByte();
    void setItem_nullRecordOrMissingItem_isFalse();
};

namespace {

struct Outcome
{
    QByteArray item;
    bool changed = false;
    bool result = true;
};

bool hasImages(int kind)
{
    return kind == GCCK_ICON || kind == GCCK_TEXTWITHICON || kind == GCCK_CHECKBOXWITHICON;
}

bool hasCheck(int kind)
{
    return kind == GCCK_CHECKBOX || kind == GCCK_CHECKBOXWITHICON;
}

// Of a record with value 2, image 9, text "new", colour #445566, state marked.
Outcome expectedOf(int kind, unsigned mask)
{
    bool const list = kind == GCCK_LISTBOX;
    char const * const color = list ? "0" : "ff000000";
    Outcome const untouched{fresh(kind)};
    switch (mask) {
    case GCIM_TEXT:
        if (list) {
            return {fresh(kind), false, false}; // no such choice
        }
        return bearsText(kind) ? Outcome{line("0", "-1,-1,-1", color, "0", "new"), true}
                               : untouched;
    case GCIM_VALUE:
        if (list) {
            return {line("0", "2,-1,-1", color, "0", "(null)"), true};
        }
        if (kind == GCCK_CHECKBOX) {
            return {line("8", "-1,-1,-1", color, "0", "(null)"), true};
        }
        return kind == GCCK_CHECKBOXWITHICON
                   ? Outcome{line("0", "-1,-1,-1", color, "1", "(null)"), true}
                   : untouched;
    case GCIM_STATE:
        return {line("4", "-1,-1,-1", color, "0", "(null)"), true};
    case GCIM_TEXTCOLOR:
        return kind == GCCK_ICON ? untouched
                                 : Outcome{line("0", "-1,-1,-1", "ff445566", "0", "(null)"), true};
    case GCIM_ALIGN:
        return {line("60", "-1,-1,-1", color, "0", "(null)"), true};
    case GCIM_IMAGE:
        return hasImages(kind) ? Outcome{line("0", "9,-1,-1", color, "0", "(null)"), true}
                               : untouched;
    case GCIM_OVERLAY:
        return hasImages(kind) ? Outcome{line("0", "-1,9,-1", color, "0", "(null)"), true}
                               : untouched;
    case GCIM_STATEIMAGE:
        return hasImages(kind) ? Outcome{line("0", "-1,-1,9", color, "0", "(null)"), true}
                               : untouched;
    case GCIM_CHECKSTYLE:
        return hasCheck(kind) ? Outcome{line("0", "-1,-1,-1", color, "4", "(null)"), true}
                              : untouched;
    default:
        return untouched;
    }
}

} // namespace

void tst_ItemWrite::setItem_maskBitOnKind_writesItsBytes_data()
{
    addKindsAndMaskBits();
}

void tst_ItemWrite::setItem_maskBitOnKind_writesItsBytes()
{
    QFETCH(int, kind);
    QFETCH(unsigned, mask);
    RowsOfAllClasses rows;
    Writer writer(mask);
    writer.write(&rows.ordinary, rows.column(kind));
    Outcome const expected = expectedOf(kind, mask);
    QCOMPARE(dump(*rows.ordinary.ItemOf(rows.column(kind))), expected.item);
    QCOMPARE(writer.changed, expected.changed);
    QCOMPARE(writer.result, expected.result);
    for (int other = 0; other < kindCount; ++other) {
        if (other != kind) {
            QCOMPARE(dump(*rows.ordinary.ItemOf(rows.column(other))), fresh(other));
        }
    }
}

void tst_ItemWrite::setItem_alignment_belowEight_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("alignment");
    for (int value = 0; value < 7; ++value) {
        QTest::addRow("%d is kept", value) << value << value;
    }
    QTest::newRow("7 overflows to the column's") << 7 << -1;
}

void tst_ItemWrite::setItem_alignment_belowEight()
{
    QFETCH(int, value);
    QFETCH(int, alignment);
    RowsOfAllClasses rows;
    for (int kind = 0; kind < kindCount; ++kind) {
        Writer writer(GCIM_ALIGN);
        writer.record.value = value;
        GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
        item->flags = GCIS_HOT | 0x80;
        writer.write(&rows.ordinary, rows.column(kind));
        QVERIFY(writer.changed);
        QVERIFY(writer.result);
        QCOMPARE(item->alignment(), alignment);
        QCOMPARE(item->flags & GridItem::stateMask, unsigned(GCIS_HOT));
    }
}

void tst_ItemWrite::setItem_alignmentOutOfRange_endsTheWork_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("value");
    for (int kind = 0; kind < kindCount; ++kind) {
        for (int value : {8, 100, -1, std::numeric_limits<int>::min()}) {
            QTest::addRow("%s, %d", kindNames[std::size_t(kind)], value) << kind << value;
        }
    }
}

void tst_ItemWrite::setItem_alignmentOutOfRange_endsTheWork()
{
    QFETCH(int, kind);
    QFETCH(int, value);
    RowsOfAllClasses rows;
    Writer writer(~0U & ~unsigned(GCIM_STATE));
    writer.record.value = value;
    writer.write(&rows.ordinary, rows.column(kind));
    QVERIFY(!writer.result);
    QVERIFY(!writer.changed);
    QCOMPARE(dump(*rows.ordinary.ItemOf(rows.column(kind))), fresh(kind));
    Writer withState(~0U);
    withState.record.value = value;
    withState.write(&rows.ordinary, rows.column(kind));
    QVERIFY(!withState.result);
    QVERIFY(withState.changed); // the state was set before
    QCOMPARE(unsigned(rows.ordinary.ItemOf(rows.column(kind))->flags), unsigned(GCIS_MARKED));
}

void tst_ItemWrite::setItem_state_isMaskedByStateMaskOnly()
{
    RowsOfAllClasses rows;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(GCCK_TEXT));
    item->flags = GCIS_FOCUSED | GCIS_HOT;
    Writer writer(GCIM_STATE);
    writer.record.stateMask = GCIS_FOCUSED;
    writer.record.state = GCIS_CHECKED | 0x40; // bits beside the mask are set all the same
    writer.write(&rows.ordinary, rows.column(GCCK_TEXT));
    QCOMPARE(unsigned(item->flags), unsigned(GCIS_HOT | GCIS_CHECKED | 0x40));
    writer.write(&rows.ordinary, rows.column(GCCK_TEXT));
    QVERIFY(writer.changed); // even if nothing differs
    writer.record.stateMask = ~0U;
    writer.record.state = 0xffffff00U;
    writer.write(&rows.ordinary, rows.column(GCCK_TEXT));
    QCOMPARE(unsigned(item->flags), 0U);
}

void tst_ItemWrite::setItem_state_givesAndTakesTheMarkOfCachedText()
{
    RowsOfAllClasses rows;
    CGCColumn * const column = rows.column(GCCK_TEXT);
    GridItem * const item = rows.ordinary.ItemOf(column);
    item->text = duplicateText("copy");
    item->setState(GCIS_CACHEDTEXT, true);
    Writer taking(GCIM_STATE);
    taking.record.stateMask = GCIS_CACHEDTEXT;
    taking.record.state = 0;
    taking.write(&rows.ordinary, column);
    rows.ordinary.FreeGarbage(rows.columns);
    QCOMPARE(item->text, "copy"); // the item's own from now on
    Writer giving(GCIM_STATE);
    giving.record.stateMask = 0;
    giving.record.state = GCIS_CACHEDTEXT;
    giving.write(&rows.ordinary, column);
    rows.ordinary.FreeGarbage(rows.columns);
    QVERIFY(item->isCallback());
}

void tst_ItemWrite::setItem_sameText_isNoChange()
{
    RowsOfAllClasses rows;
    for (int kind = 0; kind < kindCount; ++kind) {
        if (!bearsText(kind)) {
            continue;
        }
        Writer writer(GCIM_TEXT);
        writer.write(&rows.ordinary, rows.column(kind));
        QVERIFY(writer.changed);
        writer.write(&rows.ordinary, rows.column(kind));
        QVERIFY(!writer.changed);
        QVERIFY(writer.result);
        writer.record.mask |= GCIM_TEXTCOLOR;
        writer.write(&rows.ordinary, rows.column(kind));
        QVERIFY(writer.changed); // another bit was set
        QCOMPARE(rows.ordinary.ItemOf(rows.column(kind))->text, "new");
    }
}

void tst_ItemWrite::setItem_text_changesFromEachToEach_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<bool>("changed");
    // "+" is a cached copy of callback text, "+(null)" the cached answer of no text.
    QTest::newRow("none, none") << QByteArray("(null)") << QByteArray("(null)") << false;
    QTest::newRow("none, text") << QByteArray("(null)") << QByteArray("a") << true;
    QTest::newRow("none, empty") << QByteArray("(null)") << QByteArray("") << true;
    QTest::newRow("none, callback") << QByteArray("(null)") << QByteArray("(callback)") << true;
    QTest::newRow("text, none") << QByteArray("a") << QByteArray("(null)") << true;
    QTest::newRow("text, same") << QByteArray("a") << QByteArray("a") << false;
    QTest::newRow("text, other") << QByteArray("a") << QByteArray("A") << true;
    QTest::newRow("text, callback") << QByteArray("a") << QByteArray("(callback)") << true;
    QTest::newRow("callback, none") << QByteArray("(callback)") << QByteArray("(null)") << true;
    QTest::newRow("callback, text") << QByteArray("(callback)") << QByteArray("a") << true;
    QTest::newRow("callback, callback")
        << QByteArray("(callback)") << QByteArray("(callback)") << false;
    QTest::newRow("cached, none") << QByteArray("+a") << QByteArray("(null)") << true;
    QTest::newRow("cached, same") << QByteArray("+a") << QByteArray("a") << false;
    QTest::newRow("cached, other") << QByteArray("+a") << QByteArray("b") << true;
    QTest::newRow("cached, callback") << QByteArray("+a") << QByteArray("(callback)") << true;
    QTest::newRow("cached none, none") << QByteArray("+(null)") << QByteArray("(null)") << false;
    QTest::newRow("cached none, callback")
        << QByteArray("+(null)") << QByteArray("(callback)") << true;
    QTest::newRow("cached none, text") << QByteArray("+(null)") << QByteArray("a") << true;
}

void tst_ItemWrite::setItem_text_changesFromEachToEach()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(bool, changed);
    bool const cached = from.startsWith('+');
    QByteArray const old = cached ? from.mid(1) : from;
    for (int kind = 0; kind < kindCount; ++kind) {
        if (!bearsText(kind)) {
            continue;
        }
        RowsOfAllClasses rows;
        GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
        item->text = old == "(callback)"
                         ? GC_TEXTCALLBACK
                         : (old == "(null)" ? nullptr : duplicateText(old.constData()));
        item->setState(GCIS_CACHEDTEXT, cached);
        Writer writer(GCIM_TEXT);
        writer.record.text =
            to == "(callback)" ? GC_TEXTCALLBACK : (to == "(null)" ? nullptr : to.data());
        writer.write(&rows.ordinary, rows.column(kind));
        QCOMPARE(textOf(item->text), to);
        QVERIFY(item->text == GC_TEXTCALLBACK || !item->text || item->text != to.constData());
        QVERIFY(!item->hasState(GCIS_CACHEDTEXT));
        QCOMPARE(writer.changed, changed);
        QVERIFY(writer.result);
    }
}

void tst_ItemWrite::setItem_callbackTextByEitherValue_isStoredAsTheOne()
{
    RowsOfAllClasses rows;
    for (int kind = 0; kind < kindCount; ++kind) {
        GridItem * const item = rows.ordinary.ItemOf(rows.column(kind));
        Writer writer(GCIM_TEXT);
        writer.record.text = GC_TEXTCALLBACK - 1;
        for (bool changes : {true, false}) {
            writer.write(&rows.ordinary, rows.column(kind));
            QCOMPARE(writer.changed, changes && bearsText(kind));
            QCOMPARE(item->isCallback(), bearsText(kind));
            QCOMPARE(item->ownsText(), false);
        }
        writer.write(&rows.section, rows.column(kind));
        QVERIFY(!rows.section.Text());
    }
}

void tst_ItemWrite::setItem_itsOwnText_isCopiedBeforeItIsFreed()
{
    RowsOfAllClasses rows;
    GridItem * const item = rows.ordinary.ItemOf(rows.column(GCCK_TEXT));
    item->text = duplicateText("a longer text");
    Writer writer(GCIM_TEXT);
    writer.record.text = item->text + 2;
    writer.write(&rows.ordinary, rows.column(GCCK_TEXT));
    QCOMPARE(item->text, "longer text");
    rows.section.SetText("a longer title");
    writer.record.text = const_cast<char *>(rows.section.Text()) + 2;
    writer.write(&rows.section, rows.column(GCCK_TEXT));
    QCOMPARE(rows.section.Text(), "longer title");
}

void tst_ItemWrite::setItem_sameImages_areNoChange()
{
    RowsOfAllClasses rows;
    for (int kind = 0; kind < kindCount; ++kind) {
        Writer writer(GCIM_IMAGE | GCIM_OVERLAY | GCIM_STATEIMAGE);
        writer.write(&rows.ordinary, rows.column(kind));
        QCOMPARE(writer.changed, hasImages(kind));
        writer.write(&rows.ordinary, rows.column(kind));
        QVERIFY(!writer.changed);
        QVERIFY(writer.result);
        int const stored = hasImages(kind) ? 9 : -1;
        for (std::int8_t const image : rows.ordinary.ItemOf(rows.column(kind))->images) {
            QCOMPARE(int(image), stored);
        }
    }
}

void tst_ItemWrite::setItem_imageOfManyBits_isCutToAByte()
{
    RowsOfAllClasses rows;
    Writer writer(GCIM_IMAGE);
    writer.record.image = 0x12345 + 0x80;
    writer.write(&rows.ordinary, rows.column(GCCK_ICON));
    QCOMPARE(int(rows.ordinary.ItemOf(rows.column(GCCK_ICON))->images[0]), 0xc5 - 0x100);
}

void tst_ItemWrite::setItem_nullRecordOrMissingItem_isFalse()
{
    RowsOfAllClasses rows;
    std::unique_ptr<CGCColumn> const foreign = makeColumn(GCCK_TEXT, 50, 50);
    for (IGCRow * const row : rows.all()) {
        CSetItemData noRecord(nullptr, rows.column(0));
        row->Accept(&noRecord);
        QVERIFY(!noRecord.result);
        QVERIFY(!noRecord.changed);
        Writer writer(~0U & ~unsigned(GCIM_TEXT));
        writer.write(row, foreign.get());
        QVERIFY(!writer.result);
        QVERIFY(!writer.changed);
    }
}

ZENU_TEST(tst_ItemWrite)
#include "tst_ItemWrite.moc"
