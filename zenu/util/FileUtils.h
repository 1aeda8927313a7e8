#pragma once

#include "zenu/ZenuExport.h"

#include <string>
#include <vector>

namespace zenu {

/// Paths as texts, and a few questions to the file system.
///
/// Paths are narrow strings in the local 8-bit form of Qt (QFile::encodeName), in the manner of
/// Windows: the backslash is the separator that is written, backslash and slash are both accepted;
/// a path may start with a drive, which is any one character and a colon, or with two backslashes,
/// which name another machine (two slashes do not). No function asks which system it runs on.
///
/// The functions on texts touch no file, and take time in proportion to the length of the texts.
/// Some come in two forms that differ, and some have limits; both stay as they are, since
/// applications keep such texts in their files. No pointer may be null unless its function says so.
/// No function throws or reports.
namespace FileUtils {

// The file system, through Qt. The path is passed on as it is: where the system separates with a
// slash, a backslash is part of a name. A path with a null byte in it names no file.

/// True when there is a file or directory of that name.
ZENU_EXPORT bool exists(std::string const & path);
/// True when the path names a directory.
ZENU_EXPORT bool isDirectory(std::string const & path);
/// True when the user may not write there, or nothing is there. False for the empty path.
ZENU_EXPORT bool isReadOnly(std::string const & path);
/// Does nothing: files keep their permissions.
ZENU_EXPORT void setReadOnly(std::string const & path, bool readOnly);
/// Makes the directory the current one of the process. False when that failed.
ZENU_EXPORT bool setCurrentDirectory(std::string const & path);
/// Deletes a file, never a directory. False when that failed.
ZENU_EXPORT bool deleteFile(std::string const & path);
/// Seconds from the start of 1970, UTC, to the last change of the file; 0 when there is none.
ZENU_EXPORT long getLastModificationTime(std::string const & path);
/// Makes nothing and answers false. A place kept for callers that link it.
ZENU_EXPORT bool createDirTree(char const * path);
/// The text "/tmp1234", every time. No file is made and nothing makes the name unique.
ZENU_EXPORT std::string tempFile();

// Taking paths apart.

/// True when the path starts with a separator or a drive. "c:x" counts, though it is relative to
/// the current directory of its drive.
ZENU_EXPORT bool isAbsolutePath(std::string const & path);
/// True when the paths are the same text without regard to case and to the kind of separators.
ZENU_EXPORT bool equalPath(std::string const & a, std::string const & b);
/// What stands before the last separator; empty when there is none.
ZENU_EXPORT std::string getPathFromFile(std::string const & path);
/// The place in `path` behind the last separator; an empty text of the library's when the path ends
/// in one. Null for null.
ZENU_EXPORT char const * getNameFromFile(char const * path);
/// The place in `path` of its last point; an empty text of the library's when there is none.
/// Separators are not looked at: the extension of "a.b\c" is ".b\c".
ZENU_EXPORT char const * getExtFromFile(char const * path);
/// Copies `in` to `out` up to its last point, all of it when there is none. As blind for separators
/// as getExtFromFile. `out` has room for `in` and may be the same buffer or overlap it.
ZENU_EXPORT void removeExtFromFile(char const * in, char * out);

/// Copies `in` to `out` with a backslash at the end: a slash there is replaced, to any other
/// character one is added, to a backslash too, unlike the other form. Empty gives "\". `out` has
/// room for one character more than `in` and may be the same buffer or overlap it.
ZENU_EXPORT void pathAddBackslash(char const * in, char * out);
/// The path with one backslash at the end: one that is there stays the only one, a slash is
/// replaced. Empty gives "\".
ZENU_EXPORT std::string pathAddBackslash(std::string const & path);
/// The path without its last character if that is a separator. A second one stays.
ZENU_EXPORT std::string pathRemoveBackslash(std::string const & path);

/// Cuts a path into drive with its colon, directory with its last separator, name, and extension
/// with its point. Every output may be null; they may be each other's or the path's own strings.
///
/// The drive reaches up to the first colon, wherever that stands. If the colon is the last
/// character, the drive is all of the path. The name starts behind the last separator, or where the
/// path starts: when a colon stands behind the last separator, drive and name overlap, and the
/// directory is empty. "C:x" gives "C:" and the name "C:x". In every other case `makePath` gives
/// the path back.
ZENU_EXPORT void splitPath(std::string const & path, std::string * drive, std::string * dir,
                           std::string * name, std::string * ext);
/// Puts the parts that are not empty together. A colon is added to the drive, a backslash to the
/// directory and a point before the extension where they lack it.
ZENU_EXPORT std::string makePath(std::string const & drive, std::string const & dir,
                                 std::string const & name, std::string const & ext);

// Joining, cleaning and comparing.

/// Resolves the components "." and ".." of a path that starts with a drive or two backslashes;
/// every other path comes back as it is, dots too. An empty component (two separators in a row)
/// ends the path there. A drive alone gets a backslash, unless ".." led back to it. Too many ".."
/// stop at the drive, but take away the two backslashes.
ZENU_EXPORT std::string trimPath(std::string const & path);

/// `path` if it is absolute; otherwise `base`, a backslash and `path`. An empty base means the
/// current directory, in Latin-1. "." and ".." stay. The backslash is added as by the first form of
/// pathAddBackslash: a base that ends in one gets a second. `out` has room for both, the current
/// directory in place of an empty base, one character more and the end; it may overlap either.
ZENU_EXPORT void makeAbsolutePath(char const * base, char const * path, char * out);
ZENU_EXPORT std::string makeAbsolutePath(std::string const & base, std::string const & path);
/// The same from the current directory.
ZENU_EXPORT std::string makeAbsolutePath(std::string const & path);

/// `path` if it starts with a drive or two backslashes; otherwise the place it leads to from
/// `base`, with its components "." and ".." resolved. Those of the base are taken as names. An
/// empty component ends the path there, so one that starts with a separator leads to the base
/// itself.
ZENU_EXPORT void getAbsolutePath(std::string * result, char const * base, char const * path);
ZENU_EXPORT std::string getAbsolutePath(std::string const & base, std::string const & path);

/// The way from the directory `base` to `path`: a point and a backslash, always, a step up for each
/// component of the base that the path does not share, then the rest of the path. Components are
/// compared without regard to case. False, and `path` as it is, when one of them has no drive or
/// the drives differ; paths with two backslashes in front never relate.
///
/// The limits: three characters count as the drive, so that "C:ab" is taken as "b". A path that
/// lies above the base gives the point and the backslash alone, without the steps up. An empty
/// component ends a path there.
ZENU_EXPORT bool getRelativePath(std::string * result, char const * base, char const * path);
/// The same without the answer.
ZENU_EXPORT std::string getRelativePath(std::string const & base, std::string const & path);

/// Does not look into directories. True, and the pattern alone in `result`, for a drive alone
/// ("C:"), for whatever starts with two backslashes and a third character, and for a pattern that
/// ends in the component "." or "..". For every other pattern false, and `result` is empty.
ZENU_EXPORT bool glob(std::vector<std::string> * result, std::string const & pattern);

} // namespace FileUtils

} // namespace zenu
