#include "tests/support/TestMain.h"

#include <zenu/grid/geometry/TextLine.h>

#include <QFontDatabase>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>

#include <cmath>

using namespace zenu;

namespace {

QImage canvas(qreal ratio)
{
    QSize const size(static_cast<int>(std::ceil(260 * ratio)),
                     static_cast<int>(std::ceil(60 * ratio)));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

QFont randomFont(QRandomGenerator & random, QStringList const & families)
{
    QFont font(families.at(random.bounded(families.size())), random.bounded(6, 18));
    font.setBold(random.bounded(4) == 0);
    font.setItalic(random.bounded(4) == 0);
    font.setUnderline(random.bounded(6) == 0);
    font.setStrikeOut(random.bounded(8) == 0);
    return font;
}

QString randomText(QRandomGenerator & random, int maxLength)
{
    QString text;
    int const length = random.bounded(1, maxLength);
    int const kind = random.bounded(4);
    for (int i = 0; i < length; ++i) {
        int const letter =
            kind == 0 ? random.bounded(1, 256)
                      : (kind == 1 ? random.bounded(0xa0, 0x100) : random.bounded(0x20, 0x7f));
        text += QChar(letter);
    }
    return random.bounded(5) == 0 ? QStringLiteral("  office AVATAR fi \t ffl  ") : text;
}

Qt::Alignment randomAlignment(QRandomGenerator & random)
{
    Qt::Alignment const across[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    Qt::Alignment const down[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignVCenter,
                                  Qt::AlignBottom};
    return across[random.bounded(3)] | down[random.bounded(4)];
}

} // namespace

class tst_TextLine : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void draw_picture_isThatOfDrawText_data();
    void draw_picture_isThatOfDrawText();
    void draw_moved_samePictureEachTime();
    void draw_emptyTextOrRectangle_drawsNothing();
    void draw_painterFontAndClip_stayAsTheyWere();
    void size_isThatOfFontMetrics();
};

void tst_TextLine::draw_picture_isThatOfDrawText_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void tst_TextLine::draw_picture_isThatOfDrawText()
{
    QFETCH(qreal, ratio);
    QStringList const families = QFontDatabase::families();
    QRandomGenerator random(11);
    for (int round = 0; round < 800; ++round) {
        QFont const font = round % 2 == 0 ? QFont() : randomFont(random, families);
        QString const text = randomText(random, 25);
        QRect const rect(random.bounded(20) - 2, random.bounded(20), random.bounded(20, 220),
                         random.bounded(12, 40));
        QPoint const origin(random.bounded(7), -random.bounded(5));
        Qt::Alignment const alignment = randomAlignment(random);
        QImage expected = canvas(ratio);
        {
            QPainter painter(&expected);
            painter.translate(origin);
            painter.setFont(font);
            painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, text);
        }
        QImage actual = canvas(ratio);
        {
            QPainter painter(&actual);
            painter.translate(origin);
            TextLine(font, text).draw(&painter, rect, alignment);
        }
        QVERIFY2(actual == expected,
                 qPrintable(QStringLiteral("round %1 %2 '%3'").arg(round).arg(font.key(), text)));
    }
}

void tst_TextLine::draw_moved_samePictureEachTime()
{
    TextLine const line(QFont(), QStringLiteral("moved about"));
    for (int const x : {0, 100, 13, 100}) {
        QImage expected = canvas(1.25);
        QImage actual = canvas(1.25);
        QPainter expectedPainter(&expected);
        QPainter painter(&actual);
        QRect const rect(x, 5, 120, 20);
        expectedPainter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, line.text());
        line.draw(&painter, rect, Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(actual, expected);
    }
}

void tst_TextLine::draw_emptyTextOrRectangle_drawsNothing()
{
    QImage image = canvas(1);
    QPainter painter(&image);
    TextLine().draw(&painter, QRect(0, 0, 50, 20), Qt::AlignLeft);
    TextLine const line(QFont(), QStringLiteral("text"));
    line.draw(&painter, QRect(), Qt::AlignLeft);
    line.draw(&painter, QRect(QPoint(20, 2), QPoint(10, 15)), Qt::AlignLeft);
    painter.end();
    QCOMPARE(image, canvas(1));
}

void tst_TextLine::draw_painterFontAndClip_stayAsTheyWere()
{
    QImage image = canvas(1);
    QPainter painter(&image);
    QFont const other(QStringLiteral("DejaVu Serif"), 20);
    painter.setFont(other);
    TextLine(QFont(), QStringLiteral("one\x9ctwo"))
        .draw(&painter, QRect(0, 0, 9, 9), Qt::AlignLeft);
    TextLine(QFont(), QStringLiteral("three")).draw(&painter, QRect(0, 0, 9, 9), Qt::AlignLeft);
    QCOMPARE(painter.font(), other);
    QVERIFY(!painter.hasClipping());
}

void tst_TextLine::size_isThatOfFontMetrics()
{
    QStringList const families = QFontDatabase::families();
    QRandomGenerator random(12);
    for (int round = 0; round < 1000; ++round) {
        QFont const font = randomFont(random, families);
        QString const text = randomText(random, 60);
        TextLine const line(font, text);
        QCOMPARE(line.size(), QFontMetrics(font).size(Qt::TextSingleLine, text));
        line.release();
        QCOMPARE(line.size(), QFontMetrics(font).size(Qt::TextSingleLine, text));
    }
    QCOMPARE(TextLine().size(), QSize(0, 0));
}

ZENU_TEST(tst_TextLine)
#include "tst_TextLine.moc"
