/* Finds platforms and boards in repositories.
 * The rules for all calls are in zr_platform.h, which includes this header. */
#ifndef ZR_PLATFORM_ZR_SEARCH_H
#define ZR_PLATFORM_ZR_SEARCH_H

#include "platform/zr_base.h"

typedef struct zr_platforms zr_platforms;
typedef struct zr_connectors zr_connectors;

typedef enum zr_state {
    ZR_STATE_GOOD = 0,
    ZR_STATE_SHADOWED = 1, /* an earlier platform has the same name */
    ZR_STATE_BROKEN = 2    /* it cannot be read */
} zr_state;

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
/* {"platforms": [...]}: a report of each platform in the directories, which are separated by ":", or in the default
 * repositories for NULL. Platforms that cannot be read are left out. Accepts ZR_DETAILED. */
ZR_C_API zr_code zr_catalog(const char* path, uint32_t flags, zr_text** catalog, zr_error** error) ZR_NOEXCEPT;
/* The connectors of all boards in the board repositories of a path, board by board. Files that cannot be read are
 * skipped. */
ZR_C_API zr_code zr_boards(const char* path, zr_connectors** connectors, zr_error** error) ZR_NOEXCEPT;
ZR_C_API void zr_connectors_free(zr_connectors* connectors) ZR_NOEXCEPT;
ZR_C_API uint64_t zr_connectors_count(const zr_connectors* connectors) ZR_NOEXCEPT;
/* The texts are valid as long as the connectors. */
ZR_C_API zr_code zr_connectors_get(const zr_connectors* connectors, uint64_t index, zr_connector* connector,
                                   zr_error** error) ZR_NOEXCEPT;

#endif
