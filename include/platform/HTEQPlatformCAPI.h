/* The smallest interface of libzr_platform: a path in, a JSON document out. Plain C.
 *
 * `file` is a platform descriptor (.zdf), a hardware archive (.cfa, .lfa) or a software file (.spfm), as UTF-8.
 * Messages go to standard error, what the readers report about an invalid file to standard output.
 *
 * Failures: the result is NULL if a hardware or software file is missing or cannot be read. The functions throw C++
 * exceptions if the descriptor does not exist (HEXFileNotFoundException), if it is not valid
 * (teq_platform::PlatformParseException) or if `file` is NULL (std::logic_error): a C program must check its path
 * first, or use zr_platform.h.
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
 * The caller releases it with hteq_free_json_string. */
HTEQ_EXTERN_C HTEQ_API char* hteq_get_platform_json(const char* file);

/* Only "uniqueName", "file" and "description", each unless empty. The platform is loaded in full, so it fails like
 * the function above. */
HTEQ_EXTERN_C HTEQ_API char* hteq_get_short_platform_json(const char* file);

/* Releases a text returned by the functions above; NULL is allowed. `free` must not be used instead. */
HTEQ_EXTERN_C HTEQ_API void hteq_free_json_string(char* text);

#endif
