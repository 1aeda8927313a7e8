#include "SettingsWindow.h"

#include <zenu/config/IConfigItem.h>

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <set>

namespace {

// Which settings are changed, of whatever type.
class ChangedIds : public zenu::IConfigVisitor
{
public:
    void visitColor(int id, char const *, QColor const &) override { ids.insert(id); }
    void visitBool(int id, char const *, bool) override { ids.insert(id); }
    void visitInt(int id, char const *, int) override { ids.insert(id); }
    void visitUInt(int id, char const *, unsigned int) override { ids.insert(id); }
    void visitInt64(int id, char const *, long long const &) override { ids.insert(id); }
    void visitPen(int id, char const *, QPen const &) override { ids.insert(id); }
    void visitFont(int id, char const *, QFont const &) override { ids.insert(id); }
    void visitBrush(int id, char const *, QBrush const &) override { ids.insert(id); }
    void visitString(int id, char const *, char const *) override { ids.insert(id); }

    std::set<int> ids;
};

// A store that holds nothing: a load from it takes every setting back to its default.
class NoStore : public zenu::IConfigStore
{
public:
    bool readColor(char const *, QColor *) override { return false; }
    bool readBool(char const *, bool *) override { return false; }
    bool readInt(char const *, int *) override { return false; }
    bool readUInt(char const *, unsigned int *) override { return false; }
    bool readInt64(char const *, long long *) override { return false; }
    bool readPen(char const *, QPen *) override { return false; }
    bool readFont(char const *, QFont *) override { return false; }
    bool readBrush(char const *, QBrush *) override { return false; }
    bool readString(char const *, QString *) override { return false; }
    void writeColor(char const *, QColor const &) override {}
    void writeBool(char const *, bool) override {}
    void writeInt(char const *, int) override {}
    void writeUInt(char const *, unsigned int) override {}
    void writeInt64(char const *, long long const &) override {}
    void writePen(char const *, QPen const &) override {}
    void writeFont(char const *, QFont const &) override {}
    void writeBrush(char const *, QBrush const &) override {}
    void writeString(char const *, char const *) override {}
};

} // namespace

SettingsWindow::SettingsWindow(QString const & file, QWidget * parent)
    : QWidget(parent)
    , m_store(file)
    , m_drawing(new Drawing(m_config))
    , m_status(new QLabel)
{
    setWindowTitle(tr("Settings"));
    declareSettings(m_config);
    m_config.load(&m_store);

    auto * const grid = new QGridLayout;
    addLines(grid);
    auto * const left = new QVBoxLayout;
    left->addLayout(grid);
    left->addStretch(1);
    left->addWidget(makeButtons());
    auto * const columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addWidget(m_drawing, 1);
    auto * const whole = new QVBoxLayout(this);
    whole->addLayout(columns, 1);
    whole->addWidget(m_status);
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);
    showSettings();
    resize(sizeHint());
}

void SettingsWindow::addLines(QGridLayout * grid)
{
    Changed const changed = [this] { showSettings(); };
    addLine(grid, PaperColor, tr("Paper"), makeColorEditor(m_config, PaperColor, changed));
    addLine(grid, ShowGrid, tr("Grid"), makeBoolEditor(m_config, ShowGrid, changed));
    addLine(grid, GridStep, tr("Grid step"), makeIntEditor(m_config, GridStep, 2, 500, changed));
    addLine(grid, Shapes, tr("Shapes"), makeUIntEditor(m_config, Shapes, changed));
    addLine(grid, Seed, tr("Seed"), makeInt64Editor(m_config, Seed, changed));
    addLine(grid, OutlinePen, tr("Outline"), makePenEditor(m_config, OutlinePen, changed));
    addLine(grid, FillBrush, tr("Fill"), makeBrushEditor(m_config, FillBrush, changed));
    addLine(grid, Caption, tr("Caption"), makeStringEditor(m_config, Caption, changed));
    addLine(grid, CaptionFont, tr("Caption font"), makeFontEditor(m_config, CaptionFont, changed));
    addLine(grid, Angle, tr("Angle, not kept"), makeIntEditor(m_config, Angle, -180, 180, changed));
}

void SettingsWindow::addLine(QGridLayout * grid, int id, QString const & name,
                             Editor const & editor)
{
    int const row = grid->rowCount();
    Line & line = m_lines.at(std::size_t(id));
    line = {new QLabel(name), new QLabel, editor};
    line.name->setBuddy(editor.widget);
    line.mark->setObjectName(QStringLiteral("mark%1").arg(id));
    line.mark->setMinimumWidth(line.mark->fontMetrics().horizontalAdvance(QChar(0x25cf)));
    editor.widget->setObjectName(QStringLiteral("editor%1").arg(id));
    grid->addWidget(line.mark, row, 0);
    grid->addWidget(line.name, row, 1);
    grid->addWidget(editor.widget, row, 2);
}

QWidget * SettingsWindow::makeButtons()
{
    auto * const row = new QWidget;
    auto * const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto const add = [&](QString const & text, QString const & tip, auto const & act) {
        auto * const button = new QPushButton(text);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, act);
        layout->addWidget(button);
    };
    add(tr("&Defaults"), tr("Take everything back to its default"), [this] { takeDefaults(); });
    add(tr("&Reset"), tr("Take back what is not saved"), [this] { reset(); });
    add(tr("&Save"), tr("Write what is changed into the file"), [this] { save(); });
    return row;
}

void SettingsWindow::showSettings()
{
    for (Line const & line : m_lines) {
        line.editor.show();
    }
    showMarks();
    m_drawing->update();
}

void SettingsWindow::showMarks()
{
    ChangedIds changed;
    m_config.visitChanged(&changed);
    for (int id = 0; id < SettingCount; ++id) {
        Line const & line = m_lines.at(std::size_t(id));
        bool const isChanged = changed.ids.count(id) != 0;
        line.mark->setText(isChanged ? QString(QChar(0x25cf)) : QString());
        line.mark->setToolTip(isChanged ? tr("Changed") : QString());
    }
    m_status->setText(
        tr("%1 of %2 settings are changed").arg(changed.ids.size()).arg(SettingCount));
}

// The file is this window's alone, so what is at its default is cleared away.
bool SettingsWindow::save()
{
    m_store.clear();
    m_config.save(&m_store);
    bool const isSaved = m_store.sync();
    m_status->setText((isSaved ? tr("Saved in %1") : tr("Cannot write %1"))
                          .arg(QDir::toNativeSeparators(m_store.fileName())));
    return isSaved;
}

void SettingsWindow::reset()
{
    m_store.sync();
    m_config.load(&m_store);
    showSettings();
}

void SettingsWindow::takeDefaults()
{
    NoStore none;
    m_config.load(&none);
    m_config.setInt(Angle, m_config.getDefaultInt(Angle)); // has no name, so a load leaves it alone
    showSettings();
}
