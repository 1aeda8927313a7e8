// Shows every public class of the library in use, a page each, beside the code that makes it.
//
//   zenu_gallery [--page NAME] [--dark] [--font-size N] [--rtl] [--pictures DIR]
//                [--picture FILE]

#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/Look.h"
#include "examples/gallery/PageList.h"
#include "examples/gallery/Pictures.h"
#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <QTextStream>

namespace {

struct Options
{
    QCommandLineOption pictures{QStringLiteral("pictures"),
                                QStringLiteral("Draw each page into a file in DIR and leave."),
                                QStringLiteral("DIR")};
    QCommandLineOption picture{QStringLiteral("picture"),
                               QStringLiteral("Draw the window into FILE and leave."),
                               QStringLiteral("FILE")};
    QCommandLineOption page{QStringLiteral("page"), QStringLiteral("Open at this page."),
                            QStringLiteral("NAME")};
    QCommandLineOption dark{QStringLiteral("dark"), QStringLiteral("Use dark colours.")};
    QCommandLineOption fontSize{QStringLiteral("font-size"),
                                QStringLiteral("Use a font of N points."), QStringLiteral("N")};
    QCommandLineOption rightToLeft{QStringLiteral("rtl"),
                                   QStringLiteral("Lay out from right to left.")};
};

int complainUnless(bool done, char const * about, QString const & name)
{
    if (!done) {
        QTextStream(stderr) << about << name << Qt::endl;
    }
    return done ? 0 : 1;
}

// Shows the window, or draws what is asked for.
int run(QCommandLineParser const & parser, Options const & options)
{
    if (parser.isSet(options.pictures)) {
        QString const folder = parser.value(options.pictures);
        return complainUnless(gallery::savePictures(folder), "Cannot write to ", folder);
    }
    gallery::GalleryWindow window;
    if (parser.isSet(options.page)) {
        QString const page = parser.value(options.page);
        if (complainUnless(window.list().select(page), "There is no page ", page) != 0) {
            return 1;
        }
    }
    if (parser.isSet(options.picture)) {
        QString const file = parser.value(options.picture);
        return complainUnless(gallery::savePicture(gallery::pictureOf(window), file),
                              "Cannot write ", file);
    }
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char ** argv)
{
    bool const drawsPictures = example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    Options const options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows every class of the library in use."));
    parser.addHelpOption();
    parser.addOptions({options.pictures, options.picture, options.page, options.dark,
                       options.fontSize, options.rightToLeft});
    parser.process(application);

    if (drawsPictures) {
        QApplication::setStyle(QStringLiteral("Fusion")); // the same pictures on every desktop
    }
    gallery::setLook({parser.isSet(options.dark), parser.value(options.fontSize).toInt(),
                      parser.isSet(options.rightToLeft)});
    return run(parser, options);
}
