#pragma once

#include <zenu/config/KConfig.h>

#include <QWidget>

// The settings of a small drawing, one for each type, and one that is not kept.
enum Setting
{
    PaperColor,
    ShowGrid,
    GridStep,
    Shapes,
    Seed,
    OutlinePen,
    CaptionFont,
    FillBrush,
    Caption,
    Angle,
    SettingCount
};

void declareSettings(zenu::KConfig & config);

// Draws with the settings, and reads them anew each time.
class Drawing : public QWidget
{
public:
    explicit Drawing(zenu::KConfig const & config, QWidget * parent = nullptr);

    QSize sizeHint() const override { return {340, 340}; }

protected:
    void paintEvent(QPaintEvent * event) override;

private:
    void paintGrid(QPainter & painter) const;
    void paintShapes(QPainter & painter) const;
    void paintCaption(QPainter & painter) const;

    zenu::KConfig const & m_config;
};
