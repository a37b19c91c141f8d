/* All of libzr_platform that a plain C program needs: loading platforms, reading, checking and changing archives,
 * checking files. C11, usable from C++; zr_platform.hpp beside it is a C++ wrapper.
 *
 * Calls. What can fail returns a zr_code and takes a `zr_error** error` last, which may be NULL. On failure an error
 * object is put there, to be given back through zr_error_free; on success NULL is. Results behind pointers are NULL
 * or untouched on failure. No C++ exception leaves any function, and none stops the process for want of memory.
 *
 * Texts. Paths, names and texts are UTF-8 and end in NUL. The words of errors, findings, differences and messages are
 * one line, in which control characters and what is no UTF-8 stand as "\x0a". All else that comes from a file is a
 * stranger's text as it is: escape it before a terminal sees it. A `const char*` that is returned is never NULL (but
 * where it is said), may be "", and lives as long as the object that it was asked of.
 *
 * Ownership. Each object has one function that frees it, which takes NULL too. Objects do not depend on each other
 * and are freed in any order. Text that a caller passes in is copied.
 *
 * Threads. The library has none of its own and takes no locks. Calls on different objects may run at the same time in
 * different threads; an object, reading included, belongs to one thread at a time. zr_set_message_function is for the
 * time before other threads use the library. A thread must not be cancelled within a call.
 *
 * Messages. Beside the error that a call returns, the library sends messages, warnings among them: a line each on
 * standard error unless zr_set_message_function takes them. Nothing else is printed.
 *
 * Structures begin with their `size`, which the caller sets to sizeof before each call; docs/abi.md has the rules by
 * which they grow. All else in a structure that goes in is 0 where the default is wanted. */
#ifndef ZR_PLATFORM_ZR_PLATFORM_H
#define ZR_PLATFORM_ZR_PLATFORM_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define ZR_C_API    extern "C" __attribute__((visibility("default")))
#define ZR_NOEXCEPT noexcept
#else
#define ZR_C_API extern __attribute__((visibility("default")))
#define ZR_NOEXCEPT
#endif

/* Counts up by one with each release that adds to this header. */
#define ZR_INTERFACE_VERSION 1

typedef enum zr_code {
    ZR_OK = 0,
    ZR_WRONG_USE = 1,   /* an argument is NULL or out of its range: the program is at fault */
    ZR_NOT_FOUND = 2,   /* there is no such file, member or name */
    ZR_REFUSED = 3,     /* something is there already, or would be lost, and no flag allows that */
    ZR_BAD_INPUT = 4,   /* a file is at fault: not valid, damaged, larger than a limit */
    ZR_ENVIRONMENT = 5, /* permission, no space, another fault of the system */
    ZR_NO_MEMORY = 6,
    ZR_INTERNAL = 7 /* a fault of the library */
} zr_code;

typedef enum zr_metadata {
    ZR_METADATA_DEFAULT = 0,      /* "alt_<ext>.json", else "<ext>.json", else the XML member */
    ZR_METADATA_PRIMARY_JSON = 1, /* "<ext>.json", else the XML member */
    ZR_METADATA_XML = 2           /* the XML member */
} zr_metadata;

typedef enum zr_field {
    ZR_FIELD_NAME = 0,
    ZR_FIELD_VENDOR = 1,
    ZR_FIELD_LIBRARY = 2, /* of a descriptor only, like the files below but ZR_FIELD_FILE */
    ZR_FIELD_VERSION = 3,
    ZR_FIELD_DESCRIPTION = 4,
    ZR_FIELD_TYPE = 5, /* by the design intent: "Fennick", "Lorimar", "Acceleration" or "Undefined" */
    ZR_FIELD_FILE = 6, /* of the platform; empty for a lone software file */
    ZR_FIELD_HARDWARE_FILE = 7,
    ZR_FIELD_EMULATION_FILE = 8,
    ZR_FIELD_SOFTWARE_FILE = 9
} zr_field;

/* Each call tells which of them it takes. */
typedef enum zr_flag {
    ZR_OVERWRITE = 1,   /* replace what is there */
    ZR_MAY_LACK = 2,    /* files that the metadata lists may be missing, and the metadata may be unreadable */
    ZR_LOSE_KEYS = 4,   /* write although keys of the metadata are lost or changed */
    ZR_STRIP_PATHS = 8, /* leave "platformFile", a path of the maker's machine, out of the metadata */
    ZR_DRY_RUN = 16     /* look at everything, and write nothing */
} zr_flag;

typedef enum zr_digest { ZR_DIGEST_NONE = 0, ZR_DIGEST_VALID = 1, ZR_DIGEST_BROKEN = 2 } zr_digest;

/* Why a member is not as it was when its archive was made. */
typedef enum zr_reason {
    ZR_REASON_CRC = 0,     /* its bytes have another CRC than the directory says */
    ZR_REASON_SIZE = 1,    /* there are more or fewer of them */
    ZR_REASON_DAMAGED = 2, /* they cannot be unpacked, or its two headers disagree */
    ZR_REASON_HASH = 3,    /* they have another SHA-256 than its field says */
    ZR_REASON_FIELD = 4,   /* its field is no SHA-256, or not the one that the digest was made of */
    ZR_REASON_EXTRA = 5,   /* it has no field: it was added or replaced after the digest was made */
    ZR_REASON_MISSING = 6  /* some member is missing, has another name, or was added with a field of its own */
} zr_reason;

typedef enum zr_severity { ZR_WARNING = 0, ZR_ERROR = 1 } zr_severity;

typedef struct zr_error zr_error;
typedef struct zr_text zr_text;
typedef struct zr_platform zr_platform;
typedef struct zr_archive zr_archive;
typedef struct zr_verification zr_verification;
typedef struct zr_findings zr_findings;

/* Goes in; NULL in its place is all defaults. */
typedef struct zr_options {
    size_t size;
    uint32_t metadata; /* a zr_metadata */
    uint32_t reserved; /* 0 */
    /* Bytes that one call may unpack of archives; 0 and the most: 1 GiB. Verifying has no limit. */
    uint64_t max_unpacked;
} zr_options;

/* Comes out. */
typedef struct zr_member {
    size_t size;
    const char* name; /* as it stands in the archive; not fit for a path */
    size_t name_size; /* without the NUL at the end; a stranger's name may have others */
    uint64_t bytes;   /* of the data, as the directory declares it */
    uint64_t packed_bytes;
    uint32_t crc;
    uint32_t is_directory; /* 1 when it is one: its name ends in "/" */
} zr_member;

/* Comes out. Only what differs is told. */
typedef struct zr_difference {
    size_t size;
    const char* member; /* "" when it cannot be told which one */
    const char* text;   /* for people */
    uint32_t reason;    /* a zr_reason */
    uint32_t reserved;
} zr_difference;

/* Comes out. */
typedef struct zr_finding {
    size_t size;
    const char* file;    /* as it was given, or as the descriptor names it */
    const char* member;  /* of an archive; "" for the file itself */
    uint64_t line;       /* from 1; 0 when there is no place in the text */
    uint64_t column;     /* in characters, likewise */
    const char* name;    /* stays the same whatever the words become; zr_explain knows it */
    const char* element; /* name of the element, path of the JSON value; may be "" */
    const char* text;    /* what stands there and what is allowed, in one line */
    uint32_t severity;   /* a zr_severity */
    uint32_t reserved;
} zr_finding;

/* Given to a message function. */
typedef struct zr_message {
    size_t size;
    const char* id;    /* as "74-60"; "" for plain words */
    const char* text;  /* for people */
    uint32_t severity; /* rising: 0x4000000 information, 0x8000000 warning, 0x10000000 critical, 0x20000000 error */
    uint32_t reserved;
} zr_message;

/* Texts live until it returns. It must neither call this library nor throw. */
typedef void (*zr_message_function)(void* user, const zr_message* message);

/* ---- Versions and messages */

/* Of the library, as "2026.2.0". */
ZR_C_API const char* zr_library_version(void) ZR_NOEXCEPT;
/* ZR_INTERFACE_VERSION of the library that runs: one that is not below the header's has all that the header tells. */
ZR_C_API uint32_t zr_interface_version(void) ZR_NOEXCEPT;
/* Messages of the whole process go to `function`; NULL restores standard error. */
ZR_C_API zr_code zr_set_message_function(zr_message_function function, void* user, zr_error** error) ZR_NOEXCEPT;

/* ---- Errors. Each takes NULL: ZR_OK, "", 0. */

ZR_C_API zr_code zr_error_code(const zr_error* error) ZR_NOEXCEPT;
/* What was found and what was expected, without the place. */
ZR_C_API const char* zr_error_text(const zr_error* error) ZR_NOEXCEPT;
/* The file at fault, else the one that the call was given. */
ZR_C_API const char* zr_error_file(const zr_error* error) ZR_NOEXCEPT;
/* The member at fault; "" when it is the file itself. */
ZR_C_API const char* zr_error_member(const zr_error* error) ZR_NOEXCEPT;
/* From 1; 0 when there is no place in the text. */
ZR_C_API uint64_t zr_error_line(const zr_error* error) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_error_column(const zr_error* error) ZR_NOEXCEPT;
/* Of the message that told it, as "74-64", which zr_explain knows; may be "". */
ZR_C_API const char* zr_error_id(const zr_error* error) ZR_NOEXCEPT;
/* All of it in one printable line: "file!member:line:column: text [id]", with what is known of it. */
ZR_C_API const char* zr_error_describe(const zr_error* error) ZR_NOEXCEPT;
ZR_C_API void zr_error_free(zr_error* error) ZR_NOEXCEPT;

/* ---- Texts, and the bytes of members */

/* A NUL stands behind the last byte. */
ZR_C_API const char* zr_text_data(const zr_text* text) ZR_NOEXCEPT;
/* Without that NUL. */
ZR_C_API size_t zr_text_size(const zr_text* text) ZR_NOEXCEPT;
ZR_C_API void zr_text_free(zr_text* text) ZR_NOEXCEPT;

/* ---- Platforms */

/* Loads a descriptor (.zdf), a hardware archive (.cfa, .lfa) or a software file (.spfm), with all that it names. */
ZR_C_API zr_code zr_platform_load(const char* file, const zr_options* options, zr_platform** platform,
                                  zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_platform_free(zr_platform* platform) ZR_NOEXCEPT;
/* Of a platform without a descriptor, name, vendor, version and description are those of its hardware. NULL for a
 * field that this library does not know. */
ZR_C_API const char* zr_platform_get(const zr_platform* platform, uint32_t field) ZR_NOEXCEPT;
/* The whole document: pretty-printed JSON, every value a text, a line end at the end. */
ZR_C_API zr_code zr_platform_document(const zr_platform* platform, zr_text** document, zr_error** error) ZR_NOEXCEPT;
/* Only "uniqueName", "file" and "description", each when not empty. */
ZR_C_API zr_code zr_platform_short_document(const zr_platform* platform, zr_text** document,
                                            zr_error** error) ZR_NOEXCEPT;
/* The hardware metadata in the XML form of older archives, which holds less than the document. ZR_BAD_INPUT for a
 * platform that has no such form. */
ZR_C_API zr_code zr_platform_xml(const zr_platform* platform, zr_text** xml, zr_error** error) ZR_NOEXCEPT;

/* ---- Reading archives. An open archive is the file that was opened, whatever takes its place later. */

/* Any zip archive. `options`: max_unpacked counts. */
ZR_C_API zr_code zr_archive_open(const char* file, const zr_options* options, zr_archive** archive,
                                 zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_archive_free(zr_archive* archive) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_archive_count(const zr_archive* archive) ZR_NOEXCEPT;
/* Members are numbered from 0, in the order of the archive. The texts live as long as the archive. */
ZR_C_API zr_code zr_archive_member(const zr_archive* archive, uint64_t index, zr_member* member,
                                   zr_error** error) ZR_NOEXCEPT;
/* Names are compared byte for byte. */
ZR_C_API zr_code zr_archive_find(const zr_archive* archive, const char* name, uint64_t* index,
                                 zr_error** error) ZR_NOEXCEPT;
/* The whole member of at most `bound` bytes; 0: 32 MiB. */
ZR_C_API zr_code zr_archive_read(const zr_archive* archive, uint64_t index, uint64_t bound, zr_text** bytes,
                                 zr_error** error) ZR_NOEXCEPT;
/* Copies a member to `file`, whose directory must exist; the file is there whole or not at all. Takes ZR_OVERWRITE.
 */
ZR_C_API zr_code zr_archive_extract(const zr_archive* archive, uint64_t index, const char* file, uint32_t flags,
                                    zr_error** error) ZR_NOEXCEPT;
/* Writes all members below `folder`, which must exist, under their names. A name that leads out of it, and a link, is
 * ZR_BAD_INPUT; members before it are then there. Takes ZR_OVERWRITE. */
ZR_C_API zr_code zr_archive_extract_all(const zr_archive* archive, const char* folder, uint32_t flags,
                                        zr_error** error) ZR_NOEXCEPT;
/* Compares all bytes with CRCs and digest. What differs is an answer, not a failure. */
ZR_C_API zr_code zr_archive_verify(const zr_archive* archive, zr_verification** verification,
                                   zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_verification_free(zr_verification* verification) ZR_NOEXCEPT;
ZR_C_API zr_digest zr_verification_digest(const zr_verification* verification) ZR_NOEXCEPT;
/* 0: nothing differs. */
ZR_C_API uint64_t zr_verification_count(const zr_verification* verification) ZR_NOEXCEPT;
/* In the order of the archive. The texts live as long as the verification. */
ZR_C_API zr_code zr_verification_difference(const zr_verification* verification, uint64_t index,
                                            zr_difference* difference, zr_error** error) ZR_NOEXCEPT;

/* ---- Making and changing archives. Each is one rewrite: the archive is the old one or the new one, whatever
 * happens. */

/* Makes an archive of what is in `folder`, the same bytes each time, with a digest. A folder in it whose name ends in
 * .lfa, .cfa, .zip or .tilprj becomes an archive. Takes ZR_OVERWRITE and ZR_MAY_LACK. */
ZR_C_API zr_code zr_pack(const char* folder, const char* archive, uint32_t flags, zr_error** error) ZR_NOEXCEPT;
/* Puts `source` into a .cfa or .lfa as `member`, makes it the one file of its type in the metadata, and stamps the
 * digest. The metadata is written anew, and loses what the library does not hold: `losses` (NULL: not wanted) is a
 * line for each key, words like those of a message, "" for none, and is there on success and with ZR_REFUSED. Takes
 * ZR_LOSE_KEYS, ZR_STRIP_PATHS and ZR_DRY_RUN. */
ZR_C_API zr_code zr_set_file(const char* archive, const char* type, const char* member, const char* source,
                             uint32_t flags, const zr_options* options, zr_text** losses,
                             zr_error** error) ZR_NOEXCEPT;
/* Gives the archive a digest; one that has a valid one is not written. */
ZR_C_API zr_code zr_stamp_digest(const char* archive, zr_error** error) ZR_NOEXCEPT;

/* ---- Checking files */

/* All that is wrong in a descriptor and what it names, a software file, an archive or a metadata file. A file that
 * cannot be opened is a finding, too. `options`: max_unpacked counts. */
ZR_C_API zr_code zr_validate(const char* file, const zr_options* options, zr_findings** findings,
                             zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_findings_free(zr_findings* findings) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_findings_count(const zr_findings* findings) ZR_NOEXCEPT;
/* In the order of the text. The texts live as long as the findings. */
ZR_C_API zr_code zr_findings_get(const zr_findings* findings, uint64_t index, zr_finding* finding,
                                 zr_error** error) ZR_NOEXCEPT;
/* What the name of a finding or the id of a message ("74-60") means, what to do, a bad and a good sample. */
ZR_C_API zr_code zr_explain(const char* name, zr_text** text, zr_error** error) ZR_NOEXCEPT;
/* The W3C XML Schema of a format: "zdf", "spfm", "hpfm", "cfa" or "emu". */
ZR_C_API zr_code zr_schema(const char* format, zr_text** text, zr_error** error) ZR_NOEXCEPT;

#endif
