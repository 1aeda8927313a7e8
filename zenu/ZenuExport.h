#pragma once

// ZENU_EXPORT marks what applications link; everything else in libzenu is hidden.
// ZENU_TEST_EXPORT marks internals that only this project's own tests reach; it
// hides what is nested in an exported class, too, which otherwise takes over the export.

#if defined(_WIN32)
#if defined(ZENU_BUILDING)
#define ZENU_EXPORT __declspec(dllexport)
#else
#define ZENU_EXPORT __declspec(dllimport)
#endif
#define ZENU_HIDDEN
#else
#define ZENU_EXPORT __attribute__((visibility("default")))
#define ZENU_HIDDEN __attribute__((visibility("hidden")))
#endif

#if defined(ZENU_EXPORT_INTERNALS)
#define ZENU_TEST_EXPORT ZENU_EXPORT
#else
#define ZENU_TEST_EXPORT ZENU_HIDDEN
#endif

/// All classes, functions and numbers of the library.
namespace zenu {
}
