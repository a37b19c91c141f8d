/* Loads platforms, and answers questions about them.
 * The rules for all calls are in zr_platform.h, which includes this header. */
#ifndef ZR_PLATFORM_ZR_QUERY_H
#define ZR_PLATFORM_ZR_QUERY_H

#include "platform/zr_base.h"

typedef struct zr_platform zr_platform;
typedef struct zr_answers zr_answers;
typedef struct zr_hardware zr_hardware;

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

/* Output. */
typedef struct zr_answer {
    size_t size;
    const char* name; /* stable */
    const char* value;
    uint32_t kind; /* a zr_answer_kind */
    uint32_t reserved;
} zr_answer;

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
    const char* capacity; /* of the memory that it leads to */
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
/* Answers to common questions about a platform. */
ZR_C_API zr_code zr_platform_answers(const zr_platform* platform, zr_answers** answers, zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_answers_free(zr_answers* answers) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_answers_count(const zr_answers* answers) ZR_NOEXCEPT;
/* The texts are valid as long as the answers. */
ZR_C_API zr_code zr_answers_get(const zr_answers* answers, uint64_t index, zr_answer* answer,
                                zr_error** error) ZR_NOEXCEPT;

#endif
