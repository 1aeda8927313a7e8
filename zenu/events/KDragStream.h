#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtGui/QDrag>

class QWidget;

namespace zenu {

/// How drags end.
namespace DropEffect {

/// The result of a drag, with the numbers that applications store.
enum Effects : int
{
    /// The mouse ended where it began: no drag at all.
    DropEffectNone = 0,
    /// The mouse ended elsewhere, and the data was not moved: it was copied, or nobody took it.
    DropEffectCopy = 1,
    /// The data was moved: the source deletes its own.
    DropEffectMove = 2
};

} // namespace DropEffect

/// A drag with a payload that its owner writes with the operators of QDataStream. In one object it
/// is the drag, the bytes written so far and their writer.
///
/// Make it with new, write, call `drag`, and forget it: the drag machinery deletes it when the
/// target has fetched the payload. Until then it is a child of the drag source. What is in the
/// stream, and in which QDataStream::Version, is up to the two sides; KDropStream reads it.
class ZENU_EXPORT KDragStream : public QDrag, public QByteArray, public QDataStream
{
    Q_OBJECT
public:
    /// A drag from `dragSource` of a payload under `mimeType`, in Latin-1. Its picture is a single
    /// transparent pixel, so that the user sees the cursor alone. With a null source it is never
    /// dragged, with a null or empty type it carries nothing. `name` may be null.
    KDragStream(char const * mimeType, QWidget * dragSource, char const * name);
    ~KDragStream() override;

    /// Drags what was written until now, as `realDrag` does. Other formats that were set in
    /// `mimeData()` go along. Once for each object, which may be gone when this returns.
    DropEffect::Effects drag();

private:
    QString m_mimeType;
};

/// Runs `object`, which may be copied or moved, until the user lets go, in an event loop of its
/// own, and says by the place of the mouse and the action how it ended. A null `object` gives
/// DropEffectNone. If the drag source dies on the way, the drag is cancelled.
ZENU_EXPORT DropEffect::Effects realDrag(QDrag * object);

} // namespace zenu
