#include "tests/support/TestMain.h"

#include <zenu/widgets/KFileDialog.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>

using namespace zenu;

namespace {

class Dialog : public KFileDialog
{
public:
    using KFileDialog::dirChanged;
    using KFileDialog::KFileDialog;

    template <typename Widget>
    Widget * child(char const * name) const
    {
        return findChild<Widget *>(QLatin1String(name));
    }
    QPushButton * acceptButton() const
    {
        for (QAbstractButton * const button : child<QDialogButtonBox>("buttonBox")->buttons()) {
            if (child<QDialogButtonBox>("buttonBox")->buttonRole(button) ==
                QDialogButtonBox::AcceptRole) {
                return qobject_cast<QPushButton *>(button);
            }
        }
        return nullptr;
    }
    // The user chooses a filter in the list.
    void choose(int position)
    {
        auto * const combo = child<QComboBox>("fileTypeCombo");
        combo->setFocus();
        combo->showPopup();
        QModelIndex const index = combo->model()->index(position, 0);
        combo->view()->scrollTo(index);
        QPoint const place = combo->view()->visualRect(index).center();
        QTest::mouseMove(combo->view()->viewport(), place);
        QTest::qWait(QApplication::doubleClickInterval()); // the press that opened it is over
        QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTRY_VERIFY(!combo->view()->isVisible());
    }

    QStringList changes;

protected:
    void filterChanged(QString const & filter) override { changes << filter; }
};

class FocusEvents : public QObject
{
public:
    explicit FocusEvents(QObject * watched) { watched->installEventFilter(this); }
    QString log;

protected:
    bool eventFilter(QObject *, QEvent * event) override
    {
        log += event->type() == QEvent::FocusIn    ? QStringLiteral("in ")
               : event->type() == QEvent::FocusOut ? QStringLiteral("out ")
                                                   : QString();
        return false;
    }
};

} // namespace

class tst_KFileDialog : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void construction_argumentsAreUsed();
    void construction_withoutArguments();
    void dialog_isAlwaysTheToolkits();
    void addFilter_numbersFromZero();
    void addFilter_keepsSelectionAndName();
    void addFilter_nullOrBlank_isIgnored_data();
    void addFilter_nullOrBlank_isIgnored();
    void addFilter_twice_lookupFindsTheLatest();
    void addFilter_textsWithBracketsAndSpaces_areFound_data();
    void addFilter_textsWithBracketsAndSpaces_areFound();
    void constructorFilter_hasNoNumber();
    void filterIndex_distinguishesCase();
    void setSelectedFilter_selectsTheFilterOfTheIndex();
    void setSelectedFilter_outOfRange_changesNothing_data();
    void setSelectedFilter_outOfRange_changesNothing();
    void setSelectedFilter_ofDirectories_changesNoText();
    void setSelectedFilter_isVirtual();
    void hiddenPatterns_filtersStayApart();
    void chosenFilter_reachesFilterChanged();
    void dirChanged_postsFocusInAndOut();
    void directoryEntered_reachesDirChanged_ofTheLongConstructor();
    void directoryEntered_isIgnored_byTheShortConstructor();
    void directoryEnteredByTheUser_reachesTheNameField();

private:
    QTemporaryDir m_settings;
    QTemporaryDir m_files;
};

void tst_KFileDialog::initTestCase()
{
    // The toolkit's dialog writes down where it was.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    QVERIFY(QDir(m_files.path()).mkdir(QStringLiteral("inner")));
}

void tst_KFileDialog::init()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support ).*")));
}

void tst_KFileDialog::construction_argumentsAreUsed()
{
    QWidget parent;
    KFileDialog dialog(m_files.path(), QStringLiteral("Text (*.txt)"), &parent, "chooser", true);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.objectName(), QStringLiteral("chooser"));
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.directory(), QDir(m_files.path()));
    QCOMPARE(dialog.nameFilters(), QStringList(QStringLiteral("Text (*.txt)")));
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Text (*.txt)"));
    QCOMPARE(dialog.qObject(), static_cast<QObject *>(&dialog));
}

void tst_KFileDialog::construction_withoutArguments()
{
    KFileDialog dialog;
    QVERIFY(!dialog.parent());
    QVERIFY(dialog.objectName().isEmpty());
    QVERIFY(!dialog.isModal());
    QCOMPARE(dialog.nameFilters().size(), 1);
    QCOMPARE(dialog.selectedFilterIndex(), -1);
    KFileDialog const empty((QString()), QString());
    QCOMPARE(empty.nameFilters(), dialog.nameFilters());
}

void tst_KFileDialog::dialog_isAlwaysTheToolkits()
{
    Dialog const small;
    Dialog const full(m_files.path(), QString());
    for (Dialog const * const dialog : {&small, &full}) {
        QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
        QVERIFY(dialog->child<QLabel>("fileTypeLabel"));
        QVERIFY(dialog->child<QLineEdit>("fileNameEdit"));
        QVERIFY(dialog->acceptButton());
    }
}

void tst_KFileDialog::addFilter_numbersFromZero()
{
    KFileDialog dialog(m_files.path(), QStringLiteral("All files (*)"));
    dialog.addFilter("Pictures (*.png)");
    dialog.addFilter("Text (*.txt)");
    dialog.addFilter("Caf\xe9 (*.caf)");
    QCOMPARE(dialog.filterIndex("Pictures (*.png)"), 0);
    QCOMPARE(dialog.filterIndex("Text (*.txt)"), 1);
    QCOMPARE(dialog.filterIndex("Caf\xe9 (*.caf)"), 2);
    QCOMPARE(dialog.filterIndex("Sounds (*.ogg)"), -1);
    QCOMPARE(dialog.filterIndex(nullptr), -1);
    QCOMPARE(dialog.nameFilters(),
             QStringList({QStringLiteral("All files (*)"), QStringLiteral("Pictures (*.png)"),
                          QStringLiteral("Text (*.txt)"), QStringLiteral("Caf\u00e9 (*.caf)")}));
}

void tst_KFileDialog::addFilter_keepsSelectionAndName()
{
    KFileDialog dialog(m_files.path(), QStringLiteral("Text (*.txt)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    auto * const edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    edit->setText(QStringLiteral("notes.md"));
    dialog.addFilter("Pictures (*.png)");
    QCOMPARE(dialog.selectedFilterIndex(), -1);
    QCOMPARE(edit->text(), QStringLiteral("notes.md"));
    dialog.setSelectedFilter(0);
    QCOMPARE(edit->text(), QStringLiteral("notes.png")); // the toolkit's custom
    edit->setText(QStringLiteral("notes.md"));
    dialog.addFilter("Sounds (*.ogg)");
    QCOMPARE(dialog.selectedFilterIndex(), 0);
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Pictures (*.png)"));
    QCOMPARE(edit->text(), QStringLiteral("notes.md"));
}

void tst_KFileDialog::addFilter_nullOrBlank_isIgnored_data()
{
    QTest::addColumn<bool>("isNull");
    QTest::addColumn<QByteArray>("filter");
    QTest::newRow("null") << true << QByteArray();
    QTest::newRow("empty") << false << QByteArray("");
    QTest::newRow("blank") << false << QByteArray(" \t ");
}

void tst_KFileDialog::addFilter_nullOrBlank_isIgnored()
{
    QFETCH(bool, isNull);
    QFETCH(QByteArray, filter);
    KFileDialog dialog;
    dialog.addFilter(isNull ? nullptr : filter.constData());
    QCOMPARE(dialog.nameFilters().size(), 1);
    dialog.addFilter("Text (*.txt)");
    QCOMPARE(dialog.filterIndex("Text (*.txt)"), 0);
    dialog.setSelectedFilter(0);
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Text (*.txt)"));
}

void tst_KFileDialog::addFilter_twice_lookupFindsTheLatest()
{
    KFileDialog dialog(m_files.path(), QStringLiteral("All files (*)"));
    dialog.addFilter("Text (*.txt)");
    dialog.addFilter("Pictures (*.png)");
    dialog.addFilter("Text (*.txt)");
    QCOMPARE(dialog.nameFilters().size(), 4);
    QCOMPARE(dialog.filterIndex("Text (*.txt)"), 2);
    auto const * const combo = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
    for (int index : {0, 2}) {
        dialog.setSelectedFilter(index);
        QCOMPARE(combo->currentIndex(), index + 1);
        QCOMPARE(dialog.selectedFilterIndex(), 2);
    }
    dialog.setSelectedFilter(1);
    QCOMPARE(dialog.selectedFilterIndex(), 1);
}

void tst_KFileDialog::addFilter_textsWithBracketsAndSpaces_areFound_data()
{
    QTest::addColumn<QByteArray>("filter");
    QTest::newRow("brackets in the name") << QByteArray("Pages (draft) (final) (*.page)");
    QTest::newRow("square brackets") << QByteArray("C sources [old] (*.[ch] *.[ch]pp)");
    QTest::newRow("brackets that do not close") << QByteArray("Odd ((( (*.odd");
    QTest::newRow("pattern alone") << QByteArray("*.txt");
    QTest::newRow("patterns in brackets alone") << QByteArray("(*.txt)");
    QTest::newRow("two spaces") << QByteArray("Two  spaces   (*.a  *.b)");
    QTest::newRow("spaces round it") << QByteArray("  Text (*.txt) ");
    QTest::newRow("percent and ampersand") << QByteArray("R&D 100% %1 (*.rd)");
    QTest::newRow("semicolons") << QByteArray("A (*.a);;B (*.b)");
}

void tst_KFileDialog::addFilter_textsWithBracketsAndSpaces_areFound()
{
    QFETCH(QByteArray, filter);
    KFileDialog dialog(m_files.path(), QStringLiteral("All files (*)"));
    dialog.addFilter("Other (*.other)");
    dialog.addFilter(filter.constData());
    QCOMPARE(dialog.nameFilters().size(), 3);
    QCOMPARE(dialog.filterIndex(filter.constData()), 1);
    dialog.setSelectedFilter(1);
    QCOMPARE(dialog.selectedFilterIndex(), 1);
    QCOMPARE(dialog.selectedNameFilter(), QString::fromLatin1(filter).simplified());
    dialog.setSelectedFilter(0);
    QCOMPARE(dialog.selectedFilterIndex(), 0);
}

void tst_KFileDialog::constructorFilter_hasNoNumber()
{
    KFileDialog dialog(m_files.path(), QStringLiteral("All files (*)"));
    dialog.addFilter("Text (*.txt)");
    QCOMPARE(dialog.selectedFilterIndex(), -1);
    QCOMPARE(dialog.filterIndex("All files (*)"), -1);
    dialog.setSelectedFilter(0);
    QCOMPARE(dialog.selectedFilterIndex(), 0);
    dialog.selectNameFilter(QStringLiteral("All files (*)"));
    QCOMPARE(dialog.selectedFilterIndex(), -1);
    dialog.setSelectedFilter(0);
    dialog.setSelectedFilter(-1);
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("All files (*)"));
    QCOMPARE(dialog.selectedFilterIndex(), -1);
}

void tst_KFileDialog::filterIndex_distinguishesCase()
{
    KFileDialog dialog;
    dialog.addFilter("Text (*.txt)");
    dialog.addFilter("TEXT (*.TXT)");
    QCOMPARE(dialog.filterIndex("Text (*.txt)"), 0);
    QCOMPARE(dialog.filterIndex("TEXT (*.TXT)"), 1);
    QCOMPARE(dialog.filterIndex("text (*.txt)"), -1);
}

void tst_KFileDialog::setSelectedFilter_selectsTheFilterOfTheIndex()
{
    KFileDialog dialog;
    dialog.addFilter("A (*.a)");
    dialog.addFilter("B (*.b)");
    dialog.addFilter("C (*.c)");
    dialog.setSelectedFilter(2);
    QCOMPARE(dialog.selectedFilterIndex(), 2);
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("C (*.c)"));
    dialog.setSelectedFilter(0);
    QCOMPARE(dialog.selectedFilterIndex(), 0);
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("A (*.a)"));
}

void tst_KFileDialog::setSelectedFilter_outOfRange_changesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("before the constructor's") << -2;
    QTest::newRow("one too many") << 2;
    QTest::newRow("smallest") << INT_MIN;
    QTest::newRow("largest") << INT_MAX;
}

void tst_KFileDialog::setSelectedFilter_outOfRange_changesNothing()
{
    QFETCH(int, index);
    KFileDialog dialog;
    dialog.addFilter("A (*.a)");
    dialog.addFilter("B (*.b)");
    dialog.setSelectedFilter(1);
    dialog.setSelectedFilter(index);
    QCOMPARE(dialog.selectedFilterIndex(), 1);
    dialog.setNameFilters(QStringList());
    dialog.setSelectedFilter(0);
    QCOMPARE(dialog.selectedFilterIndex(), -1);
}

void tst_KFileDialog::setSelectedFilter_ofDirectories_changesNoText()
{
    KFileDialog dialog;
    dialog.addFilter("A (*.a)");
    dialog.addFilter("B (*.b)");
    dialog.setFileMode(QFileDialog::Directory);
    auto const * const combo = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
    QString const text = combo->currentText();
    QVERIFY(!text.isEmpty());
    dialog.setSelectedFilter(1);
    QCOMPARE(combo->currentText(), text);
    QCOMPARE(dialog.selectedFilterIndex(), -1);
}

void tst_KFileDialog::setSelectedFilter_isVirtual()
{
    class Counting : public KFileDialog
    {
    public:
        void setSelectedFilter(int index) override { asked << index; }
        QList<int> asked;
    };
    Counting dialog;
    static_cast<KFileDialog &>(dialog).setSelectedFilter(7);
    QCOMPARE(dialog.asked, QList<int>({7}));
}

// All of them are shown as "Pictures".
void tst_KFileDialog::hiddenPatterns_filtersStayApart()
{
    KFileDialog dialog;
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.addFilter("Pictures (*.png)");
    dialog.addFilter("Pictures (*.jpg)");
    auto const * const combo = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
    QCOMPARE(combo->itemText(1), combo->itemText(2));
    for (int index : {1, 0}) {
        dialog.setSelectedFilter(index);
        QCOMPARE(dialog.selectedFilterIndex(), index);
        QCOMPARE(combo->currentIndex(), index + 1);
    }
}

void tst_KFileDialog::chosenFilter_reachesFilterChanged()
{
    Dialog shortOne;
    Dialog longOne(m_files.path(), QStringLiteral("All files (*)"));
    for (Dialog * const dialog : {&shortOne, &longOne}) {
        dialog->addFilter("Text (*.txt)");
        dialog->addFilter("Pictures (*.png)");
        dialog->setSelectedFilter(0); // a call is no choice of the user
        QCOMPARE(dialog->changes, QStringList());
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        dialog->choose(2);
        QTRY_COMPARE(dialog->changes, QStringList(QStringLiteral("Pictures (*.png)")));
        QCOMPARE(dialog->selectedFilterIndex(), 1);
        dialog->hide();
    }
}

void tst_KFileDialog::dirChanged_postsFocusInAndOut()
{
    Dialog dialog;
    auto * const edit = dialog.child<QLineEdit>("fileNameEdit");
    FocusEvents const events(edit);
    dialog.dirChanged(m_files.path());
    QCOMPARE(events.log, QString()); // posted, not sent
    QCoreApplication::sendPostedEvents(edit);
    QCOMPARE(events.log, QStringLiteral("in out "));
    edit->setObjectName(QStringLiteral("other"));
    dialog.dirChanged(m_files.path()); // the field is not to be found
    QCoreApplication::sendPostedEvents(edit);
    QCOMPARE(events.log, QStringLiteral("in out "));
}

void tst_KFileDialog::directoryEntered_reachesDirChanged_ofTheLongConstructor()
{
    Dialog dialog(m_files.path(), QString());
    auto * const edit = dialog.child<QLineEdit>("fileNameEdit");
    FocusEvents const events(edit);
    Q_EMIT dialog.directoryEntered(m_files.path());
    QCoreApplication::sendPostedEvents(edit);
    QCOMPARE(events.log, QStringLiteral("in out "));
}

void tst_KFileDialog::directoryEntered_isIgnored_byTheShortConstructor()
{
    Dialog dialog;
    auto * const edit = dialog.child<QLineEdit>("fileNameEdit");
    FocusEvents const events(edit);
    Q_EMIT dialog.directoryEntered(m_files.path());
    QCoreApplication::sendPostedEvents(edit);
    QCOMPARE(events.log, QString());
}

void tst_KFileDialog::directoryEnteredByTheUser_reachesTheNameField()
{
    Dialog dialog(m_files.path(), QString());
    dialog.setViewMode(QFileDialog::List);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto * const files = dialog.child<QListView>("listView");
    QTRY_COMPARE(files->model()->rowCount(files->rootIndex()), 1);
    files->setCurrentIndex(files->model()->index(0, 0, files->rootIndex()));
    files->setFocus();
    QTRY_VERIFY(files->hasFocus());
    FocusEvents const events(dialog.child<QLineEdit>("fileNameEdit"));
    QTest::keyClick(files, Qt::Key_Return);
    QTRY_COMPARE(dialog.directory().dirName(), QStringLiteral("inner"));
    QTRY_COMPARE(events.log, QStringLiteral("in out "));
}

ZENU_TEST(tst_KFileDialog)
#include "tst_KFileDialog.moc"
