#include "Board.h"

#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QVBoxLayout>

namespace {

// The board with a line below that says what happened last.
class Window : public QWidget
{
public:
    Window()
        : m_status(new QLabel(tr("Double click a name or a kind.")))
        , m_board(new Board([this](QString const & text) { m_status->setText(text); }))
    {
        setWindowTitle(tr("Editing in place"));
        auto * const layout = new QVBoxLayout(this);
        layout->addWidget(m_board, 1);
        layout->addWidget(m_status);
    }

    // With the first name being edited.
    QPixmap picture()
    {
        show();
        m_board->editName(0);
        QCoreApplication::processEvents();
        return grab();
    }

private:
    QLabel * m_status;
    Board * m_board;
};

} // namespace

int main(int argc, char ** argv)
{
    example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Edits the texts of a canvas where they are."));
    parser.addHelpOption();
    QCommandLineOption const picture = example::pictureOption();
    parser.addOption(picture);
    parser.process(application);

    Window window;
    if (parser.isSet(picture)) {
        return example::savePicture(window.picture(), parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
