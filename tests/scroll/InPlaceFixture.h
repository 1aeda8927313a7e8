#pragma once

#include <zenu/scroll/IInPlaceEditorNotification.h>

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <functional>

namespace zenutest {

// Writes down what it hears, and does what a test wants in that moment.
class Client : public zenu::IInPlaceEditorNotification
{
public:
    void completeEditing(char const * text) override
    {
        calls << QStringLiteral("complete ") + QString::fromLatin1(text);
        act(onComplete);
    }
    void cancelEditing() override
    {
        calls << QStringLiteral("cancel");
        act(onCancel);
    }
    void editingModeChanged(bool overwrite) override
    {
        calls << QStringLiteral("mode %1").arg(overwrite);
        act(onMode);
    }

    QStringList calls;
    std::function<void()> onComplete;
    std::function<void()> onCancel;
    std::function<void()> onMode;

private:
    // A copy, since it may set itself anew.
    static void act(std::function<void()> action)
    {
        if (action)
            action();
    }
};

// As Test::init, but lets pass what the offscreen platform says of each grab and each popup.
inline void failOnWarnings()
{
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!This plugin does not support (grabbing the keyboard|raise))")));
}

// The widget that an editor is laid over. It hears the keys that the editor leaves alone.
class Canvas : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent * event) override { keys << event->key(); }
};

// A window with a canvas and one other widget that takes the focus. An editor that is hidden gives
// the focus to that one, unless its policy is NoFocus.
class Window : public QWidget
{
public:
    Window()
        : canvas(new Canvas)
        , other(new QWidget(this))
    {
        canvas->setParent(this);
        canvas->setGeometry(10, 10, 300, 150);
        other->setGeometry(10, 170, 300, 30);
        other->setFocusPolicy(Qt::StrongFocus);
        resize(320, 210);
    }

    bool activate()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }

    // Keys as they come from the keyboard: they go where the window sends them.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(windowHandle(), key, modifiers);
    }
    void type(char const * text)
    {
        for (char const * c = text; *c; ++c)
            QTest::keyClick(windowHandle(), *c);
    }

    Canvas * canvas;
    QWidget * other;
};

} // namespace zenutest
