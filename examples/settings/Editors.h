#pragma once

#include <zenu/config/KConfig.h>

#include <QWidget>

#include <functional>

// Widgets that show a setting and change it. They keep nothing themselves: `show` takes the value
// from the configuration again, and `changed` is called after each change by the user.

struct Editor
{
    QWidget * widget;
    std::function<void()> show;
};

using Changed = std::function<void()>;

Editor makeColorEditor(zenu::KConfig & config, int id, Changed const & changed);
Editor makeBoolEditor(zenu::KConfig & config, int id, Changed const & changed);
Editor makeIntEditor(zenu::KConfig & config, int id, int least, int most, Changed const & changed);
Editor makeUIntEditor(zenu::KConfig & config, int id, Changed const & changed);
Editor makeInt64Editor(zenu::KConfig & config, int id, Changed const & changed);
Editor makePenEditor(zenu::KConfig & config, int id, Changed const & changed);
Editor makeFontEditor(zenu::KConfig & config, int id, Changed const & changed);
Editor makeBrushEditor(zenu::KConfig & config, int id, Changed const & changed);
Editor makeStringEditor(zenu::KConfig & config, int id, Changed const & changed);
