#include "Board.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QTextStream>
#include <QVBoxLayout>

#include <algorithm>

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

    // Draws one frame, with the first name being edited, into a file; 0, or 1 with a message when
    // the file cannot be written.
    int savePicture(QString const & file)
    {
        show();
        m_board->editName(0);
        QCoreApplication::processEvents();
        if (grab().save(file)) {
            return 0;
        }
        QTextStream(stderr) << "Cannot write " << file << Qt::endl;
        return 1;
    }

private:
    QLabel * m_status;
    Board * m_board;
};

bool asksForPicture(int argc, char ** argv)
{
    return std::any_of(argv + 1, argv + argc,
                       [](char const * word) { return qstrncmp(word, "--picture", 9) == 0; });
}

} // namespace

int main(int argc, char ** argv)
{
    if (asksForPicture(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Edits the texts of a canvas where they are."));
    parser.addHelpOption();
    QCommandLineOption const picture(QStringLiteral("picture"),
                                     QStringLiteral("Draw one frame into FILE and leave."),
                                     QStringLiteral("FILE"));
    parser.addOption(picture);
    parser.process(application);

    Window window;
    if (parser.isSet(picture)) {
        return window.savePicture(parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
