// Draws a signal of ten million samples once, and moves a hundred and more images over it without
// drawing it again; the line below the picture counts both.
//
//   zenu_waveform [--samples N] [--picture FILE]

#include "WaveformView.h"

#include "examples/support/Picture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int tenMillion = 10'000'000;

class Window : public QWidget
{
public:
    explicit Window(int samples)
        : m_samples(samples)
        , m_view(new WaveformView(samples))
        , m_counts(new QLabel)
    {
        setWindowTitle(tr("Waveform"));
        auto * const layout = new QVBoxLayout(this);
        layout->addWidget(m_view, 1);
        layout->addWidget(m_counts);
        resize(1000, 460);
        m_view->setFocus();
        QObject::connect(m_view, &WaveformView::counted, this, [this] { showCounts(); });
        showCounts();
    }

    // Moves the markers for a while, drags a band and lets the mouse rest.
    QPixmap picture()
    {
        m_view->setDrifting(false);
        show();
        QApplication::processEvents();
        send(QEvent::MouseButtonPress, 0.30, Qt::LeftButton);
        send(QEvent::MouseMove, 0.46, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, 0.46, Qt::NoButton);
        send(QEvent::MouseMove, 0.56, Qt::NoButton);
        for (int frame = 0; frame < 240; ++frame) {
            m_view->step();
        }
        QApplication::processEvents();
        QSignalBlocker const quiet(m_view); // the picture of the window is a paint, too
        return grab();
    }

private:
    void showCounts()
    {
        m_counts->setText(
            tr("%L1 samples. Paints of the waveform: %L2. Frames of the sprites: %L3.")
                .arg(m_samples)
                .arg(m_view->paints())
                .arg(m_view->frames()));
    }

    void send(QEvent::Type type, double share, Qt::MouseButtons buttons)
    {
        QPointF const place(share * m_view->width(), m_view->height() * 0.3);
        bool const move = type == QEvent::MouseMove;
        QMouseEvent event(type, place, m_view->mapToGlobal(place),
                          move ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(m_view, &event);
    }

    int m_samples;
    WaveformView * m_view;
    QLabel * m_counts;
};

} // namespace

int main(int argc, char ** argv)
{
    example::prepareForPicture(argc, argv);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Moves sprites over a picture that is slow to draw."));
    parser.addHelpOption();
    QCommandLineOption const picture = example::pictureOption();
    QCommandLineOption const samples(QStringLiteral("samples"),
                                     QStringLiteral("Length of the signal."), QStringLiteral("N"),
                                     QString::number(tenMillion));
    parser.addOptions({picture, samples});
    parser.process(application);

    Window window(std::clamp(parser.value(samples).toInt(), 1, 100 * tenMillion));
    if (parser.isSet(picture)) {
        return example::savePicture(window.picture(), parser.value(picture));
    }
    window.show();
    return QApplication::exec();
}
