#include "examples/explorer/model/FileChanges.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>

namespace explorer {

namespace {

constexpr mode_t runBits = 0111;
constexpr mode_t readBits = 0444;

std::string wordsFor(int error)
{
    switch (error) {
    case EEXIST:
    case ENOTEMPTY:
        return "there is already a file of that name";
    case EACCES:
    case EPERM:
        return "that is not allowed";
    case ENOENT:
        return "it is not there any more";
    case ENOTDIR:
        return "that is no directory";
    case ENAMETOOLONG:
        return "the name is too long";
    case EXDEV:
        return "that is another file system, and files are moved, not copied";
    case EINVAL:
        return "a directory cannot be moved into itself";
    case EROFS:
        return "the file system is read only";
    case ENOSPC:
        return "the file system is full";
    default:
        return std::strerror(error);
    }
}

void refuse(FileOutcome & outcome, std::string const & path, std::string const & reason)
{
    if (outcome.refused++ == 0) {
        outcome.error = nameOf(path) + ": " + reason;
    }
}

// Never onto a file that exists. 0, or the error.
int moveFile(std::string const & from, std::string const & to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    // Some file systems do not know the flag. EINVAL may also mean what it says.
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
    struct stat status;
    if (lstat(to.c_str(), &status) == 0) {
        return EEXIST;
    }
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

void tryMove(FileOutcome & outcome, std::string const & from, std::string const & to)
{
    if (int const error = moveFile(from, to); error != 0) {
        refuse(outcome, from, wordsFor(error));
    } else {
        outcome.done.push_back({from, to, 0});
    }
}

// `bits` are the new ones of runBits.
void trySetBits(FileOutcome & outcome, std::string const & path, mode_t oldMode, mode_t bits)
{
    mode_t const mode = (oldMode & 07777 & ~runBits) | bits;
    if (chmod(path.c_str(), mode) != 0) {
        refuse(outcome, path, wordsFor(errno));
    } else {
        outcome.done.push_back({path, std::string(), oldMode});
    }
}

// False, with the reason told, for anything but a regular file.
bool readMode(FileOutcome & outcome, std::string const & path, mode_t * mode)
{
    struct stat status;
    if (lstat(path.c_str(), &status) != 0) {
        refuse(outcome, path, wordsFor(errno));
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        refuse(outcome, path, "only files can be run");
        return false;
    }
    *mode = status.st_mode;
    return true;
}

// Those that do not lie below another one.
std::vector<std::string> outermost(std::vector<std::string> paths)
{
    std::ranges::sort(paths);
    std::vector<std::string> result;
    for (std::string & path : paths) {
        auto const holds = [&](std::string const & other) { return isWithin(path, other); };
        // Sorted, all paths below one stand behind it, but "a b" may stand between "a" and "a/b".
        if (std::ranges::none_of(result, holds)) {
            result.push_back(std::move(path));
        }
    }
    return result;
}

} // namespace

std::string nameOf(std::string const & path)
{
    std::size_t const slash = path.rfind('/');
    return slash == std::string::npos || slash + 1 == path.size() ? path : path.substr(slash + 1);
}

std::string directoryOf(std::string const & path)
{
    std::size_t const slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, std::max<std::size_t>(slash, 1));
}

bool isWithin(std::string const & path, std::string const & directory)
{
    return path.starts_with(directory) &&
           (path.size() == directory.size() || directory == "/" || path[directory.size()] == '/');
}

std::string whyNoName(std::string const & name)
{
    if (name.empty()) {
        return "a name cannot be empty";
    }
    if (name == "." || name == "..") {
        return "that name stands for a directory";
    }
    if (name.find('/') != std::string::npos) {
        return "a name cannot hold a slash";
    }
    auto const isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
    if (std::ranges::any_of(name, isControl)) {
        return "a name cannot hold control characters";
    }
    return name.size() > NAME_MAX ? "the name is too long" : "";
}

FileOutcome FileChanges::rename(std::string const & path, std::string const & name)
{
    FileOutcome outcome;
    if (name == nameOf(path)) {
        return outcome;
    }
    if (std::string const reason = whyNoName(name); !reason.empty()) {
        refuse(outcome, path, reason);
        return outcome;
    }
    std::string const directory = directoryOf(path);
    tryMove(outcome, path, (directory == "/" ? directory : directory + '/') + name);
    remember("rename", outcome);
    return outcome;
}

FileOutcome FileChanges::move(Paths paths, std::string const & directory)
{
    FileOutcome outcome;
    for (std::string const & path : outermost(std::move(paths))) {
        if (directoryOf(path) == directory) {
            continue;
        }
        if (isWithin(directory, path)) {
            refuse(outcome, path, wordsFor(EINVAL));
            continue;
        }
        tryMove(outcome, path, (directory == "/" ? directory : directory + '/') + nameOf(path));
    }
    remember("move", outcome);
    return outcome;
}

FileOutcome FileChanges::setExecutable(Paths const & paths, bool executable)
{
    FileOutcome outcome;
    for (std::string const & path : paths) {
        mode_t mode = 0;
        if (!readMode(outcome, path, &mode)) {
            continue;
        }
        mode_t bits = executable ? (mode & readBits) >> 2 : 0;
        bits = executable && bits == 0 ? S_IXUSR : bits;
        if ((mode & runBits) != bits) {
            trySetBits(outcome, path, mode, bits);
        }
    }
    remember("\"Runs\"", outcome);
    return outcome;
}

void FileChanges::remember(char const * what, FileOutcome const & outcome)
{
    if (outcome.done.empty()) {
        return;
    }
    if (steps.size() == mostSteps) {
        steps.erase(steps.begin());
    }
    steps.push_back({what, outcome.done});
}

std::string FileChanges::undoText() const
{
    if (steps.empty()) {
        return std::string();
    }
    Step const & step = steps.back();
    std::string const one = nameOf(step.changes.front().path);
    std::size_t const count = step.changes.size();
    return std::string(step.what) + " of " + (count == 1 ? one : std::to_string(count) + " files");
}

FileOutcome FileChanges::undo()
{
    FileOutcome outcome;
    if (steps.empty()) {
        return outcome;
    }
    Step const step = std::move(steps.back());
    steps.pop_back();
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
        mode_t mode = 0;
        if (!change->newPath.empty()) {
            tryMove(outcome, change->newPath, change->path);
        } else if (readMode(outcome, change->path, &mode)) {
            trySetBits(outcome, change->path, mode, change->oldMode & runBits);
        }
    }
    return outcome;
}

} // namespace explorer
