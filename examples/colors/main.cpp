#include "Looks.h"

#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPainter>
#include <QStyleFactory>

#include <algorithm>

namespace {

void useDarkPalette()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(QColor(50, 54, 60), QColor(38, 41, 46));
    palette.setColor(QPalette::Base, QColor(27, 30, 32));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    QApplication::setPalette(palette);
}

// The window, and its popup beside it.
QPixmap pictureOf(Looks & looks)
{
    looks.show();
    looks.popup().popup(looks.mapToGlobal(QPoint(0, 0)));
    QCoreApplication::processEvents();
    QPixmap const window = looks.grab();
    QPixmap const popup = looks.popup().grab();
    qreal const ratio = window.devicePixelRatio();
    QPixmap all(window.width() + popup.width(), std::max(window.height(), popup.height()));
    all.setDevicePixelRatio(ratio);
    all.fill(Qt::gray);
    QPainter painter(&all);
    painter.drawPixmap(0, 0, window);
    painter.drawPixmap(QPointF(window.width() / ratio, 0), popup);
    painter.end();
    looks.popup().close();
    return all;
}

} // namespace

int main(int argc, char ** argv)
{
    example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the looks of colour buttons, and picks."));
    parser.addHelpOption();
    QCommandLineOption const picture = example::pictureOption();
    QCommandLineOption const dark(QStringLiteral("dark"), QStringLiteral("Use a dark palette."));
    QCommandLineOption const size(QStringLiteral("font-size"),
                                  QStringLiteral("Use a font of POINTS."),
                                  QStringLiteral("POINTS"));
    parser.addOptions({picture, dark, size});
    parser.process(application);
    if (parser.isSet(dark)) {
        useDarkPalette();
    }
    if (parser.isSet(size)) {
        QFont font = QApplication::font();
        font.setPointSize(std::max(1, parser.value(size).toInt()));
        QApplication::setFont(font);
    }

    Looks looks;
    if (parser.isSet(picture)) {
        return example::savePicture(pictureOf(looks), parser.value(picture));
    }
    looks.show();
    return QApplication::exec();
}
