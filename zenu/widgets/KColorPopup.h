#pragma once

#include "zenu/ZenuExport.h"

#include <QtGui/QColor>
#include <QtWidgets/QMenu>

#include <memory>

namespace zenu {

class KColorButton;

/// A menu in which the user picks a colour: an entry for the default colour, a grid of swatches,
/// and an entry that opens QColorDialog.
///
/// It has no parent, so its owner deletes it; a KColorButton that shows it does not. It may be
/// opened again and again, by several buttons, as a submenu, or by QMenu::exec and popup, and other
/// actions may be added to it. Mouse and keys work as in any menu, and in the grid all four arrow
/// keys do. The popup may be deleted in a slot of colorSelected. GUI thread only.
class ZENU_EXPORT KColorPopup : public QMenu
{
    Q_OBJECT
public:
    /// Five rows of ten standard colours, black as the default colour and no current one.
    KColorPopup();

    /// A grid of `rows` times `columns` swatches, row by row in the order of `colors`, without a
    /// current colour. The table holds at least that many values; their alpha does not count. It
    /// stays the caller's and must outlive the popup: a pick reads it again, while the swatches
    /// keep the colours that were there at first. With no rows, no columns or a null table there
    /// is no grid.
    KColorPopup(int rows, int columns, unsigned int const * colors, QColor const & defaultColor);

    /// The same with a current colour.
    KColorPopup(int rows, int columns, unsigned int const * colors, QColor const & defaultColor,
                QColor const & currentColor);

    ~KColorPopup() override;

    /// What the default entry stands for. It shows a new colour when the popup opens next.
    void setDefaultColor(QColor const & color);
    QColor const & getDefaultColor() const;

    /// Where the colour dialog starts; with an invalid colour it starts with white. A pick does not
    /// change it.
    void setCurrentColor(QColor const & color);
    QColor const & getCurrentColor() const;

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

Q_SIGNALS:
    /// The user has picked `color`. The popup is closed by then.
    void colorSelected(QColor color);

protected:
    bool eventFilter(QObject * watched, QEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void initStyleOption(QStyleOptionMenuItem * option, QAction const * action) const override;

private Q_SLOTS:
    void colorSel(int index);
    void defaultSel();
    void otherSel();
    void beforeShow();
    void beforeHide();

private:
    struct PrivateData;

    void makeGrid();
    QAction * addEntry(QWidget * widget);
    bool closeWithCauses();
    void restoreFadeEffect();
    KColorButton * buttonAt(QPoint const & global) const;
    bool isOverEntry(QMouseEvent const & event) const;
    void makeCurrent(KColorButton * button);
    void light(KColorButton * button);
    void lightEntryOf(QAction * action);

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
