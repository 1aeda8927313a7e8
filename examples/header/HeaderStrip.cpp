#include "HeaderStrip.h"

#include <zenu/overlay/KPainter.h>

#include <QFontMetrics>
#include <QLinearGradient>

#include <utility>

namespace {

constexpr int titleMargin = 12;
constexpr int arrowRoom = 20;
constexpr int verticalThickness = 110;

} // namespace

HeaderStrip::HeaderStrip(std::function<void(QString const &)> report, QWidget * parent)
    : QWidget(parent)
    , m_header(new zenu::KHeader(this))
    , m_report(std::move(report))
{
    m_header->setNotification(this);
    m_header->setDragWhenResized(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

HeaderStrip::~HeaderStrip()
{
    m_header->setNotification(nullptr);
}

int HeaderStrip::add(char const * title, int width, int fmt, int minWidth)
{
    m_header->insertItem(-1, zenu::KHeaderItem(title, nullptr, fmt, minWidth, width, 0));
    return m_header->getItemsCount() - 1;
}

QSize HeaderStrip::sizeHint() const
{
    if (!m_header->isVert()) {
        QRect const layout = m_header->getLayout(QRect(0, 0, 640, 0));
        return layout.size();
    }
    int length = 0;
    for (int i = 0; i < m_header->getItemsCount(); ++i) {
        length += m_header->getItem(i)->getWH();
    }
    return QSize(verticalThickness, length + 1);
}

void HeaderStrip::resizeEvent(QResizeEvent *)
{
    m_header->applyGeometry(m_header->isVert() ? rect() : m_header->getLayout(rect()));
}

bool HeaderStrip::onBeginTrack(int item, int *)
{
    report(QStringLiteral("drag begins"), item);
    return false;
}

bool HeaderStrip::onTrack(int item, int * wh)
{
    report(QStringLiteral("drag to width %1").arg(*wh), item);
    return false;
}

void HeaderStrip::onItemClick(int item)
{
    bool const ascending = (m_header->getItem(item)->getFmt() & zenu::HeaderFormatSortFirst) != 0;
    for (int i = 0; i < m_header->getItemsCount(); ++i) {
        m_header->setSortBitmap(i, zenu::HeaderSortNone);
    }
    m_header->setSortBitmap(item, ascending ? zenu::HeaderSortSecond : zenu::HeaderSortFirst);
    report(QStringLiteral("click"), item);
}

void HeaderStrip::onItemRightClick(int item)
{
    report(QStringLiteral("right click"), item);
}

void HeaderStrip::onItemDoubleClick(int item)
{
    report(QStringLiteral("double click"), item);
}

void HeaderStrip::onDividerDoubleClick(int item)
{
    QString const title = QString::fromLatin1(m_header->getItem(item)->getText().c_str());
    int const text = QFontMetrics(m_header->getfont()).horizontalAdvance(title);
    m_header->setWH(item, text + titleMargin + (m_header->isButtons() ? arrowRoom : 0));
    m_header->update(false);
    report(QStringLiteral("fitted to its title"), item);
}

void HeaderStrip::onDrawItem(zenu::KPainter * painter, int, QRect * rect, bool pressed,
                             unsigned int)
{
    QLinearGradient fill(rect->topLeft(), rect->topRight());
    fill.setColorAt(0, pressed ? Qt::darkCyan : Qt::cyan);
    fill.setColorAt(1, Qt::blue);
    painter->fillRect(*rect, fill);
    painter->setPen(Qt::white);
    painter->drawText(*rect, Qt::AlignCenter, QStringLiteral("owner drawn"));
}

void HeaderStrip::report(QString const & what, int item)
{
    if (zenu::KHeaderItem const * const one = m_header->getItem(item)) {
        m_report(QString::fromLatin1(one->getText().c_str()) + QStringLiteral(": ") + what);
    }
}
