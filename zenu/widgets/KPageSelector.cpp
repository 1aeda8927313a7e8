#include "zenu/widgets/KPageSelector.h"

#include "zenu/widgets/KPixmapSet.h"
#include "zenu/widgets/inner/MenuChain.h"

#include <QtCore/QPointer>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetrics>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QWidgetAction>

#include <algorithm>

namespace zenu {

namespace {

constexpr int labelHeight = 24;
constexpr int extraWidth = 6;
constexpr int smallestText = 6; // pixels
constexpr int extraHeight = 35; // the label, and the rest above and below

// clang-format off
char const * unselectedXpm[] = {
    "21 26 6 1",
    "d c #040204",
    "b c #444244",
    "# c #848284",
    ". c #c4c2c4",
    "c c #d4d2cc",
    "a c #fcfefc",
    ".....................",
    ".###################a",
    ".#bbbbbbbbbbbbbbbbbca",
    ".#b################ca",
    ".#b################ca",
    ".#b##aaaaaaaaaaa###ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aabbbbbbbaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aabbbbbbbaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aabbbbbbbaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aabbbbbbbaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aabbbbbbbaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aabbbbbbbaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b##aaaaaaaaaaadd#ca",
    ".#b###dddddddddddd#ca",
    ".#b###dddddddddddd#ca",
    ".#b################ca",
    ".#cccccccccccccccccca",
    ".aaaaaaaaaaaaaaaaaaaa",
    ".....................",
};

char const * selectedXpm[] = {
    "21 26 7 1",
    "e c #040204",
    "d c #0402fc",
    "b c #444244",
    "# c #848284",
    ". c #c4c2c4",
    "c c #d4d2cc",
    "a c #fcfefc",
    ".....................",
    ".###################a",
    ".#bbbbbbbbbbbbbbbbbca",
    ".#bddddddddddddddddca",
    ".#bddddddddddddddddca",
    ".#bddaaaaaaaaaaadddca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaabbbbbbbaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaabbbbbbbaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaabbbbbbbaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaabbbbbbbaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaabbbbbbbaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaabbbbbbbaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bddaaaaaaaaaaaeedca",
    ".#bdddeeeeeeeeeeeedca",
    ".#bdddeeeeeeeeeeeedca",
    ".#bddddddddddddddddca",
    ".#cccccccccccccccccca",
    ".aaaaaaaaaaaaaaaaaaaa",
    ".....................",
};
// clang-format on

// The size of `count` images in a row, from nothing to what a widget can be with `extra` beside it.
int extent(int count, int image, int extra)
{
    return static_cast<int>(std::clamp<qint64>(qint64(count) * image, 0, QWIDGETSIZE_MAX - extra));
}

QString pagesText(int rows, int columns)
{
    return QStringLiteral("%1 x %2 pages").arg(rows).arg(columns);
}

} // namespace

struct ZENU_HIDDEN KPageSelector::PrivateData
{
    explicit PrivateData(KPageSelector * selector, int rowCount, int columnCount);

    void addItem(QWidget * widget);
    void placeInTheMiddle();
    void fitText();
    void selectAt(QPointF const & position);
    void select(int newRows, int newColumns);
    void pick();
    void paint();

    KPageSelector * const q;
    QWidget * const area;
    QLabel * const label;
    QPixmap const unselectedPixmap;
    QPixmap const selectedPixmap;
    QSize const image;
    int const rows;
    int const columns;
    int selectedRows = 0;
    int selectedColumns = 0;
    QSize const gridSize;
};

KPageSelector::PrivateData::PrivateData(KPageSelector * selector, int rowCount, int columnCount)
    : q(selector)
    , area(new QWidget(selector))
    , label(new QLabel(selector))
    , unselectedPixmap(retrieveOrCreateXpm("KMultiPageSelector:un", unselectedXpm))
    , selectedPixmap(retrieveOrCreateXpm("KMultiPageSelector:se", selectedXpm))
    , image(unselectedPixmap.deviceIndependentSize().toSize().expandedTo(QSize(1, 1)))
    , rows(std::max(rowCount, 0))
    , columns(std::max(columnCount, 0))
    , gridSize(extent(columns, image.width(), extraWidth),
               extent(rows, image.height(), extraHeight))
{
}

void KPageSelector::PrivateData::addItem(QWidget * widget)
{
    auto * const action = new QWidgetAction(q);
    action->setDefaultWidget(widget);
    q->addAction(action);
}

// Styles differ in the frame that they draw round a menu's items.
void KPageSelector::PrivateData::placeInTheMiddle()
{
    int const frame = q->style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, q);
    int const across = q->style()->pixelMetric(QStyle::PM_MenuHMargin, nullptr, q) + frame;
    int const down = q->style()->pixelMetric(QStyle::PM_MenuVMargin, nullptr, q) + frame;
    int const left = std::max(extraWidth / 2 - across, 0);
    int const top = std::max((extraHeight - labelHeight) / 2 - down, 0);
    q->setContentsMargins(left, top, left, top);
}

// The label does not grow, so a large font, or any over a narrow grid, becomes smaller: cut at both
// ends the text would lose a number.
void KPageSelector::PrivateData::fitText()
{
    label->setFont(QFont());
    QFont font = label->font();
    QSize const place = label->contentsRect().size();
    auto const fits = [&] {
        QSize const text = QFontMetrics(font, label).size(0, pagesText(rows, columns));
        return text.width() <= place.width() && text.height() <= place.height();
    };
    for (int size = QFontInfo(font).pixelSize(); size > smallestText && !fits();) {
        font.setPixelSize(--size);
        label->setFont(font);
    }
}

// The first page reaches from its own width before the grid to its end, as divisions go.
void KPageSelector::PrivateData::selectAt(QPointF const & position)
{
    select(qFloor(position.y()) / image.height() + 1, qFloor(position.x()) / image.width() + 1);
}

void KPageSelector::PrivateData::select(int newRows, int newColumns)
{
    if (newRows == selectedRows && newColumns == selectedColumns) {
        return;
    }
    selectedRows = newRows;
    selectedColumns = newColumns;
    area->update();
    label->setText(pagesText(selectedRows, selectedColumns));
}

void KPageSelector::PrivateData::pick()
{
    QPointer<KPageSelector> const guard(q); // a receiver may delete it
    Q_EMIT guard->pageRangeSelected(selectedRows, selectedColumns);
    if (guard) {
        QPointer<QAction> const cause = guard->menuAction();
        guard->hide();
        closeMenusAbove(cause);
    }
}

// Three rectangles that cover the area without overlapping, so nothing is erased before. What lies
// outside of the area is cut off, and an empty rectangle draws nothing.
void KPageSelector::PrivateData::paint()
{
    QPainter painter(area);
    double const width = double(image.width()) * selectedColumns;
    double const height = double(image.height()) * selectedRows;
    double const dx = gridSize.width() - width;
    double const dy = gridSize.height() - height;
    painter.drawTiledPixmap(QRectF(width, 0, dx, gridSize.height()), unselectedPixmap);
    painter.drawTiledPixmap(QRectF(0, height, width, dy), unselectedPixmap);
    painter.drawTiledPixmap(QRectF(0, 0, width, height), selectedPixmap);
}

KPageSelector::KPageSelector(QWidget *, int rows, int columns)
    : d(std::make_unique<PrivateData>(this, rows, columns))
{
    setFixedSize(d->gridSize + QSize(extraWidth, extraHeight));
    d->placeInTheMiddle();

    d->area->setAttribute(Qt::WA_OpaquePaintEvent);
    d->area->setMouseTracking(true);
    d->area->setFixedSize(d->gridSize);
    d->area->installEventFilter(this);
    d->addItem(d->area);

    d->label->setAlignment(Qt::AlignCenter);
    d->label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    d->label->setFixedSize(d->gridSize.width(), labelHeight);
    d->addItem(d->label);
    d->fitText();
}

KPageSelector::~KPageSelector() = default;

QSize KPageSelector::sizeHint() const
{
    return maximumSize();
}

bool KPageSelector::eventFilter(QObject * watched, QEvent * event)
{
    if (watched != d->area) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        d->pick();
        return true;
    case QEvent::MouseMove:
        d->selectAt(static_cast<QMouseEvent *>(event)->position());
        return true;
    case QEvent::Paint:
        d->paint();
        return true;
    default:
        return false;
    }
}

void KPageSelector::changeEvent(QEvent * event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        d->placeInTheMiddle();
    }
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        d->fitText();
    }
}

void KPageSelector::keyPressEvent(QKeyEvent * event)
{
    int const down = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    int const across = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    bool const isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if ((down != 0 || across != 0) && d->rows > 0 && d->columns > 0) {
        d->select(std::clamp(d->selectedRows + down, 1, d->rows),
                  std::clamp(d->selectedColumns + across, 1, d->columns));
    } else if (isReturn && d->selectedRows > 0 && d->selectedColumns > 0) {
        d->pick();
    } else {
        QMenu::keyPressEvent(event);
    }
}

} // namespace zenu
