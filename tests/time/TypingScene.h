#pragma once

#include <QtTest/QtTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStyleOptionSpinBox>
#include <QtWidgets/QVBoxLayout>

#include <type_traits>

namespace zenutest {

// A line edit or spin box in a window, beside something else that takes the focus, and what a
// person does to it.
template <typename Box>
struct TypingScene
{
    // Passes the arguments on, behind the parent.
    template <typename... Arguments>
    explicit TypingScene(Arguments... arguments)
        : box(new Box(&window, arguments...))
        , other(new QLineEdit(&window))
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
    QLineEdit * editor()
    {
        if constexpr (std::is_base_of_v<QLineEdit, Box>) {
            return box;
        } else {
            return box->template findChild<QLineEdit *>();
        }
    }
    QString text() { return editor()->text(); }
    void type(QString const & text)
    {
        editor()->selectAll();
        QTest::keyClicks(box, text);
    }
    QPoint arrow(QStyle::SubControl control) const
    {
        QStyleOptionSpinBox option;
        option.initFrom(box);
        option.buttonSymbols = QAbstractSpinBox::UpDownArrows;
        option.frame = true;
        return box->style()->subControlRect(QStyle::CC_SpinBox, &option, control, box).center();
    }
    // In eighths of a degree: a notch is 120.
    void wheel(int angle, Qt::KeyboardModifiers modifiers = {})
    {
        QPointF const place = QRectF(box->rect()).center();
        QWheelEvent event(place, box->mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &event);
    }
    // One step by a means of addSteps.
    void step(QString const & means, bool isUp)
    {
        Qt::KeyboardModifiers const modifiers =
            means.startsWith(QLatin1String("Ctrl")) ? Qt::ControlModifier : Qt::NoModifier;
        if (means == QLatin1String("stepBy")) {
            box->stepBy(isUp ? 1 : -1);
        } else if (means == QLatin1String("page key")) {
            QTest::keyClick(box, isUp ? Qt::Key_PageUp : Qt::Key_PageDown);
        } else if (means.endsWith(QLatin1String("key"))) {
            QTest::keyClick(box, isUp ? Qt::Key_Up : Qt::Key_Down, modifiers);
        } else if (means.endsWith(QLatin1String("wheel"))) {
            int const notches = means.startsWith(QLatin1String("fast")) ? 7 : 1;
            wheel(120 * notches * (isUp ? 1 : -1), modifiers);
        } else {
            QTest::mouseClick(box, Qt::LeftButton, modifiers,
                              arrow(isUp ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown));
        }
    }

    QWidget window;
    Box * box;
    QLineEdit * other;
};

// A row of test data for each way to make a spin box step, up and down.
inline void addSteps()
{
    QTest::addColumn<QString>("means");
    QTest::addColumn<bool>("isUp");
    for (bool const isUp : {true, false}) {
        for (char const * means : {"key", "page key", "Ctrl+key", "wheel", "fast wheel",
                                   "Ctrl+wheel", "arrow", "Ctrl+arrow", "stepBy"}) {
            QTest::addRow("%s %s", means, isUp ? "up" : "down")
                << QString::fromLatin1(means) << isUp;
        }
    }
}

} // namespace zenutest
