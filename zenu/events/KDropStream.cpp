#include "zenu/events/KDropStream.h"

#include "zenu/overlay/NarrowText.h"

#include <QtCore/QMimeData>

namespace zenu {

namespace {

// No source is asked for data without a type.
QByteArray payload(char const * mimeType, QMimeData const & source)
{
    QString const type = chars2qstring(mimeType);
    return type.isEmpty() ? QByteArray() : source.data(type);
}

} // namespace

KDropStream::KDropStream(char const * mimeType, QMimeData const & source)
    : QDataStream(payload(mimeType, source))
{
}

KDropStream::~KDropStream() = default;

} // namespace zenu
