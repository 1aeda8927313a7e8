#include "examples/commands/EditorWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextCursor>
#include <QTextStream>

#include <algorithm>

namespace {

bool asksForPicture(int argc, char ** argv)
{
    return std::any_of(argv + 1, argv + argc,
                       [](char const * word) { return qstrncmp(word, "--picture", 9) == 0; });
}

// Draws one frame, with the cursor inside the text, into a file; 0, or 1 with a message when the
// file cannot be written.
int savePicture(editor::EditorWindow & window, QString const & file)
{
    window.show();
    window.text()->moveCursor(QTextCursor::NextWord);
    window.actions()->updateAll();
    QCoreApplication::processEvents();
    if (window.grab().save(file)) {
        return 0;
    }
    QTextStream(stderr) << "Cannot write " << file << Qt::endl;
    return 1;
}

} // namespace

int main(int argc, char ** argv)
{
    if (asksForPicture(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("An editor whose commands run through handlers."));
    parser.addHelpOption();
    QCommandLineOption const picture(QStringLiteral("picture"),
                                     QStringLiteral("Draw one frame into FILE and leave."),
                                     QStringLiteral("FILE"));
    parser.addOption(picture);
    parser.process(application);

    editor::EditorWindow window;
    if (parser.isSet(picture)) {
        return savePicture(window, parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
