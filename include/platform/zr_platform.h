/* All of libzr_platform that a plain C program needs: loading platforms, reading, checking and changing archives,
 * checking files. C11, usable from C++; zr_platform.hpp is a C++ wrapper.
 *
 * Calls. Functions that can fail return a zr_code and take a `zr_error** error` last, which may be NULL. It is set
 * to an error object on failure, which the caller releases with zr_error_free, and to NULL on success. Results
 * returned through pointers are NULL or unchanged on failure. No function throws a C++ exception, and no function
 * terminates the process when memory runs out.
 *
 * Texts. Paths, names and texts are UTF-8 and end in NUL. The texts of errors, findings, differences and messages
 * are one line, in which control characters and invalid UTF-8 are escaped as "\x0a". Everything else that comes
 * from a file is untrusted text, unchanged: escape it before printing it on a terminal. A returned `const char*`
 * is never NULL (except where stated), may be "", and is valid as long as the object that it belongs to.
 *
 * Ownership. Each type of object has a function that frees it, which accepts NULL. Objects do not depend on each
 * other and can be freed in any order. Texts that a caller passes in are copied.
 *
 * Threads. The library has no threads and takes no locks. Calls on different objects may run at the same time in
 * different threads; an object may be used, even for reading, by one thread at a time. zr_set_message_function
 * must be called before other threads use the library. A thread must not be cancelled during a call.
 *
 * Messages. In addition to the error that a call returns, the library sends messages, including warnings: each is
 * a line on standard error unless zr_set_message_function redirects them. Nothing else is printed.
 *
 * Structures begin with their `size`, which the caller sets to sizeof before each call; docs/abi.md has the rules
 * for additions. In an input structure, 0 in any other field means the default. */
#ifndef ZR_PLATFORM_ZR_PLATFORM_H
#define ZR_PLATFORM_ZR_PLATFORM_H

#include "platform/zr_archive.h"
#include "platform/zr_base.h"
#include "platform/zr_check.h"
#include "platform/zr_query.h"
#include "platform/zr_search.h"

#endif
