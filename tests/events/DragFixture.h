#pragma once

#include <zenu/events/KDragStream.h>
#include <zenu/events/KDropStream.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QtTest/QtTest>

#include <functional>
#include <vector>

namespace zenutest {

inline char const * const dragType = "application/x-zenu-drag-test";

// What a target does with a drop.
enum class Answer
{
    Move,
    Copy,
    Refuse
};

inline QString const dragText = QStringLiteral("n\u00e4me \u4e2d");

// Text, number and 200000 bytes: more than one message of a window system.
inline void writePayload(QDataStream & stream)
{
    stream << dragText << qint64(-42) << QByteArray(200000, 'z');
}

// Says what of that arrived.
inline QString readPayload(QDataStream & stream)
{
    QString text;
    qint64 number = 0;
    QByteArray bytes;
    stream >> text >> number >> bytes;
    return text == dragText && number == -42 && bytes == QByteArray(200000, 'z') &&
                   stream.atEnd() && stream.status() == QDataStream::Ok
               ? QStringLiteral("payload")
               : QStringLiteral("%1 %2 %3").arg(text).arg(number).arg(bytes.size());
}

// A window in its place, without a frame: no window manager is needed.
class Window : public QWidget
{
public:
    explicit Window(QPoint const & place)
        : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        setGeometry(QRect(place, QSize(200, 150)));
    }
    void open()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QTRY_COMPARE(mapToGlobal(QPoint()), geometry().topLeft());
    }
    QPoint middle() const { return mapToGlobal(rect().center()); }

    bool isPressed = false;

protected:
    void mousePressEvent(QMouseEvent *) override { isPressed = true; }
};

class Target : public Window
{
public:
    Target(QPoint const & place, Answer what)
        : Window(place)
        , answer(what)
    {
        setAcceptDrops(true);
    }

    Answer answer;
    QStringList log;
    std::function<void()> onDrop = [] {};
    std::function<void(QString const &)> onLog = [](QString const &) {};

protected:
    void dragEnterEvent(QDragEnterEvent * event) override
    {
        event->acceptProposedAction(); // else no move comes
        note(QStringLiteral("enter"));
    }
    void dragMoveEvent(QDragMoveEvent * event) override { reply(event); }
    void dropEvent(QDropEvent * event) override
    {
        zenu::KDropStream stream(dragType, *event->mimeData());
        note(readPayload(stream));
        reply(event);
        onDrop();
    }

private:
    void reply(QDropEvent * event)
    {
        event->setDropAction(answer == Answer::Move ? Qt::MoveAction : Qt::CopyAction);
        event->setAccepted(answer != Answer::Refuse);
    }
    void note(QString const & text)
    {
        log << text;
        onLog(text);
    }
};

// The hands of a user: moves and presses come from another program, one step after the other, also
// in the loop of a drag. A step waits for its condition; as long as that does not hold, the mouse
// moves a little to and fro where it is.
class Hands : public QObject
{
public:
    using Condition = std::function<bool()>;

    explicit Hands(QString const & program)
        : m_program(program)
    {
        m_clock.setInterval(25);
        connect(&m_clock, &QTimer::timeout, this, [this] { tick(); });
    }
    ~Hands() override
    {
        m_process.kill();
        m_process.waitForFinished();
        QProcess::execute(m_program, {QStringLiteral("mouseup"), QStringLiteral("1")});
    }

    void then(Condition const & condition, QStringList const & command)
    {
        m_steps.push_back({condition, command});
        m_clock.start();
    }
    void move(Condition const & condition, QPoint const & place)
    {
        then(condition, moveCommand(place));
    }
    void press(QPoint const & place)
    {
        move([] { return true; }, place);
        then([place] { return QCursor::pos() == place; },
             {QStringLiteral("mousedown"), QStringLiteral("1")});
    }
    void release(Condition const & condition)
    {
        then(condition, {QStringLiteral("mouseup"), QStringLiteral("1")});
    }
    bool isDone() const { return m_steps.empty() && m_process.state() == QProcess::NotRunning; }
    bool gaveUp() const { return m_gaveUp; }

private:
    struct Step
    {
        Condition condition;
        QStringList command;
    };

    static constexpr int patience = 800; // ticks in all
    static constexpr int pause = 10;     // ticks before the mouse moves again

    static QStringList moveCommand(QPoint const & place)
    {
        double const ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
        return {QStringLiteral("mousemove"), QString::number(qRound(place.x() * ratio)),
                QString::number(qRound(place.y() * ratio))};
    }
    void tick()
    {
        if (++m_ticks > patience) {
            m_gaveUp = true;
            m_steps.clear();
            m_clock.stop();
            QDrag::cancel();
        }
        if (m_steps.empty() || m_process.state() != QProcess::NotRunning) {
            return;
        }
        if (m_steps.front().condition()) {
            QStringList const command = m_steps.front().command;
            m_steps.erase(m_steps.begin());
            m_waited = 0;
            run(command);
        } else if (++m_waited % pause == 0 && !m_last.isEmpty()) {
            run(m_last +
                QStringList{QStringLiteral("mousemove_relative"), QStringLiteral("--"),
                            QStringLiteral("-3"), QStringLiteral("2"), QStringLiteral("sleep"),
                            QStringLiteral("0.05")} +
                m_last);
        }
    }
    void run(QStringList const & command)
    {
        if (command.front() == QLatin1String("mousemove")) {
            m_last = command.mid(0, 3);
        }
        m_process.start(m_program, command);
    }

    QString m_program;
    QProcess m_process;
    QTimer m_clock;
    std::vector<Step> m_steps;
    QStringList m_last;
    int m_ticks = 0;
    int m_waited = 0;
    bool m_gaveUp = false;
};

} // namespace zenutest
