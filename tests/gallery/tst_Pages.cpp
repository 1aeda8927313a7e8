#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/Look.h"
#include "examples/gallery/PageList.h"
#include "examples/gallery/PageView.h"
#include "examples/gallery/Pictures.h"
#include "examples/gallery/support/Popups.h"
#include "tests/support/TestMain.h"

#include <QPointer>
#include <QTemporaryDir>

using namespace gallery;

namespace {

std::size_t countPages()
{
    std::size_t count = 0;
    for (PageGroup const & group : pageGroups()) {
        count += group.pages.size();
    }
    return count;
}

// A few pixels tell a drawn page from an empty one.
int differentColors(QImage const & image)
{
    constexpr int step = 7;
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); y += step) {
        for (int x = 0; x < image.width(); x += step) {
            colors += image.pixel(x, y);
        }
    }
    return int(colors.size());
}

QList<OpenButton *> openButtons(QWidget const & view)
{
    QList<OpenButton *> found;
    for (QPushButton * const button : view.findChildren<QPushButton *>()) {
        if (auto * const opens = dynamic_cast<OpenButton *>(button)) {
            found += opens;
        }
    }
    return found;
}

int visibleWindows()
{
    auto const windows = QApplication::topLevelWidgets();
    return int(std::count_if(windows.begin(), windows.end(),
                             [](QWidget const * window) { return window->isVisible(); }));
}

} // namespace

Q_DECLARE_METATYPE(gallery::Look)

class tst_Pages : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { setLook({}); }

    void everyPage_isDrawnInEveryLook_data();
    void everyPage_isDrawnInEveryLook();
    void everyButton_opensItsPopup();
    void savedPictures_areOneAPage(); // in the look of the desktop
    void pictures_inAFolderThatCannotBeMade_fail();
    void list_keysGoThroughAllPages();
    void list_typingFindsAPage();
    void chosenPage_replacesTheOneBefore();
    void unknownPage_changesNothing();
};

void tst_Pages::everyPage_isDrawnInEveryLook_data()
{
    QTest::addColumn<Look>("look");
    QTest::newRow("dark") << Look{true, 0, false};
    QTest::newRow("right to left, large font") << Look{false, 18, true};
}

void tst_Pages::everyPage_isDrawnInEveryLook()
{
    QFETCH(Look, look);
    setLook(look);
    for (PageGroup const & group : pageGroups()) {
        for (Page const & page : group.pages) {
            QImage const picture = pictureOf(page).toImage();
            QVERIFY2(picture.width() >= 640 && picture.height() > 100, page.name);
            QVERIFY2(differentColors(picture) > 4, page.name);
            QVERIFY2(visibleWindows() == 0, page.name);
        }
    }
}

void tst_Pages::everyButton_opensItsPopup()
{
    int buttons = 0;
    for (PageGroup const & group : pageGroups()) {
        for (Page const & page : group.pages) {
            PageView view(page);
            view.show();
            for (OpenButton * const button : openButtons(view)) {
                int const before = visibleWindows();
                QTest::mouseClick(button, Qt::LeftButton);
                QVERIFY2(visibleWindows() == before + 1, page.name);
                ++buttons;
            }
        }
    }
    QVERIFY(buttons >= 6);
}

void tst_Pages::savedPictures_areOneAPage()
{
    QTemporaryDir const folder;
    QVERIFY(savePictures(folder.filePath(QStringLiteral("new/pictures"))));
    QDir const files(folder.filePath(QStringLiteral("new/pictures")));
    for (PageGroup const & group : pageGroups()) {
        for (Page const & page : group.pages) {
            QImage const picture(files.filePath(QString::fromLatin1(page.name) + ".png"));
            QVERIFY2(differentColors(picture) > 4, page.name);
        }
    }
    QCOMPARE(std::size_t(files.entryList(QDir::Files).size()), countPages());
}

void tst_Pages::pictures_inAFolderThatCannotBeMade_fail()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    QVERIFY(!savePictures(file.fileName() + "/pictures"));
}

void tst_Pages::list_keysGoThroughAllPages()
{
    GalleryWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSet<QString> codes{window.view().code()};
    for (std::size_t i = 0; i < countPages() + pageGroups().size(); ++i) {
        QTest::keyClick(&window.list(), Qt::Key_Down);
        codes += window.view().code();
    }
    QCOMPARE(std::size_t(codes.size()), countPages());
}

void tst_Pages::list_typingFindsAPage()
{
    GalleryWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::keyClicks(&window.list(), QStringLiteral("Spri"));
    QVERIFY(window.view().code().contains(QLatin1String("zenu::KSprite")));
}

void tst_Pages::chosenPage_replacesTheOneBefore()
{
    GalleryWindow window;
    QPointer<QWidget> const before = &window.view();
    QVERIFY(window.list().select(QStringLiteral("Clock")));
    QVERIFY(before == nullptr);
    QCOMPARE(window.count(), 2);
    QVERIFY(window.view().code().contains(QLatin1String("KClockWidget")));
}

void tst_Pages::unknownPage_changesNothing()
{
    GalleryWindow window;
    QPointer<QWidget> const before = &window.view();
    QVERIFY(!window.list().select(QStringLiteral("Nothing")));
    QCOMPARE(&window.view(), before.data());
}

ZENU_TEST(tst_Pages)
#include "tst_Pages.moc"
