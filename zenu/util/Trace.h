#pragma once

#include "zenu/ZenuExport.h"

// Lets the compiler check arguments against the format, as for printf.
#if defined(__GNUC__)
#define ZENU_PRINTF(text, arguments) __attribute__((format(printf, text, arguments)))
#else
#define ZENU_PRINTF(text, arguments)
#endif

namespace zenu {

/// Writes a message for one developer: `user` is the login name of whoever shall see it, in any
/// case; everyone when it is empty. So a personal trace can stay in shared code and is silent for
/// all the others: `format` and the arguments are then not looked at. A null `user` or `format`
/// writes nothing.
///
/// The login name is the environment variable USERNAME, read at the first call. Once it is not
/// empty it is kept for the life of the process; a name of 128 bytes and more counts as empty. The
/// message is formatted as by printf in the C locale, so that a point is a point, and in that of
/// the process only if it has wide characters that the C locale lacks; it may have any length, and
/// no line end is added.
ZENU_EXPORT void Trace(char const * user, char const * format, ...) ZENU_PRINTF(2, 3);

/// Where the messages go: gets each one whole, as a text that lives during the call.
using TraceOutput = void (*)(char const * message);

/// Sends messages to `output` from now on; null means the standard error stream, which is where
/// they go without this call. Returns the output before, so that it can be set again.
ZENU_EXPORT TraceOutput setTraceOutput(TraceOutput output);

} // namespace zenu
