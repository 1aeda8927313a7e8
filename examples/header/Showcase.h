#pragma once

#include "HeaderStrip.h"

#include <zenu/widgets/KPixmapSet.h>

#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

// One strip for each look of the header, with a line below that says what happened last.
class Showcase : public QWidget
{
public:
    Showcase();

    // Brings the mouse over an item and sorts another, as a picture without a mouse needs it.
    void pose();

private:
    HeaderStrip * addStrip(QString const & title);
    void addPlain();
    void addFlat();
    void addButtons();
    void addProportional();
    void addSticking();
    void addHotTracked();
    void addImages();
    void addLineDrag();
    void addVertical();

    // The images outlive the headers that show them, which are children of the layout's widget.
    zenu::KPixmapSet m_images;
    QPixmap m_bitmap;
    QWidget m_page;
    QVBoxLayout * m_layout;
    QLabel * m_status;
    HeaderStrip * m_hot = nullptr;
};
