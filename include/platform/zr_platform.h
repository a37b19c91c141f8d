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

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define ZR_C_API    extern "C" __attribute__((visibility("default")))
#define ZR_NOEXCEPT noexcept
#else
#define ZR_C_API extern __attribute__((visibility("default")))
#define ZR_NOEXCEPT
#endif

/* Incremented by each release that adds to this header. */
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

typedef enum zr_field {
    ZR_FIELD_NAME = 0,
    ZR_FIELD_VENDOR = 1,
    ZR_FIELD_LIBRARY = 2, /* of a descriptor only, like the files below except ZR_FIELD_FILE */
    ZR_FIELD_VERSION = 3,
    ZR_FIELD_DESCRIPTION = 4,
    ZR_FIELD_TYPE = 5, /* by the design intent: "Fennick", "Lorimar", "Acceleration" or "Undefined" */
    ZR_FIELD_FILE = 6, /* of the platform; empty for a software file alone */
    ZR_FIELD_HARDWARE_FILE = 7,
    ZR_FIELD_EMULATION_FILE = 8,
    ZR_FIELD_SOFTWARE_FILE = 9
} zr_field;

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

/* What the support policy is asked; docs/policy.md has its rules. */
typedef enum zr_question {
    ZR_QUESTION_USE = 0,       /* may the tool use the platform */
    ZR_QUESTION_PRE_SYNTH = 1, /* may it use it as a platform before synthesis */
    ZR_QUESTION_OPEN = 2       /* may it open the hardware platform */
} zr_question;

typedef enum zr_digest { ZR_DIGEST_NONE = 0, ZR_DIGEST_VALID = 1, ZR_DIGEST_BROKEN = 2 } zr_digest;

/* How a member differs from its state when the archive was made. */
typedef enum zr_reason {
    ZR_REASON_CRC = 0,     /* the CRC of its bytes differs from its entry's */
    ZR_REASON_SIZE = 1,    /* it has more or fewer bytes */
    ZR_REASON_DAMAGED = 2, /* it cannot be decompressed, or its two headers disagree */
    ZR_REASON_HASH = 3,    /* the SHA-256 of its bytes differs from its field's */
    ZR_REASON_FIELD = 4,   /* its field is not a SHA-256, or not the one in the digest */
    ZR_REASON_EXTRA = 5,   /* it has no field: it was added or replaced after the digest was made */
    ZR_REASON_MISSING = 6  /* a member is missing, was renamed, or was added with its own field */
} zr_reason;

typedef enum zr_severity { ZR_WARNING = 0, ZR_ERROR = 1 } zr_severity;

typedef enum zr_state {
    ZR_STATE_GOOD = 0,
    ZR_STATE_SHADOWED = 1, /* an earlier platform has the same name */
    ZR_STATE_BROKEN = 2    /* it cannot be read */
} zr_state;

typedef enum zr_answer_kind {
    ZR_ANSWER_TEXT = 0,
    ZR_ANSWER_NUMBER = 1, /* decimal */
    ZR_ANSWER_FLAG = 2,   /* "true" or "false" */
    ZR_ANSWER_LIST = 3    /* an item of a list; the items follow each other */
} zr_answer_kind;

/* Whether a linker may choose a bank for an argument that names none. */
typedef enum zr_assignment {
    ZR_ASSIGNMENT_UNKNOWN = 0,
    ZR_ASSIGNMENT_ALLOWED = 1,
    ZR_ASSIGNMENT_DEFAULT = 2, /* yes, and first */
    ZR_ASSIGNMENT_NONE = 3     /* only by name */
} zr_assignment;

typedef struct zr_error zr_error;
typedef struct zr_text zr_text;
typedef struct zr_platform zr_platform;
typedef struct zr_archive zr_archive;
typedef struct zr_verification zr_verification;
typedef struct zr_findings zr_findings;
typedef struct zr_platforms zr_platforms;
typedef struct zr_answers zr_answers;
typedef struct zr_connectors zr_connectors;
typedef struct zr_verdict zr_verdict;
typedef struct zr_hardware zr_hardware;

/* Input; NULL instead means all defaults. */
typedef struct zr_options {
    size_t size;
    uint32_t metadata; /* a zr_metadata */
    uint32_t reserved; /* 0 */
    /* Bytes that one call may decompress. 0 means 1 GiB, which is also the maximum. Verifying has no limit. */
    uint64_t max_unpacked;
} zr_options;

/* Input: how the emulation of a platform is built; docs/emulation.md has the flow. */
typedef struct zr_emulation {
    size_t size;
    const char* name;         /* of the installation's property file; not NULL or "" */
    const char* installation; /* of the tool; NULL: the environment variable TORVANE_MORWEN */
    const char* keep;         /* new directory for the scripts and the overlay, even if a step fails; NULL: none */
    uint64_t milliseconds;    /* the time limit of the scripts; 0: none */
} zr_emulation;

/* Output. */
typedef struct zr_member {
    size_t size;
    const char* name; /* as in the archive; must not be used as a path */
    size_t name_size; /* without the final NUL; an untrusted name may contain others */
    uint64_t bytes;   /* uncompressed, as declared by the entry */
    uint64_t packed_bytes;
    uint32_t crc;
    uint32_t is_directory; /* 1 for a directory: its name ends in "/" */
} zr_member;

/* Output. Only what differs is reported. */
typedef struct zr_difference {
    size_t size;
    const char* member; /* "" if unknown */
    const char* text;   /* for people */
    uint32_t reason;    /* a zr_reason */
    uint32_t reserved;
} zr_difference;

/* Output. */
typedef struct zr_finding {
    size_t size;
    const char* file;    /* as given, or as named by the descriptor */
    const char* member;  /* of an archive; "" for the file itself */
    uint64_t line;       /* from 1; 0 if there is no location in the text */
    uint64_t column;     /* in characters, likewise */
    const char* name;    /* stable, unlike the text; zr_explain accepts it */
    const char* element; /* name of the element, path of the JSON value; may be "" */
    const char* text;    /* what was found and what is allowed, in one line */
    uint32_t severity;   /* a zr_severity */
    uint32_t reserved;
} zr_finding;

/* Input; NULL instead means all defaults: every platform in the default repositories. */
typedef struct zr_search {
    size_t size;
    const char* path; /* directories separated by ":", searched before the default repositories; may be NULL */
    uint32_t flags;   /* ZR_NO_DEFAULTS, and for zr_find ZR_LATEST and ZR_USABLE */
    uint32_t reserved;
    /* For zr_find; NULL or "" accepts everything. With any of them except `name`, or with one of these flags, the
       platforms are loaded. */
    const char* name;   /* ignoring case; may have "*", "?" and "[...]" */
    const char* type;   /* "fennick", "lorimar", "acceleration" or "undefined" */
    const char* part;   /* architecture or name of the part, ignoring case */
    const char* board;  /* board id */
    const char* vbnv;   /* "vendor:board:name:version"; an empty field accepts everything */
    const char* intent; /* "server-managed", "external-host", "embedded", "data-center"; all of a list with "," */
} zr_search;

/* Output. */
typedef struct zr_found {
    size_t size;
    const char* name;        /* of the file, without ".zdf" */
    const char* file;        /* the descriptor */
    const char* repository;  /* the directory that was searched */
    const char* shadowed_by; /* with ZR_STATE_SHADOWED the file that has the name */
    const char* reason;      /* with ZR_STATE_BROKEN why, for people */
    const char* vendor;      /* from the descriptor, with ZR_STATE_GOOD, like version and description */
    const char* version;
    const char* description;
    const char* type; /* these four are "" unless the platform was loaded */
    const char* part;
    const char* board;
    const char* vbnv;
    uint32_t state; /* a zr_state */
    uint32_t reserved;
} zr_found;

/* Output. */
typedef struct zr_answer {
    size_t size;
    const char* name; /* stable */
    const char* value;
    uint32_t kind; /* a zr_answer_kind */
    uint32_t reserved;
} zr_answer;

/* Output. A board without connectors gives one with the name "". */
typedef struct zr_connector {
    size_t size;
    const char* part; /* of the board */
    const char* board;
    const char* file; /* the board's */
    const char* name;
    const char* display_name;
    const char* type;
    const char* fits; /* names of the DIMM connectors that it can be connected to, each followed by a line end */
} zr_connector;

/* Output. A memory of the board, as the metadata lists it. */
typedef struct zr_memory {
    size_t size;
    const char* name;
    const char* type;     /* as "ddr4" */
    const char* capacity; /* as "16GB" */
    uint64_t lowest;      /* address of the first byte; both addresses are 0 if they are unknown */
    uint64_t highest;     /* of the last byte */
} zr_memory;

/* Output. A bank that a linker can connect a kernel to. */
typedef struct zr_bank {
    size_t size;
    const char* type;      /* as "DDR" or "HBM" */
    const char* capacity;  /* "" if no file gives one */
    const char* slr;       /* "" if unknown */
    const char* interface; /* the bus interface that leads to it */
    const char* segment;   /* its address segment; "" if there is none */
    uint32_t number;       /* within the type, from 0 */
    uint32_t index;        /* of the address segment */
    uint32_t assignment;   /* a zr_assignment */
    uint32_t reserved;
} zr_bank;

/* Output. */
typedef struct zr_clock {
    size_t size;
    const char* name;
    const char* original_name; /* in the design */
    const char* frequency;     /* in MHz, as in the file */
    const char* status;        /* "scalable", "changeable", "fixed", "reserved", or another text */
    int32_t id;                /* -1 without one */
    uint32_t is_default;       /* 1 for the default clock */
} zr_clock;

/* Output. A bus interface that a linker can attach kernels to. */
typedef struct zr_interface {
    size_t size;
    const char* name;
    const char* mode;
    const char* type;        /* as "aximm" */
    const char* memory_port; /* as "MEMSS"; "" if it leads to no memory */
    const char* tag;         /* the memory type, or the name of a bank */
    const char* slr;
    const char* clock;
    const char* capacity; /* of the memory behind it */
    uint64_t segments;    /* number of address segments */
    int32_t data_width;   /* in bits */
    uint32_t reserved;
} zr_interface;

/* Output. An address segment of a bus interface. */
typedef struct zr_segment {
    size_t size;
    const char* name;
    const char* base_name;
    const char* tag;
    const char* slr;
    const char* memory_instance;
    uint32_t index;
    uint32_t assignment; /* a zr_assignment */
} zr_segment;

/* Input; NULL instead means all defaults. */
typedef struct zr_policy {
    size_t size;
    uint32_t question;        /* a zr_question */
    uint32_t reserved;        /* 0 */
    const char* tool_version; /* as "2026.2"; NULL: that of the library */
    const char* app_root;     /* whose exception list applies, and whose name gives the product; NULL: the host's */
} zr_policy;

/* Output. */
typedef struct zr_policy_step {
    size_t size;
    const char* rule;
    const char* facts; /* what the rule looked at, as "tool version: 2026.2, unified: yes"; untrusted text */
    uint32_t applies;  /* 1: the rule decided */
    uint32_t reserved;
} zr_policy_step;

/* Input; NULL instead means that all are empty. Where in a design the content of a metadata archive belongs. */
typedef struct zr_rqa {
    size_t size;
    const char* inst_path; /* NULL is the empty text, here and below */
    const char* dr_bd_inst_name;
    const char* pfm_name;
    const char* hier_name;
} zr_rqa;

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

/* ---- Versions and messages */

/* Of the library, as "2026.2.0". */
ZR_C_API const char* zr_library_version(void) ZR_NOEXCEPT;
/* ZR_INTERFACE_VERSION of the running library: if it is not below the header's, everything in the header is
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

/* ---- Platforms */

/* Loads a descriptor (.zdf), a hardware archive (.cfa, .lfa) or a software file (.spfm), with everything that it
 * names. */
ZR_C_API zr_code zr_platform_load(const char* file, const zr_options* options, zr_platform** platform,
                                  zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_platform_free(zr_platform* platform) ZR_NOEXCEPT;
/* For a platform without a descriptor, name, vendor, version and description are those of its hardware. NULL for an
 * unknown field. */
ZR_C_API const char* zr_platform_get(const zr_platform* platform, uint32_t field) ZR_NOEXCEPT;
/* The whole document: pretty-printed JSON, every value a text, with a final line end. */
ZR_C_API zr_code zr_platform_document(const zr_platform* platform, zr_text** document, zr_error** error) ZR_NOEXCEPT;
/* Only "uniqueName", "file" and "description", each unless empty. */
ZR_C_API zr_code zr_platform_short_document(const zr_platform* platform, zr_text** document,
                                            zr_error** error) ZR_NOEXCEPT;
/* The hardware metadata in the XML form of older archives, which holds less than the document. ZR_BAD_INPUT if
 * the platform cannot be written in this form. */
ZR_C_API zr_code zr_platform_xml(const zr_platform* platform, zr_text** xml, zr_error** error) ZR_NOEXCEPT;

/* ---- What a linker asks of the hardware. Items are numbered from 0; the texts are valid as long as the zr_hardware. */

/* Memories, banks, clocks and bus interfaces of the platform's hardware; none if it has no hardware. */
ZR_C_API zr_code zr_platform_hardware(const zr_platform* platform, zr_hardware** hardware,
                                      zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_hardware_free(zr_hardware* hardware) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_hardware_memory_count(const zr_hardware* hardware) ZR_NOEXCEPT;
ZR_C_API zr_code zr_hardware_memory(const zr_hardware* hardware, uint64_t index, zr_memory* memory,
                                    zr_error** error) ZR_NOEXCEPT;
/* By type and number. */
ZR_C_API uint64_t zr_hardware_bank_count(const zr_hardware* hardware) ZR_NOEXCEPT;
ZR_C_API zr_code zr_hardware_bank(const zr_hardware* hardware, uint64_t index, zr_bank* bank,
                                  zr_error** error) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_hardware_clock_count(const zr_hardware* hardware) ZR_NOEXCEPT;
ZR_C_API zr_code zr_hardware_clock(const zr_hardware* hardware, uint64_t index, zr_clock* clock,
                                   zr_error** error) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_hardware_interface_count(const zr_hardware* hardware) ZR_NOEXCEPT;
ZR_C_API zr_code zr_hardware_interface(const zr_hardware* hardware, uint64_t index, zr_interface* item,
                                       zr_error** error) ZR_NOEXCEPT;
/* Address segment number `segment` of the interface number `interface`. */
ZR_C_API zr_code zr_hardware_segment(const zr_hardware* hardware, uint64_t interface, uint64_t segment,
                                     zr_segment* item, zr_error** error) ZR_NOEXCEPT;

/* ---- Questions */

/* The answer of a path in the platform's document (docs/paths.md): a value as it is, an object as JSON, a list as JSON
 * under the path's last segment. A path that selects nothing is ZR_NOT_FOUND. */
ZR_C_API zr_code zr_platform_query(zr_platform* platform, const char* path, zr_text** answer,
                                   zr_error** error) ZR_NOEXCEPT;
/* {"keys": [...]}: the keys of the document, or `prefix` and those below it unless it is NULL. An unknown prefix is
 * ZR_NOT_FOUND. */
ZR_C_API zr_code zr_platform_keys(zr_platform* platform, const char* prefix, zr_text** keys,
                                  zr_error** error) ZR_NOEXCEPT;
/* {"keys": [{"key": ..., "meaning": ..., "form": ..., "unit": ..., "source": ...}]}: of one key of documents, or of all
 * for NULL. An unknown key is ZR_NOT_FOUND. */
ZR_C_API zr_code zr_key_documentation(const char* key, zr_text** documentation, zr_error** error) ZR_NOEXCEPT;
/* An object of key paths and values: a branch of the file's document, or all of it for NULL; of an archive, the document
 * is its hardware platform. Of `filter_count` filters, entries are kept whose key is one of them, with "[*]" for any
 * index. Accepts ZR_DEFAULT_FILTER. A branch that does not exist is ZR_NOT_FOUND. */
ZR_C_API zr_code zr_dict(const char* file, const char* branch, const char* const* filters, uint64_t filter_count,
                         uint32_t flags, zr_text** dict, zr_error** error) ZR_NOEXCEPT;
/* Checks a transform specification and counts its entries; no transformation is applied yet. */
ZR_C_API zr_code zr_transform(const char* file, const char* specification, uint64_t* entries,
                              zr_error** error) ZR_NOEXCEPT;

/* {"platforms": [...]}: a report of each platform in the directories, which are separated by ":", or in the default
 * repositories for NULL. Platforms that cannot be read are left out. Accepts ZR_DETAILED. */
ZR_C_API zr_code zr_catalog(const char* path, uint32_t flags, zr_text** catalog, zr_error** error) ZR_NOEXCEPT;

/* ---- The support policy */

/* A refusal is a result, not a failure. */
ZR_C_API zr_code zr_platform_check(const zr_platform* platform, const zr_policy* policy, zr_verdict** verdict,
                                   zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_verdict_free(zr_verdict* verdict) ZR_NOEXCEPT;
/* 1 if the tool supports the platform, else 0; 0 for NULL. */
ZR_C_API int zr_verdict_is_supported(const zr_verdict* verdict) ZR_NOEXCEPT;
/* The sentence for the user; "" if the verdict needs none. */
ZR_C_API const char* zr_verdict_reason(const zr_verdict* verdict) ZR_NOEXCEPT;
/* The newest tool that supports the platform, as "2027.*", "2030.1" or "any"; "" if none does. */
ZR_C_API const char* zr_verdict_newest_tool(const zr_verdict* verdict) ZR_NOEXCEPT;
/* An exception list, as JSON, that would turn the verdict round; "" if none would. */
ZR_C_API const char* zr_verdict_exceptions(const zr_verdict* verdict) ZR_NOEXCEPT;
/* The rules that were tried, in their order; the last one decided. */
ZR_C_API uint64_t zr_verdict_count(const zr_verdict* verdict) ZR_NOEXCEPT;
ZR_C_API zr_code zr_verdict_step(const zr_verdict* verdict, uint64_t index, zr_policy_step* step,
                                 zr_error** error) ZR_NOEXCEPT;
/* Writes an exception list, which is JSON, in the packed form that the policy reads. Accepts ZR_OVERWRITE. */
ZR_C_API zr_code zr_pack_exceptions(const char* json, const char* list, uint32_t flags, zr_error** error) ZR_NOEXCEPT;
/* The JSON of a packed exception list. */
ZR_C_API zr_code zr_exceptions(const char* list, zr_text** json, zr_error** error) ZR_NOEXCEPT;

/* ---- Reading archives. An open archive is the file that was opened, even if it is replaced later. */

/* Any zip archive. Of `options`, max_unpacked is used. */
ZR_C_API zr_code zr_archive_open(const char* file, const zr_options* options, zr_archive** archive,
                                 zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_archive_free(zr_archive* archive) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_archive_count(const zr_archive* archive) ZR_NOEXCEPT;
/* Members are numbered from 0, in the order of the archive. The texts are valid as long as the archive. */
ZR_C_API zr_code zr_archive_member(const zr_archive* archive, uint64_t index, zr_member* member,
                                   zr_error** error) ZR_NOEXCEPT;
/* Names are compared byte for byte. */
ZR_C_API zr_code zr_archive_find(const zr_archive* archive, const char* name, uint64_t* index,
                                 zr_error** error) ZR_NOEXCEPT;
/* The whole member, of at most `bound` bytes; 0 means 32 MiB. */
ZR_C_API zr_code zr_archive_read(const zr_archive* archive, uint64_t index, uint64_t bound, zr_text** bytes,
                                 zr_error** error) ZR_NOEXCEPT;
/* Copies a member to `file`, whose directory must exist. The file appears complete or not at all. Accepts
 * ZR_OVERWRITE. */
ZR_C_API zr_code zr_archive_extract(const zr_archive* archive, uint64_t index, const char* file, uint32_t flags,
                                    zr_error** error) ZR_NOEXCEPT;
/* Extracts all members into `folder`, which must exist, under their names. A name that leads out of it, and a
 * link, is ZR_BAD_INPUT; the members before it have then been extracted. Accepts ZR_OVERWRITE. */
ZR_C_API zr_code zr_archive_extract_all(const zr_archive* archive, const char* folder, uint32_t flags,
                                        zr_error** error) ZR_NOEXCEPT;
/* Copies one file out of a .cfa or .lfa. `name` is that of a member, a file type that the metadata lists ("HPFM"), or
 * "OUTER!INNER" for a member of a nested archive. Accepts ZR_OVERWRITE, ZR_BY_TYPE and ZR_REPAIR_HPFM. */
ZR_C_API zr_code zr_extract(const char* archive, const char* name, const char* file, uint32_t flags,
                            const zr_options* options, zr_error** error) ZR_NOEXCEPT;
/* Compares all bytes with CRCs and digest. A difference is a result, not a failure. */
ZR_C_API zr_code zr_archive_verify(const zr_archive* archive, zr_verification** verification,
                                   zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_verification_free(zr_verification* verification) ZR_NOEXCEPT;
ZR_C_API zr_digest zr_verification_digest(const zr_verification* verification) ZR_NOEXCEPT;
/* 0: nothing differs. */
ZR_C_API uint64_t zr_verification_count(const zr_verification* verification) ZR_NOEXCEPT;
/* In the order of the archive. The texts are valid as long as the verification. */
ZR_C_API zr_code zr_verification_difference(const zr_verification* verification, uint64_t index,
                                            zr_difference* difference, zr_error** error) ZR_NOEXCEPT;

/* ---- Making and changing archives. Each function replaces the archive atomically. */

/* Makes a folder with a small complete platform to start from, of the kind "card", "embedded" or "software"; NULL is "card".
 * The last part of its path is the platform's name. `files`, unless NULL, is set to the paths of its files in the folder, a
 * line for each. */
ZR_C_API zr_code zr_new_platform(const char* folder, const char* kind, zr_text** files, zr_error** error) ZR_NOEXCEPT;
/* Makes an archive of everything in `folder`, reproducibly and with a digest. A folder in it whose name ends in
 * .lfa, .cfa, .zip or .tilprj becomes an archive. What the folder's file ".zrignore" names is left out. Accepts ZR_OVERWRITE
 * and ZR_MAY_LACK. */
ZR_C_API zr_code zr_pack(const char* folder, const char* archive, uint32_t flags, zr_error** error) ZR_NOEXCEPT;
/* Puts `source` into a .cfa or .lfa as `member`, makes it the one file of its type in the metadata, and updates
 * the digest. The metadata is rewritten from the model, so keys that the library does not store are lost:
 * `losses`, unless NULL, is set on success and with ZR_REFUSED to a line for each key, escaped like a message, or
 * to "". A metadata member is ZR_REFUSED, and so is a member that the metadata lists under another type, unless
 * ZR_OVERWRITE allows that. An unknown type is ZR_NOT_FOUND. Also accepts ZR_LOSE_KEYS, ZR_STRIP_PATHS and
 * ZR_DRY_RUN. */
ZR_C_API zr_code zr_set_file(const char* archive, const char* type, const char* member, const char* source,
                             uint32_t flags, const zr_options* options, zr_text** losses,
                             zr_error** error) ZR_NOEXCEPT;
/* Writes to `destination` a copy of `archive`, a .cfa with XML metadata, with its emulation, built by the scripts of the
 * tool's installation in an embedded Tcl. `members`, unless NULL, is set to the names of the new members, a line for
 * each. The working directory of the process is a private one during the call: other threads must not use relative
 * paths meanwhile. Accepts ZR_OVERWRITE, ZR_DRY_RUN, ZR_DYNAMIC and ZR_MAY_RUN_PROGRAMS. */
ZR_C_API zr_code zr_emulate(const char* archive, const char* destination, const zr_emulation* emulation,
                            uint32_t flags, zr_text** members, zr_error** error) ZR_NOEXCEPT;
/* Attaches a digest; an archive with a valid one is not written. */
ZR_C_API zr_code zr_stamp_digest(const char* archive, zr_error** error) ZR_NOEXCEPT;

/* ---- Files made from others. Each file is written completely or not at all. Flags: ZR_OVERWRITE and ZR_DRY_RUN. A file
 * for an archive is a text "TYPE=MEMBER=FILE". */

/* Makes the partition metadata and the extended metadata of semantic labels; NULL or "" for either makes none.
 * `partition`, whose endpoints are in the extended metadata, is "/" if it is NULL. `labels`, unless NULL, is set to the
 * labels by kind, a JSON document. */
ZR_C_API zr_code zr_labels(const char* file, const char* partition_metadata, const char* ext_metadata,
                           const char* partition, uint32_t flags, zr_text** labels, zr_error** error) ZR_NOEXCEPT;
/* Makes an archive (.lfa) of a fixed platform with these files. */
ZR_C_API zr_code zr_create_fixed(const char* archive, const char* const* files, uint64_t file_count, uint32_t flags,
                                 zr_error** error) ZR_NOEXCEPT;
/* Makes an archive (.cfa or .lfa) from a hardware definition. */
ZR_C_API zr_code zr_from_hdf(const char* definition, const char* archive, uint32_t flags,
                             zr_error** error) ZR_NOEXCEPT;
/* Whether archives of reconfigurable modules fit the static platform of a file: sets the number of those that do not,
 * and `reasons`, unless NULL, to a line for each of them. That one does not fit is a result, not a failure. */
ZR_C_API zr_code zr_check_modules(const char* platform, const char* const* modules, uint64_t module_count,
                                  uint64_t* misfits, zr_text** reasons, zr_error** error) ZR_NOEXCEPT;
/* Writes emulation metadata in its other form, by the extensions .xml and .json. `losses`, unless NULL, is set to a line
 * for each value that this form does not hold. */
ZR_C_API zr_code zr_convert_emulation(const char* file, const char* destination, uint32_t flags, zr_text** losses,
                                      zr_error** error) ZR_NOEXCEPT;
/* Makes a metadata archive of these files. The file of a text may be a folder here and below. */
ZR_C_API zr_code zr_rqa_create(const char* archive, const zr_rqa* place, const char* const* files,
                               uint64_t file_count, uint32_t flags, zr_error** error) ZR_NOEXCEPT;
/* Adds files to a metadata archive. An existing type or member is ZR_REFUSED without ZR_OVERWRITE. */
ZR_C_API zr_code zr_rqa_add(const char* archive, const char* const* files, uint64_t file_count, uint32_t flags,
                            zr_error** error) ZR_NOEXCEPT;
/* The index of a metadata archive, a JSON document. */
ZR_C_API zr_code zr_rqa_index(const char* archive, zr_text** index, zr_error** error) ZR_NOEXCEPT;
/* Extracts the file or folder of a type below `directory`, which is made if it does not exist. `path`, unless NULL, is
 * set to its path. Accepts ZR_OVERWRITE. */
ZR_C_API zr_code zr_rqa_extract(const char* archive, const char* type, const char* directory, uint32_t flags,
                                zr_text** path, zr_error** error) ZR_NOEXCEPT;

/* ---- Checking files */

/* All errors in a descriptor and the files it names, a software file, an archive or a metadata file. A file that
 * cannot be opened is also a finding. Of `options`, max_unpacked is used. */
ZR_C_API zr_code zr_validate(const char* file, const zr_options* options, zr_findings** findings,
                             zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_findings_free(zr_findings* findings) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_findings_count(const zr_findings* findings) ZR_NOEXCEPT;
/* In the order of the text. The texts are valid as long as the findings. */
ZR_C_API zr_code zr_findings_get(const zr_findings* findings, uint64_t index, zr_finding* finding,
                                 zr_error** error) ZR_NOEXCEPT;
/* What the name of a finding or the id of a message ("74-60") means, what to do, a bad and a good sample. */
ZR_C_API zr_code zr_explain(const char* name, zr_text** text, zr_error** error) ZR_NOEXCEPT;
/* The W3C XML Schema of a format: "zdf", "spfm", "hpfm", "cfa" or "emu". Of "emu-json", the JSON Schema. */
ZR_C_API zr_code zr_schema(const char* format, zr_text** text, zr_error** error) ZR_NOEXCEPT;

/* ---- Finding platforms in repositories. docs/finding.md has the rules. */

/* Good platforms, repository by repository and sorted by path in each, then shadowed ones, then ones that cannot be
 * read. Reads only descriptors unless there is a filter. */
ZR_C_API zr_code zr_find(const zr_search* search, zr_platforms** platforms, zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_platforms_free(zr_platforms* platforms) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_platforms_count(const zr_platforms* platforms) ZR_NOEXCEPT;
/* The texts are valid as long as the platforms. */
ZR_C_API zr_code zr_platforms_get(const zr_platforms* platforms, uint64_t index, zr_found* found,
                                  zr_error** error) ZR_NOEXCEPT;
/* The file for an argument that is a file or the name of a platform: a path and the name of an existing file are
 * returned unchanged. ZR_NOT_FOUND if no platform has the name. */
ZR_C_API zr_code zr_resolve(const char* file_or_name, const zr_search* search, zr_text** file,
                            zr_error** error) ZR_NOEXCEPT;
/* Why a search does not find a descriptor: "RULE: text", where RULE is "found" if it does. */
ZR_C_API zr_code zr_why_not(const char* file, const zr_search* search, zr_text** why, zr_error** error) ZR_NOEXCEPT;
/* The directories that are searched, each once, separated by ":". */
ZR_C_API zr_code zr_search_path(const zr_search* search, zr_text** path, zr_error** error) ZR_NOEXCEPT;
/* Answers to common questions about a platform. */
ZR_C_API zr_code zr_platform_answers(const zr_platform* platform, zr_answers** answers, zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_answers_free(zr_answers* answers) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_answers_count(const zr_answers* answers) ZR_NOEXCEPT;
/* The texts are valid as long as the answers. */
ZR_C_API zr_code zr_answers_get(const zr_answers* answers, uint64_t index, zr_answer* answer,
                                zr_error** error) ZR_NOEXCEPT;
/* The connectors of all boards in the board repositories of a path, board by board. Files that cannot be read are
 * skipped. */
ZR_C_API zr_code zr_boards(const char* path, zr_connectors** connectors, zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_connectors_free(zr_connectors* connectors) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_connectors_count(const zr_connectors* connectors) ZR_NOEXCEPT;
/* The texts are valid as long as the connectors. */
ZR_C_API zr_code zr_connectors_get(const zr_connectors* connectors, uint64_t index, zr_connector* connector,
                                   zr_error** error) ZR_NOEXCEPT;

#endif
