#include "examples/gallery/Page.h"

#include <zenu/overlay/NarrowText.h>
#include <zenu/scroll/IInPlaceEditorNotification.h>
#include <zenu/scroll/KInPlaceCombo.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
// A label whose text is chosen from a list that opens where it stands.
class Chosen : public QWidget, private zenu::IInPlaceEditorNotification
{
public:
    Chosen()
        : m_label(tr("Ash"), this)
        , m_combo(this, "tree")
    {
        for (char const * const tree : {"Ash", "Birch", "Maple", "Willow"}) {
            m_combo.insertItem(tree);
        }
    }

    QLabel & label() { return m_label; }
    void choose()
    {
        m_combo.startEditing(this, m_combo.findText(m_label.text()), m_label.geometry());
    }

private:
    void completeEditing(char const * text) override { m_label.setText(zenu::chars2qstring(text)); }

    QLabel m_label;
    zenu::KInPlaceCombo m_combo;
};
// [code]

class ChosenPage : public Chosen, public PictureScene
{
public:
    ChosenPage()
    {
        auto * const button = new QPushButton(tr("Choose"));
        button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, [this] { choose(); });
        label().setMinimumHeight(button->sizeHint().height());
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(button);
        layout->addWidget(&label());
        layout->addStretch();
    }
    void pose() override { choose(); }
};

QWidget * makeChosen()
{
    return new ChosenPage;
}

} // namespace

Page inPlaceComboPage()
{
    return {"InPlaceCombo",
            "A combo box that is laid over a text while another one is chosen.",
            {"KInPlaceCombo"},
            makeChosen};
}

} // namespace gallery
