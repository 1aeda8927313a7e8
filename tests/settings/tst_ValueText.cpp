#include "tests/support/TestMain.h"

#include "StoreFixture.h"

using namespace settingstest;

namespace {

template <typename Value>
void compareAgain(Value const & value)
{
    QString const text = toText(value);
    Value again;
    QVERIFY2(fromText(text, &again), qPrintable(text));
    QVERIFY2(difference(value, again).empty(),
             (difference(value, again) + " differs in " + text.toStdString()).c_str());
    QCOMPARE(toBytes(again), toBytes(value));
    QCOMPARE(toText(again), text);
}

// A text that is no such value leaves the value as it was.
template <typename Value>
void compareRefused(QString const & text, Value const & before)
{
    Value value = before;
    QVERIFY2(!fromText(text, &value), qPrintable(text));
    QVERIFY(difference(value, before).empty());
}

} // namespace

class tst_ValueText : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void randomValues_comeBackExactly_data();
    void randomValues_comeBackExactly();
    void colors_areReadable_data();
    void colors_areReadable();
    void plainValues_areReadable();
    void specialValues_comeBackExactly();
    void stopsThatWereNotSet_areTheSame();
    void otherTexts_areRefused_data();
    void otherTexts_areRefused();
    void sealOfAnotherType_isRefused();
    void damagedSeal_isRefused();
    void bytesThatEndEarly_areRefused();
};

void tst_ValueText::randomValues_comeBackExactly_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 8; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_ValueText::randomValues_comeBackExactly()
{
    QFETCH(unsigned, seed);
    RandomValues random(seed);
    for (int i = 0; i < 100; ++i) {
        compareAgain(random.color());
        compareAgain(random.brush());
        compareAgain(random.pen());
        compareAgain(random.font());
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void tst_ValueText::colors_areReadable_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("opaque") << QColor(255, 128, 0) << "#ff8000";
    QTest::newRow("see-through") << QColor(255, 128, 0, 16) << "#10ff8000";
    QTest::newRow("gone") << QColor(Qt::transparent) << "#00000000";
    QTest::newRow("none") << QColor() << "invalid";
}

void tst_ValueText::colors_areReadable()
{
    QFETCH(QColor, color);
    QFETCH(QString, text);
    QCOMPARE(toText(color), text);
    compareAgain(color);
}

void tst_ValueText::plainValues_areReadable()
{
    QCOMPARE(toText(QPen(QBrush(Qt::red), 1.5, Qt::DashLine, Qt::FlatCap, Qt::RoundJoin)),
             QStringLiteral("DashLine 1.5 FlatCap RoundJoin #ff0000"));
    QCOMPARE(toText(QBrush(QColor(1, 2, 3, 4), Qt::CrossPattern)),
             QStringLiteral("CrossPattern #04010203"));
    QVERIFY(!toText(QPen(Qt::blue)).startsWith(QLatin1String("base64:")));
    QFont font(QStringLiteral("Sans"), 12);
    font.setBold(true);
    QVERIFY2(toText(font).startsWith(QLatin1String("Sans,12,")), qPrintable(toText(font)));
    // A gradient is not said in words.
    QVERIFY(toText(QBrush(QLinearGradient(0, 0, 1, 1))).startsWith(QLatin1String("base64:")));
}

void tst_ValueText::specialValues_comeBackExactly()
{
    compareAgain(QPen());
    compareAgain(QPen(Qt::NoPen));
    compareAgain(QBrush());
    compareAgain(QFont());
    compareAgain(QBrush(QGradient(QGradient::WarmFlame)));
    compareAgain(QPen(QBrush(Qt::red), 0.1 + 0.2));
}

void tst_ValueText::stopsThatWereNotSet_areTheSame()
{
    QLinearGradient const unset(0, 0, 1, 1);
    QLinearGradient set = unset;
    set.setStops({{0, Qt::black}, {1, Qt::white}});
    QVERIFY(unset == set);
    compareAgain(QBrush(unset));
    compareAgain(QBrush(set));
}

void tst_ValueText::otherTexts_areRefused_data()
{
    QTest::addColumn<QString>("text");
    for (char const * text : {"",
                              " ",
                              "true",
                              "7",
                              "#12",
                              "#xyzxyz",
                              "base64:",
                              "base64:????",
                              "base64:AAAAAAAAAAAA",
                              "SolidLine",
                              "SolidLine 1",
                              "SolidLine x FlatCap BevelJoin #ffffff",
                              "SolidLine nan FlatCap BevelJoin #ffffff",
                              "SolidLine inf FlatCap BevelJoin #ffffff",
                              "SolidLine -1 FlatCap BevelJoin #ffffff",
                              "SolidLine 1 FlatCap BevelJoin #ffff",
                              "CustomDashLine 1 FlatCap BevelJoin #ffffff",
                              "LinearGradientPattern #ffffff",
                              "TexturePattern #ffffff",
                              "Sans",
                              "Sans,12",
                              "Sans,12,-1;1",
                              "Sans,12,-1,5,0,0,0,0,0,0,0,0,0,0,0,1;0",
                              "Sans,12,-1,5,400,0,0,0,0,0,0,0,0,0,9999,1;0",
                              "Sans,a,-1,5,400,0,0,0,0,0,0,0,0,0,0,1;0",
                              "Sans,12,-1,5,400,0,0,0,0,0,0,0,0,0,0,1;zz",
                              "Sans,12,-1,5,400,0,0,0,0,0,0,0,0,0,0,1"}) {
        QTest::newRow(text) << QString::fromLatin1(text);
    }
}

void tst_ValueText::otherTexts_areRefused()
{
    QFETCH(QString, text);
    compareRefused(text, QColor(1, 2, 3));
    compareRefused(text, QPen(Qt::red));
    compareRefused(text, QFont(QStringLiteral("Sans"), 9));
    compareRefused(text, QBrush(Qt::red));
}

void tst_ValueText::sealOfAnotherType_isRefused()
{
    QString const brush = toText(QBrush(QLinearGradient(0, 0, 1, 1)));
    compareRefused(brush, QPen(Qt::red));
    compareRefused(brush, QColor(1, 2, 3));
    compareRefused(brush, QFont(QStringLiteral("Sans"), 9));
}

void tst_ValueText::damagedSeal_isRefused()
{
    QString const whole = toText(QBrush(QLinearGradient(0, 0, 1, 1)));
    QBrush const before(Qt::red);
    for (qsizetype i = 0; i < whole.size(); ++i) {
        if (i + 2 < whole.size()) { // the padding may be missing
            compareRefused(whole.left(i), before);
        }
        QString other = whole;
        other[i] = other[i] == QLatin1Char('A') ? QLatin1Char('B') : QLatin1Char('A');
        // The last letter may hold bits that say nothing.
        QBrush value = before;
        QVERIFY(!fromText(other, &value) || i + 3 >= whole.size());
    }
}

void tst_ValueText::bytesThatEndEarly_areRefused()
{
    RandomValues random(7);
    for (int i = 0; i < 300; ++i) {
        QBrush brush = random.brush();
        QByteArray const bytes = toBytes(brush);
        QBrush again;
        QVERIFY(!fromBytes(bytes.left(random.upTo(int(bytes.size()))), &again));
        QVERIFY(!fromBytes(bytes + 'x', &again));
        QByteArray const fontBytes = toBytes(random.font());
        QFont font;
        QVERIFY(!fromBytes(fontBytes.left(random.upTo(int(fontBytes.size()))), &font));
    }
}

ZENU_TEST(tst_ValueText)
#include "tst_ValueText.moc"
