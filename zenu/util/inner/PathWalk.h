#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace zenu::FileUtils {

constexpr bool isSeparator(char c)
{
    return c == '\\' || c == '/';
}

inline bool endsInSeparator(std::string_view path)
{
    return !path.empty() && isSeparator(path.back());
}

// The path with a backslash at the end: one that is there stays, a slash is replaced.
inline void addBackslash(std::string & path)
{
    if (path.ends_with('/')) {
        path.back() = '\\';
    } else if (!path.ends_with('\\')) {
        path += '\\';
    }
}

// Takes the components off the front of a path, one after the other. An empty one ends the walk:
// the path is used up, or a separator leads or follows another.
class Components
{
public:
    explicit Components(std::string_view path)
        : m_rest(path)
    {
    }

    std::string_view next()
    {
        auto const end = std::find_if(m_rest.begin(), m_rest.end(), isSeparator);
        auto const length = static_cast<std::size_t>(end - m_rest.begin());
        std::string_view const component = m_rest.substr(0, length);
        m_rest.remove_prefix(std::min(length + 1, m_rest.size()));
        return component;
    }
    std::string_view rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

// A path that grows and shrinks by a component at its end.
class PathInProgress
{
public:
    explicit PathInProgress(std::string start)
        : m_text(std::move(start))
    {
    }

    bool isEmpty() const { return m_text.empty(); }
    void enter(std::string_view component)
    {
        addBackslash(m_text);
        m_text += component;
    }
    void start(std::string_view drive)
    {
        m_text = drive;
        m_text += '\\';
        m_bare = 0;
    }
    // Cuts off one trailing separator, then the last separator left and what follows it. Without
    // one the text stays, and is not searched again by the next step up: that would be quadratic.
    void leave()
    {
        if (endsInSeparator(m_text)) {
            m_text.pop_back();
        }
        auto const first = m_text.begin() + static_cast<std::ptrdiff_t>(m_bare);
        auto place = m_text.end();
        while (place != first && !isSeparator(place[-1])) {
            --place;
        }
        if (place == first) {
            m_bare = m_text.size();
        } else {
            m_text.erase(place - 1, m_text.end());
        }
    }
    std::string take() { return std::move(m_text); }

private:
    std::string m_text;
    std::size_t m_bare = 0; // no separator stands before this place
};

} // namespace zenu::FileUtils
