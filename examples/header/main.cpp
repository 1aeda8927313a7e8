#include "Showcase.h"

#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

QPixmap pictureOf(Showcase & showcase)
{
    showcase.show();
    QCoreApplication::processEvents();
    showcase.pose();
    return showcase.grab();
}

} // namespace

int main(int argc, char ** argv)
{
    example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the looks of a header without a grid."));
    parser.addHelpOption();
    QCommandLineOption const picture = example::pictureOption();
    parser.addOption(picture);
    parser.process(application);

    Showcase showcase;
    showcase.resize(700, 560);
    if (parser.isSet(picture)) {
        return example::savePicture(pictureOf(showcase), parser.value(picture));
    }
    showcase.show();
    return QApplication::exec();
}
