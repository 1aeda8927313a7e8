#pragma once

#include "examples/gallery/Page.h"

#include <QPushButton>

namespace gallery {

// Shows a popup or dialog below a widget, flush with its left edge, or with its right one where
// that is the leading one.
void openBelow(QWidget & popup, QWidget const & anchor);

// A button that opens a popup or dialog below itself, for a click and for pictures. The popup
// stays the caller's and outlives the button's use.
class OpenButton : public QPushButton, public PictureScene
{
public:
    OpenButton(QString const & text, QWidget & popup);

    void pose() override;

private:
    QWidget & m_popup;
};

} // namespace gallery
