#pragma once

#include <QCommandLineOption>
#include <QPixmap>
#include <QTextStream>

#include <algorithm>

// What the examples share: with `--picture FILE` they draw one frame into a file, and leave.
namespace example {

// To be called before the application is made: a picture needs no display. True if the arguments
// ask for one.
inline bool prepareForPicture(int argc, char ** argv)
{
    bool const asked = std::any_of(argv + 1, argv + argc, [](char const * word) {
        return qstrncmp(word, "--picture", 9) == 0;
    });
    if (asked && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    return asked;
}

inline QCommandLineOption pictureOption()
{
    return {QStringLiteral("picture"), QStringLiteral("Draw one frame into FILE and leave."),
            QStringLiteral("FILE")};
}

// The exit code: 0, or 1 with a message when the file cannot be written.
inline int savePicture(QPixmap const & picture, QString const & file)
{
    if (picture.save(file)) {
        return 0;
    }
    QTextStream(stderr) << "Cannot write " << file << Qt::endl;
    return 1;
}

} // namespace example
