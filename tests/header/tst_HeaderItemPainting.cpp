#include "tests/header/HeaderPictures.h"
#include "tests/support/TestMain.h"

#include <zenu/widgets/KPixmapSet.h>

using namespace zenu;
using namespace zenutest;

class tst_HeaderItemPainting : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void item_withoutTextAndBitmap_showsOnlyItsBackground();
    void item_narrowerThanItsMargins_showsOnlyItsBackground();
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
    void arrow_besideAnImage_standsBehindTheText_data();
    void arrow_besideAnImage_standsBehindTheText();
    void arrow_pressedItem_movesDownAndTextDoesNot();
    void arrow_hotItem_fallsBackToTheSortPixmap();
    void arrow_noRoom_isLeftOut();
};

void tst_HeaderItemPainting::item_withoutTextAndBitmap_showsOnlyItsBackground()
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

void tst_HeaderItemPainting::item_textFormatAndBitmapUnset_drawsNoBitmap()
{
    Header header({100});
    QPixmap const before = header.picture();
    QPixmap pixmap = filled(8, 8, Qt::red);
    header.setPixmap(0, &pixmap);
    QCOMPARE(image(header.picture()), image(before));
}

void tst_HeaderItemPainting::text_justified_standsWhereTheTableSays_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<int>("alignment");
    QTest::newRow("left") << 1 << int(Qt::AlignLeft);
    QTest::newRow("right") << 2 << int(Qt::AlignRight);
    QTest::newRow("centre") << 4 << int(Qt::AlignHCenter);
    QTest::newRow("3: no horizontal flag") << 3 << 0;
    QTest::newRow("0: no horizontal flag") << 0 << 0;
}

void tst_HeaderItemPainting::text_justified_standsWhereTheTableSays()
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

void tst_HeaderItemPainting::text_tooWide_isCutWithDots()
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

void tst_HeaderItemPainting::text_narrowerThanTheDots_showsOneCharacterAndDots()
{
    Header header({13});
    QPixmap expected = header.picture();
    drawTitle(expected, header, plainContent(header, 0), Qt::AlignLeft, "W...",
              header.getTextColor());
    header.setText(0, "Wide");
    header.setFormat(0, HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderItemPainting::text_ofHotItem_hasTheHotColours()
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

void tst_HeaderItemPainting::text_latin1_isShown()
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

void tst_HeaderItemPainting::image_beside_text_standsWhereTheTableSays_data()
{
    QTest::addColumn<int>("justify");
    QTest::newRow("left") << 1;
    QTest::newRow("right") << 2;
    QTest::newRow("centre") << 4;
    QTest::newRow("other: the text has no offset") << 3;
}

void tst_HeaderItemPainting::image_beside_text_standsWhereTheTableSays()
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

void tst_HeaderItemPainting::image_higherThanItem_isCut()
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

void tst_HeaderItemPainting::bitmap_justified_standsInside_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<int>("x");
    // Content of a bitmap item from 0 to 100: from 1 to 99.
    QTest::newRow("left") << 1 << 1;
    QTest::newRow("right") << 2 << 99 - 12 - 1;
    QTest::newRow("centre") << 4 << (1 + 99 - 12) / 2;
    QTest::newRow("other") << 3 << 1;
}

void tst_HeaderItemPainting::bitmap_justified_standsInside()
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

void tst_HeaderItemPainting::bitmap_largerThanItem_isCutNotScaled()
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

void tst_HeaderItemPainting::bitmap_nullPointer_fallsBackToText()
{
    Header header({100});
    header.setText(0, "Title");
    QPixmap expected = header.picture();
    drawTitle(expected, header, header.getItemRect(0).adjusted(1, 1, -1, -1), Qt::AlignLeft,
              "Title", header.getTextColor());
    header.setFormat(0, HeaderFormatBitmap | HeaderFormatText);
    QCOMPARE(image(header.picture()), image(expected));
}

void tst_HeaderItemPainting::bitmap_hotItemWithoutHotBitmaps_showsThePlainOne()
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

void tst_HeaderItemPainting::arrow_inButtonModeOnly_isShown()
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

void tst_HeaderItemPainting::arrow_eachJustify_standsWhereTheRuleSays_data()
{
    QTest::addColumn<int>("justify");
    QTest::addColumn<bool>("up");
    for (int const justify : {1, 2, 4, 3}) {
        QTest::addRow("up %d", justify) << justify << true;
        QTest::addRow("down %d", justify) << justify << false;
    }
}

void tst_HeaderItemPainting::arrow_eachJustify_standsWhereTheRuleSays()
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

void tst_HeaderItemPainting::arrow_pressedItem_movesDownAndTextDoesNot()
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

void tst_HeaderItemPainting::arrow_hotItem_fallsBackToTheSortPixmap()
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

void tst_HeaderItemPainting::arrow_noRoom_isLeftOut()
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

void tst_HeaderItemPainting::item_narrowerThanItsMargins_showsOnlyItsBackground()
{
    KPixmapSet images(filled(10, 10, Qt::red), QSize(10, 10), 1, false);
    QPixmap pixmap = filled(12, 8, Qt::red);
    struct Row
    {
        int format;
        int width; // at which nothing is left between the margins
    };
    for (Row const & row : {Row{HeaderFormatText, 6}, Row{HeaderFormatBitmap, 2}}) {
        for (int const more : {0, 1}) {
            Header header({row.width + more}, row.format == HeaderFormatBitmap ? row.format : 0);
            QImage const background = image(header.picture());
            header.setPixmapSet(&images);
            header.setText(0, "Title");
            header.setImage(0, 0);
            header.setPixmap(0, &pixmap);
            header.setFormat(0, row.format);
            QCOMPARE(image(header.picture()) == background, more == 0);
        }
    }
}

void tst_HeaderItemPainting::arrow_besideAnImage_standsBehindTheText_data()
{
    QTest::addColumn<int>("justify");
    QTest::newRow("left") << 1;
    QTest::newRow("right: the image leaves no room") << 2;
    QTest::newRow("centre") << 4;
}

void tst_HeaderItemPainting::arrow_besideAnImage_standsBehindTheText()
{
    QFETCH(int, justify);
    KPixmapSet images(filled(10, 10, Qt::red), QSize(10, 10), 1, false);
    Header header({200});
    header.setButtons(true);
    header.setPixmapSet(&images);
    QPixmap expected = header.picture();
    QRect const content = header.getItemRect(0).adjusted(3, 1, -3, -1);
    int const t = titleWidth(header, "Title");
    int imageX = content.left();
    QRect textRect = content;
    std::optional<int> arrowX;
    if (justify == 1) {
        textRect.setLeft(content.left() + 10 + 5);
        arrowX = textRect.left() + t + 5;
    } else if (justify == 2) {
        imageX = content.right() - 5 - t - 10;
        textRect.setLeft(content.right() - t);
    } else {
        imageX = content.left() + (content.right() - content.left() - 5 - t - 10) / 2;
        textRect.setLeft(imageX + 10 + 5);
        textRect.setRight(content.right() - 13);
        arrowX = textRect.right() + 5 - (textRect.right() - textRect.left() - t) / 2;
        QVERIFY(*arrowX > textRect.left() + t && *arrowX + 8 < content.right());
    }
    int const alignment = justify == 2 ? int(Qt::AlignRight) : int(Qt::AlignLeft);
    drawTitle(expected, header, textRect, alignment, "Title", header.getTextColor());
    QPainter p(&expected);
    p.fillRect(imageX, content.top() + (content.bottom() - content.top() - 10) / 2, 10, 10,
               Qt::red);
    if (arrowX) {
        p.drawPixmap(*arrowX, content.top() + (content.bottom() - content.top() - 8) / 2,
                     header.getSortPixmap(), 0, 0, 8, 8);
    }
    p.end();
    header.setText(0, "Title");
    header.setImage(0, 0);
    header.setJustify(0, EHeaderJustify(justify));
    header.setFormat(0, HeaderFormatText | HeaderFormatSortFirst);
    QCOMPARE(image(header.picture()), image(expected));
}

ZENU_TEST(tst_HeaderItemPainting)
#include "tst_HeaderItemPainting.moc"
