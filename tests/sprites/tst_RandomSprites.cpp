#include "tests/sprites/RandomStage.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace zenu;
using namespace zenutest;

namespace zenutest {

namespace {

constexpr int windowWidth = 232;
constexpr int windowHeight = 192;
constexpr QRect areaRect(16, 16, 200, 160);
constexpr QRect coverRect(136, 96, 64, 64);
constexpr QRect childRect(8, 120, 40, 24);

QWidget * plainWidget(QWidget * parent, QRect const & r, QColor const & color)
{
    auto * const widget = new QWidget(parent);
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    widget->setGeometry(r);
    return widget;
}

} // namespace

RandomStage::RandomStage(int spriteCount)
    : m_window(std::make_unique<QWidget>())
{
    m_window->resize(windowWidth, windowHeight);
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
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_host->layer = m_layer.get();
    showAndSettle(*m_window);
    for (int i = 0; i < spriteCount; ++i)
        addSprite({i * 37, i * 53, 12 + i % 30, 10 + i % 23});
    commit();
}

QString RandomStage::text(Step const & step)
{
    static std::array<char const *, kinds> const names = {
        "show",           "hide",      "moveTo", "moveBy",  "moveBy",
        "changeContents", "priority",  "remove", "delete",  "add",
        "selection",      "colours",   "layer",  "repaint", "repaint",
        "resize",         "hide host", "scroll", "cover",   "delete in paint event",
        "update"};
    return QStringLiteral("%1(%2, %3, %4, %5)")
        .arg(QLatin1String(names[static_cast<size_t>(step.kind)]))
        .arg(step.n[0])
        .arg(step.n[1])
        .arg(step.n[2])
        .arg(step.n[3]);
}

QRect RandomStage::rectOf(std::array<int, 4> const & n)
{
    return QRect(n[0] % 280 - 20, n[1] % 240 - 20, n[2] % 60 + 1, n[3] % 60 + 1);
}

QColor RandomStage::colorOf(int n)
{
    return QColor(n % 7 * 40, n % 5 * 60, n % 11 * 25);
}

QString RandomStage::run(Step const & step)
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
    return step.kind == 20 ? commit() : changeHost(step);
}

void RandomStage::addSprite(std::array<int, 4> const & n)
{
    QRect const r = rectOf(n);
    m_sprites.push_back(
        std::make_unique<TestSprite>(m_layer.get(), r, colorOf(n[0]), ++m_nextPriority));
    Reference::Sprite sprite;
    sprite.target = r;
    sprite.wanted = sprite.dirty = true;
    sprite.priority = m_nextPriority;
    sprite.next.color = colorOf(n[0]);
    m_reference.sprites.push_back(sprite);
}

void RandomStage::changeSprite(size_t index, Step const & step)
{
    TestSprite & sprite = *m_sprites[index];
    Reference::Sprite & expected = m_reference.sprites[index];
    QRect const r = rectOf({step.n[1], step.n[2], step.n[3], step.n[1]});
    QPoint const delta(step.n[1] % 19 - 9, step.n[2] % 19 - 9);
    switch (step.kind) {
    case 0:
        sprite.show();
        if (!expected.removed)
            expected.wanted = expected.dirty = true;
        break;
    case 1:
        sprite.hide();
        expected.wanted = false;
        break;
    case 2:
        sprite.moveTo(r.topLeft());
        expected.target.moveTopLeft(r.topLeft());
        break;
    case 3:
    case 4:
        sprite.moveBy(delta);
        expected.target.moveTopLeft(expected.committed.topLeft() + delta);
        break;
    case 5:
        sprite.look = expected.next.look = static_cast<TestSprite::Look>(step.n[2] % 3);
        sprite.color = expected.next.color = colorOf(step.n[3]);
        sprite.changeContents(r.size());
        expected.dirty = true;
        expected.target.setSize(r.size());
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
        expected.wanted = false;
        expected.removed = true;
        break;
    default:
        m_sprites.erase(m_sprites.begin() + static_cast<std::ptrdiff_t>(index));
        m_reference.sprites.erase(m_reference.sprites.begin() + static_cast<std::ptrdiff_t>(index));
        commit();
    }
}

void RandomStage::changeLayer(Step const & step)
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
        m_reference.layerWanted = step.n[0] % 3 != 0;
        if (m_reference.layerWanted)
            m_layer->show();
        else
            m_layer->hide();
    }
}

QString RandomStage::changeHost(Step const & step)
{
    QString const wrong = step.kind <= 14 || step.kind == 19 ? paintHost(step) : layOut(step);
    settle(*m_window);
    return wrong.isEmpty() ? commit() : wrong;
}

// The committed state is repaired in the paint event, however much was asked for meanwhile.
QString RandomStage::paintHost(Step const & step)
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

QString RandomStage::layOut(Step const & step)
{
    switch (step.kind) {
    case 15:
        m_host->resize(200 + step.n[0] % 20 * 4, 160 + step.n[1] % 20 * 4);
        break;
    case 16: {
        QWidget * const widget = step.n[0] % 2 == 0 ? m_window.get() : m_host;
        widget->hide();
        settle(*m_window);
        if (step.n[1] % 2 == 0)
            commit();
        widget->show();
        if (!QTest::qWaitForWindowExposed(m_window.get()))
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
QString RandomStage::commit()
{
    int const before = m_host->paints;
    m_layer->update();
    m_reference.commit();
    for (size_t i = m_sprites.size(); i-- > 0;) {
        if (m_sprites[i]->aboutToRemove()) {
            m_removed.push_back(std::move(m_sprites[i]));
            m_sprites.erase(m_sprites.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
    if (m_host->paints != before)
        return QStringLiteral("the host has painted");
    return check("after the update");
}

QRegion RandomStage::clip() const
{
    QRect const seen = QRect(-m_host->pos(), areaRect.size()) & m_host->rect();
    QRegion clip = QRegion(seen) - childRect;
    if (m_cover->isVisible())
        clip -= coverRect.translated(-areaRect.topLeft() - m_host->pos());
    return clip;
}

QImage RandomStage::around() const
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

QString RandomStage::check(char const * when) const
{
    if (!m_window->isVisible() || !m_host->isVisible())
        return QString();
    QString const wrong =
        difference(picture(*m_window), m_reference.picture(*m_host, clip(), around()));
    return wrong.isEmpty() ? wrong : QLatin1String(when) + QLatin1String(": ") + wrong;
}

} // namespace zenutest

// Every pixel after every update, against a picture painted as a whole. More and longer sequences:
// ZENU_SPRITE_RUNS=1000 ZENU_SPRITE_STEPS=200; another start: ZENU_SPRITE_SEED=4711.
class tst_RandomSprites : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void sequence_everyPixelAsInTheReference_data();
    void sequence_everyPixelAsInTheReference();
};

namespace {

int numberFrom(char const * variable, int otherwise)
{
    bool given = false;
    int const number = qEnvironmentVariableIntValue(variable, &given);
    return given ? number : otherwise;
}

std::vector<Step> sequence(unsigned seed, int length)
{
    std::mt19937 random(seed);
    auto const below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
    std::vector<Step> steps;
    for (int i = 0; i < length; ++i) {
        int const kind = below(4) == 0 ? 20 : below(RandomStage::kinds);
        steps.push_back({kind, {below(9973), below(9973), below(9973), below(9973)}});
    }
    return steps;
}

// What went wrong first, and at which step.
struct Failure
{
    QString what;
    size_t step = 0;
};

Failure play(std::vector<Step> const & steps, int spriteCount)
{
    RandomStage stage(spriteCount);
    for (size_t i = 0; i < steps.size(); ++i) {
        QString const wrong = stage.run(steps[i]);
        if (!wrong.isEmpty())
            return {wrong, i};
    }
    return {};
}

// Leaves out all steps without which it still fails.
std::vector<Step> shrunk(std::vector<Step> steps, int spriteCount)
{
    for (size_t chunk = steps.size() / 2; chunk > 0; chunk /= 2) {
        for (size_t at = 0; at + chunk <= steps.size();) {
            std::vector<Step> fewer = steps;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at),
                        fewer.begin() + static_cast<std::ptrdiff_t>(at + chunk));
            if (play(fewer, spriteCount).what.isEmpty())
                at += chunk;
            else
                steps = fewer;
        }
    }
    return steps;
}

} // namespace

void tst_RandomSprites::sequence_everyPixelAsInTheReference_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<int>("spriteCount");
    int const start = numberFrom("ZENU_SPRITE_SEED", 1);
    int const runs = numberFrom("ZENU_SPRITE_RUNS", 6);
    for (int i = 0; i < runs; ++i) {
        int const spriteCount = std::array{3, 8, 40}[static_cast<size_t>(start + i) % 3];
        QTest::addRow("seed %d, %d sprites", start + i, spriteCount) << start + i << spriteCount;
    }
}

void tst_RandomSprites::sequence_everyPixelAsInTheReference()
{
    QFETCH(int, seed);
    QFETCH(int, spriteCount);
    std::vector<Step> steps =
        sequence(static_cast<unsigned>(seed), numberFrom("ZENU_SPRITE_STEPS", onXcb() ? 25 : 50));
    Failure const failure = play(steps, spriteCount);
    if (failure.what.isEmpty())
        return;
    steps.resize(failure.step + 1);
    QStringList told;
    for (Step const & step : shrunk(steps, spriteCount))
        told += RandomStage::text(step);
    QFAIL(qPrintable(failure.what + QLatin1String("\n    ") + told.join(QLatin1String("\n    "))));
}

ZENU_TEST(tst_RandomSprites)
#include "tst_RandomSprites.moc"
