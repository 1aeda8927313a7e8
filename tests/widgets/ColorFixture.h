#pragma once

#include <zenu/widgets/KColorButton.h>
#include <zenu/widgets/KColorPopup.h>

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionToolButton>
#include <QtWidgets/QWidgetAction>

#include <functional>
#include <memory>

namespace zenutest {

// As Test::init, but lets pass what the offscreen platform says of each popup and each window.
inline void failOnOtherWarnings()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support (grabbing the "
                                          "keyboard|raise|lower|propagateSizeHints))")));
}

// The size hint of a tool button for content of a size, by the style.
inline QSize styled(QWidget const & widget, QSize const & content)
{
    QStyleOptionToolButton option;
    option.initFrom(&widget);
    return widget.style()->sizeFromContents(QStyle::CT_ToolButton, &option, content, &widget);
}

// Counts what a button is asked to draw, and reaches what is protected.
class Button : public zenu::KColorButton
{
public:
    using KColorButton::KColorButton;

    void drawButton(QPainter * painter) override
    {
        ++drawn;
        KColorButton::drawButton(painter);
    }
    void paletteChange(QPalette const & before) override { palettes << before; }

    int drawn = 0;
    QList<QPalette> palettes;
};

// A window with a button in it, shown away from the edges of the screen.
class Window : public QWidget
{
public:
    Window()
        : button(new Button(this))
    {
        button->setGeometry(100, 100, 60, 30);
        resize(400, 300);
    }
    // A button that stays down would make the moves of later tests drags.
    ~Window() override
    {
        if (m_isDown)
            release(elsewhere());
    }

    bool open(QPoint const & pos = QPoint(50, 50))
    {
        move(pos);
        show();
        return QTest::qWaitForWindowExposed(this);
    }

    // A gesture of the mouse as the platform reports it: a popup takes it if one is open.
    void press(QPoint const & pos)
    {
        m_isDown = true;
        QTest::mousePress(windowHandle(), Qt::LeftButton, {}, pos);
    }
    void release(QPoint const & pos)
    {
        m_isDown = false;
        QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, pos);
    }
    void click(QPoint const & pos)
    {
        press(pos);
        release(pos);
    }
    // The middle of the button, and the middle of its arrow part.
    QPoint onButton() const { return button->geometry().center(); }
    QPoint onArrow() const { return QPoint(button->geometry().right() - 3, onButton().y()); }
    QPoint onSwatch() const { return QPoint(button->geometry().left() + 3, onButton().y()); }
    QPoint elsewhere() const { return QPoint(5, 5); }

    QPointer<Button> button;

private:
    bool m_isDown = false;
};

// A window whose button has a menu; counts how often it opens.
struct Scene
{
    explicit Scene(int delay)
        : menu(std::make_unique<QMenu>())
    {
        menu->addAction(QStringLiteral("An action"));
        window.button->setPopup(menu.get());
        window.button->setPopupDelay(delay);
        QObject::connect(menu.get(), &QMenu::aboutToShow, &window, [this] {
            ++opened;
            QTimer::singleShot(5000, menu.get(), &QWidget::close); // opened where it must not
        });
        QObject::connect(window.button.data(), &QAbstractButton::clicked, &window,
                         [this] { ++clicked; });
        QObject::connect(window.button.data(), &QAbstractButton::pressed, &window,
                         [this] { ++pressed; });
    }

    Window window;
    std::unique_ptr<QMenu> menu;
    int opened = 0;
    int clicked = 0;
    int pressed = 0;
};

// Runs `step` from the menu's own event loop, once, when it opens next. A menu that is still open
// some seconds later is closed, so that a test fails instead of standing still.
inline void whenOpen(QMenu & menu, std::function<void()> step)
{
    auto * const once = new QObject(&menu);
    QObject::connect(&menu, &QMenu::aboutToShow, once, [once, &menu, step] {
        once->deleteLater();
        QTimer::singleShot(0, &menu, [&menu, step] {
            static_cast<void>(QTest::qWaitForWindowExposed(&menu));
            step();
        });
        QTimer::singleShot(5000, &menu, [&menu] { menu.close(); });
    });
}

// The events that are waiting, and timers of a few milliseconds.
inline void settle()
{
    QTest::qWait(40);
}

inline void sendPress(QWidget & receiver, QPoint const & global, QEvent::Type type,
                      quint64 time = 0)
{
    QMouseEvent event(type, receiver.mapFromGlobal(global), global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    event.setTimestamp(time);
    QApplication::sendEvent(&receiver, &event);
}

// The parts of a colour popup.
struct PopupParts
{
    explicit PopupParts(zenu::KColorPopup const & popup)
    {
        QList<QAction *> const actions = popup.actions();
        for (int i = 0; i < actions.size() && i < 3; ++i)
            widgets[i] = qobject_cast<QWidgetAction *>(actions.at(i))->defaultWidget();
        standard = qobject_cast<zenu::KColorButton *>(widgets[0]);
        other = qobject_cast<zenu::KColorButton *>(widgets[2]);
        for (QObject * const child : widgets[1]->children()) {
            if (auto * const button = qobject_cast<zenu::KColorButton *>(child))
                swatches << button;
        }
    }

    // Which button looks current: "default", "other", the index of a swatch, or "none".
    QByteArray lit() const
    {
        QByteArrayList names;
        if (standard->uses3D())
            names << "default";
        for (int i = 0; i < swatches.size(); ++i) {
            if (swatches.at(i)->uses3D())
                names << QByteArray::number(i);
        }
        if (other->uses3D())
            names << "other";
        return names.isEmpty() ? "none" : names.join(' ');
    }

    QWidget * widgets[3] = {};
    zenu::KColorButton * standard = nullptr;
    zenu::KColorButton * other = nullptr;
    QList<zenu::KColorButton *> swatches;
};

} // namespace zenutest
