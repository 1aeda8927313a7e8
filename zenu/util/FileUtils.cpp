#include "zenu/util/FileUtils.h"

#include "zenu/util/StringUtils.h"
#include "zenu/util/inner/PathWalk.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace zenu::FileUtils {

namespace {

constexpr std::size_t none = std::string::npos;
constexpr char bothSeparators[] = "\\/";
constexpr std::string_view machinePrefix = "\\\\";
constexpr std::size_t drivePrefixLength = 3; // letter, colon and separator

bool hasDrive(std::string_view path)
{
    return path.size() >= 2 && path[1] == ':';
}

bool namesMachine(std::string_view path)
{
    return path.starts_with(machinePrefix);
}

// The place behind the last separator; 0 when there is none.
std::size_t namePlace(std::string_view path)
{
    return path.find_last_of(bothSeparators) + 1;
}

// Up to the last point, or all of it.
std::size_t lengthBeforeExt(char const * path)
{
    char const * const point = std::strrchr(path, '.');
    return point ? static_cast<std::size_t>(point - path) : std::strlen(path);
}

std::string absolutePath(std::string_view base, std::string_view path)
{
    if (hasDrive(path) || namesMachine(path)) {
        return std::string(path);
    }
    PathInProgress result{std::string(base)};
    Components components(path);
    for (auto part = components.next(); !part.empty(); part = components.next()) {
        if (part == "..") {
            result.leave();
        } else if (part != ".") {
            result.enter(part);
        }
    }
    return result.take();
}

std::string joinedPath(std::string_view base, std::string_view path)
{
    std::string result(base);
    if (result.empty()) {
        result = QDir::currentPath().toLatin1().toStdString();
    }
    // A backslash that is there gets a second one, as in the form with a buffer.
    if (result.ends_with('/')) {
        result.back() = '\\';
    } else {
        result += '\\';
    }
    result += path;
    return result;
}

std::string_view behindDrive(std::string_view path)
{
    return path.substr(std::min(drivePrefixLength, path.size()));
}

// As equalNoCase, which a path of very many components would spend all its time copying for.
bool equalComponents(std::string_view a, std::string_view b)
{
    a = a.substr(0, a.find('\0'));
    b = b.substr(0, b.find('\0'));
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return foldCase(left) == foldCase(right); });
}

bool relate(std::string & result, std::string_view base, std::string_view path)
{
    if (!hasDrive(base) || !hasDrive(path) || foldCase(base[0]) != foldCase(path[0])) {
        result = path;
        return false;
    }
    result = ".\\";
    Components baseParts(behindDrive(base));
    Components pathParts(behindDrive(path));
    for (;;) {
        std::string_view const basePart = baseParts.next();
        std::string_view const pathPart = pathParts.next();
        if (pathPart.empty()) {
            return true; // even if the base goes on: no steps up to a path above it
        }
        if (!basePart.empty() && equalComponents(basePart, pathPart)) {
            continue;
        }
        if (!basePart.empty()) {
            do {
                result += "..\\";
            } while (!baseParts.next().empty());
        }
        result += pathPart;
        if (!pathParts.rest().empty()) {
            addBackslash(result);
            result += pathParts.rest();
        }
        return true;
    }
}

QString fileName(std::string const & path)
{
    // Qt complains about a null byte, and the system would stop there and take another file.
    return path.find('\0') == none ? QFile::decodeName(QByteArray::fromStdString(path)) : QString();
}

} // namespace

bool exists(std::string const & path)
{
    return QFileInfo::exists(fileName(path));
}

bool isDirectory(std::string const & path)
{
    return QFileInfo(fileName(path)).isDir();
}

bool isReadOnly(std::string const & path)
{
    return !path.empty() && !QFileInfo(fileName(path)).isWritable();
}

void setReadOnly(std::string const &, bool)
{
    // Meant: applications call it for files whose permissions are not theirs to change.
}

bool setCurrentDirectory(std::string const & path)
{
    QString const name = fileName(path);
    return !name.isEmpty() && QDir::setCurrent(name);
}

bool deleteFile(std::string const & path)
{
    QString const name = fileName(path);
    return !name.isEmpty() && QFile::remove(name); // which complains about an empty name
}

long getLastModificationTime(std::string const & path)
{
    QDateTime const changed = QFileInfo(fileName(path)).lastModified();
    return static_cast<long>(QDateTime::fromSecsSinceEpoch(0).secsTo(changed));
}

bool createDirTree(char const *)
{
    return false;
}

std::string tempFile()
{
    return "/tmp1234";
}

bool isAbsolutePath(std::string const & path)
{
    return !path.empty() && (isSeparator(path.front()) || hasDrive(path));
}

bool equalPath(std::string const & a, std::string const & b)
{
    std::string left = a;
    std::string right = b;
    std::replace(left.begin(), left.end(), '/', '\\');
    std::replace(right.begin(), right.end(), '/', '\\');
    return equalNoCase(left, right);
}

std::string getPathFromFile(std::string const & path)
{
    std::size_t const name = namePlace(path);
    return name == 0 ? std::string() : path.substr(0, name - 1);
}

char const * getNameFromFile(char const * path)
{
    if (!path) {
        return nullptr;
    }
    char const * const name = path + namePlace(path);
    return *name == '\0' && name != path ? "" : name;
}

char const * getExtFromFile(char const * path)
{
    char const * const point = std::strrchr(path, '.');
    return point ? point : "";
}

void removeExtFromFile(char const * in, char * out)
{
    std::size_t const length = lengthBeforeExt(in);
    std::memmove(out, in, length);
    out[length] = '\0';
}

void pathAddBackslash(char const * in, char * out)
{
    std::size_t length = std::strlen(in);
    std::memmove(out, in, length);
    if (length != 0 && out[length - 1] == '/') {
        --length;
    }
    out[length] = '\\';
    out[length + 1] = '\0';
}

std::string pathAddBackslash(std::string const & path)
{
    std::string result = path;
    addBackslash(result);
    return result;
}

std::string pathRemoveBackslash(std::string const & path)
{
    return path.substr(0, path.size() - (endsInSeparator(path) ? 1 : 0));
}

void splitPath(std::string const & path, std::string * drive, std::string * dir, std::string * name,
               std::string * ext)
{
    std::string_view const text = path;
    std::size_t const colon = text.find(':');
    std::size_t const driveEnd = colon + 1; // 0 without a colon
    std::size_t const nameStart = namePlace(text);
    std::size_t const point = text.rfind('.');
    bool const driveOnly = colon != none && driveEnd == text.size();
    bool const hasName = !driveOnly && !endsInSeparator(text);
    std::size_t const extStart = point == none || point < nameStart ? text.size() : point;

    std::string parts[4];
    parts[0] = driveOnly ? text : text.substr(0, driveEnd);
    if (!driveOnly && driveEnd < nameStart) {
        parts[1] = text.substr(driveEnd, nameStart - driveEnd);
    }
    if (hasName) {
        // From the last separator on, and so with the drive in front when no separator follows
        // that.
        parts[2] = text.substr(nameStart, extStart - nameStart);
        parts[3] = text.substr(extStart);
    }
    std::string * const outputs[] = {drive, dir, name, ext};
    for (int i = 0; i < 4; ++i) {
        if (outputs[i]) {
            *outputs[i] = std::move(parts[i]);
        }
    }
}

std::string makePath(std::string const & drive, std::string const & dir, std::string const & name,
                     std::string const & ext)
{
    std::string path = drive;
    if (!drive.empty() && !drive.ends_with(':')) {
        path += ':';
    }
    path += dir;
    if (!dir.empty() && !endsInSeparator(dir)) {
        path += '\\';
    }
    path += name;
    if (!ext.empty() && !ext.starts_with('.')) {
        path += '.';
    }
    return path += ext;
}

std::string trimPath(std::string const & path)
{
    bool const machine = namesMachine(path);
    if (!machine && !hasDrive(path)) {
        return path;
    }
    std::string_view const start = machine ? machinePrefix : std::string_view();
    PathInProgress result{std::string(start)};
    Components components(std::string_view(path).substr(start.size()));
    for (auto part = components.next(); !part.empty(); part = components.next()) {
        if (part == "..") {
            result.leave();
        } else if (part == ".") {
            continue;
        } else if (result.isEmpty()) {
            result.start(part);
        } else {
            result.enter(part);
        }
    }
    return result.take();
}

void makeAbsolutePath(char const * base, char const * path, char * out)
{
    std::string const result = makeAbsolutePath(std::string(base), std::string(path));
    std::memcpy(out, result.c_str(), result.size() + 1);
}

std::string makeAbsolutePath(std::string const & base, std::string const & path)
{
    return isAbsolutePath(path) ? path : joinedPath(base, path);
}

std::string makeAbsolutePath(std::string const & path)
{
    return makeAbsolutePath(std::string(), path);
}

void getAbsolutePath(std::string * result, char const * base, char const * path)
{
    *result = absolutePath(base, path);
}

std::string getAbsolutePath(std::string const & base, std::string const & path)
{
    return absolutePath(base, path);
}

bool getRelativePath(std::string * result, char const * base, char const * path)
{
    std::string way; // the texts may be those of *result
    bool const related = relate(way, base, path);
    *result = std::move(way);
    return related;
}

std::string getRelativePath(std::string const & base, std::string const & path)
{
    std::string way;
    relate(way, base, path);
    return way;
}

bool glob(std::vector<std::string> * result, std::string const & pattern)
{
    std::string_view const name = std::string_view(pattern).substr(namePlace(pattern));
    bool const isDrive = pattern.size() == 2 && hasDrive(pattern);
    bool const isMachine = pattern.size() > 2 && namesMachine(pattern);
    std::vector<std::string> found; // the pattern may be one of *result
    if (isDrive || isMachine || name == "." || name == "..") {
        found.push_back(pattern);
    }
    // Every other pattern finds nothing: directories are not searched.
    *result = std::move(found);
    return !result->empty();
}

} // namespace zenu::FileUtils
