#include "zenu/util/StringUtils.h"

namespace zenu {

int compareNoCase(char const * a, char const * b)
{
    a = a ? a : "";
    b = b ? b : "";
    for (;; ++a, ++b) {
        int const difference = foldCase(*a) - foldCase(*b);
        if (difference != 0 || *a == '\0') {
            return difference;
        }
    }
}

int compareNoCase(std::string const & a, std::string const & b)
{
    return compareNoCase(a.c_str(), b.c_str());
}

int compareNoCase(std::string const & a, char const * b)
{
    return compareNoCase(a.c_str(), b);
}

int compareNoCase(char const * a, std::string const & b)
{
    return compareNoCase(a, b.c_str());
}

bool equalNoCase(char const * a, char const * b)
{
    return compareNoCase(a, b) == 0;
}

bool equalNoCase(std::string const & a, std::string const & b)
{
    return compareNoCase(a, b) == 0;
}

bool equalNoCase(std::string const & a, char const * b)
{
    return compareNoCase(a, b) == 0;
}

bool equalNoCase(char const * a, std::string const & b)
{
    return compareNoCase(a, b) == 0;
}

} // namespace zenu
