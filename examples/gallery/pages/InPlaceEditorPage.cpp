#include "examples/gallery/Page.h"

#include <zenu/overlay/NarrowText.h>
#include <zenu/scroll/IInPlaceEditorNotification.h>
#include <zenu/scroll/KInPlaceEditor.h>

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
// A label whose text is edited where it stands.
class Renamed : public QWidget, private zenu::IInPlaceEditorNotification
{
public:
    Renamed()
        : m_label(tr("A text to be edited"), this)
        , m_editor(this, "name")
    {
        m_editor.setAutoResizing(true);
    }

    QLabel & label() { return m_label; }
    void edit()
    {
        m_editor.startEditing(this, zenu::qstring2chars(m_label.text()), m_label.geometry());
    }

private:
    void completeEditing(char const * text) override { m_label.setText(zenu::chars2qstring(text)); }
    void keyPressEvent(QKeyEvent * event) override
    {
        if (event->key() == Qt::Key_Escape) {
            m_editor.cancelEditing();
        }
    }

    QLabel m_label;
    zenu::KInPlaceEditor m_editor;
};
// [code]

class RenamedPage : public Renamed, public PictureScene
{
public:
    RenamedPage()
    {
        auto * const button = new QPushButton(tr("Edit"));
        button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, [this] { edit(); });
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&label());
        layout->addWidget(button);
        layout->addStretch();
    }
    void pose() override { edit(); }
};

QWidget * makeRenamed()
{
    return new RenamedPage;
}

} // namespace

Page inPlaceEditorPage()
{
    return {"InPlaceEditor",
            "A line edit that is laid over a text while it is edited: Return ends, Escape cancels.",
            {"KInPlaceEditor", "IInPlaceEditorNotification"},
            makeRenamed};
}

} // namespace gallery
