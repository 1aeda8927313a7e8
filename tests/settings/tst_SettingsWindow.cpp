#include "tests/support/TestMain.h"

#include "StoreFixture.h"
#include "examples/settings/Fills.h"
#include "examples/settings/SettingsWindow.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

using namespace settingstest;

namespace {

template <typename Widget>
Widget * editor(SettingsWindow const & window, int id)
{
    return window.findChild<Widget *>(QStringLiteral("editor%1").arg(id));
}

// The ids of the settings that have a dot.
std::string marks(SettingsWindow const & window)
{
    std::string text;
    for (int id = 0; id < SettingCount; ++id) {
        if (!window.findChild<QLabel *>(QStringLiteral("mark%1").arg(id))->text().isEmpty()) {
            text += std::to_string(id) + " ";
        }
    }
    return text;
}

void typeInto(QLineEdit * edit, QString const & text)
{
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    for (QChar const letter : text) { // QTest's own clicks know ASCII alone
        QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

void press(SettingsWindow const & window, QString const & text)
{
    for (QPushButton * const button : window.findChildren<QPushButton *>()) {
        if (button->text() == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("no such button");
}

} // namespace

class tst_SettingsWindow : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        // The offscreen platform complains of the window's least size.
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support ).*")));
    }
    void fresh_isAtItsDefaults();
    void editors_changeAndMark();
    void numberThatIsNone_isNotTaken();
    void captionOutsideLatin1_isNotTaken();
    void brushEditor_makesEveryFill();
    void save_isFoundByTheNextWindow();
    void reset_takesBackWhatIsNotSaved();
    void defaults_thenSave_clearTheFile();
    void angle_isNotKept();
    void fileThatCannotBeWritten_isTold();
    void fileWithAStrayLine_isReadAndSaved();
    void drawing_followsTheSettings();
    void largeFont_everythingFits();

private:
    QString path() const
    {
        return m_folder.filePath(QString::fromLatin1(QTest::currentTestFunction()));
    }
    QTemporaryDir m_folder;
};

void tst_SettingsWindow::fresh_isAtItsDefaults()
{
    SettingsWindow window(path());
    QCOMPARE(marks(window), std::string());
    QCOMPARE(editor<QSpinBox>(window, GridStep)->value(), 20);
    QCOMPARE(editor<QLineEdit>(window, Caption)->text(), QStringLiteral("A drawing"));
    QVERIFY(editor<QCheckBox>(window, ShowGrid)->isChecked());
}

void tst_SettingsWindow::editors_changeAndMark()
{
    SettingsWindow window(path());
    zenu::KConfig & config = window.config();
    window.show();

    QTest::mouseClick(editor<QCheckBox>(window, ShowGrid), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(config.getBool(ShowGrid), false);
    QCOMPARE(marks(window), std::string("1 "));

    QTest::keyClick(editor<QSpinBox>(window, GridStep), Qt::Key_Up);
    QCOMPARE(config.getInt(GridStep), 21);
    typeInto(editor<QLineEdit>(window, Shapes), QStringLiteral("4294967295"));
    QCOMPARE(config.getUInt(Shapes), 4294967295u);
    typeInto(editor<QLineEdit>(window, Seed), QStringLiteral("-9223372036854775808"));
    QCOMPARE(config.getInt64(Seed), std::numeric_limits<long long>::min());
    typeInto(editor<QLineEdit>(window, Caption), QString::fromLatin1("caf\xe9"));
    QCOMPARE(config.getString(Caption), "caf\xe9");
    QCOMPARE(marks(window), std::string("1 2 3 4 8 "));

    auto * const width = editor<QWidget>(window, OutlinePen)->findChild<QDoubleSpinBox *>();
    QTest::keyClick(width, Qt::Key_Up);
    QCOMPARE(config.getPen(OutlinePen).widthF(), 2.0);
    QCOMPARE(config.getPen(OutlinePen).color(), QColor(60, 60, 90));
    auto * const style = editor<QWidget>(window, OutlinePen)->findChild<QComboBox *>();
    QTest::keyClick(style, Qt::Key_Down);
    QCOMPARE(config.getPen(OutlinePen).style(), Qt::DashLine);
    QCOMPARE(marks(window), std::string("1 2 3 4 5 8 "));
}

void tst_SettingsWindow::numberThatIsNone_isNotTaken()
{
    SettingsWindow window(path());
    auto * const edit = editor<QLineEdit>(window, Shapes);
    typeInto(edit, QStringLiteral("5"));
    QTest::keyClicks(edit, QStringLiteral("x"));
    QCOMPARE(window.config().getUInt(Shapes), 5u);
    QCOMPARE(edit->palette().color(QPalette::Text), QColor(Qt::red));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edit->text(), QStringLiteral("5"));
    QVERIFY(edit->palette().color(QPalette::Text) != QColor(Qt::red));
}

void tst_SettingsWindow::captionOutsideLatin1_isNotTaken()
{
    SettingsWindow window(path());
    auto * const edit = editor<QLineEdit>(window, Caption);
    typeInto(edit, QString::fromUtf8("a\xce\xb1z"));
    QCOMPARE(edit->text(), QStringLiteral("az"));
}

void tst_SettingsWindow::brushEditor_makesEveryFill()
{
    QColor const color(40, 80, 120, 200);
    for (int i = 0; i < int(Fill::Count); ++i) {
        QBrush const brush = makeFill(Fill(i), color);
        QCOMPARE(int(fillOf(brush)), i);
        QCOMPARE(fillColor(brush), color);
        QBrush again;
        QVERIFY(fromText(toText(brush), &again));
        QCOMPARE(difference(brush, again), std::string());
    }
    SettingsWindow window(path());
    auto * const kinds = editor<QWidget>(window, FillBrush)->findChild<QComboBox *>();
    QCOMPARE(kinds->currentIndex(), int(Fill::Slope));
    QTest::keyClick(kinds, Qt::Key_Down);
    QCOMPARE(window.config().getBrush(FillBrush).style(), Qt::RadialGradientPattern);
    QCOMPARE(fillColor(window.config().getBrush(FillBrush)), QColor(255, 214, 102, 200));
}

void tst_SettingsWindow::save_isFoundByTheNextWindow()
{
    QBrush const fill = makeFill(Fill::Tiles, Qt::darkCyan);
    {
        SettingsWindow window(path());
        window.config().setBrush(FillBrush, fill);
        window.config().setColor(PaperColor, QColor::fromHsvF(0.3f, 0.1f, 1.0f));
        window.config().setString(Caption, "saved");
        press(window, QStringLiteral("&Save"));
        QVERIFY(window.findChild<QLabel *>(QStringLiteral("status"))->text().contains(path()));
    }
    SettingsWindow window(path());
    QCOMPARE(marks(window), std::string("0 7 8 "));
    QCOMPARE(difference(window.config().getBrush(FillBrush), fill), std::string());
    QCOMPARE(editor<QLineEdit>(window, Caption)->text(), QStringLiteral("saved"));
}

void tst_SettingsWindow::reset_takesBackWhatIsNotSaved()
{
    SettingsWindow window(path());
    typeInto(editor<QLineEdit>(window, Caption), QStringLiteral("saved"));
    press(window, QStringLiteral("&Save"));
    typeInto(editor<QLineEdit>(window, Caption), QStringLiteral("not saved"));
    QTest::keyClick(editor<QSpinBox>(window, GridStep), Qt::Key_Up);
    press(window, QStringLiteral("&Reset"));
    QCOMPARE(editor<QLineEdit>(window, Caption)->text(), QStringLiteral("saved"));
    QCOMPARE(editor<QSpinBox>(window, GridStep)->value(), 20);
    QCOMPARE(marks(window), std::string("8 "));
}

void tst_SettingsWindow::defaults_thenSave_clearTheFile()
{
    {
        SettingsWindow window(path());
        typeInto(editor<QLineEdit>(window, Caption), QStringLiteral("saved"));
        press(window, QStringLiteral("&Save"));
        press(window, QStringLiteral("&Defaults"));
        QCOMPARE(editor<QLineEdit>(window, Caption)->text(), QStringLiteral("A drawing"));
        press(window, QStringLiteral("&Save"));
    }
    SettingsWindow window(path());
    QCOMPARE(marks(window), std::string());
}

void tst_SettingsWindow::angle_isNotKept()
{
    {
        SettingsWindow window(path());
        QTest::keyClick(editor<QSpinBox>(window, Angle), Qt::Key_Up);
        QCOMPARE(marks(window), std::string("9 "));
        press(window, QStringLiteral("&Save"));
        press(window, QStringLiteral("&Reset"));
        QCOMPARE(window.config().getInt(Angle), 1);
    }
    SettingsWindow window(path());
    QCOMPARE(window.config().getInt(Angle), 0);
}

void tst_SettingsWindow::fileThatCannotBeWritten_isTold()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    SettingsWindow window(path() + QStringLiteral("/below"));
    window.config().setString(Caption, "not kept");
    QVERIFY(!window.save());
    QVERIFY(window.findChild<QLabel *>(QStringLiteral("status"))
                ->text()
                .startsWith(QStringLiteral("Cannot write")));
}

void tst_SettingsWindow::fileWithAStrayLine_isReadAndSaved()
{
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[caption]\ntext=kept\nwhat is this\n");
    }
    SettingsWindow window(path());
    QCOMPARE(editor<QLineEdit>(window, Caption)->text(), QStringLiteral("kept"));
    QVERIFY(window.save());
    QVERIFY(window.findChild<QLabel *>(QStringLiteral("status"))
                ->text()
                .startsWith(QStringLiteral("Saved in")));
}

void tst_SettingsWindow::drawing_followsTheSettings()
{
    SettingsWindow window(path());
    window.config().setColor(PaperColor, Qt::darkBlue);
    window.config().setUInt(Shapes, UINT_MAX); // drawn only so many
    window.showSettings();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QImage const image = window.grab().toImage();
    QCOMPARE(image.pixelColor(image.width() - 14, 14), QColor(Qt::darkBlue));
}

void tst_SettingsWindow::largeFont_everythingFits()
{
    QFont const before = QApplication::font();
    QFont large = before;
    large.setPointSize(24);
    QApplication::setFont(large);
    {
        SettingsWindow window(path());
        window.config().setInt(GridStep, 30);
        window.showSettings();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (int id = 0; id < SettingCount; ++id) {
            auto * const widget = editor<QWidget>(window, id);
            QRect const area(widget->mapTo(&window, QPoint()), widget->size());
            QVERIFY2(window.rect().contains(area), std::to_string(id).c_str());
            QVERIFY2(widget->height() >= widget->minimumSizeHint().height(),
                     std::to_string(id).c_str());
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width(),
                     std::to_string(id).c_str());
        }
        if (QString const file = qEnvironmentVariable("ZENU_TEST_PICTURE"); !file.isEmpty()) {
            window.grab().save(file);
        }
    }
    QApplication::setFont(before);
}

ZENU_TEST(tst_SettingsWindow)
#include "tst_SettingsWindow.moc"
