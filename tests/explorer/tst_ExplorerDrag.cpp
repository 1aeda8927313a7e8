#include "examples/explorer/ExplorerDrag.h"
#include "tests/explorer/FileFixture.h"
#include "tests/explorer/ShownWindow.h"
#include "tests/support/TestMain.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>

using namespace explorer;
using zenutest::exists;
using zenutest::FileFixture;
using zenutest::ShownWindow;

namespace {

// A drag as the window system would bring it; whether the grid takes it at that place.
class Drag
{
public:
    Drag(ShownWindow & shownWindow, ExplorerDrag::Paths const & paths)
        : shown(shownWindow)
        , data(ExplorerDrag::mimeData(paths))
    {
    }
    bool enter(QPoint const & point) { return send<QDragEnterEvent>(point); }
    bool move(QPoint const & point) { return send<QDragMoveEvent>(point); }
    bool drop(QPoint const & point)
    {
        enter(point); // Qt hands on only what has come in
        QDropEvent event(point, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton,
                         Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&shown.grid(), &event);
        return event.isAccepted();
    }
    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(&shown.grid(), &event);
    }

private:
    template <typename Event>
    bool send(QPoint const & point)
    {
        Event event(point, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton,
                    Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&shown.grid(), &event);
        return event.isAccepted();
    }

    ShownWindow & shown;
    std::unique_ptr<QMimeData> data;
};

// Answers the question that a drop brings, when it is there.
void answer(ShownWindow & shown, bool yes)
{
    QTRY_VERIFY(shown.window.findChild<QMessageBox *>());
    auto * const question = shown.window.findChild<QMessageBox *>();
    for (QAbstractButton * const button : question->buttons()) {
        if ((question->buttonRole(button) == QMessageBox::AcceptRole) == yes) {
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
    }
    QTRY_VERIFY(!shown.window.findChild<QMessageBox *>());
    shown.window.activateWindow();
    QTRY_VERIFY(shown.grid().hasFocus());
}

} // namespace

class tst_ExplorerDrag : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnWarningsButOfDialogs(); }
    void drop_movesWhenTheAnswerIsYes();
    void drop_movesNothingWhenTheAnswerIsNo();
    void drag_isTakenByDirectoriesAlone();
    void drag_fromElsewhereIsNotTaken();
    void mark_standsBelowTheDirectoryUnderTheDrag();
    void move_keepsOtherDirectoriesOpenAndUndoBringsTheFileBack();
    void move_ofTheLastFileLeavesAnEmptyDirectory();
    void refusedMove_showsWhy();
    void press_onAMultipleSelectionKeepsItUntilTheRelease();
    void press_thatHardlyMovesDragsNothing();
};

void tst_ExplorerDrag::drop_movesWhenTheAnswerIsYes()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("a");
    files.makeFile("b\xff");
    ShownWindow shown(files.path());
    Drag drag(shown, {files.path("a"), files.path("b\xff")});
    QVERIFY(drag.enter(shown.cell("d")));
    QVERIFY(drag.move(shown.cell("d")));
    QVERIFY(drag.drop(shown.cell("d")));
    QVERIFY(exists(files.path("a")));
    answer(shown, true);
    QVERIFY(exists(files.path("d/a")) && exists(files.path("d/b\xff")));
    QCOMPARE(shown.names(), "d");
    QCOMPARE(shown.message(), QStringLiteral("Moved 2 files into \"d\""));
    QCOMPARE(shown.selected(), "d");
}

void tst_ExplorerDrag::drop_movesNothingWhenTheAnswerIsNo()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("a");
    ShownWindow shown(files.path());
    Drag drag(shown, {files.path("a")});
    QVERIFY(drag.drop(shown.cell("d")));
    answer(shown, false);
    QVERIFY(exists(files.path("a")));
    QCOMPARE(shown.names(), "d|a");
}

void tst_ExplorerDrag::drag_isTakenByDirectoriesAlone()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeDirectory("d/e");
    files.makeDirectory("f");
    files.makeFile("a");
    ShownWindow shown(files.path());
    shown.grid().Expand(shown.row("d"), zenu::GCE_EXPAND);
    Drag drag(shown, {files.path("d")});
    QVERIFY(drag.enter(shown.cell("a"))); // to hear of it again
    QVERIFY(!drag.move(shown.cell("a")));
    QVERIFY(!drag.move(shown.cell("d")));
    QVERIFY(!drag.move(shown.cell("e")));
    QVERIFY(!drag.move(shown.cell(shown.textOf(shown.topRow())))); // where it is already
    QVERIFY(drag.move(shown.cell("f")));
    QVERIFY(!drag.drop(shown.cell("e")));
    QCoreApplication::processEvents();
    QVERIFY(!shown.window.findChild<QMessageBox *>());
}

void tst_ExplorerDrag::drag_fromElsewhereIsNotTaken()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("a");
    ShownWindow shown(files.path());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(files.path("a")))});
    QDragEnterEvent event(shown.cell("d"), Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(&shown.grid(), &event);
    QVERIFY(!event.isAccepted());
    // Other programs get the files all the same.
    QCOMPARE(ExplorerDrag::mimeData({files.path("a")})->urls(), data.urls());
}

void tst_ExplorerDrag::mark_standsBelowTheDirectoryUnderTheDrag()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeDirectory("e");
    files.makeFile("a");
    ShownWindow shown(files.path());
    QVERIFY(QTest::qWaitForWindowExposed(&shown.window));
    auto const picture = [&] {
        return shown.window.screen()->grabWindow(shown.window.winId()).toImage();
    };
    if (picture().isNull()) {
        QSKIP("the platform gives no picture of the screen");
    }
    QTest::qWait(50);
    QImage const before = picture();
    Drag drag(shown, {files.path("a")});
    drag.enter(shown.cell("d"));
    QImage const marked = picture();
    QVERIFY(marked != before);
    QRect row;
    shown.grid().GetRowRect(shown.row("d"), &row);
    int const offset = shown.grid().mapTo(&shown.window, QPoint()).y();
    QRegion changed;
    for (int y = 0; y < before.height(); ++y) {
        if (std::memcmp(before.constScanLine(y), marked.constScanLine(y),
                        static_cast<std::size_t>(before.width()) * 4) != 0) {
            changed += QRect(0, y, 1, 1);
        }
    }
    int const bottom = row.bottom() + offset;
    QVERIFY(qAbs(changed.boundingRect().center().y() - bottom) <= 6);
    drag.move(shown.cell("a")); // no directory
    QCOMPARE(picture(), before);
    drag.move(shown.cell("e"));
    QVERIFY(picture() != before);
    drag.leave();
    QCOMPARE(picture(), before);
}

void tst_ExplorerDrag::move_keepsOtherDirectoriesOpenAndUndoBringsTheFileBack()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/x");
    files.makeDirectory("e");
    files.makeFile("e/y");
    files.makeFile("a");
    ShownWindow shown(files.path());
    shown.grid().Expand(shown.row("e"), zenu::GCE_EXPAND);
    shown.grid().Expand(shown.row("d"), zenu::GCE_EXPAND);
    QCOMPARE(shown.names(), "d|x|e|y|a");
    Drag drag(shown, {files.path("a"), files.path("e/y")});
    QVERIFY(drag.drop(shown.cell("d")));
    answer(shown, true);
    QCOMPARE(shown.names(), "d|a|x|y|e");
    QCOMPARE(shown.selected(), "a|y");
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(exists(files.path("a")) && exists(files.path("e/y")));
    shown.grid().Expand(shown.row("e"), zenu::GCE_EXPAND);
    QCOMPARE(shown.names(), "d|x|e|y|a");
}

void tst_ExplorerDrag::move_ofTheLastFileLeavesAnEmptyDirectory()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/x");
    ShownWindow shown(files.path());
    shown.grid().Expand(shown.row("d"), zenu::GCE_EXPAND);
    Drag drag(shown, {files.path("d/x")});
    QVERIFY(drag.drop(shown.cell(shown.textOf(shown.topRow()))));
    answer(shown, true);
    QCOMPARE(shown.names(), "d|x");
    zenu::GC_ROW record;
    record.mask = zenu::GCRM_STATE;
    shown.grid().GetRow(shown.row("d"), &record);
    QCOMPARE(record.state & (zenu::GCRS_HASCHILDREN | zenu::GCRS_EXPANDED), 0u);
}

void tst_ExplorerDrag::refusedMove_showsWhy()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/a");
    files.makeFile("a");
    ShownWindow shown(files.path());
    Drag drag(shown, {files.path("a")});
    QVERIFY(drag.drop(shown.cell("d")));
    answer(shown, true);
    QCOMPARE(shown.message(), QStringLiteral("Not moved: a: there is already a file of that name"));
    QVERIFY(exists(files.path("a")));
    QCOMPARE(shown.names(), "d|a");
}

void tst_ExplorerDrag::press_onAMultipleSelectionKeepsItUntilTheRelease()
{
    FileFixture files;
    for (char const * const name : {"a", "b", "c"}) {
        files.makeFile(name);
    }
    ShownWindow shown(files.path());
    shown.select({"a", "b"});
    QTest::mousePress(&shown.grid(), Qt::LeftButton, Qt::NoModifier, shown.cell("a", Column::Kind));
    QCOMPARE(shown.selected(), "a|b");
    QTest::mouseRelease(&shown.grid(), Qt::LeftButton, Qt::NoModifier,
                        shown.cell("a", Column::Kind));
    QCOMPARE(shown.selected(), "a");
    // One that is not selected is alone at once.
    shown.select({"a", "b"});
    QTest::mousePress(&shown.grid(), Qt::LeftButton, Qt::NoModifier, shown.cell("c", Column::Kind));
    QCOMPARE(shown.selected(), "c");
    QTest::mouseRelease(&shown.grid(), Qt::LeftButton, Qt::NoModifier,
                        shown.cell("c", Column::Kind));
    // Keys are as ever.
    shown.click(shown.cell("a", Column::Kind), Qt::ShiftModifier);
    QCOMPARE(shown.selected(), "a|b|c");
    shown.click(shown.cell("b", Column::Kind), Qt::ControlModifier);
    QCOMPARE(shown.selected(), "a|c");
}

void tst_ExplorerDrag::press_thatHardlyMovesDragsNothing()
{
    FileFixture files;
    files.makeFile("a");
    ShownWindow shown(files.path());
    QPoint const place = shown.cell("a", Column::Kind);
    QTest::mousePress(&shown.grid(), Qt::LeftButton, Qt::NoModifier, place);
    QPoint const near = place + QPoint(QApplication::startDragDistance() - 1, 0);
    QMouseEvent move(QEvent::MouseMove, near, shown.grid().mapToGlobal(near), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&shown.grid(), &move);
    QVERIFY(!shown.grid().drag()->isDragging());
    QTest::mouseRelease(&shown.grid(), Qt::LeftButton, Qt::NoModifier, near);
    QCOMPARE(shown.selected(), "a");
}

ZENU_TEST(tst_ExplorerDrag)
#include "tst_ExplorerDrag.moc"
