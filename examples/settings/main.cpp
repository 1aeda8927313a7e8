#include "SettingsWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPen>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>

namespace {

bool asksForPicture(int argc, char ** argv)
{
    return std::any_of(argv + 1, argv + argc,
                       [](char const * word) { return qstrncmp(word, "--picture", 9) == 0; });
}

QString defaultFile()
{
    QDir const folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    return folder.filePath(QStringLiteral("zenu/settings-example.ini"));
}

// Some settings are changed, so that the frame shows their marks; nothing is written.
int savePicture(SettingsWindow & window, QString const & file)
{
    zenu::KConfig & config = window.config();
    config.setPen(OutlinePen, QPen(QBrush(QColor(40, 70, 140)), 2, Qt::DashLine));
    config.setString(Caption, "A drawing with changed settings");
    config.setUInt(Shapes, 9);
    window.showSettings();
    window.show();
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
    parser.setApplicationDescription(QStringLiteral("Changes settings that an INI file keeps."));
    parser.addHelpOption();
    QCommandLineOption const file(QStringLiteral("file"),
                                  QStringLiteral("Keep the settings in FILE."),
                                  QStringLiteral("FILE"), defaultFile());
    QCommandLineOption const picture(QStringLiteral("picture"),
                                     QStringLiteral("Draw one frame into FILE and leave."),
                                     QStringLiteral("FILE"));
    parser.addOptions({file, picture});
    parser.process(application);

    SettingsWindow window(parser.value(file));
    if (parser.isSet(picture)) {
        return savePicture(window, parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
