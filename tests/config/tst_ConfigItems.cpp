#include "tests/support/TestMain.h"

#include "ConfigFixture.h"

using namespace configtest;

class tst_ConfigItems : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void item_holdsItsValue_data() { addTypeRows(); }
    void item_holdsItsValue();
    void clone_isAnotherItemWithTheSameValue_data() { addTypeRows(); }
    void clone_isAnotherItemWithTheSameValue();
    void otherType_readsItsBaseAndIsNotWritten_data() { addTypeRows(); }
    void otherType_readsItsBaseAndIsNotWritten();
    void load_givesANewItemAndLeavesThisOne_data() { addTypeRows(); }
    void load_givesANewItemAndLeavesThisOne();
    void load_asksForItsOwnTypeAlone_data() { addTypeRows(); }
    void load_asksForItsOwnTypeAlone();
    void load_storeAnswersTrueAndFillsNothing_keepsItsOwnValue();
    void save_callsTheWriteOfItsType_data() { addTypeRows(); }
    void save_callsTheWriteOfItsType();
    void visit_callsTheVisitOfItsType_data() { addTypeRows(); }
    void visit_callsTheVisitOfItsType();
    void nullStoreAndVisitor_areQuiet_data() { addTypeRows(); }
    void nullStoreAndVisitor_areQuiet();
    void visitor_thatOverridesNothing_isQuiet_data() { addTypeRows(); }
    void visitor_thatOverridesNothing_isQuiet();
    void baseFont_isThatOfTheApplicationAtTheTime();
    void basePen_isBlackSolidAndOfWidth0();
    void stringItem_ownsItsText();
    void stringItem_ofNull_isEmpty();
    void stringItem_setToItsOwnText_staysWhole();
    void stringItem_loadsLatin1();
    void dummy_holdsNothing_data() { addTypeRows(); }
    void dummy_holdsNothing();
    void dummy_clonesItself();
    void interfaces_areCopied();
};

void tst_ConfigItems::item_holdsItsValue()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    auto const item = row.make(1);
    QCOMPARE(row.itemGet(*item), row.value(1));
    row.itemSet(*item, 2);
    QCOMPARE(row.itemGet(*item), row.value(2));
    QVERIFY(row.value(2) != row.value(1));
    QVERIFY(row.value(2) != row.base());
}

void tst_ConfigItems::clone_isAnotherItemWithTheSameValue()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    auto const item = row.make(1);
    std::unique_ptr<IConfigItem> const copy(item->clone());
    QVERIFY(copy != item);
    QCOMPARE(row.itemGet(*copy), row.value(1));
    row.itemSet(*copy, 2);
    QCOMPARE(row.itemGet(*copy), row.value(2));
    QCOMPARE(row.itemGet(*item), row.value(1));
}

void tst_ConfigItems::otherType_readsItsBaseAndIsNotWritten()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    auto const item = row.make(2);
    for (Type const & other : types()) {
        if (&other != &row) {
            QCOMPARE(other.itemGet(*item), other.base());
            other.itemSet(*item, 2);
            QCOMPARE(other.itemGet(*item), other.base());
            QCOMPARE(row.itemGet(*item), row.value(2));
        }
    }
}

void tst_ConfigItems::load_givesANewItemAndLeavesThisOne()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    MemoryStore store;
    row.make(2)->save(&store, "there");
    auto const item = row.make(1);

    std::unique_ptr<IConfigItem> const loaded(item->load(&store, "there"));
    QVERIFY(loaded && loaded != item);
    QCOMPARE(row.itemGet(*loaded), row.value(2));
    QCOMPARE(row.itemGet(*item), row.value(1));
    row.itemSet(*loaded, 0); // it is of the same class
    QCOMPARE(row.itemGet(*loaded), row.value(0));

    QVERIFY(!item->load(&store, "elsewhere"));
    store.refuses = true;
    QVERIFY(!item->load(&store, "there"));
}

void tst_ConfigItems::load_asksForItsOwnTypeAlone()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    MemoryStore store;
    for (Type const & other : types()) {
        if (&other != &row) {
            other.make(2)->save(&store, "name");
        }
    }
    store.calls.clear();
    QVERIFY(!row.make(1)->load(&store, "name"));
    QCOMPARE(store.calls, std::string("read") + row.word + " name;");
}

void tst_ConfigItems::load_storeAnswersTrueAndFillsNothing_keepsItsOwnValue()
{
    class Careless : public MemoryStore
    {
    public:
        bool readInt(char const *, int *) override { return true; }
        bool readString(char const *, QString *) override { return true; }
    } store;
    std::unique_ptr<IConfigItem> const number(KIntItem(5).load(&store, "name"));
    QCOMPARE(number->getInt(), 5);
    std::unique_ptr<IConfigItem> const text(KStringItem("five").load(&store, "name"));
    QCOMPARE(text->getString(), "");
}

void tst_ConfigItems::save_callsTheWriteOfItsType()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    MemoryStore store;
    auto const item = row.make(1);
    item->save(&store, "name");
    QCOMPARE(store.calls, std::string("write") + row.word + " name;");
    std::unique_ptr<IConfigItem> const loaded(row.make(0)->load(&store, "name"));
    QVERIFY(loaded);
    QCOMPARE(row.itemGet(*loaded), row.value(1));
}

void tst_ConfigItems::visit_callsTheVisitOfItsType()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    Recorder recorder;
    row.make(1)->visit(-3, "name", &recorder);
    QCOMPARE(recorder.text(), std::string("-3 ") + row.word + " name=" + row.value(1) + ";");
}

void tst_ConfigItems::nullStoreAndVisitor_areQuiet()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    auto const item = row.make(1);
    item->save(nullptr, "name");
    item->visit(1, "name", nullptr);
    QVERIFY(!item->load(nullptr, "name"));
    MemoryStore store;
    item->save(&store, nullptr);
    std::unique_ptr<IConfigItem> const loaded(item->load(&store, nullptr));
    QVERIFY(loaded);
}

void tst_ConfigItems::visitor_thatOverridesNothing_isQuiet()
{
    QFETCH(int, type);
    IConfigVisitor visitor;
    types()[std::size_t(type)].make(1)->visit(1, "name", &visitor);
}

void tst_ConfigItems::baseFont_isThatOfTheApplicationAtTheTime()
{
    KBoolItem const item(true);
    QFont const before = QApplication::font();
    QCOMPARE(item.getFont(), before);
    QFont changed = before;
    changed.setPointSize(before.pointSize() + 13);
    QApplication::setFont(changed);
    QCOMPARE(item.getFont(), changed);
    QApplication::setFont(before);
    QCOMPARE(item.getFont(), before);
}

void tst_ConfigItems::basePen_isBlackSolidAndOfWidth0()
{
    QPen const pen = KDummyItem().getPen();
    QCOMPARE(pen.color(), QColor(Qt::black));
    QCOMPARE(pen.widthF(), 0.0);
    QCOMPARE(pen.style(), Qt::SolidLine);
    QBrush const brush = KDummyItem().getBrush();
    QCOMPARE(brush.color(), QColor(Qt::black));
    QCOMPARE(brush.style(), Qt::SolidPattern);
}

void tst_ConfigItems::stringItem_ownsItsText()
{
    std::string text = "what was given";
    KStringItem item(text.c_str());
    text.assign("something else");
    QCOMPARE(item.getString(), "what was given");
    item.setString(text.c_str());
    text.assign("once more");
    QCOMPARE(item.getString(), "something else");
    QCOMPARE(KStringItem(text).getString(), "once more");
}

void tst_ConfigItems::stringItem_ofNull_isEmpty()
{
    KStringItem item(nullptr);
    QCOMPARE(item.getString(), "");
    item.setString("text");
    item.setString(nullptr);
    QCOMPARE(item.getString(), "");
}

void tst_ConfigItems::stringItem_setToItsOwnText_staysWhole()
{
    KStringItem item("a text that is too long for the short form of a string");
    item.setString(item.getString() + 2);
    QCOMPARE(item.getString(), "text that is too long for the short form of a string");
}

void tst_ConfigItems::stringItem_loadsLatin1()
{
    MemoryStore store;
    store.keptString["null"] = QString();
    store.keptString["empty"] = QLatin1String("");
    store.keptString["latin"] = QString::fromLatin1("\xa3 \xff");
    store.keptString["greek"] = QString::fromUtf8("a\xce\xb1z");
    store.keptString["cut"] = QString(QLatin1String("cut\0off", 7));
    auto const loaded = [&](char const * name) {
        std::unique_ptr<IConfigItem> const item(KStringItem("own").load(&store, name));
        return item ? std::string(item->getString()) : std::string("(none)");
    };
    QCOMPARE(loaded("null"), std::string());
    QCOMPARE(loaded("empty"), std::string());
    QCOMPARE(loaded("latin"), std::string("\xa3 \xff"));
    QCOMPARE(loaded("greek"), std::string("a?z"));
    QCOMPARE(loaded("cut"), std::string("cut"));
    QCOMPARE(loaded("missing"), std::string("(none)"));
}

void tst_ConfigItems::dummy_holdsNothing()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KDummyItem dummy;
    QCOMPARE(row.itemGet(dummy), row.base());
    row.itemSet(dummy, 2);
    QCOMPARE(row.itemGet(dummy), row.base());
}

void tst_ConfigItems::dummy_clonesItself()
{
    KDummyItem dummy;
    std::unique_ptr<IConfigItem> const copy(dummy.clone());
    QVERIFY(dynamic_cast<KDummyItem *>(copy.get()));
    MemoryStore store;
    Recorder recorder;
    dummy.save(&store, "name");
    dummy.visit(1, "name", &recorder);
    QVERIFY(!dummy.load(&store, "name"));
    QCOMPARE(store.calls, std::string());
    QCOMPARE(recorder.count(), std::size_t(0));
}

void tst_ConfigItems::interfaces_areCopied()
{
    MemoryStore store;
    store.keptInt["name"] = 3;
    MemoryStore copy(store);
    int value = 0;
    QVERIFY(copy.readInt("name", &value));
    IConfigVisitor const visitor;
    [[maybe_unused]] IConfigVisitor const other(visitor);
}

ZENU_TEST(tst_ConfigItems)
#include "tst_ConfigItems.moc"
