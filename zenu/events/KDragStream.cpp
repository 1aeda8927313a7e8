#include "zenu/events/KDragStream.h"

#include "zenu/overlay/NarrowText.h"

#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace zenu {

namespace {

char const * const transparentPixel[] = {"1 1 1 1", ". c None", "."};

// A drag object is a child of its source, and the platform goes on using it when the source dies
// in the loop. So it is taken out, and the drag ends: drop targets could ask for the source. That
// is put off until the loop's next turn, in case a target is just handling the drop. `loop` is
// gone when the drag has ended by itself.
void surviveSource(QDrag * object, QObject * loop)
{
    if (!object->source()) {
        return;
    }
    QObject::connect(object->source(), &QObject::destroyed, loop,
                     [drag = QPointer<QDrag>(object), loop] {
                         if (drag) {
                             drag->setParent(nullptr);
                         }
                         QMetaObject::invokeMethod(loop, &QDrag::cancel, Qt::QueuedConnection);
                     });
}

} // namespace

KDragStream::KDragStream(char const * mimeType, QWidget * dragSource, char const * name)
    : QDrag(dragSource)
    , QDataStream(static_cast<QByteArray *>(this), QIODevice::WriteOnly)
    , m_mimeType(chars2qstring(mimeType))
{
    setObjectName(chars2qstring(name));
    setMimeData(new QMimeData);
    setPixmap(QPixmap(transparentPixel));
}

KDragStream::~KDragStream() = default;

DropEffect::Effects KDragStream::drag()
{
    if (!mimeData()) {
        setMimeData(new QMimeData);
    }
    if (!m_mimeType.isEmpty()) {
        mimeData()->setData(m_mimeType, *this);
    }
    return realDrag(this);
}

DropEffect::Effects realDrag(QDrag * object)
{
    if (!object) {
        return DropEffect::DropEffectNone;
    }
    QObject loop;
    surviveSource(object, &loop);
    QPoint const begin = QCursor::pos();
    bool const moved = object->exec(Qt::CopyAction | Qt::MoveAction) == Qt::MoveAction;
    if (QCursor::pos() == begin) {
        return DropEffect::DropEffectNone;
    }
    return moved ? DropEffect::DropEffectMove : DropEffect::DropEffectCopy;
}

} // namespace zenu
