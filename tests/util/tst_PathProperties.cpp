// Every short path through every path function, compared with the plain reference and with what
// must hold between the functions.

#include "tests/support/TestMain.h"
#include "tests/util/PathReference.h"

#include <zenu/util/FileUtils.h>

#include <algorithm>
#include <cstring>

using namespace zenu;
namespace reference = pathreference;

namespace {

constexpr char alphabet[] = "\\/:.ab";

// All texts over the alphabet of at most that many characters, the empty one first.
std::vector<std::string> everyPath(std::size_t longest)
{
    std::vector<std::string> paths(1);
    for (std::size_t i = 0; i < paths.size() && paths[i].size() < longest; ++i) {
        for (char const * c = alphabet; *c != '\0'; ++c) {
            paths.push_back(paths[i] + *c);
        }
    }
    return paths;
}

// Runs `check` for each path until it answers false.
template <typename Check>
void verifyEach(std::vector<std::string> const & paths, Check check)
{
    for (std::string const & path : paths) {
        QVERIFY2(check(path), path.c_str());
    }
}

template <typename Check>
void verifyPairs(std::vector<std::string> const & bases, std::vector<std::string> const & paths,
                 Check check)
{
    for (std::string const & base : bases) {
        for (std::string const & path : paths) {
            if (!check(base, path)) {
                QFAIL(qPrintable(
                    QStringLiteral("base '%1' path '%2'").arg(base.c_str(), path.c_str())));
            }
        }
    }
}

std::vector<std::string> withFront(std::string const & front, std::vector<std::string> paths)
{
    for (std::string & path : paths) {
        path.insert(0, front);
    }
    return paths;
}

bool sameRelative(std::string const & base, std::string const & path)
{
    std::string expected;
    bool const answer = reference::getRelativePath(expected, base, path);
    std::string result = "before";
    return FileUtils::getRelativePath(&result, base.c_str(), path.c_str()) == answer &&
           result == expected && FileUtils::getRelativePath(base, path) == expected;
}

bool sameAbsolute(std::string const & base, std::string const & path)
{
    std::string const expected = reference::getAbsolutePath(base, path);
    std::string result = "before";
    FileUtils::getAbsolutePath(&result, base.c_str(), path.c_str());
    return result == expected && FileUtils::getAbsolutePath(base, path) == expected;
}

// What a function with a buffer writes, with the text at `in` and the output at `out` in it.
template <typename Function>
std::string inBuffer(Function function, std::string const & text, std::size_t in, std::size_t out)
{
    std::vector<char> buffer(text.size() + 4, '#');
    std::memcpy(buffer.data() + in, text.c_str(), text.size() + 1);
    function(buffer.data() + in, buffer.data() + out);
    return buffer.data() + out;
}

} // namespace

class tst_PathProperties : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { m_paths = everyPath(6); }
    void paths_areAllThere() { QCOMPARE(m_paths.size(), std::size_t(55'987)); }
    void isAbsolutePath();
    void equalPath();
    void pathAndName_makeThePath();
    void baseAndExt_makeThePath();
    void pathAddBackslash_formsDifferBehindABackslashOnly();
    void pathRemoveBackslash_takesOneSeparator();
    void buffers_overlapping_giveTheSame();
    void splitPath();
    void makePath_afterSplitPath_givesThePathBackWhereNoColonFollowsTheLastSeparator();
    void trimPath();
    void makeAbsolutePath();
    void getAbsolutePath();
    void getRelativePath();
    void getRelativePath_samePath_isPointAndBackslash();
    void getAbsolutePath_ofTheRelativePath_leadsThere();
    void glob();

private:
    std::vector<std::string> m_paths;
};

void tst_PathProperties::isAbsolutePath()
{
    verifyEach(m_paths, [](std::string const & path) {
        return FileUtils::isAbsolutePath(path) == reference::isAbsolutePath(path);
    });
}

void tst_PathProperties::equalPath()
{
    verifyEach(m_paths, [](std::string const & path) {
        std::string other = path;
        for (char & c : other) {
            c = c == '\\' ? '/' : (c == '/' ? '\\' : (c == 'a' ? 'A' : c));
        }
        return FileUtils::equalPath(path, other) && FileUtils::equalPath(other, path) &&
               !FileUtils::equalPath(path + 'a', other);
    });
    verifyPairs(everyPath(3), everyPath(3), [](std::string const & a, std::string const & b) {
        std::string left = a;
        std::string right = b;
        std::replace(left.begin(), left.end(), '\\', '/');
        std::replace(right.begin(), right.end(), '\\', '/');
        return FileUtils::equalPath(a, b) == (left == right);
    });
}

void tst_PathProperties::pathAndName_makeThePath()
{
    verifyEach(m_paths, [](std::string const & path) {
        std::string const directory = FileUtils::getPathFromFile(path);
        char const * const name = FileUtils::getNameFromFile(path.c_str());
        if (reference::lastSeparator(path) == std::string::npos) {
            return directory.empty() && name == path.c_str();
        }
        bool const inside = name == path.c_str() + directory.size() + 1;
        bool const ends = reference::isSeparator(path.back());
        return directory + path[directory.size()] + name == path && inside == !ends &&
               std::string(name).find_first_of("\\/") == std::string::npos;
    });
}

void tst_PathProperties::baseAndExt_makeThePath()
{
    verifyEach(m_paths, [](std::string const & path) {
        char const * const ext = FileUtils::getExtFromFile(path.c_str());
        std::string const base = inBuffer(FileUtils::removeExtFromFile, path, 0, 0);
        std::size_t const points = std::size_t(std::count(path.begin(), path.end(), '.'));
        if (points == 0) {
            return *ext == '\0' && base == path;
        }
        return base + ext == path && ext == path.c_str() + base.size() && *ext == '.' &&
               !std::strchr(ext + 1, '.');
    });
}

void tst_PathProperties::pathAddBackslash_formsDifferBehindABackslashOnly()
{
    verifyEach(m_paths, [](std::string const & path) {
        std::string const string = FileUtils::pathAddBackslash(path);
        std::string const chars = inBuffer(
            [](char const * in, char * out) { FileUtils::pathAddBackslash(in, out); }, path, 0, 0);
        bool const behindOne = !path.empty() && path.back() == '\\';
        return string == reference::addBackslash(path) &&
               chars == (behindOne ? string + '\\' : string);
    });
}

void tst_PathProperties::pathRemoveBackslash_takesOneSeparator()
{
    verifyEach(m_paths, [](std::string const & path) {
        return FileUtils::pathRemoveBackslash(path) == reference::removeBackslash(path) &&
               FileUtils::pathRemoveBackslash(path + '/') == path &&
               FileUtils::pathRemoveBackslash(path + '\\') == path;
    });
}

void tst_PathProperties::buffers_overlapping_giveTheSame()
{
    auto const add = [](char const * in, char * out) { FileUtils::pathAddBackslash(in, out); };
    auto const make = [](char const * in, char * out) {
        FileUtils::makeAbsolutePath("b", in, out - 1);
    };
    verifyEach(m_paths, [&](std::string const & path) {
        for (auto [in, out] : {std::pair(0U, 1U), std::pair(1U, 0U), std::pair(2U, 0U)}) {
            if (inBuffer(add, path, in, out) != inBuffer(add, path, 0, 0) ||
                inBuffer(FileUtils::removeExtFromFile, path, in, out) !=
                    inBuffer(FileUtils::removeExtFromFile, path, 0, 0)) {
                return false;
            }
        }
        std::string const whole = inBuffer(make, path, 1, 1);
        return reference::isAbsolutePath(path) ? whole == path.substr(1) : whole == '\\' + path;
    });
}

void tst_PathProperties::splitPath()
{
    verifyEach(m_paths, [](std::string const & path) {
        reference::Split const expected = reference::splitPath(path);
        std::string drive = "x", dir = "x", name = "x", ext = "x";
        FileUtils::splitPath(path, &drive, &dir, &name, &ext);
        std::string lone = "x";
        FileUtils::splitPath(path, nullptr, nullptr, &lone, nullptr);
        return drive == expected.drive && dir == expected.dir && name == expected.name &&
               ext == expected.ext && lone == name;
    });
}

void tst_PathProperties::
    makePath_afterSplitPath_givesThePathBackWhereNoColonFollowsTheLastSeparator()
{
    std::size_t others = 0;
    verifyEach(m_paths, [&](std::string const & path) {
        std::string drive, dir, name, ext;
        FileUtils::splitPath(path, &drive, &dir, &name, &ext);
        std::string const made = FileUtils::makePath(drive, dir, name, ext);
        std::size_t const colon = path.find(':');
        std::size_t const separator = reference::lastSeparator(path);
        bool const overlap = colon != std::string::npos && colon + 1 < path.size() &&
                             (separator == std::string::npos || separator < colon);
        if (overlap != !reference::splitPath(path).comesBack) {
            return false;
        }
        others += overlap ? 1 : 0;
        // What stands between the last separator and the colon is in the drive and in the name.
        std::size_t const nameStart = separator + 1;
        return made == (overlap ? path.substr(0, colon + 1) + path.substr(nameStart) : path);
    });
    QVERIFY(others > 1000);
}

void tst_PathProperties::trimPath()
{
    verifyEach(m_paths, [](std::string const & path) {
        return FileUtils::trimPath(path) == reference::trimPath(path) &&
               FileUtils::trimPath("a:\\" + path) == reference::trimPath("a:\\" + path) &&
               FileUtils::trimPath("\\\\" + path) == reference::trimPath("\\\\" + path);
    });
}

void tst_PathProperties::makeAbsolutePath()
{
    for (std::string const base : {"b", "b/", "b\\", "/"}) {
        std::string start = base;
        start.back() == '/' ? start.pop_back() : void();
        verifyEach(m_paths, [&](std::string const & path) {
            char out[20];
            FileUtils::makeAbsolutePath(base.c_str(), path.c_str(), out);
            return FileUtils::makeAbsolutePath(base, path) == out &&
                   out == (reference::isAbsolutePath(path) ? path : start + '\\' + path);
        });
    }
}

void tst_PathProperties::getAbsolutePath()
{
    verifyPairs(everyPath(4), everyPath(3), sameAbsolute);
    verifyPairs({"", "a", "a\\b", "a/", "\\", "\\\\", "a:\\b\\c", "a:"}, m_paths, sameAbsolute);
    verifyPairs(m_paths, {"", "..", "..\\..", ".\\a", "..\\..\\..\\b", "a\\..\\..", "../a/"},
                sameAbsolute);
}

void tst_PathProperties::getRelativePath()
{
    verifyPairs(everyPath(3), everyPath(3), sameRelative);
    verifyPairs(withFront("a:\\", everyPath(4)), withFront("A:/", everyPath(3)), sameRelative);
    verifyPairs({"a:\\", "a:\\b", "a:\\a\\b", "a:/a\\.\\b\\"}, withFront("a:\\", m_paths),
                sameRelative);
}

void tst_PathProperties::getRelativePath_samePath_isPointAndBackslash()
{
    verifyEach(m_paths, [](std::string const & path) {
        std::string result;
        bool const answer = FileUtils::getRelativePath(&result, path.c_str(), path.c_str());
        return answer == reference::hasDrive(path) && result == (answer ? ".\\" : path);
    });
}

void tst_PathProperties::getAbsolutePath_ofTheRelativePath_leadsThere()
{
    // Components that are no points, and no empty ones; and the path is not above the base.
    auto const isPlain = [](std::string path) {
        bool const ends = !path.empty() && reference::isSeparator(path.back());
        for (std::string part = " "; !path.empty();) {
            part = reference::popComponent(path);
            if (part.empty() || part == "." || part == "..") {
                return false;
            }
        }
        return !ends;
    };
    std::vector<std::string> plain = everyPath(4);
    plain.erase(std::remove_if(plain.begin(), plain.end(), std::not_fn(isPlain)), plain.end());
    plain.erase(plain.begin()); // the empty one
    verifyPairs(withFront("a:\\", plain), withFront("A:\\", plain),
                [](std::string const & base, std::string const & path) {
                    std::string const way = FileUtils::getRelativePath(base, path);
                    bool const above = way == ".\\";
                    return above ||
                           FileUtils::equalPath(FileUtils::getAbsolutePath(base, way), path);
                });
}

void tst_PathProperties::glob()
{
    verifyEach(m_paths, [](std::string const & path) {
        std::vector<std::string> expected;
        std::vector<std::string> result = {path, "before"};
        bool const answer = reference::glob(expected, path);
        return FileUtils::glob(&result, result[0]) == answer && result == expected;
    });
}

ZENU_TEST(tst_PathProperties)
#include "tst_PathProperties.moc"
