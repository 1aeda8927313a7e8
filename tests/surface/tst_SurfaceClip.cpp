#include "tests/support/TestMain.h"

#include <zenu/overlay/surface/SurfaceClip.h>

#include <QtWidgets/QLabel>

using namespace zenu;

class tst_SurfaceClip : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void window_alone_isItsRectangle();
    void children_visibleOnes_areLeftOut();
    void children_hiddenOnesAndWindows_areNot();
    void siblings_above_areLeftOut();
    void siblings_below_areNot();
    void siblings_raised_areLeftOut();
    void relatives_aboveAnAncestor_areLeftOut();
    void parent_cutsItsChild();
    void masks_cut();
    void hostOutsideItsParent_isEmpty();

private:
    std::unique_ptr<QWidget> m_window;
    QWidget * m_parent = nullptr; // at (10, 20), 100 x 80
    QWidget * m_host = nullptr;   // at (5, 5) of the parent, 50 x 40
};

void tst_SurfaceClip::init()
{
    Test::init();
    m_window = std::make_unique<QWidget>();
    m_window->resize(300, 200);
    m_parent = new QWidget(m_window.get());
    m_parent->setGeometry(10, 20, 100, 80);
    m_host = new QWidget(m_parent);
    m_host->setGeometry(5, 5, 50, 40);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_SurfaceClip::window_alone_isItsRectangle()
{
    QWidget window;
    window.resize(70, 60);
    QCOMPARE(surfaceClip(window), QRegion(0, 0, 70, 60));
    QCOMPARE(surfaceClip(*m_host), QRegion(0, 0, 50, 40));
}

void tst_SurfaceClip::children_visibleOnes_areLeftOut()
{
    auto * const child = new QLabel(m_host); // see-through
    child->setGeometry(10, 10, 5, 6);
    child->show();
    QCOMPARE(surfaceClip(*m_host), QRegion(0, 0, 50, 40) - QRegion(10, 10, 5, 6));
}

void tst_SurfaceClip::children_hiddenOnesAndWindows_areNot()
{
    auto * const hidden = new QWidget(m_host);
    hidden->setGeometry(10, 10, 5, 6);
    hidden->hide();
    auto * const window = new QWidget(m_host, Qt::Tool);
    window->setGeometry(0, 0, 20, 20);
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    window->show();
    QCOMPARE(surfaceClip(*m_host), QRegion(0, 0, 50, 40));
}

void tst_SurfaceClip::siblings_above_areLeftOut()
{
    auto * const sibling = new QWidget(m_parent);
    sibling->setGeometry(45, 0, 50, 30);
    sibling->show();
    QCOMPARE(surfaceClip(*m_host), QRegion(0, 0, 50, 40) - QRegion(40, -5, 50, 30));
}

void tst_SurfaceClip::siblings_below_areNot()
{
    auto * const sibling = new QWidget(m_parent);
    sibling->setGeometry(45, 0, 50, 30);
    sibling->show();
    sibling->lower();
    QCOMPARE(surfaceClip(*m_host), QRegion(0, 0, 50, 40));
}

void tst_SurfaceClip::siblings_raised_areLeftOut()
{
    auto * const sibling = new QWidget(m_parent);
    sibling->setGeometry(0, 0, 15, 15);
    sibling->show();
    sibling->lower();
    sibling->raise();
    QCOMPARE(surfaceClip(*m_host), QRegion(0, 0, 50, 40) - QRegion(-5, -5, 15, 15));
}

void tst_SurfaceClip::relatives_aboveAnAncestor_areLeftOut()
{
    auto * const uncle = new QWidget(m_window.get());
    uncle->setGeometry(0, 0, 20, 300);
    uncle->show();
    QCOMPARE(surfaceClip(*m_host), QRegion(5, 0, 45, 40));
}

void tst_SurfaceClip::parent_cutsItsChild()
{
    m_host->setGeometry(-10, 60, 200, 200);
    QCOMPARE(surfaceClip(*m_host), QRegion(10, 0, 100, 20));
}

void tst_SurfaceClip::masks_cut()
{
    m_host->setMask(QRegion(10, 10, 100, 10));
    QCOMPARE(surfaceClip(*m_host), QRegion(10, 10, 40, 10));
    m_parent->setMask(QRegion(0, 0, 30, 80));
    QCOMPARE(surfaceClip(*m_host), QRegion(10, 10, 15, 10));
    auto * const child = new QWidget(m_host);
    child->setGeometry(0, 0, 50, 40);
    child->setMask(QRegion(10, 10, 5, 100));
    child->show();
    QCOMPARE(surfaceClip(*m_host), QRegion(15, 10, 10, 10));
}

void tst_SurfaceClip::hostOutsideItsParent_isEmpty()
{
    m_host->move(1000, 0);
    QVERIFY(surfaceClip(*m_host).isEmpty());
}

ZENU_TEST(tst_SurfaceClip)
#include "tst_SurfaceClip.moc"
