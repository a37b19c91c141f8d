/* Checks files, and asks the support policy.
 * The rules for all calls are in zr_platform.h, which includes this header. */
#ifndef ZR_PLATFORM_ZR_CHECK_H
#define ZR_PLATFORM_ZR_CHECK_H

#include "platform/zr_query.h"

typedef struct zr_findings zr_findings;
typedef struct zr_verdict zr_verdict;

/* What the support policy is asked; docs/policy.md has its rules. */
typedef enum zr_question {
    ZR_QUESTION_USE = 0,       /* may the tool use the platform */
    ZR_QUESTION_PRE_SYNTH = 1, /* may it use it as a platform before synthesis */
    ZR_QUESTION_OPEN = 2       /* may it open the hardware platform */
} zr_question;

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

#endif
