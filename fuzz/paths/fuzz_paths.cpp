// Paths: the first line of the input is a base, the rest a path. Every function gives what the
// plain reference gives, forms agree where they should, and what is taken apart can be put
// together.

#include "Check.h"
#include "tests/util/PathReference.h"

#include <zenu/util/FileUtils.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace reference = pathreference;
namespace FileUtils = zenu::FileUtils;

namespace {

constexpr std::size_t longestInput = 2'000; // the reference is quadratic

void checkParts(std::string const & path)
{
    auto const expected = reference::splitPath(path);
    std::string drive, dir, name, ext;
    FileUtils::splitPath(path, &drive, &dir, &name, &ext);
    FUZZ_CHECK(drive == expected.drive && dir == expected.dir);
    FUZZ_CHECK(name == expected.name && ext == expected.ext);
    FUZZ_CHECK((FileUtils::makePath(drive, dir, name, ext) == path) == expected.comesBack);

    std::string const directory = FileUtils::getPathFromFile(path);
    bool const isName = reference::lastSeparator(path) == std::string::npos;
    FUZZ_CHECK(isName ? directory.empty() : directory == reference::parentOf(path));
    FUZZ_CHECK(FileUtils::isAbsolutePath(path) == reference::isAbsolutePath(path));
    FUZZ_CHECK(FileUtils::trimPath(path) == reference::trimPath(path));
    FUZZ_CHECK(FileUtils::pathAddBackslash(path) == reference::addBackslash(path));
    FUZZ_CHECK(FileUtils::pathRemoveBackslash(path) == reference::removeBackslash(path));

    std::vector<std::string> wanted;
    std::vector<std::string> found;
    FUZZ_CHECK(FileUtils::glob(&found, path) == reference::glob(wanted, path) && found == wanted);
}

// The forms on a buffer, in place and from one to another; the path holds no null byte.
void checkBuffers(std::string const & path)
{
    std::string const name = FileUtils::getNameFromFile(path.c_str());
    std::size_t const separator = reference::lastSeparator(path);
    FUZZ_CHECK(name == path.substr(separator + 1));

    std::string const ext = FileUtils::getExtFromFile(path.c_str());
    std::vector<char> out(path.size() + 2);
    FileUtils::removeExtFromFile(path.c_str(), out.data());
    FUZZ_CHECK(out.data() + ext == path);
    FUZZ_CHECK(ext.empty() ? path.find('.') == std::string::npos : ext.rfind('.') == 0);

    std::memcpy(out.data(), path.c_str(), path.size() + 1);
    FileUtils::pathAddBackslash(out.data(), out.data());
    std::string const added = out.data();
    bool const behindOne = path.ends_with('\\');
    FUZZ_CHECK(added == (behindOne ? path + '\\' : reference::addBackslash(path)));
}

void checkTwo(std::string const & base, std::string const & path)
{
    std::string const absolute = FileUtils::getAbsolutePath(base, path);
    FUZZ_CHECK(absolute == reference::getAbsolutePath(base, path));
    std::string expected;
    reference::getRelativePath(expected, base, path);
    FUZZ_CHECK(FileUtils::getRelativePath(base, path) == expected);
    FUZZ_CHECK(FileUtils::equalPath(base, path) == FileUtils::equalPath(path, base));
    if (!base.empty()) {
        std::string const start = base.ends_with('/') ? base.substr(0, base.size() - 1) : base;
        FUZZ_CHECK(FileUtils::makeAbsolutePath(base, path) ==
                   (reference::isAbsolutePath(path) ? path : start + '\\' + path));
    }
}

// The same with C strings, where the result may take the place of an argument.
void checkTwoBuffers(std::string const & base, std::string const & path)
{
    std::string result = path;
    std::string expected;
    bool const answer = reference::getRelativePath(expected, base, path);
    FUZZ_CHECK(FileUtils::getRelativePath(&result, base.c_str(), result.c_str()) == answer);
    FUZZ_CHECK(result == expected);
    result = base;
    FileUtils::getAbsolutePath(&result, result.c_str(), path.c_str());
    FUZZ_CHECK(result == FileUtils::getAbsolutePath(base, path));
    if (!base.empty()) {
        std::vector<char> out(base.size() + path.size() + 2);
        std::memcpy(out.data(), path.c_str(), path.size() + 1);
        FileUtils::makeAbsolutePath(base.c_str(), out.data(), out.data());
        FUZZ_CHECK(out.data() == FileUtils::makeAbsolutePath(base, path));
    }
}

bool isPlain(std::string path) // no empty component and no points
{
    bool const ends = path.empty() || reference::isSeparator(path.back());
    while (!path.empty()) {
        std::string const part = reference::popComponent(path);
        if (part.empty() || part == "." || part == "..") {
            return false;
        }
    }
    return !ends;
}

// From a base, the relative path leads to the path again.
void checkWayBack(std::string const & base, std::string const & path)
{
    std::string const from = "C:\\" + base;
    std::string const to = "c:\\" + path;
    std::string const way = FileUtils::getRelativePath(from, to);
    FUZZ_CHECK(way.starts_with(".\\"));
    if (isPlain(base) && isPlain(path) && way != ".\\") {
        FUZZ_CHECK(FileUtils::equalPath(FileUtils::getAbsolutePath(from, way), to));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string const input(data, data + std::min(size, longestInput));
    std::size_t const end = std::min(input.find('\n'), input.size());
    std::string const base = input.substr(0, end);
    std::string const path = input.substr(std::min(end + 1, input.size()));
    checkParts(base);
    checkParts(path);
    checkTwo(base, path);
    if (input.find('\0') == std::string::npos) {
        checkBuffers(base);
        checkBuffers(path);
        checkTwoBuffers(base, path);
        checkWayBack(base, path);
    }
    return 0;
}
