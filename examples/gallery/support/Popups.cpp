#include "examples/gallery/support/Popups.h"

#include <QMenu>

namespace gallery {

void openBelow(QWidget & popup, QWidget const & anchor)
{
    constexpr int gap = 3;
    popup.ensurePolished();
    int const left = popup.isRightToLeft() ? anchor.width() - popup.sizeHint().width() : 0;
    QPoint const place = anchor.mapToGlobal(QPoint(left, anchor.height() + gap));
    if (auto * const menu = qobject_cast<QMenu *>(&popup)) {
        menu->popup(place);
    } else {
        popup.move(place);
        popup.show();
    }
}

OpenButton::OpenButton(QString const & text, QWidget & popup)
    : QPushButton(text)
    , m_popup(popup)
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] { openBelow(m_popup, *this); });
}

// A picture has no screen whose edges count.
void OpenButton::pose()
{
    openBelow(m_popup, *this);
    int const left = isRightToLeft() ? width() - m_popup.width() : 0;
    m_popup.move(mapToGlobal(QPoint(left, height() + 3)));
}

} // namespace gallery
