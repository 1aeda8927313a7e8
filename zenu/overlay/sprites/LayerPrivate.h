#pragma once

#include "zenu/overlay/KSpriteLayer.h"
#include "zenu/overlay/sprites/AreaBackground.h"
#include "zenu/overlay/sprites/Composition.h"
#include "zenu/overlay/sprites/RegionUnion.h"
#include "zenu/overlay/sprites/Scene.h"
#include "zenu/overlay/sprites/SpritePrivate.h"
#include "zenu/overlay/surface/WidgetSurface.h"

#include <QObject>

#include <vector>

namespace zenu {

/// The committed and the target state of a layer, and the passes between the two.
///
/// Outside paint events an update commits: it takes off what changed, reads the new backgrounds
/// and draws, all in one opening of the surface. In a paint event it repairs: what the widget has
/// painted goes into the backgrounds that are saved, and the committed scene is laid over it; a
/// commit is posted if the target differs. No virtual operation of a sprite runs while the surface
/// is open, so whatever an application does there finds a whole picture. Sprites, the widget and
/// the layer itself may go in each of them: what calls one answers false if the layer is gone.
class KSpriteLayer::PrivateData
{
public:
    explicit PrivateData(QWidget * widget);
    ~PrivateData();
    PrivateData(PrivateData const &) = delete;
    PrivateData & operator=(PrivateData const &) = delete;

    using Sprite = KSprite::PrivateData;

    void add(KSpriteLayer * layer, Sprite & sprite);
    void remove(Sprite & sprite);
    /// The sprite dies. Its background stays until it is put back.
    void release(Sprite & sprite);
    void wantAll();
    void clobber(QRect const & rect);
    void update();

    WidgetSurface surface;
    SelectionBand band;     // committed
    SelectionBand nextBand; // target
    bool colorsChanged = false;
    bool shown = false;    // committed
    bool wantShown = true; // target

private:
    struct Leftover // of a sprite that is gone, still on the screen
    {
        QRect rect;
        BackgroundBuffer background;
    };

    struct Places // of a sprite in the commit that runs; null for none
    {
        QRect before;
        QRect after;
    };

    struct Load // of that commit, as counts of pixels
    {
        double changed = 0; // what drawing that alone which changed costs
        double all = 0;     // what drawing everything costs
        double pixels = 0;  // of all sprites, at their places before and after
        Bounds bounds;      // of these places
        bool draws = false; // some sprite has drawn itself
    };

    bool repair();
    static bool isBlindIn(QRegion const & painted, Sprite const & sprite);
    bool redrawsBlind(QRegion const & painted) const;
    bool redrawBlind(QRegion const & painted);
    bool drawContents(Sprite & sprite, QSize size, BackgroundBuffer & background);
    void drawIntoPicture();
    void commitLater();
    bool isUncommitted() const;

    void commit();
    bool notify(void (KSprite::*callback)());
    bool drawChanged();
    bool wantsContents(Sprite const & sprite, qreal ratio) const;
    void readForContents();
    void compose();
    void commitState();

    bool needsBackground(Sprite const & sprite, QRegion const & clobbered) const;
    QRegion clobberedRegion() const;
    void fillOldScene();
    void fillReadScene();
    void fillNextScene();
    void fillScenes();
    bool isChanged(Sprite const & sprite) const;
    Places placesOf(Sprite const & sprite) const;
    QRect bandBefore() const;
    QRect bandAfter() const;
    QRegion changedBand() const;
    Load load() const;
    static bool isMuch(Load const & load);
    QRegion changedRegion(QRegion const & clobbered) const;

    QRect areaFor(QRect const & bounds) const;
    bool isDense(Load const & load, QRegion const & clobbered) const;
    void chooseArea(Load const & load, QRegion const & clobbered);
    void leaveArea();
    void holdArea();
    bool isBandUnchanged() const;

    std::vector<Sprite *> m_sprites;  // in order of addition
    std::vector<Sprite *> m_stack;    // the same from the bottom to the top, at the last commit
    std::vector<Sprite *> m_departed; // removed, and still pointing here
    std::vector<Sprite *> m_changed;  // to be drawn by the commit that runs; null once gone
    std::vector<Sprite *> m_drawing;  // one within the other; null once gone
    size_t m_notified = 0;            // how many of m_sprites
    std::vector<Leftover> m_leftovers;
    std::vector<QRect> m_clobbered;        // painted by the widget and not repaired yet
    std::vector<QRect> m_clobberedPicture; // the same in the picture that is being taken of it
    Scene m_old;
    Scene m_read; // where backgrounds are read
    Scene m_next;
    AreaBackground m_area;
    int m_denseCommits = 0; // without a break
    bool m_busy = false;    // a commit runs
    bool m_again = false;   // one more was asked for meanwhile
    bool m_posted = false;  // one is on its way
    QObject m_receiver;     // of the posted call
};

} // namespace zenu
