#include "tests/command/ManagerFixture.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTranslator>
#include <QtGui/QIcon>
#include <QtGui/QPixmapCache>

using namespace zenu;
using zenutest::Managed;

namespace {

char const * const redXpm[] = {"2 2 1 1", "r c #ff0000", "rr", "rr"};
char const * const blueXpm[] = {"3 3 1 1", "b c #0000ff", "bbb", "bbb", "bbb"};

QRgb colorOf(QAction const * action)
{
    QPixmap const pixmap = action->icon().pixmap(16);
    return pixmap.isNull() ? 0 : pixmap.toImage().pixel(0, 0);
}

// Turns each text of the context "Editor" around; the others it does not know.
class Backwards : public QTranslator
{
public:
    Backwards() { QCoreApplication::installTranslator(this); }
    ~Backwards() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(char const * context, char const * text, char const * comment,
                      int number) const override
    {
        if (qstrcmp(context, "Editor") != 0) {
            return {};
        }
        if (comment && *comment) {
            comments += QString::fromUtf8(comment);
        }
        if (number != -1) {
            comments += QString::number(number);
        }
        QString turned;
        for (QChar const letter : QString::fromUtf8(text)) {
            turned.prepend(letter);
        }
        return turned;
    }

    mutable QString comments;
};

// What the table leaves in its only action.
struct Made : Managed
{
    explicit Made(SAction const & record)
    {
        SAction const table[] = {record, {}};
        manager->addActions(table, "Editor");
        action = manager->getAction(record.id);
    }

    QAction * action;
};

} // namespace

class tst_ActionTables : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void table_null_addsNothing();
    void table_endsAtAnyOtherKind_data();
    void table_endsAtAnyOtherKind();
    void table_firstRecordEnds_addsNothing();
    void action_hasTheParentGivenAndNoName();
    void kind_oneIsAToggle();
    void record_ofNothingButAnId_leavesAllAsItIs();
    void text_standsInMenusToo();
    void menuText_leavesTheText();
    void menuText_aloneIsThatOfMenus();
    void texts_goWhereTheyBelong();
    void texts_areLatin1();
    void texts_areTranslatedInTheContext();
    void texts_areCopied();
    void tip_data();
    void tip();
    void tip_fallsBackOnTheTranslatedText();
    void accel_isTheShortcut();
    void icon_isMadeOfTheXpm();
    void icon_standsInTheCacheUnderTheUntranslatedText();
    void icon_inTheCache_isUsed();
    void icon_sameText_isShared();
    void icon_withoutText_isNotShared();
    void icon_none_leavesTheAction();
    void sameIdTwice_theLaterCounts();
};

void tst_ActionTables::init()
{
    zenutest::Test::init();
    QPixmapCache::clear();
}

void tst_ActionTables::table_null_addsNothing()
{
    Managed managed;
    managed.manager->addActions(nullptr, "Editor");
    QCOMPARE(managed.manager->size(), 0);
}

void tst_ActionTables::table_endsAtAnyOtherKind_data()
{
    QTest::addColumn<int>("kind");
    for (int const kind : {2, 3, -1, std::numeric_limits<int>::max()}) {
        QTest::newRow(QByteArray::number(kind).constData()) << kind;
    }
}

void tst_ActionTables::table_endsAtAnyOtherKind()
{
    QFETCH(int, kind);
    Managed managed;
    SAction const table[] = {{.kind = 0, .id = 1},
                             {.kind = 1, .id = 2},
                             {.kind = kind, .id = 3},
                             {.kind = 0, .id = 4},
                             {}};
    managed.manager->addActions(table, "Editor");
    QCOMPARE(managed.manager->size(), 2);
    QCOMPARE(managed.manager->getAction(3), managed.manager->getEmptyAction());
    QCOMPARE(managed.manager->getAction(4), managed.manager->getEmptyAction());
}

void tst_ActionTables::table_firstRecordEnds_addsNothing()
{
    Managed managed;
    SAction const table[] = {{.kind = 2, .id = 1, .text = "x"}, {.kind = 0, .id = 2}};
    managed.manager->addActions(table, "Editor");
    QCOMPARE(managed.manager->size(), 0);
}

void tst_ActionTables::action_hasTheParentGivenAndNoName()
{
    QObject parent;
    Managed managed(&parent);
    SAction const table[] = {{.kind = 0, .id = 1, .text = "x"}, {}};
    managed.manager->addActions(table, "Editor");
    QCOMPARE(managed.manager->getAction(1)->parent(), &parent);
    QCOMPARE(managed.manager->getAction(1)->objectName(), QString());
    Made const made({.kind = 0, .id = 1});
    QCOMPARE(made.action->parent(), made.manager.get());
}

void tst_ActionTables::kind_oneIsAToggle()
{
    QVERIFY(!Made({.kind = ActionPlain, .id = 1}).action->isCheckable());
    QVERIFY(Made({.kind = ActionToggle, .id = 1}).action->isCheckable());
}

void tst_ActionTables::record_ofNothingButAnId_leavesAllAsItIs()
{
    Made const made({.kind = 0, .id = 1});
    QCOMPARE(made.action->text(), QString());
    QCOMPARE(made.action->iconText(), QString());
    QCOMPARE(made.action->toolTip(), QString());
    QCOMPARE(made.action->statusTip(), QString());
    QCOMPARE(made.action->whatsThis(), QString());
    QVERIFY(made.action->icon().isNull());
    QVERIFY(made.action->shortcut().isEmpty());
}

void tst_ActionTables::text_standsInMenusToo()
{
    Made const made({.kind = 0, .id = 1, .text = "Save"});
    QCOMPARE(made.action->iconText(), QStringLiteral("Save"));
    QCOMPARE(made.action->text(), QStringLiteral("Save"));
}

void tst_ActionTables::menuText_leavesTheText()
{
    Made const made({.kind = 0, .id = 1, .text = "Save", .menuText = "&Save the text"});
    QCOMPARE(made.action->iconText(), QStringLiteral("Save"));
    QCOMPARE(made.action->text(), QStringLiteral("&Save the text"));
}

void tst_ActionTables::menuText_aloneIsThatOfMenus()
{
    Made const made({.kind = 0, .id = 1, .menuText = "&Save"});
    QCOMPARE(made.action->text(), QStringLiteral("&Save"));
}

void tst_ActionTables::texts_goWhereTheyBelong()
{
    Made const made({.kind = 0,
                     .id = 1,
                     .text = "text",
                     .menuText = "menu",
                     .toolTip = "tip",
                     .statusTip = "status",
                     .whatsThis = "help"});
    QCOMPARE(made.action->toolTip(), QStringLiteral("tip"));
    QCOMPARE(made.action->statusTip(), QStringLiteral("status"));
    QCOMPARE(made.action->whatsThis(), QStringLiteral("help"));
}

void tst_ActionTables::texts_areLatin1()
{
    Made const made({.kind = 0, .id = 1, .text = "Caf\xe9", .toolTip = "\xc3\xa9"});
    QCOMPARE(made.action->text(), QString::fromLatin1("Caf\xe9"));
    QCOMPARE(made.action->toolTip(), QString::fromLatin1("\xc3\xa9"));
}

void tst_ActionTables::texts_areTranslatedInTheContext()
{
    Backwards const translator;
    SAction const record{.kind = 0,
                         .id = 1,
                         .text = "text\xe9",
                         .menuText = "menu",
                         .toolTip = "tip",
                         .statusTip = "status",
                         .whatsThis = "help"};
    Made const made(record);
    QCOMPARE(made.action->iconText(), QString::fromLatin1("\xe9txet"));
    QCOMPARE(made.action->text(), QStringLiteral("unem"));
    QCOMPARE(made.action->toolTip(), QStringLiteral("pit"));
    QCOMPARE(made.action->statusTip(), QStringLiteral("sutats"));
    QCOMPARE(made.action->whatsThis(), QStringLiteral("pleh"));
    QCOMPARE(translator.comments, QString());

    Managed managed;
    SAction const table[] = {record, {}};
    managed.manager->addActions(table, "Viewer");
    QCOMPARE(managed.manager->getAction(1)->text(), QStringLiteral("menu"));
    managed.manager->addActions(table, nullptr);
    QCOMPARE(managed.manager->getAction(1)->text(), QStringLiteral("menu"));
}

void tst_ActionTables::texts_areCopied()
{
    char text[] = "Save";
    Made const made({.kind = 0, .id = 1, .text = text});
    text[0] = 'X';
    QCOMPARE(made.action->text(), QStringLiteral("Save"));
}

void tst_ActionTables::tip_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("menuText");
    QTest::addColumn<QByteArray>("toolTip");
    QTest::addColumn<int>("accel");
    QTest::addColumn<QString>("tip");
    int const save = QKeyCombination(Qt::ControlModifier, Qt::Key_S).toCombined();
    QTest::newRow("a tip") << QByteArray("Save") << QByteArray("&Save") << QByteArray("Keep") << 0
                           << QStringLiteral("Keep");
    QTest::newRow("a tip and a key")
        << QByteArray("Save") << QByteArray("&Save") << QByteArray("Keep") << save
        << QStringLiteral("Keep (Ctrl+S)");
    QTest::newRow("the text, not that of menus") << QByteArray("Save") << QByteArray("&Keep it")
                                                 << QByteArray() << 0 << QStringLiteral("Save");
    QTest::newRow("the text and a key") << QByteArray("Save") << QByteArray("&Keep it")
                                        << QByteArray() << save << QStringLiteral("Save (Ctrl+S)");
    QTest::newRow("the text alone")
        << QByteArray("Save") << QByteArray() << QByteArray() << 0 << QStringLiteral("Save");
}

void tst_ActionTables::tip()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, menuText);
    QFETCH(QByteArray, toolTip);
    QFETCH(int, accel);
    QFETCH(QString, tip);
    auto const orNull = [](QByteArray const & bytes) {
        return bytes.isEmpty() ? nullptr : bytes.constData();
    };
    for (int const kind : {ActionPlain, ActionToggle}) {
        Made const made({.kind = kind,
                         .id = 1,
                         .text = orNull(text),
                         .menuText = orNull(menuText),
                         .toolTip = orNull(toolTip),
                         .accel = accel});
        QCOMPARE(made.action->toolTip(), tip);
    }
}

void tst_ActionTables::tip_fallsBackOnTheTranslatedText()
{
    Backwards const translator;
    Made const made({.kind = 0, .id = 1, .text = "text", .accel = Qt::Key_F5});
    QCOMPARE(made.action->toolTip(), QStringLiteral("txet (F5)"));
}

void tst_ActionTables::accel_isTheShortcut()
{
    QKeyCombination const keys(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_Z);
    Made const made({.kind = 0, .id = 1, .accel = keys.toCombined()});
    QCOMPARE(made.action->shortcut(), QKeySequence(keys));
}

void tst_ActionTables::icon_isMadeOfTheXpm()
{
    Made const made({.kind = 0, .id = 1, .text = "red", .pixmap = redXpm});
    QCOMPARE(colorOf(made.action), qRgb(255, 0, 0));
}

void tst_ActionTables::icon_standsInTheCacheUnderTheUntranslatedText()
{
    Backwards const translator;
    Made const made({.kind = 0, .id = 1, .text = "caf\xe9", .pixmap = redXpm});
    QPixmap found;
    QVERIFY(QPixmapCache::find(QString::fromLatin1("caf\xe9"), &found));
    QCOMPARE(found.size(), QSize(2, 2));
}

void tst_ActionTables::icon_inTheCache_isUsed()
{
    QPixmapCache::insert(QStringLiteral("red"), QPixmap(blueXpm));
    Made const made({.kind = 0, .id = 1, .text = "red", .pixmap = redXpm});
    QCOMPARE(colorOf(made.action), qRgb(0, 0, 255));
}

void tst_ActionTables::icon_sameText_isShared()
{
    Managed managed;
    SAction const table[] = {{.kind = 0, .id = 1, .text = "same", .pixmap = redXpm},
                             {.kind = 0, .id = 2, .text = "same", .pixmap = blueXpm},
                             {.kind = 0, .id = 3, .text = "other", .pixmap = blueXpm},
                             {}};
    managed.manager->addActions(table, "Editor");
    QCOMPARE(colorOf(managed.manager->getAction(1)), qRgb(255, 0, 0));
    QCOMPARE(colorOf(managed.manager->getAction(2)), qRgb(255, 0, 0));
    QCOMPARE(colorOf(managed.manager->getAction(3)), qRgb(0, 0, 255));
}

void tst_ActionTables::icon_withoutText_isNotShared()
{
    Managed managed;
    SAction const table[] = {
        {.kind = 0, .id = 1, .pixmap = redXpm}, {.kind = 0, .id = 2, .pixmap = blueXpm}, {}};
    managed.manager->addActions(table, "Editor");
    QCOMPARE(colorOf(managed.manager->getAction(1)), qRgb(255, 0, 0));
    QCOMPARE(colorOf(managed.manager->getAction(2)), qRgb(0, 0, 255));
}

void tst_ActionTables::icon_none_leavesTheAction()
{
    QPixmapCache::insert(QStringLiteral("red"), QPixmap(blueXpm));
    Made const made({.kind = 0, .id = 1, .text = "red"});
    QVERIFY(made.action->icon().isNull());
}

void tst_ActionTables::sameIdTwice_theLaterCounts()
{
    Managed managed;
    SAction const table[] = {
        {.kind = 0, .id = 1, .text = "a"}, {.kind = 0, .id = 1, .text = "b"}, {}};
    managed.manager->addActions(table, "Editor");
    QCOMPARE(managed.manager->size(), 1);
    QCOMPARE(managed.manager->getAction(1)->text(), QStringLiteral("b"));
}

ZENU_TEST(tst_ActionTables)
#include "tst_ActionTables.moc"
