#pragma once

#include "tests/sprites/SpriteHost.h"
#include "tests/support/TestMain.h"

#include <limits>
#include <memory>

namespace zenutest {

inline constexpr int least = std::numeric_limits<int>::min();
inline constexpr int most = std::numeric_limits<int>::max();
inline constexpr QRect everywhere{QPoint(least, least), QPoint(most, most)};

/// A host in a window with a layer over it and, where a test wants them, two sprites that overlap
/// and a band. Derived classes call `openScene` and `closeScene` before and after each test.
class SceneTest : public Test
{
protected:
    static constexpr QRect hostRect{24, 32, 240, 160};
    static constexpr QRect lowerRect{40, 40, 32, 32};
    static constexpr QRect upperRect{56, 48, 40, 24};
    static constexpr QRect bandRect{16, 56, 160, 48};

    /// The layer is committed and empty.
    bool openScene()
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(320, 240);
        m_host = new SpriteHost(m_window.get());
        m_host->setGeometry(hostRect);
        bool const exposed = showAndSettle(*m_window);
        m_empty = picture(*m_window);
        m_layer = std::make_unique<zenu::KSpriteLayer>(m_host);
        m_host->layer = m_layer.get();
        m_layer->update();
        m_host->paints = 0;
        return exposed;
    }

    /// A test may have destroyed any part of the scene.
    void closeScene()
    {
        m_upper.reset();
        m_lower.reset();
        m_layer.reset();
        m_window.reset();
    }

    void addSprites()
    {
        m_lower = std::make_unique<TestSprite>(m_layer.get(), lowerRect, Qt::red, 1);
        m_upper = std::make_unique<TestSprite>(m_layer.get(), upperRect, Qt::blue, 2);
        m_layer->update();
    }

    void addBand(QRect const & r)
    {
        m_layer->setSelForeground(Qt::white);
        m_layer->setSelBackground(Qt::black);
        m_layer->setSelection(r);
        m_layer->update();
    }

    void addSpritesAndBand()
    {
        addSprites();
        addBand(bandRect);
    }

    void hideAll()
    {
        for (TestSprite * const sprite : {m_lower.get(), m_upper.get()}) {
            if (sprite)
                sprite->hide();
        }
        m_layer->setSelection(QRect());
        m_layer->update();
    }

    /// The window as it is seen.
    QImage seen() const { return picture(*m_window); }

    /// The window with both sprites where they stood first, and the band.
    QImage withSpritesAndBand() const
    {
        QImage image = withBand(bandRect);
        image = filled(image, *m_host, lowerRect, Qt::red);
        return filled(image, *m_host, upperRect, Qt::blue);
    }

    /// The window with that part of the host inverted.
    QImage withBand(QRect const & r) const { return inverted(m_empty, {deviceRect(*m_host, r)}); }

    /// The window with the lower sprite where it shall stand now.
    QImage withLower() const
    {
        return filled(m_empty, *m_host, m_lower->geometry(), m_lower->color);
    }

    /// The window with both sprites where they shall stand now.
    QImage withSprites() const
    {
        return filled(withLower(), *m_host, m_upper->geometry(), m_upper->color);
    }

    /// The host's part of a picture of the window.
    QImage ofHost(QImage const & window) const
    {
        return window.copy(deviceRect(*m_host, m_host->rect()));
    }

    /// The host alone, with device pixels as its own.
    QImage grabbed() const
    {
        QImage image = m_host->grab().toImage().convertToFormat(QImage::Format_RGB32);
        image.setDevicePixelRatio(1);
        return image;
    }

    std::unique_ptr<QWidget> m_window;
    SpriteHost * m_host = nullptr;
    std::unique_ptr<zenu::KSpriteLayer> m_layer;
    std::unique_ptr<TestSprite> m_lower;
    std::unique_ptr<TestSprite> m_upper;
    QImage m_empty; // the window without sprites
};

} // namespace zenutest
