#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <QtGui/QScreen>
#include <QtWidgets/QToolBar>

using namespace zenu;
using zenutest::Button;
using zenutest::Scene;
using zenutest::whenOpen;
using zenutest::Window;

namespace {

// Reads right to left for as long as it lives.
class RightToLeft
{
public:
    RightToLeft() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    ~RightToLeft() { QApplication::setLayoutDirection(Qt::LeftToRight); }
    RightToLeft(RightToLeft const &) = delete;
    RightToLeft & operator=(RightToLeft const &) = delete;
};

} // namespace

class tst_ColorButtonPosition : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void position_byTheRule_data();
    void position_byTheRule();
    void position_noRoomBelow_isAbove();
};

void tst_ColorButtonPosition::position_byTheRule_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("reversed");
    QTest::newRow("horizontal") << false << false;
    QTest::newRow("horizontal, reversed") << false << true;
    QTest::newRow("vertical") << true << false;
    QTest::newRow("vertical, reversed") << true << true;
}

void tst_ColorButtonPosition::position_byTheRule()
{
    QFETCH(bool, vertical);
    QFETCH(bool, reversed);
    std::unique_ptr<RightToLeft> const direction(reversed ? new RightToLeft : nullptr);
    QMenu menu;
    menu.addAction(QStringLiteral("An action"));
    QToolBar bar;
    bar.setOrientation(vertical ? Qt::Vertical : Qt::Horizontal);
    bar.resize(200, 200);
    auto * const button = new Button(&bar);
    button->setGeometry(60, 60, 40, 30);
    button->setPopup(&menu);
    button->setPopupDelay(-1);
    bar.move(bar.screen()->availableGeometry().topLeft() + QPoint(80, 60));
    bar.show();
    button->show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QPoint pos;
    whenOpen(menu, [&] {
        pos = menu.pos();
        menu.close();
    });
    QTest::mouseClick(bar.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    QRect const rect(button->mapToGlobal(QPoint(0, 0)), button->size());
    int const width = menu.sizeHint().width();
    QPoint const expected[] = {
        rect.bottomLeft(),
        QPoint(rect.right() - width, rect.bottom()),
        rect.topRight(),
        QPoint(rect.left() - width, rect.top()),
    };
    QCOMPARE(pos, expected[(vertical ? 2 : 0) + (reversed ? 1 : 0)]);
}

void tst_ColorButtonPosition::position_noRoomBelow_isAbove()
{
    Scene scene(-1);
    Window & window = scene.window;
    QRect const screen = window.screen()->availableGeometry();
    for (int i = 0; i < 3; ++i)
        scene.menu->addAction(QStringLiteral("More"));
    QVERIFY(window.open(QPoint(screen.left() + 50, screen.bottom() - 140)));
    QPoint pos;
    whenOpen(*scene.menu, [&] {
        pos = scene.menu->pos();
        scene.menu->close();
    });
    window.press(window.onButton());
    QPoint const top = window.button->mapToGlobal(QPoint(0, 0));
    QCOMPARE(pos, top - QPoint(0, scene.menu->sizeHint().height()));
}

ZENU_TEST(tst_ColorButtonPosition)
#include "tst_ColorButtonPosition.moc"
