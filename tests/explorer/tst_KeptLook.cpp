#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/MainWindow.h"
#include "tests/explorer/FileFixture.h"
#include "tests/support/TestMain.h"

#include <QSettings>

using namespace explorer;
using zenutest::FileFixture;

class tst_KeptLook : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void look_isKeptInSettings();
    void nonsenseInSettings_isIgnored_data();
    void nonsenseInSettings_isIgnored();
};

void tst_KeptLook::look_isKeptInSettings()
{
    FileFixture files;
    QString const file = QString::fromStdString(files.path("settings.ini"));
    auto const settings = [&] { return std::make_unique<QSettings>(file, QSettings::IniFormat); };
    {
        MainWindow window;
        window.keepLookIn(settings());
        window.showRows(10);
    }
    QVERIFY(!settings()->contains(QStringLiteral("columns/widths"))); // nobody sized one
    QList<int> const widths{210, 90, 120, 130, 70};
    {
        MainWindow window;
        window.keepLookIn(settings());
        window.showRows(10);
        window.grid()->setColumnWidths(widths);
        window.grid()->sortBy(Column::Kind, false);
    }
    MainWindow window;
    window.keepLookIn(settings());
    window.showRows(10);
    QCOMPARE(window.grid()->columnWidths(), widths);
    QCOMPARE(window.grid()->sortColumn(), Column::Kind);
    QVERIFY(!window.grid()->isSortedAscending());
}

void tst_KeptLook::nonsenseInSettings_isIgnored_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("too few widths") << "columns/widths" << QVariant(QStringList{"100", "200"});
    QTest::newRow("no numbers") << "columns/widths"
                                << QVariant(QStringList{"a", "b", "c", "d", "e"});
    QTest::newRow("too wide") << "columns/widths"
                              << QVariant(QStringList{"1", "2", "3", "4", "2000000000"});
    QTest::newRow("no such column") << "columns/sorted" << QVariant(5);
    QTest::newRow("no column at all") << "columns/sorted" << QVariant(QStringLiteral("name"));
}

void tst_KeptLook::nonsenseInSettings_isIgnored()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    FileFixture files;
    auto settings = std::make_unique<QSettings>(QString::fromStdString(files.path("settings.ini")),
                                                QSettings::IniFormat);
    settings->setValue(key, value);
    MainWindow window;
    window.keepLookIn(std::move(settings));
    QVERIFY(window.grid()->columnWidths().isEmpty());
    QCOMPARE(window.grid()->sortColumn(), Column::Name);
}

ZENU_TEST(tst_KeptLook)
#include "tst_KeptLook.moc"
