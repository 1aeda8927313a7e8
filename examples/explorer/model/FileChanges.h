#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace explorer {

/// One thing that was done to one file.
struct FileChange
{
    std::string path;    ///< where the file was
    std::string newPath; ///< where it is now; empty when only its mode was changed
    mode_t oldMode = 0;  ///< before a change of the mode
};

/// What became of a wish: the changes that were made, and why others were refused.
struct FileOutcome
{
    std::vector<FileChange> done;
    int refused = 0;
    std::string error; ///< of the first file that was refused, in words for people, in UTF-8

    bool isDone() const { return refused == 0; }
};

/// Renames files, moves them, makes them executable, and takes all of that back. Paths and names
/// are bytes as the file system has them. Nothing is ever overwritten, copied or deleted.
class FileChanges
{
public:
    using Paths = std::vector<std::string>;

    /// Gives a file another name in its directory. The same name is no change.
    FileOutcome rename(std::string const & path, std::string const & name);

    /// Moves files into a directory. What is there already is left where it is and counts neither
    /// as done nor as refused; what lies below another one of the paths goes with that.
    FileOutcome move(Paths paths, std::string const & directory);

    /// Lets those run a file who may read it, or nobody.
    FileOutcome setExecutable(Paths const & paths, bool executable);

    bool canUndo() const { return !steps.empty(); }
    /// What undo would take back, as "rename of a.txt"; empty for nothing.
    std::string undoText() const;
    /// Takes the last step back, which is forgotten then, whether all of it could be taken back or
    /// not. The changes told are those made now.
    FileOutcome undo();

    /// How many steps are remembered.
    static constexpr std::size_t mostSteps = 100;

private:
    struct Step
    {
        char const * what;
        std::vector<FileChange> changes;
    };

    void remember(char const * what, FileOutcome const & outcome);

    std::vector<Step> steps;
};

/// The name at the end of a path.
std::string nameOf(std::string const & path);
/// The directory that a path lies in; that of "/" is "/".
std::string directoryOf(std::string const & path);
/// Whether a path is that of the directory or lies below it.
bool isWithin(std::string const & path, std::string const & directory);

/// Why no file can have this name, in words for people; empty when one can.
std::string whyNoName(std::string const & name);

} // namespace explorer
