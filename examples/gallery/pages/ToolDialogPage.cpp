#include "examples/gallery/Page.h"
#include "examples/gallery/support/Popups.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/widgets/KToolDialog.h>

#include <QAction>
#include <QLabel>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
class Tools : public QWidget
{
public:
    Tools()
        : m_chosen(tr("Nothing is chosen"))
    {
        char const * const names[] = {"disc", "square", "triangle", "diamond"};
        for (int i = 0; i < shapeCount; ++i) {
            QString const name = QString::fromLatin1(names[i]);
            auto * const action = new QAction(shapeIcon(i), name, this);
            action->setStatusTip(tr("Draws a %1").arg(name));
            connect(action, &QAction::triggered, this, [=, this] { m_chosen.setText(name); });
            m_dialog.addTool(action);
        }
        m_dialog.setNoActionText(tr("Choose a shape"));
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_chosen);
        layout->addWidget(new OpenButton(tr("Open the dialog"), m_dialog));
        layout->addStretch();
    }

private:
    zenu::KToolDialog m_dialog;
    QLabel m_chosen;
};
// [code]

QWidget * makeTools()
{
    return new Tools;
}

} // namespace

Page toolDialogPage()
{
    return {"ToolDialog",
            "A popup of large pictures, each an action, with a line that tells of it.",
            {"KToolDialog"},
            makeTools};
}

} // namespace gallery
