/* The narrowest way into libzr_platform: a path in, a JSON document out. Plain C.
 *
 * `file` is a platform descriptor (.zdf), a hardware archive (.cfa, .lfa) or a software file (.spfm), as UTF-8.
 * Messages go to standard error, what the readers say of a broken file to standard output.
 *
 * Failures: the result is NULL when a hardware or software file is missing or cannot be read. C++ exceptions leave
 * the functions when the descriptor does not exist (HEXFileNotFoundException), when it is not valid
 * (teq_platform::PlatformParseException) or when `file` is NULL (std::logic_error): a C program checks its path
 * before.
 */
#ifndef ZR_PLATFORM_HTEQPLATFORMCAPI_H
#define ZR_PLATFORM_HTEQPLATFORMCAPI_H

#ifdef __cplusplus
#define HTEQ_EXTERN_C extern "C"
#else
#define HTEQ_EXTERN_C extern
#endif
#define HTEQ_API __attribute__((visibility("default")))

/* The whole document of the platform: pretty-printed JSON, UTF-8, every value a text, a newline at the end.
 * The caller gives it back through hteq_free_json_string. */
HTEQ_EXTERN_C HTEQ_API char* hteq_get_platform_json(const char* file);

/* Only "uniqueName", "file" and "description", each when not empty. The platform is loaded in full, so it fails where
 * the function above fails. */
HTEQ_EXTERN_C HTEQ_API char* hteq_get_short_platform_json(const char* file);

/* Releases a text from the two above; NULL is allowed. `free` does not do. */
HTEQ_EXTERN_C HTEQ_API void hteq_free_json_string(char* text);

#endif
