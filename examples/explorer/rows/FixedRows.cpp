#include "examples/explorer/rows/FixedRows.h"

#include "examples/explorer/model/DisplayName.h"
#include "examples/explorer/rows/Columns.h"
#include "examples/explorer/rows/Icons.h"
#include "examples/explorer/rows/Texts.h"

#include <zenu/grid/KGridCtrl.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>

namespace explorer {

namespace {

constexpr long sectionParam = -1;
constexpr qint64 smallestVolume = 1 << 20;
constexpr int hideCheckStyle = 2;
constexpr long firstParam = -2; // of the first row, the next ones count down

struct Place
{
    QStandardPaths::StandardLocation location;
    char const * name;
    Icon icon;
};

constexpr Place places[] = {
    {QStandardPaths::HomeLocation, "Home", Icon::Home},
    {QStandardPaths::DesktopLocation, "Desktop", Icon::Desktop},
    {QStandardPaths::DocumentsLocation, "Documents", Icon::Folder},
    {QStandardPaths::DownloadLocation, "Downloads", Icon::Folder},
    {QStandardPaths::MusicLocation, "Music", Icon::Folder},
    {QStandardPaths::PicturesLocation, "Pictures", Icon::Folder},
    {QStandardPaths::MoviesLocation, "Videos", Icon::Folder},
    {QStandardPaths::TempLocation, "Temporary files", Icon::Folder},
};

zenu::tag_HROW * addSection(zenu::KGridCtrl & grid, std::string title, QFont * font)
{
    zenu::tag_HROW * const section = grid.InsertSection(nullptr, zenu::GCI_LAST);
    zenu::GC_SECTION record;
    record.mask = zenu::GCRM_SECTIONTEXT | zenu::GCRM_PARAM | zenu::GCRM_FONT;
    record.font = font;
    record.text = title.data();
    record.param = static_cast<unsigned long>(sectionParam);
    grid.SetSection(section, &record);
    return section;
}

void setText(zenu::KGridCtrl & grid, zenu::tag_HROW * row, Column column, std::string const & text)
{
    grid.SetItemText(row, handleOf(column), text.c_str());
}

// Places and volumes have nothing to run.
void setLook(zenu::KGridCtrl & grid, zenu::tag_HROW * row, Icon icon)
{
    grid.SetItem(row, handleOf(Column::Name), zenu::GCIM_IMAGE, nullptr, static_cast<int>(icon), 0);
    zenu::GC_ITEM noCheck;
    noCheck.mask = zenu::GCIM_CHECKSTYLE;
    noCheck.value = hideCheckStyle;
    grid.SetItem(row, handleOf(Column::Executable), &noCheck);
}

// The volumes that hold a user's files: not the small ones that systems mount for their own use,
// and each once, however often it is mounted.
std::vector<QStorageInfo> volumes()
{
    std::vector<QStorageInfo> found;
    for (QStorageInfo const & volume : QStorageInfo::mountedVolumes()) {
        auto const isSame = [&](QStorageInfo const & other) {
            return other.device() == volume.device();
        };
        if (volume.isValid() && volume.isReady() && volume.bytesTotal() >= smallestVolume &&
            volume.fileSystemType() != "squashfs" && volume.fileSystemType() != "devtmpfs" &&
            QFileInfo(volume.rootPath()).isDir() && std::ranges::none_of(found, isSame)) {
            found.push_back(volume);
        }
    }
    return found;
}

} // namespace

void FixedRows::addTo(zenu::KGridCtrl & grid)
{
    paths.clear();
    titleFont = grid.font();
    titleFont.setBold(true);
    addPlaces(grid);
    addVolumes(grid);
}

std::string FixedRows::path(long param) const
{
    auto const at = static_cast<std::size_t>(firstParam - param);
    return param <= firstParam && at < paths.size() ? paths[at] : std::string();
}

void FixedRows::addPlaces(zenu::KGridCtrl & grid)
{
    zenu::tag_HROW * const section = addSection(grid, "Places", &titleFont);
    std::vector<QString> seen;
    for (Place const & place : places) {
        QString const path = QStandardPaths::writableLocation(place.location);
        QFileInfo const info(path);
        // Where no desktop says otherwise, some locations fall together with the home directory.
        if (path.isEmpty() || !info.isDir() || std::ranges::find(seen, path) != seen.end()) {
            continue;
        }
        seen.push_back(path);
        zenu::tag_HROW * const row = addRow(grid, section, QFile::encodeName(path).toStdString());
        std::string modified;
        dateText(info.lastModified().toSecsSinceEpoch(), modified);
        setText(grid, row, Column::Name, place.name);
        setText(grid, row, Column::Kind, "Folder");
        setText(grid, row, Column::Modified, modified);
        setLook(grid, row, place.icon);
    }
    grid.Expand(section, zenu::GCE_EXPAND | zenu::GCE_NOSCROLL);
}

void FixedRows::addVolumes(zenu::KGridCtrl & grid)
{
    zenu::tag_HROW * const section = addSection(grid, "Volumes", &titleFont);
    for (QStorageInfo const & volume : volumes()) {
        std::string const path = QFile::encodeName(volume.rootPath()).toStdString();
        zenu::tag_HROW * const row = addRow(grid, section, path);
        std::string total;
        std::string free;
        sizeText(volume.bytesTotal(), total);
        sizeText(volume.bytesAvailable(), free);
        QByteArray const name = volume.displayName().toUtf8();
        setText(grid, row, Column::Name, displayName(name.constData()));
        setText(grid, row, Column::Size, total + endMargin);
        setText(grid, row, Column::Kind, free + " free");
        setLook(grid, row, Icon::Volume);
    }
    grid.Expand(section, zenu::GCE_EXPAND | zenu::GCE_NOSCROLL);
}

zenu::tag_HROW * FixedRows::addRow(zenu::KGridCtrl & grid, zenu::tag_HROW * section,
                                   std::string const & path)
{
    zenu::GC_ROW record;
    record.mask = zenu::GCRM_PARENT | zenu::GCRM_PARAM;
    record.parent = section;
    record.param = static_cast<unsigned long>(firstParam - static_cast<long>(paths.size()));
    paths.push_back(path);
    return grid.InsertRow(&record, zenu::GCI_LAST);
}

} // namespace explorer
