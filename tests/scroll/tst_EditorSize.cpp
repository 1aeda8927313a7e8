#include "tests/scroll/InPlaceFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/scroll/KInPlaceEditor.h>

using namespace zenu;
using zenutest::Client;
using zenutest::Window;

// How an editor grows with its text.
class tst_EditorSize : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void off_keepsItsSize();
    void longerText_growsToTheTextAndFive();
    void shorterText_changesNothing();
    void textTakenAway_doesNotShrink();
    void start_growsToo();
    void start_withTheTextOfTheLastEdit_growsToo();
    void lowRectangle_growsToTheLine();
    void parentsRightEdge_cuts();
    void parentsBottomEdge_cuts();
    void rectangleOverTheEdge_isCut();
    void rectangleOutsideTheParent_isSafe();
    void withoutParent_growsWithoutEnd();

private:
    bool start(char const * text, QRect const & rect)
    {
        return m_editor->startEditing(&m_client, text, rect);
    }
    QSize needed(QString const & text) const;

    std::unique_ptr<Window> m_window;
    KInPlaceEditor * m_editor = nullptr;
    Client m_client;
};

void tst_EditorSize::init()
{
    zenutest::failOnWarnings();
    m_window = std::make_unique<Window>();
    m_editor = new KInPlaceEditor(m_window->canvas);
    m_editor->setAutoResizing(true);
    QVERIFY(m_editor->isAutoResizing());
    QVERIFY(m_window->activate());
}

// The text at the left and top of a large area, and five pixels.
QSize tst_EditorSize::needed(QString const & text) const
{
    QFontMetrics const metrics(m_editor->font());
    int const leftAndTop = 1 | 32;
    return metrics.boundingRect(QRect(0, 0, 10000, 10000), leftAndTop, text).size() + QSize(5, 0);
}

void tst_EditorSize::off_keepsItsSize()
{
    m_editor->setAutoResizing(false);
    QVERIFY(!m_editor->isAutoResizing());
    start("", QRect(10, 10, 30, 20));
    m_window->type("much longer than thirty pixels");
    QCOMPARE(m_editor->size(), QSize(30, 20));
}

void tst_EditorSize::longerText_growsToTheTextAndFive()
{
    start("", QRect(10, 10, 30, 24));
    for (char const * c = "longer than thirty"; *c; ++c) {
        m_window->type(QByteArray(1, *c).constData());
        QCOMPARE(m_editor->width(), qMax(30, needed(m_editor->text()).width()));
        QCOMPARE(m_editor->height(), 24);
        QCOMPARE(m_editor->pos(), QPoint(10, 10));
    }
    QVERIFY(m_editor->width() > 30);
}

void tst_EditorSize::shorterText_changesNothing()
{
    start("", QRect(10, 10, 200, 24));
    m_window->type("short");
    QCOMPARE(m_editor->geometry(), QRect(10, 10, 200, 24));
}

void tst_EditorSize::textTakenAway_doesNotShrink()
{
    start("", QRect(10, 10, 30, 24));
    m_window->type("longer than thirty");
    QSize const grown = m_editor->size();
    m_editor->clear();
    QCOMPARE(m_editor->size(), grown);
}

void tst_EditorSize::start_growsToo()
{
    QString const text = QStringLiteral("longer than thirty");
    start("longer than thirty", QRect(10, 10, 30, 24));
    QCOMPARE(m_editor->size(), QSize(needed(text).width(), 24));
}

void tst_EditorSize::start_withTheTextOfTheLastEdit_growsToo()
{
    for (int i = 0; i < 2; ++i) {
        start("longer than thirty", QRect(10, 10, 30, 24));
        QCOMPARE(m_editor->width(), needed(QStringLiteral("longer than thirty")).width());
        m_editor->cancelEditing();
    }
}

void tst_EditorSize::lowRectangle_growsToTheLine()
{
    start("text", QRect(10, 10, 100, 3));
    QCOMPARE(m_editor->size(), QSize(100, needed(QStringLiteral("text")).height()));
}

void tst_EditorSize::parentsRightEdge_cuts()
{
    start("", QRect(200, 10, 30, 24));
    m_window->type("much longer than the hundred pixels up to the edge of the parent");
    QCOMPARE(m_editor->geometry().right(), m_window->canvas->rect().right());
    QCOMPARE(m_editor->geometry().left(), 200);
}

void tst_EditorSize::parentsBottomEdge_cuts()
{
    int const height = needed(QStringLiteral("text")).height();
    start("text", QRect(10, 150 - height / 2, 100, 3));
    QCOMPARE(m_editor->geometry().bottom(), m_window->canvas->rect().bottom());
}

void tst_EditorSize::rectangleOverTheEdge_isCut()
{
    start("", QRect(250, 10, 100, 24));
    m_window->type("a");
    QCOMPARE(m_editor->geometry(), QRect(250, 10, 50, 24));
}

void tst_EditorSize::rectangleOutsideTheParent_isSafe()
{
    start("", QRect(400, 400, 100, 24));
    m_window->type("a");
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->width() <= 1 && m_editor->height() <= 1);
}

void tst_EditorSize::withoutParent_growsWithoutEnd()
{
    KInPlaceEditor editor;
    editor.setAutoResizing(true);
    QString const text(400, QLatin1Char('m'));
    editor.startEditing(&m_client, qPrintable(text), QRect(0, 0, 10, 24));
    QVERIFY(editor.width() >= needed(text).width());
    editor.cancelEditing();
}

ZENU_TEST(tst_EditorSize)
#include "tst_EditorSize.moc"
