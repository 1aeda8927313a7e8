#pragma once

#include "zenu/ZenuExport.h"

#include <QtWidgets/QFileDialog>

#include <memory>

class QLabel;
class QPushButton;

namespace zenu {

/// A file dialog whose filters have indexes, which tells derived classes of a chosen filter, and
/// which takes rows of further widgets in line with its own. It always is the toolkit's dialog,
/// never that of the desktop, which could not hold them.
class ZENU_EXPORT KFileDialog : public QFileDialog
{
    Q_OBJECT
public:
    /// Starts in `dirName` with `filter`; a null one stands for the current directory and all
    /// files. After a change of directory the name field gets focus events, see dirChanged.
    KFileDialog(QString const & dirName, QString const & filter, QWidget * parent = nullptr,
                char const * name = nullptr, bool modal = false);
    /// Starts in the current directory with all files. Changes of directory do not reach
    /// dirChanged.
    explicit KFileDialog(QWidget * parent = nullptr, char const * name = nullptr,
                         bool modal = false);
    ~KFileDialog() override;

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

    /// Appends a filter such as "Images (*.png *.jpg)", in Latin-1, and gives it the next index,
    /// from 0. What is selected stays selected. A null or blank filter is ignored.
    void addFilter(char const * filter);

    /// The index of the filter that is selected, -1 if addFilter did not add it. Of equal filters
    /// it is that of the latest.
    int selectedFilterIndex() const;

    /// The index of a filter that addFilter added, the latest of equal ones, else -1.
    int filterIndex(char const * filter) const;

    /// Selects the filter at `index` + 1 of nameFilters(): the one that the dialog was made with,
    /// at the front, is -1. Out of range it does nothing.
    virtual void setSelectedFilter(int index);

    /// Adds a row at the bottom: `label` below the labels, `widget` below the field of the file
    /// type, `button` below the buttons. All become children of the dialog. Label and button get,
    /// and keep, the sizes of the dialog's own. A null label gives an empty one, a null button a
    /// disabled one that cannot be seen, a null widget leaves its place empty.
    void addWidgetsAdjusted(QLabel * label, QWidget * widget, QPushButton * button);

protected Q_SLOTS:
    /// The user has chosen another filter. Does nothing; derived dialogs override it.
    virtual void filterChanged(QString const & filter);

    /// Posts a FocusIn and a FocusOut event to the name field, so that it brings itself up to date.
    void dirChanged(QString const & directory);

protected:
    bool event(QEvent * event) override;

private:
    struct PrivateData;

    void init(char const * name, bool modal);

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
