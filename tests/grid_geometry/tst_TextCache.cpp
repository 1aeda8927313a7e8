#include "tests/grid_geometry/GeometryFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/geometry/TextCache.h>
#include <zenu/grid/geometry/TextLine.h>

#include <QElapsedTimer>
#include <QFontDatabase>
#include <QImage>
#include <QRandomGenerator>

#include <cstdlib>
#include <new>
#include <string>

using namespace zenu;

#if !defined(__SANITIZE_ADDRESS__)

namespace {

long long allocations = 0;

} // namespace

void * operator new(std::size_t size)
{
    ++allocations;
    if (void * const memory = std::malloc(size > 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void * memory) noexcept
{
    std::free(memory);
}

void operator delete(void * memory, std::size_t) noexcept
{
    std::free(memory);
}

#endif

class tst_TextCache : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fit_anyTextFontAndRoom_sameAsTheRule();
    void fit_everyByte_sameAsTheRule();
    void fit_lettersThatJoin_sameAsTheRule();
    void fit_rightAligned_keepsTheLastCharacters();
    void fit_wholeText_measuredWidthIsThatOfItsCharacters();
    void fit_again_measuresNothing();
    void fit_again_allocatesNothing();
    void fit_otherRoomThatTakesAll_measuresNothing();
    void fit_wideRoom_measuresOnce();
    void fit_cutText_needsFewMeasurements();
    void fit_fontChangedByItsOwner_isAnotherFont();
    void fit_equalFont_sharesResults();
    void fit_manyFonts_staysRight();
    void fit_hugeText_measuresLittle();
    void fit_textsThatDifferLate_areTold();
    void fit_manyTexts_memoryIsBounded();
    void fit_textsInUse_stayWhileOthersCome();
    void fit_longTexts_fewAreKept();
    void fit_result_outlivesThousandLookups();
    void clear_forgetsAll();
    void setDevice_sameDevice_forgetsNothing();
    void setDevice_otherRatioOrResolution_forgets();
    void fontAdded_forgets();

private:
    static void compareWithRule(TextCache & cache, QFont const & font, QByteArray const & text,
                                int room);
};

void tst_TextCache::compareWithRule(TextCache & cache, QFont const & font, QByteArray const & text,
                                    int room)
{
    QString const unicode = QString::fromLatin1(text);
    QFontMetrics const metrics(font);
    for (FitSide const side : {FitSide::Front, FitSide::End}) {
        bool const fromEnd = side == FitSide::End;
        zenutest::NaiveFit const naive = zenutest::naiveFit(font, unicode, room, fromEnd);
        FittedText const & fit = cache.fit(font, text.constData(), room, side);
        QByteArray const where = text.toHex() + " in " + QByteArray::number(room) + " of " +
                                 font.key().toLatin1() + (fromEnd ? " end" : " front");
        QVERIFY2(fit.fitCount == naive.count, (where + ": " + QByteArray::number(fit.fitCount) +
                                               " for " + QByteArray::number(naive.count))
                                                  .constData());
        QVERIFY2(fit.measuredWidth() == naive.width, where.constData());
        QCOMPARE(fit.length, static_cast<int>(text.size()));
        QCOMPARE(QSize(fit.fullWidth, fit.textHeight), metrics.size(Qt::TextSingleLine, unicode));
        QCOMPARE(fit.dotsWidth, metrics.size(Qt::TextSingleLine, QStringLiteral("...")).width());
        QCOMPARE(fit.fitted->text(),
                 fromEnd ? unicode.right(naive.count) : unicode.left(naive.count));
        QCOMPARE(fit.dots->text(), QStringLiteral("..."));
    }
}

void tst_TextCache::fit_anyTextFontAndRoom_sameAsTheRule()
{
    QStringList const families = QFontDatabase::families();
    QRandomGenerator random(2024);
    TextCache cache;
    for (int round = 0; round < 2500; ++round) {
        QFont font(families.at(random.bounded(families.size())), random.bounded(6, 16));
        font.setItalic(random.bounded(3) == 0);
        QByteArray text;
        int const length = random.bounded(1, 50);
        for (int i = 0; i < length; ++i) {
            text += static_cast<char>(random.bounded(3) == 0 ? random.bounded(0xa0, 0x100)
                                                             : random.bounded(0x20, 0x7f));
        }
        compareWithRule(cache, font, text, random.bounded(-5, 400));
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void tst_TextCache::fit_everyByte_sameAsTheRule()
{
    QRandomGenerator random(77);
    TextCache cache;
    for (int round = 0; round < 2000; ++round) {
        QByteArray text;
        int const length = random.bounded(1, 40);
        for (int i = 0; i < length; ++i) {
            text += static_cast<char>(random.bounded(1, 256));
        }
        compareWithRule(cache, QFont(), text, random.bounded(-5, 250));
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void tst_TextCache::fit_lettersThatJoin_sameAsTheRule()
{
    QByteArray const pieces[] = {"ff", "fi", "ffi", "ffl", "f",  "i",
                                 "l",  " ",  "AV",  "To",  "Ty", "j"};
    QStringList const families = QFontDatabase::families();
    QRandomGenerator random(5);
    TextCache cache;
    for (int round = 0; round < 1500; ++round) {
        QFont const font(families.at(random.bounded(families.size())), random.bounded(6, 24));
        QByteArray text;
        for (int i = random.bounded(1, 12); i > 0; --i) {
            text += pieces[random.bounded(12)];
        }
        compareWithRule(cache, font, text, random.bounded(10, 150));
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void tst_TextCache::fit_rightAligned_keepsTheLastCharacters()
{
    TextCache cache;
    FittedText const & fit = cache.fit(QFont(), "MMMMMMMMMMMMiiiiiiiiiiii", 60, FitSide::End);
    QVERIFY(fit.isCut());
    QVERIFY(fit.fitted->text().endsWith(QStringLiteral("iiiiiii")));
    QCOMPARE(fit.fitWidth, QFontMetrics(QFont()).boundingRect(fit.fitted->text()).width());
    int const front = cache.fit(QFont(), "MMMMMMMMMMMMiiiiiiiiiiii", 60, FitSide::Front).fitCount;
    QVERIFY(front < fit.fitCount);
}

void tst_TextCache::fit_wholeText_measuredWidthIsThatOfItsCharacters()
{
    TextCache cache;
    FittedText const & fit = cache.fit(QFont(), "whole", 1000, FitSide::Front);
    QVERIFY(!fit.isCut());
    QCOMPARE(fit.measuredWidth(),
             QFontMetrics(QFont()).boundingRect(QStringLiteral("whole")).width());
}

void tst_TextCache::fit_again_measuresNothing()
{
    TextCache cache;
    for (int round = 0; round < 2; ++round) {
        long long const before = cache.measurements();
        for (int room = 0; room < 200; ++room) {
            cache.fit(QFont(), "some text that is seen again", room, FitSide::Front);
            cache.fit(QFont(), "some text that is seen again", room, FitSide::End);
        }
        QCOMPARE(cache.measurements() > before, round == 0);
    }
}

void tst_TextCache::fit_again_allocatesNothing()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("Allocations are the sanitizer's");
#else
    TextCache cache;
    QFont const font;
    long long before = 0;
    for (int round = 0; round < 2; ++round) {
        before = allocations;
        for (int room = 0; room < 100; ++room) {
            cache.fit(font, "some text that is seen again", room, FitSide::Front);
        }
    }
    QCOMPARE(allocations, before);
#endif
}

void tst_TextCache::fit_otherRoomThatTakesAll_measuresNothing()
{
    TextCache cache;
    cache.fit(QFont(), "short", 500, FitSide::Front);
    long long const before = cache.measurements();
    cache.fit(QFont(), "short", 400, FitSide::End);
    cache.fit(QFont(), "short", 0x7fffffff, FitSide::Front);
    QCOMPARE(cache.measurements(), before);
}

void tst_TextCache::fit_wideRoom_measuresOnce()
{
    TextCache cache;
    cache.fit(QFont(), "x", 500, FitSide::Front);
    long long const before = cache.measurements();
    cache.fit(QFont(), "a text with much room", 500, FitSide::Front);
    QCOMPARE(cache.measurements(), before + 1);
}

void tst_TextCache::fit_cutText_needsFewMeasurements()
{
    TextCache cache;
    QByteArray const alphabet = "The quick brown fox jumps over the lazy dog, twice a day at least";
    cache.fit(QFont(), alphabet.constData(), 400, FitSide::Front);
    long long before = cache.measurements();
    for (int i = 0; i < 40; ++i) {
        QByteArray const text = alphabet.mid(i) + alphabet.left(i);
        cache.fit(QFont(), text.constData(), 120, FitSide::Front);
    }
    double const each = static_cast<double>(cache.measurements() - before) / 40;
    // The size, and the two counts on either side of the limit, when kerning hides neither.
    QVERIFY2(each <= 4, qPrintable(QString::number(each)));
}

void tst_TextCache::fit_fontChangedByItsOwner_isAnotherFont()
{
    TextCache cache;
    QFont font;
    int const thin = cache.fit(font, "text", 500, FitSide::Front).fullWidth;
    font.setPointSize(font.pointSize() * 2);
    int const wide = cache.fit(font, "text", 500, FitSide::Front).fullWidth;
    QVERIFY(wide > thin);
    QCOMPARE(wide, QFontMetrics(font).size(Qt::TextSingleLine, QStringLiteral("text")).width());
}

void tst_TextCache::fit_equalFont_sharesResults()
{
    TextCache cache;
    cache.fit(QFont(QStringLiteral("DejaVu Sans"), 11), "text", 500, FitSide::Front);
    long long const before = cache.measurements();
    for (int i = 0; i < 200; ++i) {
        QFont const made(QStringLiteral("DejaVu Sans"), 11);
        cache.fit(made, "text", 500, FitSide::Front);
    }
    QCOMPARE(cache.measurements(), before);
}

void tst_TextCache::fit_manyFonts_staysRight()
{
    TextCache cache;
    for (int size = 1; size < 200; ++size) {
        QFont font;
        font.setPixelSize(size);
        QCOMPARE(cache.fit(font, "text", 5000, FitSide::Front).fullWidth,
                 QFontMetrics(font).size(Qt::TextSingleLine, QStringLiteral("text")).width());
    }
}

void tst_TextCache::fit_hugeText_measuresLittle()
{
    TextCache cache;
    std::string text(1 << 20, 'w');
    FittedText const & fit = cache.fit(QFont(), text.c_str(), 200, FitSide::Front);
    QCOMPARE(fit.length, 1 << 20);
    QVERIFY(fit.fitCount > 0 && fit.fitCount < 101);
    QCOMPARE(fit.fitted->text().size(), fit.fitCount);
    QVERIFY(fit.fullWidth > 1 << 21);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20; ++i) {
        cache.fit(QFont(), text.c_str(), 200, FitSide::Front);
    }
    QVERIFY(timer.elapsed() < 500);
}

void tst_TextCache::fit_textsThatDifferLate_areTold()
{
    TextCache cache;
    std::string first(5000, 'i');
    std::string second = first;
    second[4999] = 'W';
    int const thin = cache.fit(QFont(), first.c_str(), 100, FitSide::Front).fullWidth;
    int const wide = cache.fit(QFont(), second.c_str(), 100, FitSide::Front).fullWidth;
    QVERIFY(wide > thin);
    QCOMPARE(cache.fit(QFont(), first.c_str(), 100, FitSide::Front).fullWidth, thin);
    // In a room that takes everything, all of a long text is there.
    FittedText const & whole = cache.fit(QFont(), second.c_str(), 0x3fffffff, FitSide::Front);
    QCOMPARE(whole.fitted->text(), QString::fromStdString(second));
}

void tst_TextCache::fit_manyTexts_memoryIsBounded()
{
    TextCache cache;
    for (int i = 0; i < 40000; ++i) {
        cache.fit(QFont(), QByteArray::number(i).constData(), 500, FitSide::Front);
        QVERIFY(cache.size() <= 16384);
    }
    QVERIFY(cache.size() >= 8192);
}

void tst_TextCache::fit_textsInUse_stayWhileOthersCome()
{
    TextCache cache;
    auto const useOne = [&](int number) {
        QByteArray const text = "in use " + QByteArray::number(number % 200);
        QCOMPARE(cache.fit(QFont(), text.constData(), 500, FitSide::Front).length, text.size());
    };
    for (int i = 0; i < 200; ++i) {
        useOne(i);
    }
    for (int i = 0; i < 40000; ++i) {
        cache.fit(QFont(), QByteArray::number(i).constData(), 500, FitSide::Front);
        if (i % 20 == 0) {
            useOne(i / 20);
        }
    }
    long long const before = cache.measurements();
    for (int i = 0; i < 200; ++i) {
        useOne(i);
    }
    QCOMPARE(cache.measurements(), before);
}

void tst_TextCache::fit_longTexts_fewAreKept()
{
    TextCache cache;
    QByteArray text;
    for (int i = 0; i < 400; ++i) {
        text = QByteArray::number(i).leftJustified(1000, 'x');
        // As a whole, and cut.
        cache.fit(QFont(), text.constData(), 100, FitSide::Front);
    }
    std::size_t const most = (16U << 20) / (32 * 1000);
    QVERIFY2(cache.size() <= most, qPrintable(QString::number(cache.size())));
    QVERIFY2(cache.size() > most * 9 / 10, qPrintable(QString::number(cache.size())));
    long long const before = cache.measurements();
    cache.fit(QFont(), text.constData(), 100, FitSide::Front);
    QCOMPARE(cache.measurements(), before);
}

void tst_TextCache::fit_result_outlivesThousandLookups()
{
    TextCache cache;
    FittedText const & first = cache.fit(QFont(), "the first", 500, FitSide::Front);
    for (int i = 0; i < 4000; ++i) {
        cache.fit(QFont(), QByteArray::number(i).constData(), 500, FitSide::Front);
    }
    QCOMPARE(first.fitted->text(), QStringLiteral("the first"));
}

void tst_TextCache::clear_forgetsAll()
{
    TextCache cache;
    cache.fit(QFont(), "text", 500, FitSide::Front);
    long long const before = cache.measurements();
    cache.clear();
    QCOMPARE(cache.size(), std::size_t{0});
    cache.fit(QFont(), "text", 500, FitSide::Front);
    QVERIFY(cache.measurements() > before);
}

void tst_TextCache::setDevice_sameDevice_forgetsNothing()
{
    QImage const device(10, 10, QImage::Format_RGB32);
    TextCache cache;
    cache.setDevice(&device);
    cache.fit(QFont(), "text", 500, FitSide::Front);
    cache.setDevice(&device);
    QCOMPARE(cache.size(), std::size_t{1});
}

void tst_TextCache::setDevice_otherRatioOrResolution_forgets()
{
    QImage device(10, 10, QImage::Format_RGB32);
    TextCache cache;
    cache.setDevice(&device);
    int const width = cache.fit(QFont(), "text", 500, FitSide::Front).fullWidth;
    device.setDevicePixelRatio(2);
    cache.setDevice(&device);
    QCOMPARE(cache.size(), std::size_t{0});
    cache.fit(QFont(), "text", 500, FitSide::Front);
    device.setDotsPerMeterX(device.dotsPerMeterX() * 2);
    device.setDotsPerMeterY(device.dotsPerMeterY() * 2);
    cache.setDevice(&device);
    QCOMPARE(cache.size(), std::size_t{0});
    int const wide = cache.fit(QFont(), "text", 500, FitSide::Front).fullWidth;
    QVERIFY(wide > width);
    QCOMPARE(
        wide,
        QFontMetrics(QFont(), &device).size(Qt::TextSingleLine, QStringLiteral("text")).width());
}

void tst_TextCache::fontAdded_forgets()
{
    TextCache cache;
    cache.fit(QFont(), "text", 500, FitSide::Front);
    Q_EMIT qGuiApp->fontDatabaseChanged();
    QCOMPARE(cache.size(), std::size_t{0});
}

ZENU_TEST(tst_TextCache)
#include "tst_TextCache.moc"
