#include "tests/support/TestMain.h"

#include <zenu/widgets/Cursors.h>

#include <QApplication>
#include <QCursor>

using namespace zenu;

class tst_Cursors : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void KWaitCursor_whileItLives_showsTheWaitCursor();
    void KWaitCursor_nested_stacks();
    void KWaitCursor_overAnotherOverride_bringsItBack();
    void Set_anyNumber_doesNothing();
    void Redraw_doesNothing();
};

void tst_Cursors::KWaitCursor_whileItLives_showsTheWaitCursor()
{
    QVERIFY(QApplication::overrideCursor() == nullptr);
    {
        KWaitCursor const wait;
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_Cursors::KWaitCursor_nested_stacks()
{
    {
        KWaitCursor const outer;
        {
            KWaitCursor const inner;
            QVERIFY(QApplication::overrideCursor() != nullptr);
        }
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_Cursors::KWaitCursor_overAnotherOverride_bringsItBack()
{
    QApplication::setOverrideCursor(Qt::SizeHorCursor);
    {
        KWaitCursor const wait;
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    QApplication::restoreOverrideCursor();
}

void tst_Cursors::Set_anyNumber_doesNothing()
{
    for (int number : {-1, 0, 1, 24, 1000000}) {
        Cursors::Set(Cursors::ECursor(number));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }
}

void tst_Cursors::Redraw_doesNothing()
{
    Cursors::Redraw();
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

ZENU_TEST(tst_Cursors)
#include "tst_Cursors.moc"
