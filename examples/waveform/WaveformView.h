#pragma once

#include "Signal.h"
#include "Sprites.h"

#include <zenu/overlay/KCaret.h>
#include <zenu/overlay/KDataTip.h>
#include <zenu/overlay/KSpriteLayer.h>
#include <zenu/widgets/KPixmapSet.h>

#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

// The picture of a signal, which is slow to draw, and over it everything that moves: a pair of
// lines that follow the mouse, a tip with the time and value there, a caret that blinks at the
// place of the last click, a band that is dragged over a stretch of time, and markers that drift.
// None of that makes the picture be drawn again.
//
// Arrow keys move the caret, a drag selects, Return shows the selected stretch alone, Escape all.
class WaveformView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int markerCount = 100;

    explicit WaveformView(int samples, QWidget * parent = nullptr);
    ~WaveformView() override;

    // How often the picture was painted, all or in part, and how often the sprites moved, since the
    // start.
    int paints() const { return m_paints; }
    int frames() const { return m_frames; }

    // Moves the markers by one step, and all that changed to its place.
    void step();
    // Stops and starts the markers.
    void setDrifting(bool drifting);

    // The stretch on display and the selected one, in samples; last is not included.
    struct Stretch
    {
        int first;
        int last;
    };
    Stretch visible() const { return m_visible; }
    Stretch selected() const;
    void zoomToSelection();
    void zoomOut();

    int sampleAt(int x) const;

Q_SIGNALS:
    // The number of paints or frames has changed.
    void counted();

protected:
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void leaveEvent(QEvent * event) override;
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;

private:
    void addMarkers();
    void drawPicture(QPainter & painter, QRect const & exposed) const;
    int yOf(float value) const;
    void showStretch(Stretch const & stretch);
    void follow(QPoint const & mouse);
    void placeTip(QPoint const & mouse);
    void moveCaret(int x);
    void updateSprites();

    Signal m_signal;
    Stretch m_visible;
    zenu::KSpriteLayer m_layer{this};
    zenu::KPixmapSet m_pictures;
    LineSprite m_timeLine;
    LineSprite m_valueLine;
    zenu::KDataTip m_tip;
    zenu::KCaret m_caret;
    std::vector<std::unique_ptr<Marker>> m_markers;
    QTimer m_timer;
    QRect m_band;
    std::optional<QPoint> m_mouse; // where it rests over the picture
    int m_pressedAt = -1;          // x of the press that drags the band; -1: none
    int m_caretX = 0;
    int m_paints = 0;
    int m_frames = 0;
};
