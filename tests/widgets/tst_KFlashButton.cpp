#include "tests/support/TestMain.h"

#include <zenu/overlay/KPainter.h>
#include <zenu/widgets/KFlashButton.h>

#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace zenu;

namespace {

QColor const activeColor(10, 200, 10);
QColor const inactiveColor(200, 10, 10);
constexpr QSize pictureSize(24, 18);
constexpr QPoint hole(2, 2); // where the picture is see-through
constexpr QPoint dot(10, 9); // where it is blue

QPixmap picture(qreal ratio = 1)
{
    QPixmap pixmap(pictureSize * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.fillRect(QRect(8, 7, 5, 5), Qt::blue);
    return pixmap;
}

// A button in a window, with notes of what it emits.
struct Scene
{
    Scene()
        : button(new KFlashButton(picture(), &window))
    {
        window.resize(120, 90);
        button->move(30, 20);
        button->setActiveColor(activeColor);
        button->setInactiveColor(inactiveColor);
        QObject::connect(button, &KFlashButton::hilited, &window, [this] { said += "hilited "; });
        QObject::connect(button, &KFlashButton::unhilited, &window,
                         [this] { said += "unhilited "; });
        QObject::connect(button, &KFlashButton::clicked, &window, [this] { said += "clicked "; });
        window.show();
    }
    bool isReady()
    {
        bool const exposed = QTest::qWaitForWindowExposed(&window);
        QTest::mouseMove(&window, outside);
        said.clear();
        return exposed;
    }
    QColor at(QPoint const & place) { return button->grab().toImage().pixelColor(place); }

    static constexpr QPoint outside{5, 5};
    QWidget window;
    KFlashButton * button;
    QByteArray said;
};

} // namespace

class tst_KFlashButton : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fresh_hasTheSizeOfThePictureAndThePalettesColours();
    void mouse_comesAndGoes_hilites();
    void click_inside_emitsUnhilitedThenClicked();
    void release_outside_emitsUnhilitedAlone();
    void press_takesTheActiveColourAway();
    void press_doesNotReachTheParent();
    void colours_changed_showAtTheNextRepaint();
    void picture_isCentredInALargerWidget();
    void picture_ofRatioTwo_hasLogicalSize();
    void pixmap_null_hasNoExtent();
    void button_deletedInUnhilited_doesNotClick();
};

void tst_KFlashButton::fresh_hasTheSizeOfThePictureAndThePalettesColours()
{
    KFlashButton button(picture(), nullptr, "flash");
    QCOMPARE(button.objectName(), QStringLiteral("flash"));
    QCOMPARE(button.size(), pictureSize);
    QCOMPARE(button.sizeHint(), pictureSize);
    QCOMPARE(button.minimumSizeHint(), pictureSize);
    QCOMPARE(button.minimumSize(), pictureSize);
    QCOMPARE(button.maximumSize(), pictureSize);
    QVERIFY(button.hasMouseTracking());
    QCOMPARE(button.activeColor(), KPainter::getSysColor(6));
    QCOMPARE(button.inactiveColor(), KPainter::getSysColor(10));
}

void tst_KFlashButton::mouse_comesAndGoes_hilites()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QCOMPARE(scene.at(hole), inactiveColor);
    QTest::mouseMove(scene.button, QPoint(4, 4));
    QCOMPARE(scene.said, "hilited ");
    QCOMPARE(scene.at(hole), activeColor);
    QCOMPARE(scene.at(dot), QColor(Qt::blue));
    QTest::mouseMove(&scene.window, Scene::outside);
    QCOMPARE(scene.said, "hilited unhilited ");
    QCOMPARE(scene.at(hole), inactiveColor);
}

void tst_KFlashButton::click_inside_emitsUnhilitedThenClicked()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QTest::mouseMove(scene.button, QPoint(4, 4));
    scene.said.clear();
    QTest::mouseClick(scene.button, Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(scene.said, "unhilited clicked ");
    QCOMPARE(scene.at(hole), inactiveColor); // although the mouse is still there
    QTest::mouseMove(&scene.window, Scene::outside);
    QTest::mouseMove(scene.button, QPoint(4, 4));
    QCOMPARE(scene.at(hole), activeColor);
}

void tst_KFlashButton::release_outside_emitsUnhilitedAlone()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QTest::mouseMove(scene.button, QPoint(4, 4));
    QTest::mousePress(scene.button, Qt::LeftButton, {}, QPoint(5, 5));
    scene.said.clear();
    QTest::mouseRelease(scene.button, Qt::LeftButton, {}, QPoint(60, 40));
    QVERIFY(scene.said.startsWith("unhilited "));
    QVERIFY(!scene.said.contains("clicked"));
    QCOMPARE(scene.at(hole), inactiveColor);
}

void tst_KFlashButton::press_takesTheActiveColourAway()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QTest::mouseMove(scene.button, QPoint(4, 4));
    scene.said.clear();
    QTest::mousePress(scene.button, Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(scene.said, QByteArray());
    QCOMPARE(scene.at(hole), inactiveColor);
    QTest::mouseRelease(scene.button, Qt::LeftButton, {}, QPoint(5, 5));
}

void tst_KFlashButton::press_doesNotReachTheParent()
{
    Scene scene;
    QVERIFY(scene.isReady());
    struct Counter : QObject
    {
        int presses = 0;
        bool eventFilter(QObject *, QEvent * event) override
        {
            presses += event->type() == QEvent::MouseButtonPress;
            return false;
        }
    } counter;
    scene.window.installEventFilter(&counter);
    QTest::mouseClick(scene.button, Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(counter.presses, 0);
    QTest::mouseClick(&scene.window, Qt::LeftButton, {}, Scene::outside);
    QCOMPARE(counter.presses, 1);
}

void tst_KFlashButton::colours_changed_showAtTheNextRepaint()
{
    Scene scene;
    QVERIFY(scene.isReady());
    scene.button->setInactiveColor(Qt::yellow);
    QCOMPARE(scene.button->inactiveColor(), QColor(Qt::yellow));
    QCOMPARE(scene.at(hole), QColor(Qt::yellow));
    scene.button->setActiveColor(Qt::cyan);
    QCOMPARE(scene.button->activeColor(), QColor(Qt::cyan));
    QTest::mouseMove(scene.button, QPoint(4, 4));
    QCOMPARE(scene.at(hole), QColor(Qt::cyan));
}

// The rectangle's right and bottom edge count, which are one less than its size.
void tst_KFlashButton::picture_isCentredInALargerWidget()
{
    Scene scene;
    scene.button->setFixedSize(pictureSize + QSize(10, 7));
    scene.button->setActiveColor(inactiveColor); // wherever the mouse is
    QVERIFY(scene.isReady());
    QImage const image = scene.button->grab().toImage();
    QRect const place(QPoint((pictureSize.width() + 9 - pictureSize.width()) / 2,
                             (pictureSize.height() + 6 - pictureSize.height()) / 2),
                      pictureSize);
    QCOMPARE(place.topLeft(), QPoint(4, 3));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QPoint const inside = QPoint(x, y) - place.topLeft();
            bool const colored = image.pixelColor(x, y) == inactiveColor ||
                                 image.pixelColor(x, y) == QColor(Qt::blue);
            QCOMPARE(colored, place.contains(x, y));
            QCOMPARE(image.pixelColor(x, y) == QColor(Qt::blue),
                     QRect(8, 7, 5, 5).contains(inside));
        }
    }
}

void tst_KFlashButton::picture_ofRatioTwo_hasLogicalSize()
{
    KFlashButton const button(picture(2));
    QCOMPARE(button.size(), pictureSize);
}

void tst_KFlashButton::pixmap_null_hasNoExtent()
{
    QWidget window;
    KFlashButton button(QPixmap(), &window);
    QCOMPARE(button.sizeHint(), QSize(0, 0));
    QCOMPARE(button.objectName(), QString());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    button.setFixedSize(10, 10);
    QVERIFY(!button.grab().isNull());
}

void tst_KFlashButton::button_deletedInUnhilited_doesNotClick()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QPointer<KFlashButton> const button(scene.button);
    QTest::mousePress(scene.button, Qt::LeftButton, {}, QPoint(5, 5));
    scene.said.clear();
    QObject::connect(scene.button, &KFlashButton::unhilited, &scene.window,
                     [&] { delete scene.button; });
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5),
                        button->mapToGlobal(QPointF(5, 5)), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    // Straight to the handler's door: the toolkit itself goes on with a widget that dies in its own
    // release.
    QVERIFY(button);
    static_cast<QObject *>(button)->event(&release);
    QVERIFY(!button);
    QCOMPARE(scene.said, "unhilited ");
}

ZENU_TEST(tst_KFlashButton)
#include "tst_KFlashButton.moc"
