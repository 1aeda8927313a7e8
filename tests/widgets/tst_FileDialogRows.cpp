#include "tests/support/TestMain.h"

#include <zenu/widgets/KFileDialog.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>

using namespace zenu;

namespace {

class Dialog : public KFileDialog
{
public:
    template <typename Widget>
    Widget * child(char const * name) const
    {
        return findChild<Widget *>(QLatin1String(name));
    }
    QPushButton * acceptButton() const
    {
        auto const * const box = child<QDialogButtonBox>("buttonBox");
        for (QAbstractButton * const button : box->buttons()) {
            if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) {
                return qobject_cast<QPushButton *>(button);
            }
        }
        return nullptr;
    }
    QWidget * inLastRow(int column) const
    {
        auto * const grid = qobject_cast<QGridLayout *>(layout());
        QLayoutItem * const item = grid->itemAtPosition(grid->rowCount() - 1, column);
        return item ? item->widget() : nullptr;
    }
    QRect placeOf(QWidget const * widget) const
    {
        return QRect(widget->mapTo(this, QPoint()), widget->size());
    }
    // Empty when the widgets of a row stand below those of the dialog, of the same width.
    QString misplaced(QWidget const * label, QWidget const * widget, QWidget const * button) const
    {
        QString result;
        auto const compare = [&](char const * what, QWidget const * added, QWidget const * own) {
            QRect const a = placeOf(added);
            QRect const b = placeOf(own);
            if (a.left() != b.left() || a.width() != b.width() || a.top() <= b.bottom()) {
                QDebug(&result) << what << a << "for" << b << '\n';
            }
        };
        compare("label", label, child<QLabel>("fileTypeLabel"));
        compare("widget", widget, child<QComboBox>("fileTypeCombo"));
        compare("button", button, acceptButton());
        if (label->height() != child<QLabel>("fileTypeLabel")->height() ||
            button->height() != acceptButton()->height()) {
            result += QStringLiteral("heights differ\n");
        }
        return result;
    }
    void showIt()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QTest::qWait(20); // what is laid out again
    }
};

struct Row
{
    explicit Row(Dialog & dialog, char const * text = "Encoding:")
        : label(new QLabel(QLatin1String(text)))
        , widget(new QComboBox)
        , button(new QPushButton(QStringLiteral("More")))
    {
        dialog.addWidgetsAdjusted(label, widget, button);
    }
    QLabel * label;
    QComboBox * widget;
    QPushButton * button;
};

} // namespace

class tst_FileDialogRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void row_getsTheSizesOfTheDialogs();
    void row_isInLineWithTheDialogs_data();
    void row_isInLineWithTheDialogs();
    void longLabel_widensTheColumn();
    void severalRows_standBelowEachOther();
    void rowOfAShownDialog_isInLine();
    void fontOfAShownDialog_rowFollows();
    void otherAcceptMode_rowFollows();
    void nullLabelAndButton_becomeFillers();
    void nullWidget_leavesItsPlaceEmpty();
    void missingPartsOfTheDialog_nothingHappens_data();
    void missingPartsOfTheDialog_nothingHappens();
    void deletedWidgets_leaveTheRow();

private:
    QTemporaryDir m_settings;
};

void tst_FileDialogRows::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
}

void tst_FileDialogRows::init()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support ).*")));
}

void tst_FileDialogRows::row_getsTheSizesOfTheDialogs()
{
    Dialog dialog;
    Row const row(dialog);
    QCOMPARE(row.label->minimumSize(), dialog.child<QLabel>("fileTypeLabel")->size());
    QCOMPARE(row.label->maximumSize(), dialog.child<QLabel>("fileTypeLabel")->size());
    QCOMPARE(row.button->minimumSize(), dialog.acceptButton()->size());
    QCOMPARE(row.button->maximumSize(), dialog.acceptButton()->size());
    for (QWidget const * const widget :
         std::initializer_list<QWidget *>{row.label, row.widget, row.button}) {
        QCOMPARE(widget->parentWidget(), &dialog);
    }
}

void tst_FileDialogRows::row_isInLineWithTheDialogs_data()
{
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (int pointSize : {6, 9, 14, 24, 40}) {
        QByteArray const name = QByteArray::number(pointSize) + " points";
        QTest::newRow(name.constData()) << pointSize << Qt::LeftToRight;
        QTest::newRow((name + " from right to left").constData()) << pointSize << Qt::RightToLeft;
    }
}

void tst_FileDialogRows::row_isInLineWithTheDialogs()
{
    QFETCH(int, pointSize);
    QFETCH(Qt::LayoutDirection, direction);
    Dialog dialog;
    QFont font = dialog.font();
    font.setPointSize(pointSize);
    dialog.setLayoutDirection(direction);
    Row const before(dialog); // added in another font
    dialog.setFont(font);
    Row const after(dialog);
    dialog.showIt();
    QCOMPARE(dialog.misplaced(before.label, before.widget, before.button), QString());
    QCOMPARE(dialog.misplaced(after.label, after.widget, after.button), QString());
    bool const isLeft = dialog.placeOf(before.label).left() < dialog.placeOf(before.widget).left();
    QCOMPARE(isLeft, direction == Qt::LeftToRight);
}

void tst_FileDialogRows::longLabel_widensTheColumn()
{
    Dialog dialog;
    Row const row(dialog, "What the characters of the file mean:");
    dialog.showIt();
    QVERIFY(row.label->width() >= row.label->fontMetrics().horizontalAdvance(row.label->text()));
    QCOMPARE(dialog.misplaced(row.label, row.widget, row.button), QString());
}

void tst_FileDialogRows::severalRows_standBelowEachOther()
{
    Dialog dialog;
    Row const first(dialog);
    Row const second(dialog, "Line ends:");
    dialog.showIt();
    QCOMPARE(dialog.misplaced(first.label, first.widget, first.button), QString());
    QCOMPARE(dialog.misplaced(second.label, second.widget, second.button), QString());
    QVERIFY(dialog.placeOf(second.widget).top() > dialog.placeOf(first.widget).bottom());
}

void tst_FileDialogRows::rowOfAShownDialog_isInLine()
{
    Dialog dialog;
    dialog.showIt();
    Row const row(dialog, "What the characters mean:");
    QTRY_VERIFY(row.label->isVisible() && row.widget->isVisible() && row.button->isVisible());
    QTRY_COMPARE(dialog.misplaced(row.label, row.widget, row.button), QString());
    QTRY_VERIFY(row.label->width() >=
                row.label->fontMetrics().horizontalAdvance(row.label->text()));
}

void tst_FileDialogRows::fontOfAShownDialog_rowFollows()
{
    Dialog dialog;
    Row const row(dialog);
    dialog.showIt();
    QSize const small = row.label->size();
    QFont const usual = dialog.font();
    QFont font = usual;
    font.setPointSize(usual.pointSize() * 3);
    dialog.setFont(font);
    QTRY_VERIFY(row.label->width() > small.width());
    QTRY_COMPARE(dialog.misplaced(row.label, row.widget, row.button), QString());
    dialog.setFont(usual);
    QTRY_COMPARE(row.label->size(), small);
    QTRY_COMPARE(dialog.misplaced(row.label, row.widget, row.button), QString());
}

void tst_FileDialogRows::otherAcceptMode_rowFollows()
{
    Dialog dialog;
    Row const row(dialog);
    dialog.showIt();
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Save it under this name"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Files of a certain type:"));
    QTRY_VERIFY(row.button->width() >
                row.button->fontMetrics().horizontalAdvance(QStringLiteral("Save it under")));
    QTRY_COMPARE(dialog.misplaced(row.label, row.widget, row.button), QString());
}

void tst_FileDialogRows::nullLabelAndButton_becomeFillers()
{
    Dialog dialog;
    auto * const widget = new QSpinBox;
    dialog.addWidgetsAdjusted(nullptr, widget, nullptr);
    auto * const label = qobject_cast<QLabel *>(dialog.inLastRow(0));
    auto * const button = qobject_cast<QPushButton *>(dialog.inLastRow(2));
    QVERIFY(label);
    QVERIFY(button);
    QCOMPARE(dialog.inLastRow(1), widget);
    QCOMPARE(label->parentWidget(), &dialog);
    QCOMPARE(label->text(), QString());
    QCOMPARE(button->parentWidget(), &dialog);
    QCOMPARE(button->text(), QString());
    QVERIFY(button->isFlat());
    QVERIFY(!button->isEnabled());
    dialog.showIt();
    QCOMPARE(dialog.misplaced(label, widget, button), QString());
    // It cannot be seen.
    QImage const picture = dialog.grab(dialog.placeOf(button)).toImage();
    QImage plain = picture;
    plain.fill(picture.pixel(0, 0));
    QCOMPARE(picture, plain);
}

void tst_FileDialogRows::nullWidget_leavesItsPlaceEmpty()
{
    Dialog dialog;
    auto * const label = new QLabel(QStringLiteral("Encoding:"));
    dialog.addWidgetsAdjusted(label, nullptr, nullptr);
    QCOMPARE(dialog.inLastRow(0), label);
    QVERIFY(!dialog.inLastRow(1));
    dialog.showIt();
    QCOMPARE(dialog.placeOf(label).left(),
             dialog.placeOf(dialog.child<QLabel>("fileTypeLabel")).left());
}

void tst_FileDialogRows::missingPartsOfTheDialog_nothingHappens_data()
{
    QTest::addColumn<QByteArray>("missing");
    QTest::newRow("label of the file type") << QByteArray("fileTypeLabel");
    QTest::newRow("buttons") << QByteArray("buttonBox");
}

void tst_FileDialogRows::missingPartsOfTheDialog_nothingHappens()
{
    QFETCH(QByteArray, missing);
    Dialog dialog;
    // Renamed: the dialog itself goes on using it.
    dialog.child<QWidget>(missing.constData())->setObjectName(QStringLiteral("other"));
    int const before = qobject_cast<QGridLayout *>(dialog.layout())->rowCount();
    qsizetype const children = dialog.children().size();
    QSpinBox widget;
    dialog.addWidgetsAdjusted(nullptr, &widget, nullptr);
    QCOMPARE(qobject_cast<QGridLayout *>(dialog.layout())->rowCount(), before);
    QCOMPARE(dialog.children().size(), children);
    QVERIFY(!widget.parent());
}

void tst_FileDialogRows::deletedWidgets_leaveTheRow()
{
    Dialog dialog;
    Row const row(dialog);
    Row const other(dialog, "Line ends:");
    delete row.label;
    delete row.button;
    dialog.showIt();
    QFont font = dialog.font();
    font.setPointSize(20);
    dialog.setFont(font);
    QTRY_COMPARE(dialog.misplaced(other.label, other.widget, other.button), QString());
    QVERIFY(row.widget->isVisible());
}

ZENU_TEST(tst_FileDialogRows)
#include "tst_FileDialogRows.moc"
