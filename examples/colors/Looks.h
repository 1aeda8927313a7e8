#pragma once

#include <zenu/widgets/KColorPopup.h>

#include <QWidget>

#include <memory>

class QGridLayout;
class QLabel;

namespace zenu {
class KColorButton;
}

// Every look of a colour button, each with a line that says how it is made; tool bars of both
// directions; and what the user picks in the popup that all of them open.
class Looks : public QWidget
{
public:
    Looks();

    zenu::KColorPopup & popup() { return *m_popup; }

private:
    zenu::KColorButton * add(QString const & what);
    void addSwatches();
    void addTexts();
    void addPopups();
    void addToggles();
    void addToolBar(Qt::Orientation orientation);
    void showPick(QColor const & picked);

    std::unique_ptr<zenu::KColorPopup> m_popup;
    QGridLayout * m_grid;
    QLabel * m_picked;
    zenu::KColorButton * m_main = nullptr;
};
