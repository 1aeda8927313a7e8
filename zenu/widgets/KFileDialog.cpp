#include "zenu/widgets/KFileDialog.h"

#include "zenu/overlay/NarrowText.h"

#include <QtCore/QList>
#include <QtCore/QMultiHash>
#include <QtCore/QPointer>
#include <QtGui/QFocusEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace zenu {

namespace {

// The columns of the dialog's own rows.
enum EColumn
{
    LabelColumn,
    WidgetColumn,
    ButtonColumn
};

QLabel * typeLabel(QFileDialog const & dialog)
{
    return dialog.findChild<QLabel *>(QStringLiteral("fileTypeLabel"));
}

QComboBox * typeCombo(QFileDialog const & dialog)
{
    return dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
}

QLineEdit * nameEdit(QFileDialog const & dialog)
{
    return dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

QDialogButtonBox * buttonBox(QFileDialog const & dialog)
{
    return dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
}

// "Open", "Save" or "Choose"; it is another object after a change of the accept mode.
QPushButton * acceptButton(QFileDialog const & dialog)
{
    QDialogButtonBox const * const box = buttonBox(dialog);
    for (QAbstractButton * const button : box ? box->buttons() : QList<QAbstractButton *>()) {
        if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) {
            return qobject_cast<QPushButton *>(button);
        }
    }
    return nullptr;
}

// The text as the dialog keeps it, so that a filter is found again by what the dialog says.
QString filterKey(char const * filter)
{
    return chars2qstring(filter).simplified();
}

// The whole text of the selected filter, also where the dialog shows no patterns.
QString selectedFilter(QFileDialog const & dialog)
{
    QComboBox const * const combo = typeCombo(dialog);
    return combo ? dialog.nameFilters().value(combo->currentIndex()) : QString();
}

// Equal texts make the dialog select the first of them. A dialog for directories lists none.
void selectFilterAt(QFileDialog & dialog, int position)
{
    dialog.selectNameFilter(dialog.nameFilters().at(position));
    QComboBox * const combo = typeCombo(dialog);
    if (combo && combo->currentIndex() != position && position < combo->count()) {
        combo->setCurrentIndex(position);
        Q_EMIT combo->activated(position);
    }
}

void layOut(QLayout * layout)
{
    if (layout) {
        layout->invalidate();
        layout->activate();
    }
}

void letGrow(QWidget & widget)
{
    widget.setMinimumSize(0, 0);
    widget.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

void matchSize(QWidget * widget, QWidget const * model)
{
    if (widget && model) {
        widget->setFixedSize(model->size());
    }
}

} // namespace

// Label and button of a row; their owner may delete them.
struct AddedRow
{
    QPointer<QLabel> label;
    QPointer<QPushButton> button;
};

struct ZENU_HIDDEN KFileDialog::PrivateData
{
    void freeRows();
    void matchRows(KFileDialog const & dialog);

    QMultiHash<QString, int> filterIndexes;
    int nextFilterIndex = 1; // 0 stands for a text that is not there
    QList<AddedRow> rows;
};

// Fixed sizes would keep the columns as wide as they were with another font.
void KFileDialog::PrivateData::freeRows()
{
    for (AddedRow const & row : rows) {
        if (row.label) {
            letGrow(*row.label);
        }
        if (row.button) {
            letGrow(*row.button);
        }
    }
}

void KFileDialog::PrivateData::matchRows(KFileDialog const & dialog)
{
    QLabel const * const label = typeLabel(dialog);
    QPushButton const * const button = acceptButton(dialog);
    for (AddedRow const & row : rows) {
        matchSize(row.label, label);
        matchSize(row.button, button);
    }
}

KFileDialog::KFileDialog(QString const & dirName, QString const & filter, QWidget * parent,
                         char const * name, bool modal)
    : QFileDialog(parent, QString(), dirName, filter)
    , d(std::make_unique<PrivateData>())
{
    init(name, modal);
    connect(this, &QFileDialog::directoryEntered, this, &KFileDialog::dirChanged);
}

// Without the connection of dirChanged: applications rely on a name field that keeps its state.
KFileDialog::KFileDialog(QWidget * parent, char const * name, bool modal)
    : QFileDialog(parent)
    , d(std::make_unique<PrivateData>())
{
    init(name, modal);
}

KFileDialog::~KFileDialog() = default;

void KFileDialog::init(char const * name, bool modal)
{
    setOption(DontUseNativeDialog);
    setObjectName(chars2qstring(name));
    setModal(modal);
    connect(this, &QFileDialog::filterSelected, this, &KFileDialog::filterChanged);
}

void KFileDialog::addFilter(char const * filter)
{
    QString const key = filterKey(filter);
    if (key.isEmpty()) {
        return;
    }
    d->filterIndexes.insert(key, d->nextFilterIndex++);
    QComboBox const * const combo = typeCombo(*this);
    QLineEdit * const edit = nameEdit(*this);
    int const selected = combo ? combo->currentIndex() : -1;
    QString const name = edit ? edit->text() : QString();
    setNameFilters(nameFilters() << key);
    if (selected > 0) {
        selectFilterAt(*this, selected);
    }
    if (edit && edit->text() != name) {
        edit->setText(name); // a filter that is selected for saving changes the ending
    }
}

int KFileDialog::selectedFilterIndex() const
{
    return d->filterIndexes.value(selectedFilter(*this)) - 1;
}

int KFileDialog::filterIndex(char const * filter) const
{
    return d->filterIndexes.value(filterKey(filter)) - 1;
}

void KFileDialog::setSelectedFilter(int index)
{
    if (index >= -1 && index < nameFilters().size() - 1) {
        selectFilterAt(*this, index + 1);
    }
}

void KFileDialog::addWidgetsAdjusted(QLabel * label, QWidget * widget, QPushButton * button)
{
    auto * const grid = qobject_cast<QGridLayout *>(layout());
    if (!grid || !typeLabel(*this) || !acceptButton(*this)) {
        return;
    }
    if (!label) {
        label = new QLabel(this);
    }
    if (!button) {
        button = new QPushButton(this);
        button->setFlat(true);
        button->setEnabled(false);
    }
    int const row = grid->rowCount();
    grid->addWidget(label, row, LabelColumn);
    if (widget) {
        grid->addWidget(widget, row, WidgetColumn);
    }
    grid->addWidget(button, row, ButtonColumn);
    d->rows.append({label, button});
    letGrow(*label);
    letGrow(*button);
    ensurePolished();
    layOut(grid); // a long text widens the column of the labels
    layOut(buttonBox(*this)->layout());
    d->matchRows(*this);
    if (isVisible()) {
        // The layout shows what it was given in the next turn of the event loop.
        QMetaObject::invokeMethod(
            this, [this] { d->freeRows(); }, Qt::QueuedConnection);
    }
}

void KFileDialog::filterChanged(QString const &) {}

void KFileDialog::dirChanged(QString const &)
{
    if (QLineEdit * const edit = nameEdit(*this)) {
        QCoreApplication::postEvent(edit, new QFocusEvent(QEvent::FocusIn));
        QCoreApplication::postEvent(edit, new QFocusEvent(QEvent::FocusOut));
    }
}

bool KFileDialog::event(QEvent * event)
{
    bool const result = QFileDialog::event(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LanguageChange:
        d->freeRows();
        break;
    case QEvent::LayoutRequest:
    case QEvent::Show:
        d->matchRows(*this);
        break;
    default:
        break;
    }
    return result;
}

} // namespace zenu
