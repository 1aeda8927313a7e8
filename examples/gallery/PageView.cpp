#include "examples/gallery/PageView.h"

#include "examples/gallery/PageCode.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace gallery {

namespace {

QLabel * makeTitle(Page const & page)
{
    auto * const title = new QLabel(QString::fromLatin1(page.name));
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    title->setFont(font);
    return title;
}

QLabel * makeAbout(Page const & page)
{
    auto * const about = new QLabel(QString::fromLatin1(page.about));
    about->setWordWrap(true);
    return about;
}

// Code reads from left to right in every language.
QPlainTextEdit * makeCode(Page const & page)
{
    auto * const code = new QPlainTextEdit(codeOf(QString::fromLatin1(page.name) + "Page"));
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(code->font().pointSizeF());
    code->setFont(font);
    code->setLayoutDirection(Qt::LeftToRight);
    code->setReadOnly(true);
    code->setLineWrapMode(QPlainTextEdit::NoWrap);
    return code;
}

} // namespace

PageView::PageView(Page const & page, QWidget * parent)
    : QWidget(parent)
    , m_content(page.make())
    , m_stage(new QWidget)
    , m_code(makeCode(page))
{
    auto * const stage = new QVBoxLayout(m_stage);
    stage->setContentsMargins(0, 0, 0, 0);
    stage->addWidget(m_content);
    auto * const parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(m_stage);
    parts->addWidget(m_code);
    auto * const layout = new QVBoxLayout(this);
    layout->addWidget(makeTitle(page));
    layout->addWidget(makeAbout(page));
    layout->addWidget(parts, 1);
}

QString PageView::code() const
{
    return m_code->toPlainText();
}

void PageView::pose()
{
    QList<QWidget *> widgets = m_content->findChildren<QWidget *>();
    widgets += m_content;
    for (QWidget * widget : widgets) {
        if (auto * const scene = dynamic_cast<PictureScene *>(widget)) {
            scene->pose();
        }
    }
}

void PageView::showAll(QSize const & part)
{
    int const top = m_stage->mapTo(this, QPoint()).y();
    int const content = std::max({m_content->sizeHint().height(), m_content->minimumHeight(),
                                  m_content->minimumSizeHint().height()});
    m_stage->setFixedHeight(std::max(part.height() - top, content));
    m_content->setMaximumHeight(content);
    m_stage->layout()->setAlignment(m_content, Qt::AlignTop);
    QSize const text = m_code->fontMetrics().size(0, code());
    m_code->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_code->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_code->setFixedHeight(text.height() + 14);
    m_code->setMinimumWidth(text.width() + 14);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QSize const least = layout()->totalMinimumSize();
    resize(std::max({width(), least.width(), part.width()}), least.height());
}

} // namespace gallery
