#pragma once

#include <zenu/time/KTimeBox.h>

#include <QtTest/QtTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace zenutest {

constexpr double ps = 1000.0; // femtoseconds in a count, for a resolution of a picosecond
inline zenu::TimeValue nanoseconds(double value)
{
    return zenu::TimeValue(value, zenu::TimeUnit(zenu::TimeUnit::ns), ps);
}

// A box in a window, beside something else that takes the focus.
struct TimeBoxScene
{
    TimeBoxScene()
        : box(new zenu::KTimeBox(&window, "box"))
        , other(new QLineEdit(&window))
        , changes(box, &zenu::KTimeBox::timeChanged)
        , numbers(box, &QSpinBox::valueChanged)
        , texts(box, &QSpinBox::textChanged)
    {
        auto * const layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(other);
    }
    bool show()
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) {
            return false;
        }
        box->setFocus();
        return box->hasFocus();
    }
    QLineEdit * editor() { return box->findChild<QLineEdit *>(); }
    QString text() { return editor()->text(); }
    void type(QString const & text)
    {
        editor()->selectAll();
        QTest::keyClicks(box, text);
    }
    // Nothing that the base tells of its integer.
    bool baseIsQuiet() { return numbers.isEmpty() && texts.isEmpty() && box->value() == 0; }

    QWidget window;
    zenu::KTimeBox * box;
    QLineEdit * other;
    QSignalSpy changes;
    QSignalSpy numbers;
    QSignalSpy texts;
};

} // namespace zenutest
