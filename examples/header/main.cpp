#include "Showcase.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

#include <algorithm>

namespace {

// Draws one frame into a file; 0, or 1 with a message when the file cannot be written.
int savePicture(Showcase & showcase, QString const & file)
{
    showcase.show();
    QCoreApplication::processEvents();
    showcase.pose();
    if (showcase.grab().save(file)) {
        return 0;
    }
    QTextStream(stderr) << "Cannot write " << file << Qt::endl;
    return 1;
}

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
    parser.setApplicationDescription(QStringLiteral("Shows the looks of a header without a grid."));
    parser.addHelpOption();
    QCommandLineOption const picture(QStringLiteral("picture"),
                                     QStringLiteral("Draw one frame into FILE and leave."),
                                     QStringLiteral("FILE"));
    parser.addOption(picture);
    parser.process(application);

    Showcase showcase;
    showcase.resize(700, 560);
    if (parser.isSet(picture)) {
        return savePicture(showcase, parser.value(picture));
    }
    showcase.show();
    return QApplication::exec();
}
