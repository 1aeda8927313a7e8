#pragma once

#include "zenu/widgets/KColorButton.h"
#include "zenu/widgets/inner/ColorButtonGeometry.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QColor>
#include <QtGui/QPalette>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOptionToolButton>

namespace zenu {

struct KColorButton::PrivateData
{
    explicit PrivateData(KColorButton * button)
        : owner(button)
    {
    }

    bool hasArrowPart() const { return popup && popupDelay == 0; }
    // Where a press opens the menu; empty without an arrow part.
    QRect arrowPart() const;
    int arrowPartWidth() const;
    QPixmap parentsPixmap() const;
    QPoint globalPopupPosition() const;
    ColorButtonContent content() const;

    void drawParts(QPainter * painter) const;
    void drawContent(QPainter * painter) const;

    KColorButton * owner;
    bool showColor = false;
    bool showArrow = false;
    bool showText = false;
    bool frame = false;
    bool autoRaise = false;
    bool instantPopup = false;          // the menu is open or opening by the arrow part
    bool discardNextMouseEvent = false; // the press that closed the menu must not open it again
    bool isRunningMenu = false;         // in the event loop of the menu
    bool savedAutoRepeat = false;
    int margin = 2;
    int spacing = 2;
    bool hovering = false;
    QColor fillColor = Qt::white;
    QColor borderColor = Qt::black;
    QString text;
    Qt::ArrowType arrowType = Qt::DownArrow; // kept, not shown
    QSize minColorSize = QSize(0, 0);
    QSize maxColorSize = QSize(0, 0);
    QPointer<QMenu> popup;
    QTimer * popupTimer = nullptr;
    int popupDelay = 0;
    quint64 closingPress = 0; // the time of the press that closed the menu, 0 for none
    QPalette palette;         // the one that paletteChange is told at the next change

private:
    QStyleOptionToolButton styleOption() const;
    void drawLabel(QPainter * painter, QRect const & place) const;
};

} // namespace zenu
