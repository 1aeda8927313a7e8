#include "examples/gallery/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyle>

namespace gallery {

namespace {

QPalette darkPalette()
{
    QColor const light(225, 225, 225);
    QPalette palette(QColor(60, 60, 64), QColor(48, 48, 52));
    palette.setColor(QPalette::Base, QColor(34, 34, 38));
    palette.setColor(QPalette::AlternateBase, QColor(44, 44, 48));
    palette.setColor(QPalette::ToolTipBase, QColor(70, 70, 76));
    palette.setColor(QPalette::Highlight, QColor(40, 100, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(120, 170, 240));
    for (QPalette::ColorRole const role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, light);
        palette.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    }
    return palette;
}

} // namespace

void setLook(Look const & look)
{
    static QFont const desktopFont = QApplication::font();
    QFont font = desktopFont;
    if (look.fontSize > 0) {
        font.setPointSize(look.fontSize);
    }
    QApplication::setFont(font);
    QApplication::setPalette(look.dark ? darkPalette() : QApplication::style()->standardPalette());
    QApplication::setLayoutDirection(look.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

} // namespace gallery
