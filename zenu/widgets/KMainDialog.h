#pragma once

#include "zenu/ZenuExport.h"

#include <QDialog>

#include <memory>

class QAction;
class QMenuBar;
class QStatusBar;

namespace zenu {

/// A dialog with the frame of a main window: menu bar, a row of tools, a central widget and a
/// status bar, with lines between them. Each part appears when it is asked for. GUI thread only.
class ZENU_EXPORT KMainDialog : public QDialog
{
    Q_OBJECT

public:
    /// A dialog without any of its parts.
    explicit KMainDialog(QWidget * parent = nullptr, bool modal = false);
    ~KMainDialog() override;

    /// The menu bar, which the first call shows, with the line below it. Belongs to the dialog.
    QMenuBar * menuBar() const;
    /// The status bar, which the first call shows, with the line above it. Belongs to the dialog.
    QStatusBar * statusBar() const;

    /// Puts a widget into the middle. It becomes a child of the dialog and is hidden: the caller
    /// shows it. The central widget before loses its parent, is hidden, and belongs to the caller.
    /// Null takes the present one out.
    virtual void setCentralWidget(QWidget * widget);
    /// Null when there is none, or when it was deleted.
    QWidget * centralWidget() const;

    /// Adds a flat button with the action's icon, behind those before. A click emits the action's
    /// triggered. The button is checkable when the action is, and otherwise does not follow it: an
    /// action that becomes checked or disabled leaves its button alone. Null is ignored.
    void addActionToToolbar(QAction * action);

private:
    struct PrivateData;
    std::unique_ptr<PrivateData> m_data;
};

} // namespace zenu
