#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <zenu/header/inner/HeaderPainting.h>
#include <zenu/overlay/KPainter.h>
#include <zenu/widgets/KPixmapSet.h>

using namespace zenu;
using zenutest::Recorder;
using zenutest::TestHeader;

class tst_HeaderPainting : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void plain_facesAndSpace_matchTheRules();
    void plain_hotItem_hasTheLightFill();
    void plain_flat_hasLinesAlongBothEdges();
    void plain_vertical_itemsStandBelowEachOther();
    void buttons_faces_areThoseOfItemButtons_data();
    void buttons_faces_areThoseOfItemButtons();
    void item_withoutTextAndBitmap_showsOnlyItsBackground();
    void item_textFormatAndBitmapUnset_drawsNoBitmap();
    void text_justified_standsWhereTheTableSays_data();
    void text_justified_standsWhereTheTableSays();
    void text_tooWide_isCutWithDots();
    void text_narrowerThanTheDots_showsOneCharacterAndDots();
    void text_ofHotItem_hasTheHotColours();
    void text_latin1_isShown();
    void image_beside_text_standsWhereTheTableSays_data();
    void image_beside_text_standsWhereTheTableSays();
    void image_higherThanItem_isCut();
    void bitmap_justified_standsInside_data();
    void bitmap_justified_standsInside();
    void bitmap_largerThanItem_isCutNotScaled();
    void bitmap_nullPointer_fallsBackToText();
    void bitmap_hotItemWithoutHotBitmaps_showsThePlainOne();
    void arrow_inButtonModeOnly_isShown();
    void arrow_eachJustify_standsWhereTheRuleSays_data();
    void arrow_eachJustify_standsWhereTheRuleSays();
    void arrow_pressedItem_movesDownAndTextDoesNot();
    void arrow_hotItem_fallsBackToTheSortPixmap();
    void arrow_noRoom_isLeftOut();
    void ownerDraw_notification_drawsAllOfTheItem();
    void ownerDraw_withoutNotification_isDrawnAsUsual();
    void ownerDraw_deletesItems_isSurvived();
    void ownerDraw_painterState_isRestored();
    void fit_sameConditions_isMeasuredOnce();
    void fit_changedConditions_isMeasuredAnew();
    void paint_fontChanged_isLikeThatOfANewHeader();
    void paint_paletteChanged_followsIt();
    void paint_doubleResolution_isSharp();
};

namespace {

constexpr int barHeight = 24;

struct Header : TestHeader
{
    explicit Header(std::vector<int> const & widths = {}, int fmt = 0, int width = 300)
    {
        resize(width, barHeight);
        addItems(widths, fmt);
    }

    void addItem(char const * text, int wh, int fmt = HeaderFormatText)
    {
        insertItem(-1, KHeaderItem(text, nullptr, fmt, 0, wh, 0));
    }

    // The header is never shown, so its events come directly.
    void hover(int x)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, 10), mapToGlobal(QPointF(x, 10)),
                          Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &event);
    }
    void press(int x) { QTest::mousePress(this, Qt::LeftButton, {}, QPoint(x, 10)); }
    QPixmap picture() { return grab(); }
};

QImage image(QPixmap const & pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

// As large as a grab of the widget.
QPixmap blank(QWidget const & widget)
{
    qreal const ratio = widget.devicePixelRatio();
    QPixmap pixmap((QSizeF(widget.size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(widget.palette().color(QPalette::Window));
    return pixmap;
}

// The colour in the middle of a logical pixel.
QColor colorAt(QPixmap const & pixmap, int x, int y)
{
    qreal const ratio = pixmap.devicePixelRatio();
    return image(pixmap).pixelColor(int((x + 0.5) * ratio), int((y + 0.5) * ratio));
}

// Between device pixels the edge of a pixmap is placed otherwise than that of a fill.
bool isFractional(QWidget const & widget)
{
    return widget.devicePixelRatio() != qRound(widget.devicePixelRatio());
}

QColor sys(int number)
{
    return KPainter::getSysColor(number);
}

QRect coords(int left, int top, int right, int bottom)
{
    QRect rect;
    rect.setCoords(left, top, right, bottom);
    return rect;
}

void drawPlainFace(QPainter & p, QRect const & r, bool first, bool hot = false)
{
    int const w = r.right() - r.left();
    int const h = r.bottom() - r.top();
    p.fillRect(r.left(), r.top(), w, h, hot ? KPainter::getSysColor_Light(true) : sys(1));
    p.fillRect(r.left(), r.bottom() - 1, w, 1, sys(13));
    p.fillRect(r.left(), r.bottom() - 2, w - 1, 1, sys(11));
    p.fillRect(r.right() - 1, r.top(), 1, h - 1, sys(11));
    if (!first) {
        p.fillRect(r.left(), r.top(), 1, h, sys(13));
    }
}

void drawPlainSpace(QPainter & p, QRect const & r)
{
    int const w = r.right() - r.left();
    int const h = r.bottom() - r.top();
    p.fillRect(r.left(), r.top(), w, h, sys(1));
    p.fillRect(r.left(), r.top(), 1, h, sys(13));
    p.fillRect(r.left() + 1, r.bottom() - 1, w - 1, r.bottom() - 1, sys(13));
    p.fillRect(r.left() + 1, r.bottom() - 2, w - 1, 1, sys(11));
    p.fillRect(r.right() - 1, r.top(), 1, h - 2, sys(11));
}

void drawFlatEdges(QPainter & p, QRect const & all)
{
    p.fillRect(1, 0, all.right(), 1, sys(13));
    p.fillRect(0, all.bottom() - 1, all.right(), 1, sys(11));
}

// Draws a text as an item does, into the picture of one without text.
void drawTitle(QPixmap & picture, Header const & header, QRect const & rect, int alignment,
               char const * text, QColor const & color)
{
    QPainter p(&picture);
    p.setFont(header.getfont());
    p.setPen(color);
    p.drawText(rect, alignment | Qt::AlignVCenter | Qt::TextSingleLine, QString::fromLatin1(text));
}

int titleWidth(Header const & header, char const * text)
{
    QPixmap pixmap = blank(header);
    QPainter p(&pixmap);
    p.setFont(header.getfont());
    QRect const bounds =
        p.boundingRect(QRect(), Qt::AlignVCenter | Qt::TextSingleLine, QString::fromLatin1(text));
    return bounds.right() - bounds.left();
}

QPixmap filled(int w, int h, QColor const & color)
{
    QPixmap pixmap(w, h);
    pixmap.fill(color);
    return pixmap;
}

// Content of a plain item: one pixel less above and below, three at the sides.
QRect plainContent(Header const & header, int index)
{
    return header.getItemRect(index).adjusted(3, 1, -3, -1);
}

} // namespace

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

void tst_HeaderPainting::item_withoutTextAndBitmap_showsOnlyItsBackground()
{
    for (bool const buttons : {false, true}) {
        Header bare;
        QPixmap const pixmap = filled(8, 8, Qt::red);
        bare.insertItem(-1, KHeaderItem("Title", const_cast<QPixmap *>(&pixmap), 0, 0, 100, 0));
        bare.setButtons(buttons);
        Header empty;
        empty.addItem("", 100);
        empty.setButtons(buttons);
        QCOMPARE(image(bare.picture()), image(empty.picture()));
    }
}

void tst_HeaderPainting::item_textFormatAndBitmapUnset_drawsNoBitmap()
{
    Header header({100});
    QPixmap const before = header.picture();
    QPixmap pixmap = filled(8, 8, Qt::red);
    header.setPixmap(0, &pixmap);
    QCOMPARE(image(header.picture()), image(before));
}

void tst_HeaderPainting::text_justified_standsWhereTheTableSays_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<int>("alignment");
    QTest::newRow("left") << 1 << int(Qt::AlignLeft);
    QTest::newRow("right") << 2 << int(Qt::AlignRight);
    QTest::newRow("centre") << 4 << int(Qt::AlignHCenter);
    QTest::newRow("3: no horizontal flag") << 3 << 0;
    QTest::newRow("0: no horizontal flag") << 0 << 0;
}

void tst_HeaderPainting::text_justified_standsWhereTheTableSays()
{
    QFETCH(int, justify);
    QFETCH(int, alignment);
    Header header({100, 120});
    header.setText(1, "Title");
    QPixmap expected = header.picture();
    drawTitle(expected, header, plainContent(header, 1), alignment, "Title", header.getTextColor());
    header.setFormat(1, HeaderFormatText);
    header.setJustify(1, EHeaderJustify(justify));
    QCOMPARE(image(header.picture()), image(expected));
    header.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::text_tooWide_isCutWithDots()
{
    char const * const title = "A title that is far too long for its item";
    Header header({90});
    QRect const content = plainContent(header, 0);
    QFontMetrics const metrics(header.getfont(), &header);
    QString cut;
    int const available = content.right() - content.left();
    for (int n = int(qstrlen(title)); n > 0; --n) {
        cut = QString::fromLatin1(title, n) + QStringLiteral("...");
        QRect const bounds = metrics.boundingRect(cut);
        if (bounds.right() - bounds.left() < available) {
            break;
        }
    }
    QVERIFY(cut.size() > 5 && cut.size() < int(qstrlen(title)));
    QPixmap expected = header.picture();
    drawTitle(expected, header, content, Qt::AlignLeft, cut.toLatin1().constData(),
              header.getTextColor());
    header.setText(0, title);
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::text_narrowerThanTheDots_showsOneCharacterAndDots()
{
    Header header({13});
    QPixmap expected = header.picture();
    drawTitle(expected, header, plainContent(header, 0), Qt::AlignLeft, "W...",
              header.getTextColor());
    header.setText(0, "Wide");
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::text_ofHotItem_hasTheHotColours()
{
    Header header({100});
    header.setHotTrack(true);
    header.setButtons(true);
    header.setText(0, "Title");
    header.hover(50);
    QRect const content = header.getItemRect(0).adjusted(3, 1, -3, -1);
    QPixmap hot = header.picture();
    drawTitle(hot, header, content, Qt::AlignLeft, "Title", sys(6));
    header.press(50);
    QPixmap hotPressed = header.picture();
    drawTitle(hotPressed, header, content, Qt::AlignLeft, "Title", sys(8));
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(hotPressed));
    QTest::mouseRelease(&header, Qt::LeftButton, {}, QPoint(50, 10));
    QCOMPARE(image(header.picture()), image(hot));
}

void tst_HeaderPainting::text_latin1_isShown()
{
    Header header({100});
    QPixmap expected = header.picture();
    drawTitle(expected, header, plainContent(header, 0), Qt::AlignLeft,
              "Gr\xf6\xdf"
              "e",
              header.getTextColor());
    header.setText(0, "Gr\xf6\xdf"
                      "e");
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::image_beside_text_standsWhereTheTableSays_data()
{
    QTest::addColumn<int>("justify");
    QTest::newRow("left") << 1;
    QTest::newRow("right") << 2;
    QTest::newRow("centre") << 4;
    QTest::newRow("other: the text has no offset") << 3;
}

void tst_HeaderPainting::image_beside_text_standsWhereTheTableSays()
{
    QFETCH(int, justify);
    QPixmap strip = filled(20, 10, Qt::blue);
    QPainter(&strip).fillRect(10, 0, 10, 10, Qt::red);
    KPixmapSet images(strip, QSize(10, 10), 2, false);
    Header header({150});
    header.setPixmapSet(&images);
    QPixmap expected = header.picture();
    QRect const content = plainContent(header, 0);
    int const w = 10;
    int const t = titleWidth(header, "Title");
    int const width = content.right() - content.left();
    int imageX = content.left();
    QRect textRect = content;
    int alignment = 0;
    if (justify == 1) {
        textRect.setLeft(content.left() + w + 5);
        alignment = Qt::AlignLeft;
    } else if (justify == 2) {
        imageX = content.right() - 5 - t - w;
        textRect.setLeft(content.right() - t);
        alignment = Qt::AlignRight;
    } else if (justify == 4) {
        imageX = content.left() + (width - 5 - t - w) / 2;
        textRect.setLeft(imageX + w + 5);
        alignment = Qt::AlignLeft;
    }
    int const y = content.top() + (content.bottom() - content.top() - 10) / 2;
    QPainter(&expected).fillRect(imageX, y, 10, 10, Qt::red);
    drawTitle(expected, header, textRect, alignment, "Title", header.getTextColor());
    header.setText(0, "Title");
    header.setJustify(0, EHeaderJustify(justify));
    header.setImage(0, 1);
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::image_higherThanItem_isCut()
{
    KPixmapSet images(filled(10, 80, Qt::red), QSize(10, 80), 1, false);
    Header header({100});
    if (isFractional(header)) {
        QSKIP("compares the edges of pixmaps with those of fills");
    }
    header.setPixmapSet(&images);
    header.setText(0, "");
    QPixmap expected = header.picture();
    QRect const content = plainContent(header, 0);
    QPainter(&expected).fillRect(content.left(), content.top(), 10,
                                 content.bottom() - content.top(), Qt::red);
    header.setImage(0, 0);
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::bitmap_justified_standsInside_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<int>("x");
    // Content of a bitmap item from 0 to 100: from 1 to 99.
    QTest::newRow("left") << 1 << 1;
    QTest::newRow("right") << 2 << 99 - 12 - 1;
    QTest::newRow("centre") << 4 << (1 + 99 - 12) / 2;
    QTest::newRow("other") << 3 << 1;
}

void tst_HeaderPainting::bitmap_justified_standsInside()
{
    QFETCH(int, justify);
    QFETCH(int, x);
    QPixmap pixmap = filled(12, 8, Qt::red);
    Header header({100});
    QPixmap expected = header.picture();
    QPainter(&expected).fillRect(x, (1 + 22 - 8) / 2, 12, 8, Qt::red);
    header.setPixmap(0, &pixmap);
    header.setJustify(0, EHeaderJustify(justify));
    header.setFormat(0, HeaderFormatBitmap | HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::bitmap_largerThanItem_isCutNotScaled()
{
    QPixmap pixmap = filled(300, 300, Qt::red);
    QPainter(&pixmap).fillRect(0, 0, 5, 5, Qt::blue);
    Header header({40});
    if (isFractional(header)) {
        QSKIP("compares the edges of pixmaps with those of fills");
    }
    QPixmap expected = header.picture();
    QPainter p(&expected);
    p.fillRect(1, 1, 38, 21, Qt::red);
    p.fillRect(1, 1, 5, 5, Qt::blue);
    p.end();
    header.setPixmap(0, &pixmap);
    header.setFormat(0, HeaderFormatBitmap);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::bitmap_nullPointer_fallsBackToText()
{
    Header header({100});
    header.setText(0, "Title");
    QPixmap expected = header.picture();
    drawTitle(expected, header, header.getItemRect(0).adjusted(1, 1, -1, -1), Qt::AlignLeft,
              "Title", header.getTextColor());
    header.setFormat(0, HeaderFormatBitmap | HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::bitmap_hotItemWithoutHotBitmaps_showsThePlainOne()
{
    QPixmap pixmap = filled(12, 8, Qt::red);
    Header header({100}, HeaderFormatBitmap);
    header.setPixmap(0, &pixmap);
    header.setButtons(true);
    header.setHotTrack(true);
    header.hover(50);
    QCOMPARE(colorAt(header.picture(), 5, 10), QColor(Qt::red));
    header.press(50);
    QCOMPARE(colorAt(header.picture(), 5, 10), QColor(Qt::red));
}

void tst_HeaderPainting::arrow_inButtonModeOnly_isShown()
{
    Header header;
    header.addItem("Title", 120);
    QPixmap const plain = header.picture();
    header.setSortBitmap(0, HeaderSortFirst);
    QCOMPARE(image(header.picture()), image(plain));
    header.setButtons(true);
    QPixmap const up = header.picture();
    header.setSortBitmap(0, HeaderSortSecond);
    QPixmap const down = header.picture();
    header.setSortBitmap(0, HeaderSortNone);
    QPixmap const none = header.picture();
    QVERIFY(image(up) != image(none));
    QVERIFY(image(down) != image(none));
    QVERIFY(image(up) != image(down));
}

void tst_HeaderPainting::arrow_eachJustify_standsWhereTheRuleSays_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<bool>("up");
    for (int const justify : {1, 2, 4, 3}) {
        QTest::addRow("up %d", justify) << justify << true;
        QTest::addRow("down %d", justify) << justify << false;
    }
}

void tst_HeaderPainting::arrow_eachJustify_standsWhereTheRuleSays()
{
    QFETCH(int, justify);
    QFETCH(bool, up);
    Header header({150});
    header.setButtons(true);
    QPixmap expected = header.picture();
    QRect const content = header.getItemRect(0).adjusted(3, 1, -3, -1);
    int const t = titleWidth(header, "Title");
    QRect textRect = content;
    int alignment = 0;
    int x = -100;
    if (justify == 1) {
        alignment = Qt::AlignLeft;
        x = content.left() + t + 5;
    } else if (justify == 2) {
        alignment = Qt::AlignRight;
        x = content.right() - t - 15;
    } else if (justify == 4) {
        alignment = Qt::AlignHCenter;
        textRect.setRight(content.right() - 13);
        x = textRect.right() + 5 - (textRect.right() - textRect.left() - t) / 2;
    }
    drawTitle(expected, header, textRect, alignment, "Title", header.getTextColor());
    int const y = content.top() + (content.bottom() - content.top() - 8) / 2;
    QPainter p(&expected);
    p.drawPixmap(x, y, header.getSortPixmap(), up ? 0 : 8, 0, 8, 8);
    p.end();
    header.setText(0, "Title");
    header.setJustify(0, EHeaderJustify(justify));
    header.setFormat(0, HeaderFormatText);
    header.setSortBitmap(0, up ? HeaderSortFirst : HeaderSortSecond);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::arrow_pressedItem_movesDownAndTextDoesNot()
{
    Header header({150});
    header.setButtons(true);
    header.press(75);
    QPixmap expected = header.picture();
    QRect const content = header.getItemRect(0).adjusted(3, 1, -3, -1);
    drawTitle(expected, header, content, Qt::AlignLeft, "Title", header.getTextColor());
    int const y = content.top() + (content.bottom() - content.top() - 8) / 2;
    QPainter p(&expected);
    p.drawPixmap(content.left() + titleWidth(header, "Title") + 5, y + 1, header.getSortPixmap(), 0,
                 0, 8, 8);
    p.end();
    header.setText(0, "Title");
    header.setFormat(0, HeaderFormatText | HeaderFormatSortFirst);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderPainting::arrow_hotItem_fallsBackToTheSortPixmap()
{
    Header header;
    header.addItem("Title", 120);
    header.setButtons(true);
    header.setHotTrack(true);
    header.hover(60);
    QImage const without = image(header.picture());
    header.setSortBitmap(0, HeaderSortFirst);
    QVERIFY(image(header.picture()) != without);
}

void tst_HeaderPainting::arrow_noRoom_isLeftOut()
{
    for (EHeaderJustify const justify :
         {HeaderJustifyLeft, HeaderJustifyRight, HeaderJustifyCenter}) {
        Header header;
        header.addItem("Title", titleWidth(header, "Title") + 6 + 12);
        header.setButtons(true);
        header.setJustify(0, justify);
        QImage const without = image(header.picture());
        header.setSortBitmap(0, HeaderSortFirst);
        QCOMPARE(image(header.picture()), without);
    }
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

ZENU_TEST(tst_HeaderPainting)
#include "tst_HeaderPainting.moc"
