#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QDataStream>

class QMimeData;

namespace zenu {

/// Reads what a KDragStream has written, in the same order. Made on the stack where a drop is
/// handled; it keeps the bytes, so it may outlive the drop.
class ZENU_EXPORT KDropStream : public QDataStream
{
public:
    /// Reads the bytes that `source`, QDropEvent::mimeData(), has under `mimeType`. If it has none,
    /// or `mimeType` is null, the stream is at its end from the beginning.
    KDropStream(char const * mimeType, QMimeData const & source);
    ~KDropStream();
};

} // namespace zenu
