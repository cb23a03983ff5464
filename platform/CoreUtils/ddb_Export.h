#pragma once

/// Marks what a shared library shows to the others; everything else is compiled with hidden visibility.
/// Types that are thrown, or that name a singleton, need it too: only then do all libraries mean the same type.
#define DDB_API __attribute__((visibility("default")))

/// Takes out of such a class what only the library's own sources call.
#define DDB_LOCAL __attribute__((visibility("hidden")))
