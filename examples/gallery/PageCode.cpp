#include "examples/gallery/PageCode.h"

#include <QStringList>

#include <algorithm>

namespace gallery {

namespace {

qsizetype indentation(QString const & line)
{
    auto const text = std::find_if(line.begin(), line.end(), [](QChar c) { return c != ' '; });
    return text - line.begin();
}

void outdent(QStringList & lines)
{
    qsizetype shared = -1;
    for (QString const & line : lines) {
        if (!line.isEmpty()) {
            qsizetype const own = indentation(line);
            shared = shared < 0 ? own : std::min(shared, own);
        }
    }
    for (QString & line : lines) {
        line = line.mid(std::max<qsizetype>(shared, 0));
    }
}

} // namespace

QString shownLines(QString const & text)
{
    QStringList pieces;
    QStringList piece;
    bool shown = false;
    for (QString const & line : text.split('\n')) {
        if (line.trimmed() == QLatin1String("// [code]")) {
            if (shown) {
                outdent(piece);
                pieces += piece.join('\n').trimmed();
                piece.clear();
            }
            shown = !shown;
        } else if (shown) {
            piece += line;
        }
    }
    return pieces.join(QLatin1String("\n\n"));
}

QString codeOf(QString const & sourceName)
{
    for (PageSource const * source = pageSources; source->name != nullptr; ++source) {
        if (sourceName == QLatin1String(source->name)) {
            return shownLines(QString::fromUtf8(source->text));
        }
    }
    return QString();
}

} // namespace gallery
