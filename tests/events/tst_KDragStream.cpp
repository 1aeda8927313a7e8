#include "tests/support/TestMain.h"

#include <zenu/events/KDragStream.h>
#include <zenu/events/KDropStream.h>

#include <QImage>
#include <QMimeData>
#include <QWidget>

using namespace zenu;

namespace {

char const * const type = "application/x-zenu-test";
QString const typeName = QLatin1String(type);

} // namespace

// How a drag with a mouse ends is the matter of tst_RealDrag: the offscreen platform ends every
// drag at once.
class tst_KDragStream : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void effects_haveTheirNumbers();
    void construction_childOfTheSource();
    void construction_pictureIsATransparentPixel();
    void writing_fillsTheByteArray();
    void drag_handsOverWhatWasWritten();
    void drag_nothingWritten_isAnEmptyArray();
    void drag_otherFormatsGoAlong();
    void drag_withoutMimeData_makesIt();
    void drag_nullOrEmptyType_carriesNothing_data();
    void drag_nullOrEmptyType_carriesNothing();
    void drag_nullSource_isNone();
    void realDrag_null_isNone();
    void undraggedStream_diesWithTheSource();
    void dropStream_readsInTheOrderOfWriting();
    void dropStream_otherType_isAtItsEnd();
    void dropStream_nullType_isAtItsEnd();
    void dropStream_outlivesTheSource();
    void dropStream_doesNotWrite();
};

void tst_KDragStream::effects_haveTheirNumbers()
{
    QCOMPARE(int(DropEffect::DropEffectNone), 0);
    QCOMPARE(int(DropEffect::DropEffectCopy), 1);
    QCOMPARE(int(DropEffect::DropEffectMove), 2);
}

void tst_KDragStream::construction_childOfTheSource()
{
    QWidget source;
    auto * const named = new KDragStream(type, &source, "caf\xe9");
    auto * const unnamed = new KDragStream(type, &source, nullptr);
    QCOMPARE(named->parent(), &source);
    QCOMPARE(named->source(), &source);
    QCOMPARE(named->objectName(), QStringLiteral("caf\u00e9"));
    QVERIFY(unnamed->objectName().isEmpty());
    QVERIFY(static_cast<QByteArray &>(*named).isEmpty());
}

void tst_KDragStream::construction_pictureIsATransparentPixel()
{
    QWidget source;
    QDrag plain(&source);
    auto const * const stream = new KDragStream(type, &source, nullptr);
    QImage const picture = stream->pixmap().toImage();
    QCOMPARE(picture.size(), QSize(1, 1));
    QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);
    QCOMPARE(stream->hotSpot(), plain.hotSpot());
}

void tst_KDragStream::writing_fillsTheByteArray()
{
    QWidget source;
    auto * const stream = new KDragStream(type, &source, nullptr);
    *stream << qint32(7) << QStringLiteral("seven") << 7.5;
    QByteArray expected;
    QDataStream plain(&expected, QIODevice::WriteOnly);
    plain << qint32(7) << QStringLiteral("seven") << 7.5;
    QCOMPARE(static_cast<QByteArray &>(*stream), expected);
    QCOMPARE(stream->version(), plain.version());
    QCOMPARE(stream->byteOrder(), QDataStream::BigEndian);
}

void tst_KDragStream::drag_handsOverWhatWasWritten()
{
    QWidget source;
    auto * const stream = new KDragStream(type, &source, nullptr);
    *stream << qint32(0x01020304);
    QCOMPARE(stream->drag(), DropEffect::DropEffectNone);
    QCOMPARE(stream->mimeData()->formats(), QStringList(typeName));
    QCOMPARE(stream->mimeData()->data(typeName), QByteArray("\1\2\3\4"));
}

void tst_KDragStream::drag_nothingWritten_isAnEmptyArray()
{
    QWidget source;
    auto * const stream = new KDragStream(type, &source, nullptr);
    stream->drag();
    QVERIFY(stream->mimeData()->hasFormat(typeName));
    QCOMPARE(stream->mimeData()->data(typeName), QByteArray());
    KDropStream drop(type, *stream->mimeData());
    QVERIFY(drop.atEnd());
}

void tst_KDragStream::drag_otherFormatsGoAlong()
{
    QWidget source;
    auto * const stream = new KDragStream(type, &source, nullptr);
    stream->mimeData()->setText(QStringLiteral("for other programs"));
    *stream << qint8(1);
    stream->drag();
    QCOMPARE(stream->mimeData()->text(), QStringLiteral("for other programs"));
    QCOMPARE(stream->mimeData()->data(typeName), QByteArray("\1"));
}

void tst_KDragStream::drag_withoutMimeData_makesIt()
{
    QWidget source;
    auto * const stream = new KDragStream(type, &source, nullptr);
    stream->setMimeData(nullptr);
    *stream << qint8(1);
    stream->drag();
    QCOMPARE(stream->mimeData()->data(typeName), QByteArray("\1"));
}

void tst_KDragStream::drag_nullOrEmptyType_carriesNothing_data()
{
    QTest::addColumn<bool>("isNull");
    QTest::newRow("null") << true;
    QTest::newRow("empty") << false;
}

void tst_KDragStream::drag_nullOrEmptyType_carriesNothing()
{
    QFETCH(bool, isNull);
    QWidget source;
    auto * const stream = new KDragStream(isNull ? nullptr : "", &source, nullptr);
    *stream << qint32(7);
    QCOMPARE(stream->drag(), DropEffect::DropEffectNone);
    QCOMPARE(stream->mimeData()->formats(), QStringList());
}

void tst_KDragStream::drag_nullSource_isNone()
{
    QPointer<KDragStream> const stream(new KDragStream(type, nullptr, "lonely"));
    *stream << qint32(7);
    QCOMPARE(stream->drag(), DropEffect::DropEffectNone);
    QTRY_VERIFY(!stream);
}

void tst_KDragStream::realDrag_null_isNone()
{
    QCOMPARE(realDrag(nullptr), DropEffect::DropEffectNone);
}

void tst_KDragStream::undraggedStream_diesWithTheSource()
{
    auto source = std::make_unique<QWidget>();
    QPointer<KDragStream> const stream(new KDragStream(type, source.get(), nullptr));
    *stream << QByteArray(100000, 'x');
    source.reset();
    QVERIFY(!stream);
}

void tst_KDragStream::dropStream_readsInTheOrderOfWriting()
{
    QWidget source;
    auto * const stream = new KDragStream(type, &source, nullptr);
    *stream << QStringLiteral("n\u00e4me") << qint64(-5) << QList<int>({1, 2, 3})
            << QRect(1, 2, 3, 4);
    stream->drag();
    KDropStream drop(type, *stream->mimeData());
    QString text;
    qint64 number = 0;
    QList<int> list;
    QRect rect;
    drop >> text >> number >> list >> rect;
    QCOMPARE(text, QStringLiteral("n\u00e4me"));
    QCOMPARE(number, qint64(-5));
    QCOMPARE(list, QList<int>({1, 2, 3}));
    QCOMPARE(rect, QRect(1, 2, 3, 4));
    QVERIFY(drop.atEnd());
    QCOMPARE(drop.status(), QDataStream::Ok);
}

void tst_KDragStream::dropStream_otherType_isAtItsEnd()
{
    QMimeData data;
    data.setData(QStringLiteral("application/x-other"), QByteArray("12345678"));
    KDropStream drop(type, data);
    QVERIFY(drop.atEnd());
    qint32 number = 7;
    drop >> number;
    QCOMPARE(number, 0);
    QCOMPARE(drop.status(), QDataStream::ReadPastEnd);
}

void tst_KDragStream::dropStream_nullType_isAtItsEnd()
{
    QMimeData data;
    data.setText(QStringLiteral("text"));
    KDropStream nullType(nullptr, data);
    KDropStream emptyType("", data);
    QVERIFY(nullType.atEnd());
    QVERIFY(emptyType.atEnd());
}

void tst_KDragStream::dropStream_outlivesTheSource()
{
    auto data = std::make_unique<QMimeData>();
    data->setData(typeName, QByteArray("\0\0\0\7", 4));
    KDropStream drop(type, *data);
    data.reset();
    qint32 number = 0;
    drop >> number;
    QCOMPARE(number, 7);
}

void tst_KDragStream::dropStream_doesNotWrite()
{
    QMimeData data;
    data.setData(typeName, QByteArray("\0\0\0\7", 4));
    KDropStream drop(type, data);
    QVERIFY(drop.device()->isReadable());
    QVERIFY(!drop.device()->isWritable());
}

ZENU_TEST(tst_KDragStream)
#include "tst_KDragStream.moc"
