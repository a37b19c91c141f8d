/* Reads, checks, makes and changes archives, and makes files from others.
 * The rules for all calls are in zr_platform.h, which includes this header. */
#ifndef ZR_PLATFORM_ZR_ARCHIVE_H
#define ZR_PLATFORM_ZR_ARCHIVE_H

#include "platform/zr_base.h"

typedef struct zr_archive zr_archive;
typedef struct zr_verification zr_verification;

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

/* Input; NULL instead means that all are empty. Where in a design the content of a metadata archive belongs. */
typedef struct zr_rqa {
    size_t size;
    const char* inst_path; /* NULL is the empty text, here and below */
    const char* dr_bd_inst_name;
    const char* pfm_name;
    const char* hier_name;
} zr_rqa;

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

#endif
