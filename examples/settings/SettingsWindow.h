#pragma once

#include "Drawing.h"
#include "Editors.h"
#include "store/IniStore.h"

#include <zenu/config/KConfig.h>

#include <QWidget>

#include <array>

class QGridLayout;
class QLabel;

// Shows and changes the settings of a drawing: a dot marks what is changed. Save writes into the
// file, Reset takes back what was not saved, Defaults takes back everything.
class SettingsWindow : public QWidget
{
public:
    explicit SettingsWindow(QString const & file, QWidget * parent = nullptr);

    zenu::KConfig & config() { return m_config; }

    // Takes all values from the configuration again.
    void showSettings();
    bool save();
    void reset();
    void takeDefaults();

private:
    struct Line
    {
        QLabel * name = nullptr;
        QLabel * mark = nullptr;
        Editor editor;
    };

    void addLines(QGridLayout * grid);
    void addLine(QGridLayout * grid, int id, QString const & name, Editor const & editor);
    QWidget * makeButtons();
    void showMarks();

    zenu::KConfig m_config;
    IniStore m_store;
    std::array<Line, SettingCount> m_lines;
    Drawing * m_drawing;
    QLabel * m_status;
};
