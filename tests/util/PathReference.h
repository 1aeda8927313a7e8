#pragma once

#include <string>
#include <vector>

// The rules of the path functions, told once more in the plainest way: every component is cut off
// the front of a copy. Quadratic, and good only to compare with.
namespace pathreference {

inline bool isSeparator(char c)
{
    return c == '\\' || c == '/';
}

inline std::size_t lastSeparator(std::string const & path) // npos when there is none
{
    for (std::size_t i = path.size(); i > 0; --i) {
        if (isSeparator(path[i - 1])) {
            return i - 1;
        }
    }
    return std::string::npos;
}

inline std::string popComponent(std::string & path)
{
    std::string component;
    while (!path.empty()) {
        char const c = path[0];
        path.erase(0, 1);
        if (isSeparator(c)) {
            break;
        }
        component += c;
    }
    return component;
}

inline std::string parentOf(std::string const & path)
{
    std::size_t const place = lastSeparator(path);
    return place == std::string::npos ? path : path.substr(0, place);
}

inline std::string addBackslash(std::string path)
{
    if (path.empty() || !isSeparator(path.back())) {
        return path + '\\';
    }
    path.back() = '\\';
    return path;
}

inline std::string removeBackslash(std::string path)
{
    if (!path.empty() && isSeparator(path.back())) {
        path.pop_back();
    }
    return path;
}

inline bool hasDrive(std::string const & path)
{
    return path.size() >= 2 && path[1] == ':';
}

inline bool namesMachine(std::string const & path)
{
    return path.size() >= 2 && path[0] == '\\' && path[1] == '\\';
}

inline bool isAbsolutePath(std::string const & path)
{
    if (path.empty()) {
        return false;
    }
    if (isSeparator(path[0])) {
        return true;
    }
    return path.size() < 2 ? false : path[1] == ':';
}

inline std::string getAbsolutePath(std::string const & base, std::string path)
{
    if (hasDrive(path) || namesMachine(path)) {
        return path;
    }
    std::string result = base;
    for (;;) {
        std::string const component = popComponent(path);
        if (component.empty()) {
            return result;
        }
        if (component == "..") {
            result = parentOf(removeBackslash(result));
        } else if (component != ".") {
            result = addBackslash(result) + component;
        }
    }
}

inline std::string trimPath(std::string path)
{
    if (!hasDrive(path) && !namesMachine(path)) {
        return path;
    }
    std::string result;
    if (namesMachine(path)) {
        result = "\\\\";
        path.erase(0, 2);
    }
    for (;;) {
        std::string const component = popComponent(path);
        if (component.empty()) {
            return result;
        }
        if (component == "..") {
            result = parentOf(removeBackslash(result));
        } else if (component != ".") {
            result = result.empty() ? component + '\\' : addBackslash(result) + component;
        }
    }
}

inline std::string folded(std::string text)
{
    for (char & c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c + 32);
        }
    }
    return text.substr(0, text.find('\0'));
}

inline bool getRelativePath(std::string & result, std::string base, std::string path)
{
    if (!hasDrive(base) || !hasDrive(path) ||
        folded(base.substr(0, 1)) != folded(path.substr(0, 1))) {
        result = path;
        return false;
    }
    base.erase(0, 3);
    path.erase(0, 3);
    result = ".\\";
    std::string fromBase = popComponent(base);
    std::string fromPath = popComponent(path);
    while (!fromBase.empty() && !fromPath.empty() && folded(fromBase) == folded(fromPath)) {
        fromBase = popComponent(base);
        fromPath = popComponent(path);
    }
    if (fromPath.empty()) {
        return true;
    }
    while (!fromBase.empty()) {
        result += "..\\";
        fromBase = popComponent(base);
    }
    result += fromPath;
    if (!path.empty()) {
        result = addBackslash(result) + path;
    }
    return true;
}

struct Split
{
    std::string drive, dir, name, ext;
    bool comesBack; // whether makePath gives the path again
};

inline Split splitPath(std::string const & path)
{
    std::size_t const none = std::string::npos;
    std::size_t const size = path.size();
    std::size_t d = 0;
    for (std::size_t i = 0; i < size && d == 0; ++i) {
        d = path[i] == ':' ? i + 1 : 0;
    }
    d = d != 0 && d == size ? none : d;
    std::size_t n = lastSeparator(path) == none ? 0 : lastSeparator(path) + 1;
    n = n != 0 && n == size ? none : n;
    std::size_t e = none;
    for (std::size_t i = 0; i < size; ++i) {
        e = path[i] == '.' ? i : (isSeparator(path[i]) ? none : e);
    }
    Split result;
    result.comesBack = true;
    if (d == none) {
        result.drive = path;
        return result;
    }
    result.drive = path.substr(0, d);
    for (std::size_t i = d; i < (n == none ? size : n); ++i) {
        result.dir += path[i];
    }
    if (n != none) {
        result.name = path.substr(n, e == none ? none : e - n);
        result.ext = e == none ? std::string() : path.substr(e);
        result.comesBack = n >= d;
    }
    return result;
}

inline bool glob(std::vector<std::string> & result, std::string const & pattern)
{
    result.clear();
    if ((pattern.size() == 2 && pattern[1] == ':') ||
        (pattern.size() > 2 && namesMachine(pattern))) {
        result.push_back(pattern);
        return true;
    }
    std::size_t const place = lastSeparator(pattern);
    std::string const directory = place == std::string::npos ? "" : pattern.substr(0, place);
    std::string const name = place == std::string::npos ? pattern : pattern.substr(place + 1);
    if (name == "." || name == "..") {
        result.push_back(pattern);
        return true;
    }
    std::vector<std::string> directories;
    if (!directory.empty()) {
        glob(directories, directory);
    }
    return false;
}

} // namespace pathreference
