#pragma once

#include "tests/time/Nanoseconds.h"
#include "tests/time/TypingScene.h"

#include <zenu/time/KTimeBox.h>

namespace zenutest {

struct TimeBoxScene : TypingScene<zenu::KTimeBox>
{
    TimeBoxScene()
        : TypingScene("box")
        , changes(box, &zenu::KTimeBox::timeChanged)
        , numbers(box, &QSpinBox::valueChanged)
        , texts(box, &QSpinBox::textChanged)
    {
    }
    // Nothing that the base tells of its integer.
    bool baseIsQuiet() { return numbers.isEmpty() && texts.isEmpty() && box->value() == 0; }

    QSignalSpy changes;
    QSignalSpy numbers;
    QSignalSpy texts;
};

} // namespace zenutest
