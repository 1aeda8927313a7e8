#include "zenu/util/Trace.h"

#include "zenu/util/StringUtils.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace zenu {

namespace {

constexpr std::size_t longestLogin = 127;
constexpr std::size_t shortMessage = 2048; // with its end; longer ones are put on the heap

void writeToStandardError(char const * message)
{
    std::fputs(message, stderr);
}

TraceOutput s_output = &writeToStandardError;

char const * loginName()
{
    static char s_login[longestLogin + 1] = "";
    if (*s_login == '\0') {
        char const * const name = std::getenv("USERNAME");
        std::size_t const length = name ? std::strlen(name) : 0;
        if (length <= longestLogin) {
            std::memcpy(s_login, name ? name : "", length + 1);
        }
    }
    return s_login;
}

// Cut to what a short message holds when there is no memory.
void writeLong(std::size_t length, char const * shortened, char const * format, va_list arguments)
{
    std::unique_ptr<char[]> const message(new (std::nothrow) char[length + 1]);
    if (message) {
        std::vsnprintf(message.get(), length + 1, format, arguments);
    }
    s_output(message ? message.get() : shortened);
}

void writeFormatted(char const * format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    char message[shortMessage];
    int const length = std::vsnprintf(message, sizeof message, format, arguments);
    if (length >= static_cast<int>(sizeof message)) {
        writeLong(static_cast<std::size_t>(length), message, format, again);
    } else if (length >= 0) {
        s_output(message);
    }
    va_end(again);
}

} // namespace

void Trace(char const * user, char const * format, ...)
{
    char const * const login = loginName();
    if (!user || !format || (*user != '\0' && !equalNoCase(user, login))) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(format, arguments);
    va_end(arguments);
}

TraceOutput setTraceOutput(TraceOutput output)
{
    TraceOutput const before = s_output;
    s_output = output ? output : &writeToStandardError;
    return before;
}

} // namespace zenu
