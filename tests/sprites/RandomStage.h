#pragma once

#include "tests/sprites/Reference.h"

#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <array>
#include <memory>

namespace zenutest {

/// One step of a random sequence: what happens, and four numbers that say how. Any numbers will do,
/// so steps can be left out of a sequence.
struct Step
{
    int kind;
    std::array<int, 4> n;
};

/// A host in a scroll area, partly covered, with sprites over it, and the reference beside it.
class RandomStage
{
public:
    static constexpr int kinds = 26;
    static constexpr int updateKind = 20;
    static constexpr int driftKind = 25;
    static constexpr int firstManyKind = 21; // the kinds from here on change many sprites at once

    explicit RandomStage(int spriteCount);
    /// Does the step and returns what is wrong on the screen after it, or in what a sprite saw.
    QString run(Step const & step);
    static QString text(Step const & step);

private:
    struct Drawing
    {
        TestSprite const * sprite;
        bool inPaintEvent;
        QImage below;
    };

    void addSprite(std::array<int, 4> const & n);
    void changeSprite(size_t index, Step const & step);
    void changeMany(Step const & step);
    QString drift(Step const & step);
    void changeLayer(Step const & step);
    QString changeHost(Step const & step);
    QString paintHost(Step const & step);
    QString layOut(Step const & step);
    QString commit();
    QString checkDrawings();
    QString check(char const * when) const;
    QImage bare() const;
    QImage around() const;
    QRegion clip() const;
    static QRect rectOf(std::array<int, 4> const & n);
    static QColor colorOf(int n);

    static constexpr QSize windowSize{232, 192};
    static constexpr QRect areaRect{16, 16, 200, 160};
    static constexpr QRect coverRect{136, 96, 64, 64};
    static constexpr QRect childRect{8, 120, 40, 24};

    std::vector<Drawing> m_drawings; // since they were last looked at
    std::unique_ptr<QWidget> m_window;
    QScrollArea * m_area;
    SpriteHost * m_host;
    QWidget * m_cover;
    QWidget * m_child;
    std::unique_ptr<zenu::KSpriteLayer> m_layer;
    std::vector<std::unique_ptr<TestSprite>> m_sprites; // as in the reference
    std::vector<std::unique_ptr<TestSprite>> m_removed;
    Reference m_reference;
    int m_nextPriority = 0;
};

inline QWidget * plainWidget(QWidget * parent, QRect const & r, QColor const & color)
{
    auto * const widget = new QWidget(parent);
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    widget->setGeometry(r);
    return widget;
}

inline RandomStage::RandomStage(int spriteCount)
    : m_window(std::make_unique<QWidget>())
{
    m_window->resize(windowSize);
    m_area = new QScrollArea(m_window.get());
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setGeometry(areaRect);
    m_host = new SpriteHost;
    m_host->resize(240, 200);
    m_area->setWidget(m_host);
    m_cover = plainWidget(m_window.get(), coverRect, Qt::yellow);
    m_child = plainWidget(m_host, childRect, Qt::cyan);
    m_layer = std::make_unique<zenu::KSpriteLayer>(m_host);
    m_host->layer = m_layer.get();
    showAndSettle(*m_window);
    for (int i = 0; i < spriteCount; ++i)
        addSprite({i * 37, i * 53, 12 + i % 30, 10 + i % 23});
    commit();
}

inline QString RandomStage::text(Step const & step)
{
    static std::array<char const *, kinds> const names = {
        "show",           "hide",      "moveTo",    "moveBy",    "moveBy",
        "changeContents", "priority",  "remove",    "delete",    "add",
        "selection",      "colours",   "layer",     "repaint",   "repaint",
        "resize",         "hide host", "scroll",    "cover",     "delete in paint event",
        "update",         "move all",  "show some", "hide some", "change some",
        "drift"};
    return QStringLiteral("%1(%2, %3, %4, %5)")
        .arg(QLatin1String(names[static_cast<size_t>(step.kind)]))
        .arg(step.n[0])
        .arg(step.n[1])
        .arg(step.n[2])
        .arg(step.n[3]);
}

inline QRect RandomStage::rectOf(std::array<int, 4> const & n)
{
    return QRect(n[0] % 280 - 20, n[1] % 240 - 20, n[2] % 60 + 1, n[3] % 60 + 1);
}

inline QColor RandomStage::colorOf(int n)
{
    return QColor(n % 7 * 40, n % 5 * 60, n % 11 * 25);
}

inline QString RandomStage::run(Step const & step)
{
    if (step.kind <= 8) {
        if (!m_sprites.empty())
            changeSprite(static_cast<size_t>(step.n[0]) % m_sprites.size(), step);
        return step.kind == 8 ? check("after the deletion") : QString();
    }
    if (step.kind <= 12) {
        changeLayer(step);
        return QString();
    }
    if (step.kind < updateKind)
        return changeHost(step);
    if (step.kind == driftKind)
        return drift(step);
    if (step.kind >= firstManyKind)
        changeMany(step);
    return step.kind <= firstManyKind ? commit() : QString();
}

inline void RandomStage::addSprite(std::array<int, 4> const & n)
{
    QRect const r = rectOf(n);
    m_sprites.push_back(
        std::make_unique<TestSprite>(m_layer.get(), r, colorOf(n[0]), ++m_nextPriority));
    TestSprite & sprite = *m_sprites.back();
    sprite.look = static_cast<TestSprite::Look>(n[1] % 3);
    sprite.whileDrawing = [this, &sprite] {
        m_drawings.push_back({&sprite, m_host->painting, sprite.below});
    };
    Reference::Sprite expected;
    expected.target = r;
    expected.priority = m_nextPriority;
    expected.next = {sprite.look, sprite.color, r.size()};
    Reference::show(expected);
    m_reference.sprites.push_back(expected);
}

inline void RandomStage::changeSprite(size_t index, Step const & step)
{
    TestSprite & sprite = *m_sprites[index];
    Reference::Sprite & expected = m_reference.sprites[index];
    QRect const r = rectOf({step.n[1], step.n[2], step.n[3], step.n[1]});
    QPoint const delta(step.n[1] % 19 - 9, step.n[2] % 19 - 9);
    switch (step.kind) {
    case 0:
        sprite.show();
        Reference::show(expected);
        break;
    case 1:
        sprite.hide();
        Reference::hide(expected);
        break;
    case 2:
        sprite.moveTo(r.topLeft());
        Reference::move(expected, r.topLeft());
        break;
    case 3:
    case 4:
        sprite.moveBy(delta);
        Reference::move(expected, expected.committed.topLeft() + delta);
        break;
    case 5:
        sprite.look = expected.next.look = static_cast<TestSprite::Look>(step.n[2] % 3);
        sprite.color = expected.next.color = colorOf(step.n[3]);
        sprite.changeContents(r.size());
        Reference::change(expected, r.size());
        break;
    case 6: {
        // Exchanged with another, or put on top.
        size_t const other = static_cast<size_t>(step.n[1]) % m_sprites.size();
        int const own = sprite.priority();
        int const taken = other == index ? ++m_nextPriority : m_sprites[other]->priority();
        m_sprites[other]->setPriority(own);
        m_reference.sprites[other].priority = own;
        sprite.setPriority(taken);
        expected.priority = taken;
        break;
    }
    case 7:
        m_layer->removeSprite(&sprite);
        Reference::hide(expected);
        expected.removed = true;
        break;
    default:
        m_sprites.erase(m_sprites.begin() + static_cast<std::ptrdiff_t>(index));
        m_reference.sprites.erase(m_reference.sprites.begin() + static_cast<std::ptrdiff_t>(index));
        commit();
    }
}

inline void RandomStage::changeMany(Step const & step)
{
    size_t const every = static_cast<size_t>(step.n[3]) % 3 + 2;
    std::array<int, 3> const kindsOfOne = {0, 1, 5};
    for (size_t i = 0; i < m_sprites.size(); ++i) {
        int const k = static_cast<int>(i);
        if (step.kind == firstManyKind) {
            QPoint const delta((step.n[0] + k * 7) % 13 - 6, (step.n[1] + k * 5) % 13 - 6);
            m_sprites[i]->moveBy(delta);
            Reference::Sprite & expected = m_reference.sprites[i];
            Reference::move(expected, expected.committed.topLeft() + delta);
        } else if ((i + static_cast<size_t>(step.n[0])) % every == 0) {
            int const kind = kindsOfOne[static_cast<size_t>(step.kind - firstManyKind - 1)];
            changeSprite(i, {kind, {k, step.n[1] + k * 31, step.n[2] + k * 17, k * 13}});
        }
    }
}

// All move several times in a row, without a band mostly: a layer may prepare for that.
inline QString RandomStage::drift(Step const & step)
{
    if (step.n[2] % 4 != 0) {
        m_layer->setSelection(QRect());
        m_reference.nextBand.rect = QRect();
    }
    for (int i = 0; i < 5 + step.n[3] % 4; ++i) {
        changeMany({firstManyKind, {step.n[0] + i, step.n[1] + 2 * i, 0, 0}});
        QString const wrong = commit();
        if (!wrong.isEmpty())
            return wrong;
    }
    return QString();
}

inline void RandomStage::changeLayer(Step const & step)
{
    switch (step.kind) {
    case 9:
        addSprite(step.n);
        break;
    case 10: {
        QRect const r = step.n[0] % 4 == 0 ? QRect() : rectOf(step.n);
        m_layer->setSelection(r);
        m_reference.nextBand.rect = r;
        break;
    }
    case 11:
        if (step.n[0] % 3 != 0) {
            m_layer->setSelForeground(colorOf(step.n[1]));
            m_reference.setForeground(colorOf(step.n[1]));
        }
        if (step.n[0] % 3 != 1) {
            m_layer->setSelBackground(colorOf(step.n[2]));
            m_reference.setBackground(colorOf(step.n[2]));
        }
        break;
    default:
        if (step.n[0] % 3 != 0) {
            m_layer->show();
            m_reference.showLayer();
        } else {
            m_layer->hide();
            m_reference.layerWanted = false;
        }
    }
}

inline QString RandomStage::changeHost(Step const & step)
{
    QString const wrong = step.kind <= 14 || step.kind == 19 ? paintHost(step) : layOut(step);
    settle(*m_window);
    m_reference.paint(*m_host, m_host->painted & clip(), bare());
    m_host->painted = QRegion();
    return wrong.isEmpty() ? commit() : wrong;
}

// The committed state is repaired in the paint event, however much was asked for meanwhile.
inline QString RandomStage::paintHost(Step const & step)
{
    QRect const cells(step.n[0] % 20 * 8, step.n[1] % 16 * 8, step.n[2] % 9 * 8 + 8,
                      step.n[3] % 9 * 8 + 8);
    QRect const painted = step.n[0] % 2 == 0 ? cells : cells.adjusted(3, 2, -2, -3);
    m_host->clobbersAll = step.n[1] % 5 == 0;
    m_host->keepsPainterOpen = step.n[2] % 3 == 0;
    std::unique_ptr<TestSprite> dying;
    if (step.kind == 19 && !m_sprites.empty()) {
        size_t const index = static_cast<size_t>(step.n[3]) % m_sprites.size();
        dying = std::move(m_sprites[index]);
        m_sprites.erase(m_sprites.begin() + static_cast<std::ptrdiff_t>(index));
        m_reference.sprites.erase(m_reference.sprites.begin() + static_cast<std::ptrdiff_t>(index));
        m_host->inPaintEvent = [&] { dying.reset(); };
    } else if (painted == cells) {
        m_host->changePicture(cells, step.n[0] % 6);
    }
    m_host->repaint(painted);
    m_host->inPaintEvent = nullptr;
    bool const stillThere = dying != nullptr; // nothing was painted
    dying.reset();
    if (step.kind == 19)
        return QString(); // what it leaves behind goes right after the event
    return stillThere ? QString() : check("after the repaint");
}

inline QString RandomStage::layOut(Step const & step)
{
    switch (step.kind) {
    case 15:
        m_host->resize(200 + step.n[0] % 20 * 4, 160 + step.n[1] % 20 * 4);
        break;
    case 16: {
        bool const all = step.n[0] % 2 == 0;
        m_host->setVisible(all);
        if (all && !hideAndSettle(*m_window))
            return QStringLiteral("the window does not go");
        settle(*m_window);
        if (step.n[1] % 2 == 0)
            commit();
        m_host->show();
        if (all && !showAgainAndSettle(*m_window))
            return QStringLiteral("the window does not come back");
        break;
    }
    case 17:
        m_area->horizontalScrollBar()->setValue(step.n[0] % 20 * 4);
        m_area->verticalScrollBar()->setValue(step.n[1] % 20 * 4);
        break;
    default:
        m_cover->setVisible(!m_cover->isVisible());
    }
    return QString();
}

// An update outside of paint events is on the screen when it returns.
inline QString RandomStage::commit()
{
    int const before = m_host->paints;
    m_layer->update();
    m_reference.commit(*m_host, bare());
    for (size_t i = m_sprites.size(); i-- > 0;) {
        if (m_sprites[i]->aboutToRemove()) {
            m_removed.push_back(std::move(m_sprites[i]));
            m_sprites.erase(m_sprites.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
    if (m_host->paints != before)
        return QStringLiteral("the host has painted");
    QString const wrong = checkDrawings();
    return wrong.isEmpty() ? check("after the update") : wrong;
}

// Each sprite is drawn once for each time that it must be, with the right picture below it.
inline QString RandomStage::checkDrawings()
{
    for (Drawing const & drawing : m_drawings) {
        auto const found =
            std::find_if(m_sprites.begin(), m_sprites.end(),
                         [&](auto const & sprite) { return sprite.get() == drawing.sprite; });
        if (found == m_sprites.end())
            return QStringLiteral("a sprite was drawn that has left");
        auto const index = found - m_sprites.begin();
        Reference::Sprite & expected = m_reference.sprites[static_cast<size_t>(index)];
        std::optional<QImage> & seen = drawing.inPaintEvent ? expected.seenInPass : expected.seen;
        if (!seen)
            return QStringLiteral("sprite %1 was drawn without need").arg(index);
        QString const wrong = difference(drawing.below, *seen);
        if (!wrong.isEmpty())
            return QStringLiteral("sprite %1 saw something else below it: ").arg(index) + wrong;
        seen.reset();
    }
    m_drawings.clear();
    for (Reference::Sprite const & sprite : m_reference.sprites) {
        if (sprite.seen || sprite.seenInPass)
            return QStringLiteral("a sprite was not drawn");
    }
    return QString();
}

// Null while the host is on no screen.
inline QImage RandomStage::bare() const
{
    if (!m_host->isVisible())
        return QImage();
    QSize const size = deviceRect(*m_window, m_window->rect()).size();
    return Reference::bareOf(*m_host, clip(), Reference::unknown(size));
}

inline QRegion RandomStage::clip() const
{
    QRect const seen = QRect(-m_host->pos(), areaRect.size()) & m_host->rect();
    QRegion clip = QRegion(seen) - childRect;
    if (m_cover->isVisible())
        clip -= coverRect.translated(-areaRect.topLeft() - m_host->pos());
    return clip;
}

inline QImage RandomStage::around() const
{
    QImage image(deviceRect(*m_window, m_window->rect()).size(), QImage::Format_RGB32);
    image.fill(m_window->palette().color(QPalette::Window));
    QPainter painter(&image);
    QRect const child = childRect & QRect(-m_host->pos(), areaRect.size());
    painter.fillRect(deviceRect(*m_host, child), Qt::cyan);
    if (m_cover->isVisible())
        painter.fillRect(deviceRect(*m_window, coverRect), Qt::yellow);
    return image;
}

inline QString RandomStage::check(char const * when) const
{
    if (!m_window->isVisible() || !m_host->isVisible())
        return QString();
    QString const wrong =
        difference(picture(*m_window), m_reference.picture(*m_host, clip(), around()));
    return wrong.isEmpty() ? wrong : QLatin1String(when) + QLatin1String(": ") + wrong;
}

} // namespace zenutest
