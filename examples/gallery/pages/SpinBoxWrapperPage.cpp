#include "examples/gallery/Page.h"

#include <zenu/time/KSpinBoxWrapper.h>

#include <QFormLayout>
#include <QSpinBox>

namespace gallery {

namespace {

// [code]
// A field for one letter, or any word of small letters; the arrows go through the alphabet.
class Letters : public QWidget
{
public:
    Letters()
        : m_wrapper(m_box, "[a-z]+", this)
    {
        connect(&m_wrapper, &zenu::KSpinBoxWrapper::up, this, [this] { step(1); });
        connect(&m_wrapper, &zenu::KSpinBoxWrapper::down, this, [this] { step(-1); });
        m_wrapper.setString("m");
        auto * const form = new QFormLayout(this);
        form->setContentsMargins(0, 0, 0, 0);
        form->addRow(tr("A letter or word"), &m_box);
    }

private:
    void step(int way)
    {
        std::string text = m_wrapper.getString();
        text.resize(1, 'a');
        text[0] = char('a' + (text[0] - 'a' + 26 + way) % 26);
        m_wrapper.setString(text.c_str());
    }

    QSpinBox m_box;
    zenu::KSpinBoxWrapper m_wrapper;
};
// [code]

QWidget * makeLetters()
{
    return new Letters;
}

} // namespace

Page spinBoxWrapperPage()
{
    return {"SpinBoxWrapper",
            "A field for any text, with the arrows of a spin box.",
            {"KSpinBoxWrapper"},
            makeLetters};
}

} // namespace gallery
