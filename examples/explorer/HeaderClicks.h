#pragma once

#include <QObject>

namespace zenu {
class KHeader;
} // namespace zenu

namespace explorer {

/// Tells of clicks on the items of a header: press and release on one item, off its dividers. A
/// header reports to one object, and a grid's header reports to the grid, so an application that
/// wants its clicks watches the events.
class HeaderClicks : public QObject
{
    Q_OBJECT
public:
    /// Watches the header, and belongs to it.
    explicit HeaderClicks(zenu::KHeader * watchedHeader);

Q_SIGNALS:
    void clicked(int item);
    /// A double click on the divider at the right end of an item.
    void dividerDoubleClicked(int item);

protected:
    bool eventFilter(QObject * object, QEvent * event) override;

private:
    int itemAt(QPoint const & point) const;

    zenu::KHeader * header;
    int pressedItem = -1;
};

} // namespace explorer
