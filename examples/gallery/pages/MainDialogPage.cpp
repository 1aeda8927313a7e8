#include "examples/gallery/Page.h"
#include "examples/gallery/support/Popups.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/widgets/KMainDialog.h>

#include <QAction>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
class Notes : public QWidget
{
public:
    Notes()
    {
        m_dialog.setWindowTitle(tr("Notes"));
        QMenu * const shapes = m_dialog.menuBar()->addMenu(tr("Shapes"));
        for (int i = 0; i < shapeCount; ++i) {
            QAction * const action = shapes->addAction(shapeIcon(i), tr("Shape %1").arg(i + 1));
            m_dialog.addActionToToolbar(action);
            connect(action, &QAction::triggered, this, [=, this] {
                m_dialog.statusBar()->showMessage(tr("Shape %1 was chosen").arg(i + 1));
            });
        }
        m_dialog.setCentralWidget(&m_text);
        m_text.show(); // the dialog hides what it adopts
        m_dialog.statusBar()->showMessage(tr("Ready"));
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(new OpenButton(tr("Open the dialog"), m_dialog));
        layout->addStretch();
    }

private:
    zenu::KMainDialog m_dialog;
    QPlainTextEdit m_text{tr("The central widget")};
};
// [code]

QWidget * makeNotes()
{
    return new Notes;
}

} // namespace

Page mainDialogPage()
{
    return {
        "MainDialog", "A dialog with menu bar, tools and status bar.", {"KMainDialog"}, makeNotes};
}

} // namespace gallery
