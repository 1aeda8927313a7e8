#include "SettingsWindow.h"

#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPen>
#include <QStandardPaths>

namespace {

QString defaultFile()
{
    QDir const folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    return folder.filePath(QStringLiteral("zenu/settings-example.ini"));
}

// Some settings are changed, so that the frame shows their marks; nothing is written.
QPixmap pictureOf(SettingsWindow & window)
{
    zenu::KConfig & config = window.config();
    config.setPen(OutlinePen, QPen(QBrush(QColor(40, 70, 140)), 2, Qt::DashLine));
    config.setString(Caption, "A drawing with changed settings");
    config.setUInt(Shapes, 9);
    window.showSettings();
    window.show();
    QCoreApplication::processEvents();
    return window.grab();
}

} // namespace

int main(int argc, char ** argv)
{
    example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Changes settings that an INI file keeps."));
    parser.addHelpOption();
    QCommandLineOption const file(QStringLiteral("file"),
                                  QStringLiteral("Keep the settings in FILE."),
                                  QStringLiteral("FILE"), defaultFile());
    QCommandLineOption const picture = example::pictureOption();
    parser.addOptions({file, picture});
    parser.process(application);

    SettingsWindow window(parser.value(file));
    if (parser.isSet(picture)) {
        return example::savePicture(pictureOf(window), parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
