#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/MainWindow.h"
#include "examples/explorer/Options.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QPalette>
#include <QSettings>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

constexpr int failed = 1;
constexpr int wrongUse = 2;

int complain(std::string const & message, int code)
{
    std::fprintf(stderr, "zenu_explorer: %s\n", message.c_str());
    return code;
}

// The grid draws the frames of check boxes and the header in the colour of buttons, which some
// styles hardly tell from the background.
void strengthenButtons()
{
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Button, palette.color(QPalette::Button).darker(112));
    QApplication::setPalette(palette);
}

// One frame into a file; PNG when the name does not say.
int drawPicture(explorer::MainWindow & window, std::string const & file)
{
    window.show();
    window.updateStatus();
    QApplication::processEvents();
    QString const name = QFile::decodeName(file.c_str());
    QImageWriter writer(name);
    if (QFileInfo(name).suffix().isEmpty()) {
        writer.setFormat("png");
    }
    if (!writer.write(window.grab().toImage())) {
        return complain("cannot write " + file + ": " + writer.errorString().toStdString(), failed);
    }
    return 0;
}

// The directory to show, in the bytes of the file system; empty when it cannot be one.
std::string directoryOf(explorer::Options const & options)
{
    std::string path = options.directory.empty() ? QFile::encodeName(QDir::homePath()).toStdString()
                                                 : options.directory;
    char * const absolute = realpath(path.c_str(), nullptr);
    path = absolute ? absolute : "";
    std::free(absolute);
    return explorer::isDirectory(path) ? path : std::string();
}

// Null for a program that keeps nothing between its runs.
std::unique_ptr<QSettings> settingsOf(explorer::Options const & options)
{
    if (options.noSettings || !options.picture.empty()) {
        return nullptr;
    }
    if (!options.settings.empty()) {
        return std::make_unique<QSettings>(QFile::decodeName(options.settings.c_str()),
                                           QSettings::IniFormat);
    }
    return std::make_unique<QSettings>(QStringLiteral("zenu"), QStringLiteral("explorer"));
}

int run(explorer::Options const & options)
{
    explorer::MainWindow window;
    window.keepLookIn(settingsOf(options));
    if (options.rows >= 0) {
        window.showRows(options.rows);
    } else if (std::string const directory = directoryOf(options); !directory.empty()) {
        window.showDirectory(directory);
    } else {
        return complain("no such directory: " + options.directory, failed);
    }
    if (options.expandAll) {
        window.expandAll();
    }
    if (!options.picture.empty()) {
        return drawPicture(window, options.picture);
    }
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("zenu explorer"));
    strengthenButtons();
    explorer::Options const options = explorer::readOptions(argc, argv);
    if (!options.error.empty()) {
        return complain(options.error + "\n\n" + explorer::usage(), wrongUse);
    }
    if (options.help) {
        std::fputs(explorer::usage(), stdout);
        return 0;
    }
    try {
        return run(options);
    } catch (std::bad_alloc const &) {
        return complain("not enough memory for that many rows", failed);
    }
}
