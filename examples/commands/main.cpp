#include "examples/commands/EditorWindow.h"
#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextCursor>

namespace {

// With the cursor inside the text.
QPixmap pictureOf(editor::EditorWindow & window)
{
    window.show();
    window.text()->moveCursor(QTextCursor::NextWord);
    window.actions()->updateAll();
    QCoreApplication::processEvents();
    return window.grab();
}

} // namespace

int main(int argc, char ** argv)
{
    example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("An editor whose commands run through handlers."));
    parser.addHelpOption();
    QCommandLineOption const picture = example::pictureOption();
    parser.addOption(picture);
    parser.process(application);

    editor::EditorWindow window;
    if (parser.isSet(picture)) {
        return example::savePicture(pictureOf(window), parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
