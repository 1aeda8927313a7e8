#include "zenu/overlay/sprites/AreaBackground.h"

#include "zenu/overlay/surface/WidgetSurface.h"

namespace zenu {

void AreaBackground::enter(QRect const & r)
{
    m_state = State::Entered;
    m_rect = r;
}

void AreaBackground::hold(WidgetSurface const & surface)
{
    m_state = State::Held;
    m_deviceSize = surface.device(m_rect).size();
    m_writes = surface.writes();
}

void AreaBackground::leave()
{
    m_state = State::None;
    m_pixels = BackgroundBuffer();
}

bool AreaBackground::isGood(WidgetSurface const & surface) const
{
    return m_state == State::Held && m_writes == surface.writes() &&
           m_deviceSize == surface.device(m_rect).size();
}

void AreaBackground::complete(WidgetSurface const & surface, BackgroundBuffer & background) const
{
    QRect const place = background.elsewhere();
    if (place.isNull())
        return;
    background.ensureSize(place.size(), surface.ratio(), m_pixels.rows().format);
    QRect const pixels = surface.device(place);
    copyPixels(background.rows(), QPoint(), m_pixels.rows(),
               pixels.topLeft() - surface.device(m_rect).topLeft(), pixels.size());
}

} // namespace zenu
