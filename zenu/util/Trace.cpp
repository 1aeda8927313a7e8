#include "zenu/util/Trace.h"

#include "zenu/util/StringUtils.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#if __has_include(<unistd.h>)
#include <locale.h>
#if defined(__APPLE__)
#include <xlocale.h>
#endif
#define ZENU_THREAD_LOCALE 1
#endif

namespace zenu {

namespace {

constexpr std::size_t longestLogin = 127;
constexpr std::size_t shortMessage = 2048; // with its end; longer ones are put on the heap

void writeToStandardError(char const * message)
{
    std::fputs(message, stderr);
}

TraceOutput s_output = &writeToStandardError;

// The C locale on this thread, for as long as it lives.
class PlainLocale
{
#if defined(ZENU_THREAD_LOCALE)
public:
    PlainLocale()
        : m_before(uselocale(plain()))
    {
    }
    ~PlainLocale()
    {
        uselocale(m_before);
    }
    PlainLocale(PlainLocale const &) = delete;
    PlainLocale & operator=(PlainLocale const &) = delete;

private:
    static locale_t plain()
    {
        static locale_t const s_plain = newlocale(LC_ALL_MASK, "C", locale_t{});
        return s_plain; // null, when there is no memory, changes nothing
    }

    locale_t m_before;
#endif
};

int printPlainly(char * buffer, std::size_t size, char const * format, va_list arguments)
{
    [[maybe_unused]] PlainLocale const plain;
    return std::vsnprintf(buffer, size, format, arguments);
}

// In the C locale, but for a message with wide characters that it does not have: better that its
// numbers have a comma than that it is lost.
int print(char * buffer, std::size_t size, char const * format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    int length = printPlainly(buffer, size, format, arguments);
    if (length < 0) {
        length = std::vsnprintf(buffer, size, format, again);
    }
    va_end(again);
    return length;
}

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
        print(message.get(), length + 1, format, arguments);
    }
    s_output(message ? message.get() : shortened);
}

void writeFormatted(char const * format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    char message[shortMessage];
    int const length = print(message, sizeof message, format, arguments);
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
