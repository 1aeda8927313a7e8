#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <zenu/widgets/inner/StandardColors.h>

#include <QtWidgets/QColorDialog>

using namespace zenu;
using zenutest::PopupParts;
using zenutest::settle;
using zenutest::styled;
using zenutest::whenOpen;
using zenutest::Window;

namespace {

// Three colours with alphas that must not count, in one row.
unsigned int const threeColors[] = {0xffff0000, 0x0000ff00, 0x800000ff};

char const * const standardTable =
    "000000 404040 808080 c0c0c0 ffffff ff0000 800000 808000 c0c000 ffff00 "
    "400040 800080 c000c0 ff00ff 0000ff 00ff00 008000 004000 000040 000080 "
    "00ffff 008080 00c0c0 ff8000 ffff80 000000 9c3400 313400 003400 003463 "
    "000484 393c9c 313431 840400 ff6d00 848600 007d00 007d7b 0004ff 6b6d9c "
    "848684 ff0400 ff9e00 9ccf00 319663 39cfce 3165ff 7b047b 949694 ff04ff "
    "ffcf00 ffff00 00ff00 00ffff 00c7ff 9c3463 c6c6c6 ff96c6 ffcf9c ffff9c "
    "ceffce ceffff 9ccfff ce96ff ffffff";

// The colour in the middle of a swatch, as a flat button of its size draws it.
QColor fillOf(KColorButton & button)
{
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    button.resize(16, 16);
    QPainter painter(&picture);
    button.drawButton(&painter);
    return picture.pixelColor(8, 8);
}

// The colour of the default entry, which has its swatch beside the text.
bool shows(KColorButton & button, QColor const & color)
{
    QImage const picture = button.grab().toImage();
    for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, picture.height() / 2) == color)
            return true;
    }
    return false;
}

void clickIn(KColorPopup & popup, QWidget & button)
{
    QPoint const pos = button.mapTo(&popup, button.rect().center());
    QTest::mouseMove(popup.windowHandle(), pos);
    QTest::mouseClick(popup.windowHandle(), Qt::LeftButton, {}, pos);
}

// Drives the colour dialog that opens next.
void inColorDialog(std::function<void(QColorDialog &)> const & step)
{
    QTimer::singleShot(0, qApp, [step] {
        auto * const dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
        if (dialog)
            step(*dialog);
        else
            inColorDialog(step);
    });
}

struct FadeEffect
{
    explicit FadeEffect(bool on)
        : before(QApplication::isEffectEnabled(Qt::UI_FadeMenu))
    {
        QApplication::setEffectEnabled(Qt::UI_General, true);
        QApplication::setEffectEnabled(Qt::UI_FadeMenu, on);
    }
    ~FadeEffect()
    {
        QApplication::setEffectEnabled(Qt::UI_FadeMenu, before);
        QApplication::setEffectEnabled(Qt::UI_General, false);
    }
    FadeEffect(FadeEffect const &) = delete;
    FadeEffect & operator=(FadeEffect const &) = delete;
    static bool isOn() { return QApplication::isEffectEnabled(Qt::UI_FadeMenu); }

    bool before;
};

} // namespace

class tst_KColorPopup : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void standardTable_hasItsColors();
    void construction_standard();
    void construction_withTable();
    void construction_order();
    void swatches_areBuiltByTheRule();
    void entries_areBuiltByTheRule();
    void entries_haveAFrame();
    void emptyGrid_entriesStillWork_data();
    void emptyGrid_entriesStillWork();
    void defaultColor_showsAtTheNextOpening();
    void swatch_clicked_closesThenEmits();
    void swatch_readsTheTableAtThePick();
    void default_clicked_closesThenEmits();
    void other_startsWithWhiteOrTheCurrentColor_data();
    void other_startsWithWhiteOrTheCurrentColor();
    void other_accepted_emits();
    void other_cancelled_emitsNothing();
    void fadeEffect_isSavedAndRestored_data();
    void fadeEffect_isSavedAndRestored();
    void fadeEffect_deletedWhileOpen_isRestored();
    void fadeEffect_openedTwice_isRestored();
    void deletedInColorSelected_isSafe_data();
    void deletedInColorSelected_isSafe();
    void deletedInTheDialog_isSafe();
    void submenu_pick_closesAllMenus();
    void reuse_byAButton();
    void entriesRemoved_isSafe();
};

void tst_KColorPopup::standardTable_hasItsColors()
{
    QByteArrayList const expected = QByteArray(standardTable).split(' ');
    QCOMPARE(expected.size(), 65);
    QCOMPARE(int(standardColors.size()), 65);
    for (int i = 0; i < 65; ++i)
        QCOMPARE(standardColors[size_t(i)], 0xff000000u | expected.at(i).toUInt(nullptr, 16));
}

void tst_KColorPopup::construction_standard()
{
    KColorPopup const popup;
    QVERIFY(!popup.parent());
    QCOMPARE(popup.getDefaultColor(), QColor(Qt::black));
    QVERIFY(!popup.getCurrentColor().isValid());
    PopupParts const parts(popup);
    QCOMPARE(parts.swatches.size(), 50);
    for (int i = 0; i < 50; ++i)
        QCOMPARE(fillOf(*parts.swatches.at(i)), QColor(standardColors[size_t(i)]));
}

void tst_KColorPopup::construction_withTable()
{
    KColorPopup popup(1, 3, threeColors, Qt::yellow);
    QCOMPARE(popup.getDefaultColor(), QColor(Qt::yellow));
    QVERIFY(!popup.getCurrentColor().isValid());
    QCOMPARE(popup.qObject(), static_cast<QObject *>(&popup));
    KColorPopup second(3, 1, threeColors, Qt::yellow, Qt::red);
    QCOMPARE(second.getCurrentColor(), QColor(Qt::red));
    second.setCurrentColor(Qt::blue);
    second.setDefaultColor(QColor());
    QCOMPARE(second.getCurrentColor(), QColor(Qt::blue));
    QVERIFY(!second.getDefaultColor().isValid());
    PopupParts const parts(second);
    QCOMPARE(parts.swatches.size(), 3);
    QCOMPARE(fillOf(*parts.swatches.at(1)), QColor(0, 255, 0)); // its alpha is 0 in the table
}

void tst_KColorPopup::construction_order()
{
    KColorPopup popup(2, 3, standardColors.data(), Qt::black);
    popup.popup(QPoint(100, 100));
    QVERIFY(QTest::qWaitForWindowExposed(&popup));
    PopupParts const parts(popup);
    QVERIFY(parts.standard->y() < parts.widgets[1]->y());
    QVERIFY(parts.widgets[1]->y() < parts.other->y());
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(parts.swatches.at(i)->y(), parts.swatches.at(i / 3 * 3)->y());
        QCOMPARE(parts.swatches.at(i)->x(), parts.swatches.at(i % 3)->x());
    }
    QVERIFY(parts.swatches.at(0)->x() < parts.swatches.at(1)->x());
    QVERIFY(parts.swatches.at(0)->y() < parts.swatches.at(3)->y());
    popup.close();
}

void tst_KColorPopup::swatches_areBuiltByTheRule()
{
    KColorPopup const popup;
    for (KColorButton * const button : PopupParts(popup).swatches) {
        QVERIFY(button->autoRaise());
        QCOMPARE(button->sizeHint(), styled(*button, QSize(12 + 2, 12 + 2)));
    }
}

void tst_KColorPopup::entries_areBuiltByTheRule()
{
    KColorPopup const popup;
    PopupParts const parts(popup);
    QVERIFY(parts.standard->autoRaise());
    QVERIFY(parts.other->autoRaise());
    QFontMetrics const metrics(QApplication::font());
    QSize const standard = metrics.boundingRect(QStringLiteral("Default")).size();
    QSize const other = metrics.boundingRect(QStringLiteral("Other")).size();
    QCOMPARE(parts.standard->sizeHint(),
             styled(*parts.standard,
                    QSize(12 + standard.width() + 2 + 4 + 4, qMax(12, standard.height()) + 4)));
    QCOMPARE(parts.other->sizeHint(),
             styled(*parts.other, QSize(other.width() + 2 + 4, other.height() + 4)));
}

void tst_KColorPopup::entries_haveAFrame()
{
    KColorPopup const popup;
    PopupParts const parts(popup);
    for (KColorButton * const button : {parts.standard, parts.other}) {
        QImage picture(60, 30, QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        button->resize(picture.size());
        QPainter painter(&picture);
        button->drawButton(&painter);
        for (QPoint const corner : {QPoint(2, 2), QPoint(57, 2), QPoint(2, 27), QPoint(57, 27)})
            QCOMPARE(picture.pixelColor(corner), QColor(Qt::black));
    }
}

void tst_KColorPopup::emptyGrid_entriesStillWork_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("table");
    QTest::newRow("no rows") << 0 << 10 << true;
    QTest::newRow("no columns") << 5 << 0 << true;
    QTest::newRow("negative rows") << -1 << 10 << true;
    QTest::newRow("negative both") << -5 << -10 << true;
    QTest::newRow("no table") << 5 << 10 << false;
}

void tst_KColorPopup::emptyGrid_entriesStillWork()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(bool, table);
    KColorPopup popup(rows, columns, table ? standardColors.data() : nullptr, Qt::yellow);
    PopupParts const parts(popup);
    QVERIFY(parts.swatches.isEmpty());
    QSignalSpy const picks(&popup, &KColorPopup::colorSelected);
    whenOpen(popup, [&] { clickIn(popup, *parts.standard); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(picks.size(), 1);
    inColorDialog([](QColorDialog & dialog) { dialog.accept(); });
    whenOpen(popup, [&] { clickIn(popup, *parts.other); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(picks.size(), 2);
}

void tst_KColorPopup::defaultColor_showsAtTheNextOpening()
{
    KColorPopup popup(1, 3, threeColors, Qt::yellow);
    PopupParts const parts(popup);
    bool yellow = false;
    whenOpen(popup, [&] {
        yellow = shows(*parts.standard, Qt::yellow);
        popup.close();
    });
    popup.exec(QPoint(100, 100));
    QVERIFY(yellow);
    popup.setDefaultColor(Qt::magenta);
    bool magenta = false;
    whenOpen(popup, [&] {
        magenta = shows(*parts.standard, Qt::magenta);
        popup.close();
    });
    popup.exec(QPoint(100, 100));
    QVERIFY(magenta);
}

void tst_KColorPopup::swatch_clicked_closesThenEmits()
{
    KColorPopup popup(1, 3, threeColors, Qt::yellow);
    PopupParts const parts(popup);
    QList<QColor> picks;
    bool openAtThePick = false;
    connect(&popup, &KColorPopup::colorSelected, this, [&](QColor const & color) {
        picks << color;
        openAtThePick = openAtThePick || popup.isVisible();
    });
    for (int i = 0; i < 3; ++i) {
        whenOpen(popup, [&] { clickIn(popup, *parts.swatches.at(i)); });
        popup.exec(QPoint(100, 100));
    }
    QCOMPARE(picks, QList<QColor>({QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255)}));
    QVERIFY(!openAtThePick);
    QVERIFY(!popup.getCurrentColor().isValid()); // a pick does not change it
}

void tst_KColorPopup::swatch_readsTheTableAtThePick()
{
    unsigned int table[] = {0xffff0000, 0xff00ff00};
    KColorPopup popup(1, 2, table, Qt::yellow);
    PopupParts const parts(popup);
    QSignalSpy const picks(&popup, &KColorPopup::colorSelected);
    table[1] = 0xff123456;
    whenOpen(popup, [&] { clickIn(popup, *parts.swatches.at(1)); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(picks.at(0).at(0).value<QColor>(), QColor(0x12, 0x34, 0x56));
    QCOMPARE(fillOf(*parts.swatches.at(1)), QColor(0, 255, 0));
}

void tst_KColorPopup::default_clicked_closesThenEmits()
{
    KColorPopup popup(1, 3, threeColors, QColor(1, 2, 3, 4));
    PopupParts const parts(popup);
    QList<QColor> picks;
    connect(&popup, &KColorPopup::colorSelected, this, [&](QColor const & color) {
        picks << color;
        QVERIFY(!popup.isVisible());
    });
    whenOpen(popup, [&] { clickIn(popup, *parts.standard); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(picks, QList<QColor>({QColor(1, 2, 3, 4)})); // as it was given
}

void tst_KColorPopup::other_startsWithWhiteOrTheCurrentColor_data()
{
    QTest::addColumn<QColor>("current");
    QTest::addColumn<QColor>("start");
    QTest::newRow("no current color: white") << QColor() << QColor(Qt::white);
    QTest::newRow("current color") << QColor(10, 20, 30) << QColor(10, 20, 30);
    QTest::newRow("black is a color") << QColor(Qt::black) << QColor(Qt::black);
    QTest::newRow("without its alpha") << QColor(10, 20, 30, 40) << QColor(10, 20, 30);
}

void tst_KColorPopup::other_startsWithWhiteOrTheCurrentColor()
{
    QFETCH(QColor, current);
    QFETCH(QColor, start);
    KColorPopup popup(1, 3, threeColors, Qt::yellow, current);
    PopupParts const parts(popup);
    QColor seen;
    bool open = true;
    inColorDialog([&](QColorDialog & dialog) {
        seen = dialog.currentColor();
        open = popup.isVisible();
        dialog.reject();
    });
    whenOpen(popup, [&] { clickIn(popup, *parts.other); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(seen.rgba(), start.rgba());
    QVERIFY(!open);
}

void tst_KColorPopup::other_accepted_emits()
{
    KColorPopup popup;
    PopupParts const parts(popup);
    QSignalSpy const picks(&popup, &KColorPopup::colorSelected);
    inColorDialog([](QColorDialog & dialog) {
        dialog.setCurrentColor(QColor(9, 8, 7));
        dialog.accept();
    });
    whenOpen(popup, [&] { clickIn(popup, *parts.other); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(picks.size(), 1);
    QCOMPARE(picks.at(0).at(0).value<QColor>(), QColor(9, 8, 7));
}

void tst_KColorPopup::other_cancelled_emitsNothing()
{
    KColorPopup popup;
    PopupParts const parts(popup);
    QSignalSpy const picks(&popup, &KColorPopup::colorSelected);
    inColorDialog(
        [](QColorDialog & dialog) { QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape); });
    whenOpen(popup, [&] { clickIn(popup, *parts.other); });
    popup.exec(QPoint(100, 100));
    QCOMPARE(picks.size(), 0);
}

void tst_KColorPopup::fadeEffect_isSavedAndRestored_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void tst_KColorPopup::fadeEffect_isSavedAndRestored()
{
    QFETCH(bool, on);
    FadeEffect const effect(on);
    QCOMPARE(FadeEffect::isOn(), on);
    KColorPopup popup;
    bool whileOpen = true;
    whenOpen(popup, [&] {
        whileOpen = FadeEffect::isOn();
        popup.close();
    });
    popup.exec(QPoint(100, 100));
    QVERIFY(!whileOpen);
    QCOMPARE(FadeEffect::isOn(), on);
}

void tst_KColorPopup::fadeEffect_deletedWhileOpen_isRestored()
{
    FadeEffect const effect(true);
    auto popup = std::make_unique<KColorPopup>();
    whenOpen(*popup, [&] { popup.reset(); });
    popup->exec(QPoint(100, 100));
    QVERIFY(!popup);
    QVERIFY(FadeEffect::isOn());
}

void tst_KColorPopup::fadeEffect_openedTwice_isRestored()
{
    FadeEffect const effect(true);
    KColorPopup popup;
    popup.popup(QPoint(100, 100));
    popup.popup(QPoint(200, 100));
    popup.close();
    QVERIFY(FadeEffect::isOn());
}

void tst_KColorPopup::deletedInColorSelected_isSafe_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("swatch") << 0;
    QTest::newRow("default") << 1;
    QTest::newRow("other") << 2;
    QTest::newRow("key") << 3;
}

void tst_KColorPopup::deletedInColorSelected_isSafe()
{
    QFETCH(int, way);
    Window window;
    QVERIFY(window.open());
    auto popup = std::make_unique<KColorPopup>();
    PopupParts const parts(*popup);
    connect(popup.get(), &KColorPopup::colorSelected, this, [&] { popup.reset(); });
    window.button->setPopup(popup.get());
    window.button->setPopupDelay(0);
    if (way == 2)
        inColorDialog([](QColorDialog & dialog) { dialog.accept(); });
    whenOpen(*popup, [&] {
        if (way == 3) {
            QTest::keyClick(popup->windowHandle(), Qt::Key_Down);
            QTest::keyClick(popup->windowHandle(), Qt::Key_Return);
            return;
        }
        QWidget * const buttons[] = {parts.swatches.at(7), parts.standard, parts.other};
        clickIn(*popup, *buttons[way]);
    });
    window.press(window.onArrow());
    QVERIFY(!popup);
    QVERIFY(!window.button->popup());
    QVERIFY(!window.button->isDown());
}

void tst_KColorPopup::deletedInTheDialog_isSafe()
{
    auto popup = std::make_unique<KColorPopup>();
    PopupParts const parts(*popup);
    int picks = 0;
    connect(popup.get(), &KColorPopup::colorSelected, this, [&] { ++picks; });
    inColorDialog([&](QColorDialog & dialog) {
        popup.reset();
        dialog.accept();
    });
    whenOpen(*popup, [&] { clickIn(*popup, *parts.other); });
    popup->exec(QPoint(100, 100));
    QCOMPARE(picks, 0);
}

void tst_KColorPopup::submenu_pick_closesAllMenus()
{
    KColorPopup popup(1, 3, threeColors, Qt::yellow);
    PopupParts const parts(popup);
    QMenu outer;
    QMenu middle;
    outer.addAction(QStringLiteral("First"));
    outer.addMenu(&middle);
    middle.addMenu(&popup);
    QSignalSpy const picks(&popup, &KColorPopup::colorSelected);
    bool closedAtThePick = false;
    connect(&popup, &KColorPopup::colorSelected, this, [&] {
        closedAtThePick = !outer.isVisible() && !middle.isVisible() && !popup.isVisible();
    });
    whenOpen(outer, [&] {
        outer.setActiveAction(middle.menuAction());
        QTest::keyClick(outer.windowHandle(), Qt::Key_Right);
        QVERIFY(QTest::qWaitForWindowExposed(&middle));
        middle.setActiveAction(popup.menuAction());
        QTest::keyClick(middle.windowHandle(), Qt::Key_Right);
        QVERIFY(QTest::qWaitForWindowExposed(&popup));
        clickIn(popup, *parts.swatches.at(2));
    });
    outer.exec(QPoint(100, 100));
    QCOMPARE(picks.size(), 1);
    QVERIFY(closedAtThePick);
}

void tst_KColorPopup::reuse_byAButton()
{
    Window window;
    QVERIFY(window.open());
    KColorPopup popup;
    PopupParts const parts(popup);
    QSignalSpy const picks(&popup, &KColorPopup::colorSelected);
    window.button->setPopup(&popup);
    for (int const delay : {0, -1, 10, 0}) {
        window.button->setPopupDelay(delay);
        qsizetype const before = picks.size();
        QByteArray litAtFirst;
        whenOpen(popup, [&] {
            window.release(window.onArrow());
            litAtFirst = parts.lit();
            clickIn(popup, *parts.swatches.at(33));
        });
        window.press(window.onArrow());
        QTRY_COMPARE(picks.size(), before + 1);
        QTRY_VERIFY(!window.button->isDown());
        QCOMPARE(litAtFirst, QByteArray("none"));
        QCOMPARE(picks.last().at(0).value<QColor>(), QColor(standardColors[33]));
        settle();
    }
}

void tst_KColorPopup::entriesRemoved_isSafe()
{
    KColorPopup popup;
    popup.clear();
    popup.addAction(QStringLiteral("A"));
    whenOpen(popup, [&] {
        QTest::keyClick(popup.windowHandle(), Qt::Key_Down);
        QTest::keyClick(popup.windowHandle(), Qt::Key_Return);
    });
    popup.exec(QPoint(100, 100));
    QVERIFY(!popup.isVisible());
}

ZENU_TEST(tst_KColorPopup)
#include "tst_KColorPopup.moc"
