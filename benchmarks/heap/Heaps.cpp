#include "Heaps.h"

#if defined(ZENU_MIMALLOC)
#include <dlfcn.h>
#endif

namespace bench {

bool Mimalloc::isThere()
{
#if defined(ZENU_MIMALLOC)
    if (!s_malloc) {
        if (void * const library = dlopen(ZENU_MIMALLOC, RTLD_NOW | RTLD_LOCAL)) {
            s_malloc = reinterpret_cast<decltype(s_malloc)>(dlsym(library, "mi_malloc"));
            s_free = reinterpret_cast<decltype(s_free)>(dlsym(library, "mi_free"));
        }
    }
#endif
    return s_malloc && s_free;
}

} // namespace bench
