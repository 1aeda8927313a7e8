#include "tests/header/HeaderPictures.h"
#include "tests/support/TestMain.h"

#include <zenu/header/inner/HeaderPainting.h>
#include <zenu/overlay/KPainter.h>
#include <zenu/widgets/KPixmapSet.h>

using namespace zenu;
using namespace zenutest;

class tst_HeaderPainting : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void plain_facesAndSpace_matchTheRules();
    void plain_hotItem_hasTheLightFill();
    void plain_flat_hasLinesAlongBothEdges();
    void plain_vertical_itemsStandBelowEachOther();
    void noItems_theWholeHeader_isSpace_data();
    void noItems_theWholeHeader_isSpace();
    void buttons_faces_areThoseOfItemButtons_data();
    void buttons_faces_areThoseOfItemButtons();
    void ownerDraw_notification_drawsAllOfTheItem();
    void paint_partExposed_drawsOnlyTheItemsInIt();
    void ownerDraw_withoutNotification_isDrawnAsUsual();
    void ownerDraw_deletesItems_isSurvived();
    void ownerDraw_painterState_isRestored();
    void fit_sameConditions_isMeasuredOnce();
    void fit_changedConditions_isMeasuredAnew();
    void paint_fontChanged_isLikeThatOfANewHeader();
    void paint_paletteChanged_followsIt();
    void paint_doubleResolution_isSharp();
};

void tst_HeaderPainting::plain_facesAndSpace_matchTheRules()
{
    Header header({100, 80});
    QPixmap expected = blank(header);
    QPainter p(&expected);
    drawPlainFace(p, coords(0, 0, 100, 23), true);
    drawPlainFace(p, coords(100, 0, 180, 23), false);
    drawPlainSpace(p, coords(181, 0, 299, 23));
    p.end();
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::plain_hotItem_hasTheLightFill()
{
    Header header({100, 80});
    header.setHotTrack(true);
    header.hover(130);
    QPixmap expected = blank(header);
    QPainter p(&expected);
    drawPlainFace(p, coords(0, 0, 100, 23), true);
    drawPlainFace(p, coords(100, 0, 180, 23), false, true);
    drawPlainSpace(p, coords(181, 0, 299, 23));
    p.end();
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::plain_flat_hasLinesAlongBothEdges()
{
    Header header({100, 80});
    header.setFlatView(true);
    QPixmap expected = blank(header);
    QPainter p(&expected);
    drawPlainFace(p, coords(0, 1, 100, 22), true);
    drawPlainFace(p, coords(100, 1, 180, 22), false);
    drawPlainSpace(p, coords(181, 1, 299, 22));
    drawFlatEdges(p, header.rect());
    p.end();
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::plain_vertical_itemsStandBelowEachOther()
{
    Header header({10, 10});
    header.setVert(true);
    header.setFlatView(true);
    QPixmap expected = blank(header);
    QPainter p(&expected);
    drawPlainFace(p, coords(1, 0, 298, 10), true);
    drawPlainFace(p, coords(1, 10, 298, 20), false);
    p.fillRect(0, 0, 1, 23, sys(13));
    p.fillRect(298, 0, 1, 23, sys(11));
    p.end();
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::noItems_theWholeHeader_isSpace_data()
{
    QTest::addColumn<bool>("buttons");
    QTest::addColumn<bool>("flat");
    QTest::addColumn<bool>("vert");
    QTest::newRow("plain") << false << false << false;
    QTest::newRow("plain vertical") << false << false << true;
    QTest::newRow("plain flat") << false << true << false;
    QTest::newRow("plain flat vertical") << false << true << true;
    QTest::newRow("buttons") << true << false << false;
    QTest::newRow("buttons vertical") << true << false << true;
    QTest::newRow("buttons flat") << true << true << false;
    QTest::newRow("buttons flat vertical") << true << true << true;
}

void tst_HeaderPainting::noItems_theWholeHeader_isSpace()
{
    QFETCH(bool, buttons);
    QFETCH(bool, flat);
    QFETCH(bool, vert);
    Header header;
    header.setButtons(buttons);
    header.setFlatView(flat);
    header.setVert(vert);
    QPixmap expected = blank(header);
    KPainter p(&expected);
    QRect space = header.rect();
    if (flat) {
        space = vert ? space.adjusted(1, 0, -1, 0) : space.adjusted(0, 1, 0, -1);
    }
    if (buttons) {
        p.drawItemButton(&space, (flat ? 16 : 0) | (vert ? 8 : 0));
    } else {
        drawPlainSpace(p, space);
    }
    if (flat && vert) {
        p.fillRect(0, 0, 1, 23, sys(13));
        p.fillRect(298, 0, 1, 23, sys(11));
    } else if (flat) {
        drawFlatEdges(p, header.rect());
    }
    p.end();
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::buttons_faces_areThoseOfItemButtons_data()
{
    QTest::addColumn<bool>("flat");
    QTest::addColumn<bool>("hot");
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<bool>("vert");
    QTest::newRow("raised") << false << false << false << false;
    QTest::newRow("hot") << false << true << false << false;
    QTest::newRow("pressed") << false << false << true << false;
    QTest::newRow("hot and pressed") << false << true << true << false;
    QTest::newRow("flat") << true << false << false << false;
    QTest::newRow("flat pressed") << true << false << true << false;
    QTest::newRow("vertical") << false << false << false << true;
    QTest::newRow("vertical flat") << true << false << false << true;
}

void tst_HeaderPainting::buttons_faces_areThoseOfItemButtons()
{
    QFETCH(bool, flat);
    QFETCH(bool, hot);
    QFETCH(bool, pressed);
    QFETCH(bool, vert);
    Header header(vert ? std::vector<int>{8, 8} : std::vector<int>{100, 80});
    header.setButtons(true);
    header.setFlatView(flat);
    header.setVert(vert);
    header.setHotTrack(hot);
    if (hot) {
        header.hover(40);
    }
    if (pressed) {
        header.press(40);
    }
    int const look = (flat ? 16 : 0) | (vert ? 8 : 0);
    QPixmap expected = blank(header);
    KPainter p(&expected);
    if (flat && vert) {
        p.fillRect(0, 0, 1, 23, sys(13));
        p.fillRect(298, 0, 1, 23, sys(11));
    }
    QRect first = header.getItemRect(0);
    p.drawItemButton(&first, look | (hot ? 4 : 0) | (pressed ? 1 : 0));
    QRect second = header.getItemRect(1);
    p.drawItemButton(&second, look);
    QRect space = coords(181, flat ? 1 : 0, 299, flat ? 22 : 23);
    if (!vert) {
        p.drawItemButton(&space, look);
    }
    if (flat && vert) {
        p.fillRect(0, 0, 1, 23, sys(13));
        p.fillRect(298, 0, 1, 23, sys(11));
    } else if (flat) {
        drawFlatEdges(p, header.rect());
    }
    p.end();
    QCOMPARE(image(header.picture()), image(expected));
}

// --- Owner drawn items

void tst_HeaderPainting::ownerDraw_notification_drawsAllOfTheItem()
{
    Header header;
    header.insertItem(
        -1, KHeaderItem("Title", nullptr, HeaderFormatOwnerDraw | HeaderFormatText, 0, 100, 42));
    Recorder recorder;
    QRect given;
    recorder.draw = [&](KPainter * painter, QRect * rect) {
        given = *rect;
        painter->fillRect(10, 5, 3, 3, Qt::red);
    };
    header.setNotification(&recorder);
    QPixmap const picture = header.picture();
    QCOMPARE(recorder.taken(), QStringLiteral("draw 0 0 42"));
    QCOMPARE(given, header.getItemRect(0));
    QCOMPARE(colorAt(picture, 11, 6), QColor(Qt::red));
    QCOMPARE(colorAt(picture, 99, 5), header.palette().color(QPalette::Window));
    header.setButtons(true);
    header.press(50);
    recorder.taken();
    header.picture();
    QCOMPARE(recorder.taken(), QStringLiteral("draw 0 1 42"));
    header.setNotification(nullptr);
}

void tst_HeaderPainting::ownerDraw_withoutNotification_isDrawnAsUsual()
{
    Header header;
    header.addItem("Title", 100);
    QImage const usual = image(header.picture());
    header.setFormat(0, HeaderFormatOwnerDraw | HeaderFormatText);
    QCOMPARE(image(header.picture()), usual);
}

void tst_HeaderPainting::ownerDraw_deletesItems_isSurvived()
{
    Header header({50, 50, 50}, HeaderFormatOwnerDraw);
    Recorder recorder;
    recorder.draw = [&](KPainter *, QRect *) { header.deleteItem(1); };
    header.setNotification(&recorder);
    header.picture();
    QCOMPARE(header.getItemsCount(), 1);
    recorder.draw = [&](KPainter *, QRect *) { header.deleteAllItems(); };
    header.picture();
    QCOMPARE(header.getItemsCount(), 0);
    header.setNotification(nullptr);
}

void tst_HeaderPainting::ownerDraw_painterState_isRestored()
{
    Header header({50}, HeaderFormatOwnerDraw);
    header.addItem("Title", 100);
    QImage const usual = image(header.picture());
    Recorder recorder;
    recorder.draw = [&](KPainter * painter, QRect * rect) {
        drawPlainFace(*painter, *rect, true);
        painter->translate(30, 3);
        painter->setOpacity(0.1);
        QFont font;
        font.setPixelSize(40);
        painter->setFont(font);
    };
    header.setNotification(&recorder);
    QCOMPARE(image(header.picture()), usual);
    header.setNotification(nullptr);
}

// --- Nothing stale

void tst_HeaderPainting::fit_sameConditions_isMeasuredOnce()
{
    KHeaderItem const item("Title", nullptr, HeaderFormatText, 0, 100, 0);
    QPixmap first(10, 10);
    QPixmap second(50, 50);
    KPainter p(&first);
    KPainter q(&second);
    HeaderTextFit const * const fit = &HeaderItemPainting::fit(item, p, 90);
    QCOMPARE(fit->shown, QStringLiteral("Title"));
    QCOMPARE(&HeaderItemPainting::fit(item, p, 90), fit);
    QCOMPARE(&HeaderItemPainting::fit(item, q, 90), fit);
    KHeaderItem const copy(item);
    QCOMPARE(&HeaderItemPainting::fit(copy, p, 90), fit);
}

void tst_HeaderPainting::fit_changedConditions_isMeasuredAnew()
{
    KHeaderItem const item("Some title", nullptr, HeaderFormatText, 0, 100, 0);
    QPixmap pixmap(10, 10);
    KPainter p(&pixmap);
    int const width = HeaderItemPainting::fit(item, p, 1000).textWidth;
    QVERIFY(HeaderItemPainting::fit(item, p, width / 2).textWidth < width);
    QFont font = p.font();
    font.setPixelSize(70);
    p.setFont(font);
    QVERIFY(HeaderItemPainting::fit(item, p, 1000).textWidth > width);
    p.end();
    pixmap.setDevicePixelRatio(2);
    KPainter q(&pixmap);
    QCOMPARE(HeaderItemPainting::fit(item, q, 1000).pixelRatio, 2.0);
}

void tst_HeaderPainting::paint_fontChanged_isLikeThatOfANewHeader()
{
    Header header;
    header.addItem("Some title", 60);
    header.picture();
    QFont font = header.font();
    font.setPixelSize(17);
    font.setBold(true);
    header.setFont(font, true);
    Header fresh;
    fresh.setFont(font, true);
    fresh.addItem("Some title", 60);
    QCOMPARE(image(header.picture()), image(fresh.picture()));
    header.setText(0, "Other");
    fresh.deleteAllItems();
    fresh.addItem("Other", 60);
    QCOMPARE(image(header.picture()), image(fresh.picture()));
}

void tst_HeaderPainting::paint_paletteChanged_followsIt()
{
    QWidget window;
    auto * const header = new TestHeader(&window);
    header->setGeometry(0, 0, 300, barHeight);
    header->addItems({100}, 0);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    header->painted = QRegion();
    QPalette const before = QApplication::palette();
    QPalette other = before;
    other.setColor(QPalette::Button, Qt::green);
    QApplication::setPalette(other);
    bool const painted =
        QTest::qWaitFor([&] { return header->painted.boundingRect() == header->rect(); });
    QPixmap const picture = header->grab();
    QApplication::setPalette(before);
    QVERIFY(painted);
    QCOMPARE(colorAt(picture, 50, 10), QColor(Qt::green));
}

void tst_HeaderPainting::paint_doubleResolution_isSharp()
{
    Header header({100, 80});
    header.addItem("Title", 100);
    QPixmap picture(header.size() * 2);
    picture.setDevicePixelRatio(2);
    header.render(&picture);
    QImage const sharp = image(picture);
    QCOMPARE(sharp.pixel(198, 10), sys(11).rgb());
    QCOMPARE(sharp.pixel(199, 10), sys(11).rgb());
    QCOMPARE(sharp.pixel(200, 10), sys(13).rgb());
    QCOMPARE(sharp.pixel(197, 10), sys(1).rgb());
}

void tst_HeaderPainting::paint_partExposed_drawsOnlyTheItemsInIt()
{
    ShownHeader shown;
    shown.header->addItems({50, 50, 50}, HeaderFormatOwnerDraw);
    QVERIFY(shown.show());
    paintPending();
    shown.recorder.taken();
    shown.header->update(QRect(60, 2, 10, 5), false);
    paintPending();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("draw 1 0 0"));
}

ZENU_TEST(tst_HeaderPainting)
#include "tst_HeaderPainting.moc"
