#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/util/FileUtils.h>

namespace gallery {

namespace {

QWidget * makePaths()
{
    // [code]
    auto const fill = [](ValueGrid & values, std::string const & path) {
        namespace FileUtils = zenu::FileUtils;
        std::string drive, dir, name, ext;
        FileUtils::splitPath(path, &drive, &dir, &name, &ext);
        values.add(SHOW(drive));
        values.add(SHOW(dir));
        values.add(SHOW(name));
        values.add(SHOW(ext));
        values.add(SHOW(FileUtils::makePath("d", "back", name, ext)));
        values.add(SHOW(FileUtils::isAbsolutePath(path)));
        values.add(SHOW(FileUtils::trimPath(path)));
        values.add(SHOW(FileUtils::getPathFromFile(path)));
        values.add(SHOW(FileUtils::getRelativePath("C:\\Work", path)));
        values.add(SHOW(FileUtils::exists(path)));
    };
    // [code]
    return new TypedValues(QStringLiteral("A path"), "C:\\Work\\old\\..\\notes.txt", fill);
}

} // namespace

Page filesPage()
{
    return {
        "Files", "Paths as texts, with backslashes on every system.", {"FileUtils.h"}, makePaths};
}

} // namespace gallery
