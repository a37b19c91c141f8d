/* Codes, flags, options, errors, texts and messages, which the other headers of the C interface use.
 * The rules for all calls are in zr_platform.h, which includes this header. */
#ifndef ZR_PLATFORM_ZR_BASE_H
#define ZR_PLATFORM_ZR_BASE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define ZR_C_API    extern "C" __attribute__((visibility("default")))
#define ZR_NOEXCEPT noexcept
#else
#define ZR_C_API extern __attribute__((visibility("default")))
#define ZR_NOEXCEPT
#endif

/* Incremented by each release that adds to these headers. */
#define ZR_INTERFACE_VERSION 1

typedef enum zr_code {
    ZR_OK = 0,
    ZR_WRONG_USE = 1,   /* an argument is NULL or out of range: an error in the program */
    ZR_NOT_FOUND = 2,   /* there is no such file, member or name */
    ZR_REFUSED = 3,     /* something already exists, or would be lost, and no flag allows that */
    ZR_BAD_INPUT = 4,   /* a file is not valid, damaged, or larger than a limit */
    ZR_ENVIRONMENT = 5, /* permission, no space, another error of the system */
    ZR_NO_MEMORY = 6,
    ZR_INTERNAL = 7 /* an error in the library */
} zr_code;

typedef enum zr_metadata {
    ZR_METADATA_DEFAULT = 0,      /* "alt_<ext>.json", else "<ext>.json", else the XML member */
    ZR_METADATA_PRIMARY_JSON = 1, /* "<ext>.json", else the XML member */
    ZR_METADATA_XML = 2           /* the XML member */
} zr_metadata;

/* Each function states which of them it accepts. */
typedef enum zr_flag {
    ZR_OVERWRITE = 1,           /* replace an existing file */
    ZR_MAY_LACK = 2,            /* the metadata, and files that it lists, may be missing or unreadable */
    ZR_LOSE_KEYS = 4,           /* write although keys of the metadata are lost or changed */
    ZR_STRIP_PATHS = 8,         /* omit "platformFile", a path on the author's machine, from the metadata */
    ZR_DRY_RUN = 16,            /* check everything, write nothing */
    ZR_NO_DEFAULTS = 32,        /* do not search the default repositories */
    ZR_LATEST = 64,             /* of each vendor, board and name only the highest version */
    ZR_DEFAULT_FILTER = 128,    /* keep the keys of tile array, ids and files */
    ZR_DETAILED = 256,          /* every fact of a report */
    ZR_USABLE = 512,            /* only platforms that the support policy accepts for this tool */
    ZR_DYNAMIC = 1024,          /* the platform has a dynamic region */
    ZR_MAY_RUN_PROGRAMS = 2048, /* scripts may run programs, open sockets and load libraries */
    ZR_BY_TYPE = 4096,          /* a name is a file type, even if a member has that name */
    ZR_REPAIR_HPFM = 8192       /* make all HBM banks of an hpfm default banks if some are */
} zr_flag;

typedef enum zr_severity { ZR_WARNING = 0, ZR_ERROR = 1 } zr_severity;

/* Input; NULL instead means all defaults. */
typedef struct zr_options {
    size_t size;
    uint32_t metadata; /* a zr_metadata */
    uint32_t reserved; /* 0 */
    /* Bytes that one call may decompress. 0 means 1 GiB, which is also the maximum. Verifying has no limit. */
    uint64_t max_unpacked;
} zr_options;

/* Given to a message function. */
typedef struct zr_message {
    size_t size;
    const char* id;    /* as "74-60"; "" for a plain text */
    const char* text;  /* for people */
    uint32_t severity; /* 0x4000000 information, 0x8000000 warning, 0x10000000 critical, 0x20000000 error */
    uint32_t reserved;
} zr_message;

/* The texts are valid until it returns. It must neither call this library nor throw. */
typedef void (*zr_message_function)(void* user, const zr_message* message);

typedef struct zr_error zr_error;
typedef struct zr_text zr_text;

/* ---- Versions and messages */

/* Of the library, as "2026.2.0". */
ZR_C_API const char* zr_library_version(void) ZR_NOEXCEPT;
/* ZR_INTERFACE_VERSION of the running library: if it is not below that of the headers, everything in them is
 * available. */
ZR_C_API uint32_t zr_interface_version(void) ZR_NOEXCEPT;
/* Messages of the whole process go to `function`; NULL restores standard error. */
ZR_C_API zr_code zr_set_message_function(zr_message_function function, void* user, zr_error** error) ZR_NOEXCEPT;

/* ---- Errors. For NULL the results are ZR_OK, "" and 0. */

ZR_C_API zr_code zr_error_code(const zr_error* error) ZR_NOEXCEPT;
/* What was found and what was expected, without the location. */
ZR_C_API const char* zr_error_text(const zr_error* error) ZR_NOEXCEPT;
/* The faulty file, else the one that was passed to the call. */
ZR_C_API const char* zr_error_file(const zr_error* error) ZR_NOEXCEPT;
/* The faulty member; "" for the file itself. */
ZR_C_API const char* zr_error_member(const zr_error* error) ZR_NOEXCEPT;
/* From 1; 0 if there is no location in the text. */
ZR_C_API uint64_t zr_error_line(const zr_error* error) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_error_column(const zr_error* error) ZR_NOEXCEPT;
/* Of the message that reported it, as "74-64", for zr_explain; may be "". */
ZR_C_API const char* zr_error_id(const zr_error* error) ZR_NOEXCEPT;
/* Of the finding that zr_validate reports for it, as "not-json", for zr_explain as well; may be "". */
ZR_C_API const char* zr_error_name(const zr_error* error) ZR_NOEXCEPT;
/* All of it in one printable line: "file!member:line:column: element: text [name, or else id]", with what is known of
 * it. */
ZR_C_API const char* zr_error_describe(const zr_error* error) ZR_NOEXCEPT;
ZR_C_API void zr_error_free(zr_error* error) ZR_NOEXCEPT;

/* ---- Texts, and the bytes of members */

/* The last byte is followed by NUL. */
ZR_C_API const char* zr_text_data(const zr_text* text) ZR_NOEXCEPT;
/* Without that NUL. */
ZR_C_API size_t zr_text_size(const zr_text* text) ZR_NOEXCEPT;
ZR_C_API void zr_text_free(zr_text* text) ZR_NOEXCEPT;

#endif
