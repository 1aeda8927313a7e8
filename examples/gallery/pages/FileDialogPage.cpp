#include "examples/gallery/Page.h"
#include "examples/gallery/support/Popups.h"

#include <zenu/widgets/KFileDialog.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QTemporaryDir>
#include <QVBoxLayout>

namespace gallery {

namespace {

// A folder of texts that is the same everywhere.
class Folder
{
public:
    Folder()
    {
        for (char const * const name : {"harbour.txt", "hills.md", "notes.txt"}) {
            QFile(m_folder.filePath(QString::fromLatin1(name))).open(QFile::WriteOnly);
        }
    }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

// [code]
class Opener : public QWidget
{
public:
    Opener()
        : m_dialog(m_folder.path(), tr("All files (*)"))
    {
        m_dialog.addFilter("Images (*.png *.jpg)");
        m_dialog.addFilter("Texts (*.txt *.md)");
        m_dialog.setSelectedFilter(1);
        auto * const encoding = new QComboBox;
        encoding->addItems({QStringLiteral("Latin-1"), QStringLiteral("UTF-8")});
        m_dialog.addWidgetsAdjusted(new QLabel(tr("Encoding:")), encoding, nullptr);
        connect(&m_dialog, &QFileDialog::fileSelected, &m_told, &QLabel::setText);

        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_told);
        layout->addWidget(new OpenButton(tr("Open the dialog"), m_dialog));
        layout->addStretch();
    }

protected:
    Folder m_folder;
    zenu::KFileDialog m_dialog;
    QLabel m_told{tr("No file is chosen")};
};
// [code]

// The dialog reads its folder in the background.
class OpenerPage : public Opener, public PictureScene
{
    void pose() override
    {
        m_dialog.setSidebarUrls({}); // which would name the user
        auto const * const list = m_dialog.findChild<QListView *>(QStringLiteral("listView"));
        QDeadlineTimer const patience(2000);
        while (list->model()->rowCount(list->rootIndex()) == 0 && !patience.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }
};

QWidget * makeOpener()
{
    return new OpenerPage;
}

} // namespace

Page fileDialogPage()
{
    return {"FileDialog",
            "A file dialog with a row of its application's in line with its own.",
            {"KFileDialog"},
            makeOpener};
}

} // namespace gallery
