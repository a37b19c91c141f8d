/* Every function of platform/zr_platform.h from plain C: codes, fields, sizes of structures, NULL. What the functions do
 * to archives is tested by the C++ wrapper. */
#define _XOPEN_SOURCE 700
#include <platform/zr_platform.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

static int failures = 0;
static zr_error* error = NULL;
static zr_text* text = NULL;
static char scratch[] = "/tmp/zr_c_XXXXXX";

static void check(int holds, const char* condition, int line) {
    if (holds) return;
    fprintf(stderr, "line %d: %s\n", line, condition);
    ++failures;
}
#define CHECK(condition)     check((condition) ? 1 : 0, #condition, __LINE__)
#define SAME(text, expected) check(strcmp(text, expected) == 0, #text " is " #expected, __LINE__)

/* A path in the scratch directory; one of 64 places, used in turn. */
static const char* at(const char* name) {
    static char places[64][256];
    static int next = 0;
    char* place = places[next++ % 64];
    snprintf(place, sizeof places[0], "%s/%s", scratch, name);
    return place;
}

static const char* put(const char* name, const char* content) {
    FILE* file = fopen(at(name), "wb");
    if (!file || fputs(content, file) < 0 || fclose(file) != 0) abort();
    return at(name);
}

/* Whether a call gave a text, or failed with one, that has this part; frees both. */
static int ended(zr_code code, zr_code expected, const char* part) {
    const char* found = code == ZR_OK ? zr_text_data(text) : zr_error_text(error);
    const int holds = code == expected && zr_error_code(error) == expected && strstr(found, part) &&
                      strlen(zr_text_data(text)) == zr_text_size(text) && (code == ZR_OK || !text);
    if (!holds) fprintf(stderr, "code %d, %s\n", (int)code, zr_error_describe(error));
    zr_text_free(text), zr_error_free(error);
    text = NULL, error = NULL;
    return holds;
}
#define GIVES(call, part)       check(ended(call, ZR_OK, part), #call, __LINE__)
#define FAILS(call, code, part) check(ended(call, code, part), #call, __LINE__)

#define PLATFORM(content)                                                                                    \
    "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0' teq:vendor='acme' teq:library='l' teq:name='n' " \
    "teq:version='1.0'><teq:description>words</teq:description>" content "</teq:platform>"
static const char metadata[] =
    "{\"vendor\": \"acme\", \"makersOwn\": \"1\", \"files\": [{\"name\": \"a\", \"type\": "
    "\"DCP\"}]}";
static const char software[] = PLATFORM(
    "<teq:systemConfigurations><teq:configuration teq:name='c' teq:displayName='C'><teq:description/>"
    "</teq:configuration></teq:systemConfigurations>");
static const char descriptor[] = PLATFORM(
    "<teq:hardwarePlatforms><teq:hardwarePlatform teq:path='.' teq:name='x.lfa'/></teq:hardwarePlatforms>"
    "<teq:softwarePlatforms><teq:softwarePlatform teq:path='.' teq:name='s.spfm'/></teq:softwarePlatforms>");

static void testPack(void) {
    mkdir(at("in"), 0755);
    put("in/lfa.json", "{\n\"a\": ,\n}");
    CHECK(zr_pack(at("in"), at("bad.lfa"), 0, NULL) == ZR_BAD_INPUT);
    CHECK(zr_pack(at("in"), at("bad.lfa"), ZR_MAY_LACK, NULL) == ZR_OK);
    put("in/lfa.json", metadata);
    put("in/a", "checkpoint");
    CHECK(zr_pack(at("in"), at("x.lfa"), 0, &error) == ZR_OK && !error);
    FAILS(zr_pack(at("in"), at("x.lfa"), 0, &error), ZR_REFUSED, "already");
    FAILS(zr_pack(at("gone"), at("y.lfa"), 0, &error), ZR_NOT_FOUND, "no such folder");
    FAILS(zr_pack(at("in"), at("no/y.lfa"), 0, &error), ZR_ENVIRONMENT, "no such directory");
    FAILS(zr_pack(at("in"), at("y.lfa"), ZR_DRY_RUN, &error), ZR_WRONG_USE, "0x10");
    FAILS(zr_pack(NULL, at("y.lfa"), 0, &error), ZR_WRONG_USE, "folder is NULL");
}

static void testLoad(const char* sample) {
    zr_platform* platform = NULL;
    char fields[64] = "";
    CHECK(zr_platform_load(at("p.zdf"), NULL, &platform, &error) == ZR_OK && !error);
    for (int field = ZR_FIELD_NAME; field <= ZR_FIELD_DESCRIPTION; ++field)
        strcat(strcat(fields, zr_platform_get(platform, (zr_field)field)), " ");
    SAME(fields, "n acme l 1.0 words ");
    SAME(zr_platform_get(platform, ZR_FIELD_FILE), at("p.zdf"));
    CHECK(strstr(zr_platform_get(platform, ZR_FIELD_SOFTWARE_FILE), "s.spfm"));
    CHECK(zr_platform_get(platform, 1000) == NULL && zr_platform_get(NULL, ZR_FIELD_NAME) == NULL);
    GIVES(zr_platform_document(platform, &text, &error), "\"vendor\": \"acme\"");
    GIVES(zr_platform_short_document(platform, &text, NULL), "\"words\"");
    FAILS(zr_platform_xml(platform, &text, &error), ZR_BAD_INPUT, "<Devices>");
    FAILS(zr_platform_document(NULL, &text, &error), ZR_WRONG_USE, "platform is NULL");
    FAILS(zr_platform_document(platform, NULL, &error), ZR_WRONG_USE, "result is NULL");
    zr_platform_free(platform);
    CHECK(zr_platform_load(at("s.spfm"), NULL, &platform, NULL) == ZR_OK);
    FAILS(zr_platform_xml(platform, &text, &error), ZR_BAD_INPUT, "no hardware platform");
    zr_platform_free(platform);
    CHECK(zr_pack(sample, at("sample.cfa"), 0, NULL) == ZR_OK);
    CHECK(zr_platform_load(at("sample.cfa"), NULL, &platform, NULL) == ZR_OK);
    GIVES(zr_platform_xml(platform, &text, NULL), "BoardId=\"harrier\"");
    zr_platform_free(platform);
}

static void testErrors(void) {
    zr_platform* platform = (zr_platform*)&platform;
    FAILS(zr_platform_load(at("gone.zdf"), NULL, &platform, &error), ZR_NOT_FOUND, "no such file");
    CHECK(zr_platform_load(at("bad.lfa"), NULL, &platform, &error) == ZR_BAD_INPUT && platform == NULL);
    FAILS(zr_error_code(error), ZR_BAD_INPUT, "");
    CHECK(zr_error_code(NULL) == ZR_OK && zr_error_line(NULL) == 0 && zr_error_column(NULL) == 0);
    CHECK(*zr_error_text(NULL) == 0 && *zr_error_file(NULL) == 0 && *zr_error_member(NULL) == 0);
    CHECK(*zr_error_id(NULL) == 0 && *zr_error_name(NULL) == 0 && *zr_error_describe(NULL) == 0 && *zr_text_data(NULL) == 0);
    CHECK(zr_text_size(NULL) == 0 && zr_archive_count(NULL) == 0 && zr_findings_count(NULL) == 0);
    CHECK(zr_verification_count(NULL) == 0 && zr_verification_digest(NULL) == ZR_DIGEST_NONE);
    zr_error_free(NULL), zr_text_free(NULL), zr_platform_free(NULL);
    zr_archive_free(NULL), zr_verification_free(NULL), zr_findings_free(NULL);
}

/* Programs that know fewer fields than the library, or more. */
static void testSizes(void) {
    enum { kSize = sizeof(zr_options), kNewer = kSize + sizeof(uint64_t) };
    const struct {
        zr_options known;
        uint64_t later;
        zr_code expected;
    } cases[] = {
        {{kSize, ZR_METADATA_DEFAULT, 0, 0}, 0, ZR_OK},
        {{kSize, ZR_METADATA_PRIMARY_JSON, 0, 1 << 20}, 0, ZR_OK},
        {{kSize, ZR_METADATA_XML, 0, 0}, 0, ZR_BAD_INPUT}, /* the archive has none */
        {{kSize, ZR_METADATA_DEFAULT, 0, 10}, 0, ZR_BAD_INPUT},
        {{offsetof(zr_options, max_unpacked), ZR_METADATA_DEFAULT, 0, 10}, 0, ZR_OK}, /* not in an older one */
        {{offsetof(zr_options, metadata), 1000, 0, 10}, 0, ZR_OK},
        {{kNewer, ZR_METADATA_DEFAULT, 0, 0}, 0, ZR_OK},
        {{kNewer, ZR_METADATA_DEFAULT, 0, 0}, 1, ZR_WRONG_USE},
        {{0, ZR_METADATA_DEFAULT, 0, 0}, 0, ZR_WRONG_USE},
        {{12, ZR_METADATA_DEFAULT, 0, 0}, 0, ZR_WRONG_USE},
        {{(size_t)-8, ZR_METADATA_DEFAULT, 0, 0}, 0, ZR_WRONG_USE},
        {{kSize, 3, 0, 0}, 0, ZR_WRONG_USE},
        {{kSize, ZR_METADATA_DEFAULT, 1, 0}, 0, ZR_WRONG_USE},
        {{kSize, ZR_METADATA_DEFAULT, 0, UINT64_MAX}, 0, ZR_WRONG_USE},
    };
    for (size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
        zr_platform* platform = NULL;
        const zr_code code = zr_platform_load(at("x.lfa"), &cases[i].known, &platform, NULL);
        if (code != cases[i].expected) fprintf(stderr, "case %zu\n", i);
        CHECK(code == cases[i].expected);
        zr_platform_free(platform);
    }
}

static void testArchive(void) {
    zr_archive* archive = NULL;
    FAILS(zr_archive_open(at("s.spfm"), NULL, &archive, &error), ZR_BAD_INPUT, "");
    FAILS(zr_archive_open(NULL, NULL, &archive, &error), ZR_WRONG_USE, "file is NULL");
    CHECK(zr_archive_open(at("x.lfa"), NULL, &archive, &error) == ZR_OK && zr_archive_count(archive) == 2);
    struct {
        zr_member known;
        uint64_t later[2];
    } newer;
    zr_member* member = &newer.known;
    memset(&newer, 0xff, sizeof newer);
    member->size = sizeof *member;
    CHECK(zr_archive_member(archive, 0, member, &error) == ZR_OK);
    SAME(member->name, "a");
    CHECK(member->name_size == 1 && member->bytes == 10 && member->crc == 0x0f00f7be && member->is_directory == 0);
    CHECK(newer.later[0] == UINT64_MAX);
    member->size = sizeof newer;
    CHECK(zr_archive_member(archive, 0, member, &error) == ZR_OK && newer.later[0] == 0 && newer.later[1] == 0);
    memset(&newer, 0xff, sizeof newer);
    member->size = offsetof(zr_member, bytes);
    CHECK(zr_archive_member(archive, 1, member, &error) == ZR_OK && member->bytes == UINT64_MAX);
    FAILS(zr_archive_member(archive, 2, member, &error), ZR_WRONG_USE, "2");
    member->size = 0;
    FAILS(zr_archive_member(archive, 0, member, &error), ZR_WRONG_USE, "size");

    uint64_t index = 77;
    FAILS(zr_archive_find(archive, "A", &index, &error), ZR_NOT_FOUND, "'A'");
    CHECK(index == 77 && zr_archive_find(archive, "lfa.json", &index, &error) == ZR_OK && index == 1);
    GIVES(zr_archive_read(archive, index, 0, &text, &error), metadata);
    CHECK(zr_archive_extract(archive, 0, at("in/a"), ZR_OVERWRITE, &error) == ZR_OK);
    FAILS(zr_archive_extract(archive, 0, at("no/out"), 0, &error), ZR_ENVIRONMENT, "no such directory");
    FAILS(zr_archive_extract(archive, 0, at("y"), ZR_MAY_LACK, &error), ZR_WRONG_USE, "flags");
    FAILS(zr_archive_extract_all(archive, at("gone"), 0, &error), ZR_NOT_FOUND, "no such folder");
    FAILS(zr_archive_extract_all(archive, at("in"), 0, &error), ZR_ENVIRONMENT, "exists");
    CHECK(zr_archive_extract_all(archive, at("in"), ZR_OVERWRITE, &error) == ZR_OK);

    zr_verification* verification = NULL;
    zr_difference difference = {.size = sizeof difference};
    CHECK(zr_archive_verify(archive, &verification, &error) == ZR_OK);
    FAILS(zr_verification_difference(verification, 0, &difference, &error), ZR_WRONG_USE, "0");
    zr_verification_free(verification);
    FAILS(zr_archive_verify(NULL, &verification, &error), ZR_WRONG_USE, "archive is NULL");
    zr_archive_free(archive);

    const zr_options few = {.size = sizeof few, .max_unpacked = 50};
    CHECK(zr_archive_open(at("x.lfa"), &few, &archive, &error) == ZR_OK);
    CHECK(zr_archive_extract(archive, 0, at("small"), 0, &error) == ZR_OK);
    CHECK(zr_archive_extract(archive, 1, at("large"), 0, NULL) == ZR_BAD_INPUT);
    CHECK(zr_archive_read(archive, 1, 0, &text, NULL) == ZR_BAD_INPUT);
    zr_archive_free(archive);
}

static void testSetFile(void) {
    const char *archive = at("x.lfa"), *source = put("pre.tcl", "puts hello");
    zr_archive* opened = NULL;
    CHECK(zr_set_file(archive, "ISS", "m", source, 0, NULL, &text, &error) == ZR_REFUSED);
    SAME(zr_text_data(text), "makersOwn: lost\n");
    zr_text_free(text), text = NULL;
    FAILS(zr_error_code(error), ZR_REFUSED, "lost or changed");
    CHECK(zr_set_file(archive, "ISS", "m", source, ZR_DRY_RUN | ZR_LOSE_KEYS, NULL, NULL, NULL) == ZR_OK);
    CHECK(zr_archive_open(archive, NULL, &opened, NULL) == ZR_OK && zr_archive_count(opened) == 2);
    CHECK(zr_set_file(archive, "ISS", "m", source, ZR_LOSE_KEYS | ZR_STRIP_PATHS, NULL, NULL, &error) == ZR_OK);
    CHECK(zr_archive_count(opened) == 2); /* it is the file that was opened */
    zr_archive_free(opened);
    CHECK(zr_set_file(archive, "ISS", "m", source, ZR_STRIP_PATHS, NULL, &text, NULL) == ZR_OK);
    SAME(zr_text_data(text), "");
    zr_text_free(text), text = NULL;
    FAILS(zr_set_file(archive, "ISS", "../out", source, ZR_LOSE_KEYS, NULL, &text, &error), ZR_WRONG_USE, "..");
    FAILS(zr_set_file(at("p.zdf"), "ISS", "m", source, 0, NULL, NULL, &error), ZR_BAD_INPUT, "hardware archive");
    FAILS(zr_set_file(archive, NULL, "m", source, 0, NULL, NULL, &error), ZR_WRONG_USE, "type is NULL");
    CHECK(zr_stamp_digest(archive, &error) == ZR_OK && !error);
    FAILS(zr_stamp_digest(at("gone.lfa"), &error), ZR_NOT_FOUND, "no such file");
    FAILS(zr_stamp_digest(source, &error), ZR_BAD_INPUT, "");
}

static void testChecks(void) {
    zr_findings* findings = NULL;
    zr_finding finding = {.size = sizeof finding};
    CHECK(zr_validate(put("root.zdf", "\n\n<platform/>"), NULL, &findings, &error) == ZR_OK);
    CHECK(zr_findings_count(findings) == 1 && zr_findings_get(findings, 0, &finding, &error) == ZR_OK);
    SAME(finding.name, "wrong-root");
    CHECK(*finding.member == 0 && finding.line == 3 && finding.column == 1 && *finding.text != 0);
    FAILS(zr_findings_get(findings, 1, &finding, &error), ZR_WRONG_USE, "1");
    zr_findings_free(findings);
    FAILS(zr_validate(NULL, NULL, &findings, &error), ZR_WRONG_USE, "file is NULL");
    GIVES(zr_explain("74-60", &text, &error), "74-60 (critical)");
    FAILS(zr_explain("no-such-name", &text, &error), ZR_NOT_FOUND, "'no-such-name'");
    CHECK(!findings);
    GIVES(zr_schema("zdf", &text, &error), "urn:torvane:teq:platform:1.0");
    FAILS(zr_schema("x", &text, &error), ZR_NOT_FOUND, "zdf, spfm, hpfm, cfa, emu");
}

static void testSearch(void) {
    zr_platforms* platforms = NULL;
    zr_answers* answers = NULL;
    zr_connectors* connectors = NULL;
    zr_platform* platform = NULL;
    zr_found found = {.size = sizeof found};
    zr_answer answer = {.size = sizeof answer};
    zr_connector connector = {.size = sizeof connector};
    zr_search search = {.size = sizeof search, .path = scratch, .flags = ZR_NO_DEFAULTS};
    CHECK(zr_find(&search, &platforms, &error) == ZR_OK && zr_platforms_count(platforms) == 2);
    CHECK(zr_platforms_get(platforms, 0, &found, &error) == ZR_OK && found.state == ZR_STATE_GOOD);
    SAME(found.file, at("p.zdf"));
    CHECK(strcmp(found.vendor, "acme") == 0 && *found.type == 0);
    CHECK(zr_platforms_get(platforms, 1, &found, NULL) == ZR_OK && found.state == ZR_STATE_BROKEN);
    CHECK(strcmp(found.name, "root") == 0 && strstr(found.reason, "root.zdf:3:1"));
    FAILS(zr_platforms_get(platforms, 2, &found, &error), ZR_WRONG_USE, "2");
    zr_platforms_free(platforms);
    search.flags |= ZR_LATEST;
    CHECK(zr_find(&search, &platforms, NULL) == ZR_OK && zr_platforms_get(platforms, 0, &found, NULL) == ZR_OK);
    CHECK(strcmp(found.vbnv, "acme:::0.0") == 0 && zr_platforms_count(NULL) == 0);
    zr_platforms_free(platforms);
    search.flags = ZR_NO_DEFAULTS | ZR_USABLE;
    CHECK(zr_find(&search, &platforms, NULL) == ZR_OK && zr_platforms_get(platforms, 0, &found, NULL) == ZR_OK);
    CHECK(found.state == ZR_STATE_BROKEN && zr_platforms_count(platforms) == 1); /* version 0.0 is too old */
    zr_platforms_free(platforms);
    search.flags |= ZR_LATEST;
    search.type = "x";
    FAILS(zr_find(&search, &platforms, &error), ZR_WRONG_USE, "unknown type 'x'");
    FAILS(zr_resolve("p", &search, &text, &error), ZR_WRONG_USE, "flags"); /* ZR_LATEST */
    search.flags = ZR_NO_DEFAULTS;
    GIVES(zr_resolve("P", &search, &text, &error), at("p.zdf"));
    FAILS(zr_resolve("q", &search, &text, &error), ZR_NOT_FOUND, "no platform 'q'");
    GIVES(zr_why_not(at("root.zdf"), &search, &text, &error), "not-valid: ");
    GIVES(zr_search_path(&search, &text, &error), scratch);

    CHECK(zr_platform_load(at("p.zdf"), NULL, &platform, NULL) == ZR_OK);
    CHECK(zr_platform_answers(platform, &answers, &error) == ZR_OK && zr_answers_count(answers) > 20);
    CHECK(zr_answers_get(answers, 0, &answer, &error) == ZR_OK && strcmp(answer.value, "acme") == 0);
    FAILS(zr_answers_get(answers, 1000, &answer, &error), ZR_WRONG_USE, "1000");
    zr_answers_free(answers), zr_platform_free(platform);
    FAILS(zr_platform_answers(NULL, &answers, &error), ZR_WRONG_USE, "platform is NULL");

    put("in/board.json",
        "{\"part\": \"b\", \"connectors\": [{\"name\": \"J\", \"type\": \"DIMM\", "
        "\"compatible\": [\"J\", \"K\"]}]}");
    CHECK(zr_boards(scratch, &connectors, &error) == ZR_OK && zr_connectors_count(connectors) == 1);
    CHECK(zr_connectors_get(connectors, 0, &connector, &error) == ZR_OK && strcmp(connector.part, "b") == 0);
    SAME(connector.fits, "J\n");
    zr_connectors_free(connectors);
    FAILS(zr_boards(NULL, &connectors, &error), ZR_WRONG_USE, "path is NULL");
}

static void testHardware(void) {
    zr_platform* platform = NULL;
    zr_hardware* hardware = NULL;
    zr_memory memory = {.size = sizeof memory};
    zr_bank bank = {.size = sizeof bank};
    zr_clock clock = {.size = sizeof clock};
    zr_interface bus = {.size = sizeof bus};
    zr_segment segment = {.size = sizeof segment};
    CHECK(mkdir(at("hw"), 0700) == 0);
    put("hw/lfa.json",
        "{\"name\": \"n\", \"memories\": [{\"name\": \"m\", \"size\": \"4GB\", \"highAddress\": 7}], "
        "\"systemClocks\": "
        "[{\"name\": \"c\", \"frequency\": \"250\", \"default\": true}], \"busInterfaces\": [{\"name\": \"b\", "
        "\"memPort\": \"MEMSS\", \"spTag\": \"hbm\", \"addressSegments\": [{\"name\": \"s\", \"auto\": "
        "\"false\"}]}]}");
    CHECK(zr_pack(at("hw"), at("hw.lfa"), 0, &error) == ZR_OK);
    CHECK(zr_platform_load(at("hw.lfa"), NULL, &platform, &error) == ZR_OK);
    CHECK(zr_platform_hardware(platform, &hardware, &error) == ZR_OK);
    CHECK(zr_hardware_memory_count(hardware) == 1 && zr_hardware_memory(hardware, 0, &memory, NULL) == ZR_OK);
    CHECK(strcmp(memory.capacity, "4GB") == 0 && memory.highest == 7);
    CHECK(zr_hardware_bank_count(hardware) == 1 && zr_hardware_bank(hardware, 0, &bank, NULL) == ZR_OK);
    CHECK(strcmp(bank.type, "HBM") == 0 && bank.assignment == ZR_ASSIGNMENT_NONE && *bank.capacity == 0);
    CHECK(zr_hardware_clock_count(hardware) == 1 && zr_hardware_clock(hardware, 0, &clock, NULL) == ZR_OK);
    CHECK(strcmp(clock.frequency, "250") == 0 && clock.is_default == 1 && clock.id == 0);
    CHECK(zr_hardware_interface_count(hardware) == 1 && zr_hardware_interface(hardware, 0, &bus, NULL) == ZR_OK);
    CHECK(bus.segments == 1 && zr_hardware_segment(hardware, 0, 0, &segment, NULL) == ZR_OK);
    SAME(segment.name, "s");
    FAILS(zr_hardware_segment(hardware, 0, 1, &segment, &error), ZR_WRONG_USE, "1");
    zr_hardware_free(hardware), zr_platform_free(platform);
    GIVES(zr_new_platform(at("fresh"), "software", &text, &error), "README.md\nfresh.spfm\n");
    FAILS(zr_new_platform(at("fresh"), NULL, NULL, &error), ZR_REFUSED, "already exists");
    CHECK(zr_extract(at("hw.lfa"), "lfa.json", at("out.json"), 0, NULL, &error) == ZR_OK);
    FAILS(zr_extract(at("hw.lfa"), "lfa.json", at("out.json"), ZR_BY_TYPE | ZR_OVERWRITE, NULL, &error), ZR_NOT_FOUND,
          "file type 'lfa.json'");
}

static void testQuestions(void) {
    zr_platform* platform = NULL;
    zr_verdict* verdict = NULL;
    uint64_t entries = 0;
    CHECK(zr_platform_load(at("p.zdf"), NULL, &platform, &error) == ZR_OK);
    GIVES(zr_platform_query(platform, "hardwarePlatform.vendor", &text, &error), "acme");
    FAILS(zr_platform_query(platform, "hardwarePlatform.vendr", &text, &error), ZR_NOT_FOUND, "nearest: vendor");
    FAILS(zr_platform_query(platform, NULL, &text, &error), ZR_WRONG_USE, "path is NULL");
    GIVES(zr_platform_keys(platform, "hardwarePlatform.files", &text, &error), "files[].type\"\n");
    GIVES(zr_platform_keys(platform, NULL, &text, &error), "\"vendor\"");
    FAILS(zr_platform_keys(NULL, NULL, &text, &error), ZR_WRONG_USE, "platform is NULL");
    // The documentation is installed with the library, and is not beside that of the build.
    const zr_code documented = zr_key_documentation("vendor", &text, &error);
    CHECK(documented == ZR_OK ? strstr(zr_text_data(text), "vendor") != NULL
                              : documented == ZR_NOT_FOUND && strstr(zr_error_text(error), "not installed") != NULL);
    zr_text_free(text);
    zr_error_free(error);
    text = NULL;
    error = NULL;
    const char* filters[] = {"files[*].name"};
    GIVES(zr_dict(at("x.lfa"), NULL, filters, 1, ZR_DEFAULT_FILTER, &text, &error), "\"files[0].name\": \"a\"");
    FAILS(zr_dict(at("x.lfa"), "gone", NULL, 0, 0, &text, &error), ZR_NOT_FOUND, "no branch 'gone'");
    FAILS(zr_dict(at("x.lfa"), NULL, NULL, 1, 0, &text, &error), ZR_WRONG_USE, "filters is NULL");
    CHECK(zr_transform(at("x.lfa"), put("spec.json", "{\"spec\": [1, 2]}"), &entries, &error) == ZR_OK &&
          entries == 2);
    FAILS(zr_transform(at("x.lfa"), at("s.spfm"), &entries, &error), ZR_BAD_INPUT, ".json");
    GIVES(zr_catalog(scratch, ZR_DETAILED, &text, &error), "\"warrantyReason\": \"Platform 'p.zdf' is not a unified");
    FAILS(zr_catalog(scratch, ZR_OVERWRITE, &text, &error), ZR_WRONG_USE, "flags");

    zr_policy policy = {sizeof policy, ZR_QUESTION_OPEN, 0, "2021.1", scratch};
    zr_policy_step step = {.size = sizeof step};
    CHECK(zr_platform_check(platform, &policy, &verdict, &error) == ZR_OK && !zr_verdict_is_supported(verdict));
    CHECK(strstr(zr_verdict_reason(verdict), "CFA 'p.zdf'") && *zr_verdict_newest_tool(verdict) == 0);
    CHECK(*zr_verdict_exceptions(verdict) == 0 && zr_verdict_count(verdict) == 3);
    CHECK(zr_verdict_step(verdict, 2, &step, &error) == ZR_OK && step.applies == 1);
    SAME(step.facts, "unified: no");
    SAME(step.rule, "not-unified");
    FAILS(zr_verdict_step(verdict, 3, &step, &error), ZR_WRONG_USE, "3");
    zr_verdict_free(verdict), zr_verdict_free(NULL);
    policy.question = 3;
    FAILS(zr_platform_check(platform, &policy, &verdict, &error), ZR_WRONG_USE, "question");
    policy.question = 0, policy.tool_version = "soon";
    FAILS(zr_platform_check(platform, &policy, &verdict, &error), ZR_WRONG_USE, "'soon'");
    CHECK(!verdict && !zr_verdict_is_supported(NULL) && zr_verdict_count(NULL) == 0 && !*zr_verdict_reason(NULL));
    CHECK(!*zr_verdict_newest_tool(NULL) && !*zr_verdict_exceptions(NULL));
    zr_platform_free(platform);

    put("list.json", "{\"black_list\": []}");
    CHECK(zr_pack_exceptions(at("list.json"), at("list"), 0, &error) == ZR_OK);
    FAILS(zr_pack_exceptions(at("list.json"), at("list"), 0, &error), ZR_REFUSED, "already");
    GIVES(zr_exceptions(at("list"), &text, &error), "{\"black_list\": []}");
    FAILS(zr_exceptions(at("list.json"), &text, &error), ZR_BAD_INPUT, "ZRXPACK1");
}

static void testDerived(void) {
    uint64_t misfits = 9;
    const char* const none[] = {NULL};
    const char *const bad[] = {"T=m"}, *const static_part[] = {at("fixed.lfa")};
    char file[300];
    const char* const files[] = {file};
    snprintf(file, sizeof file, "T=m.json=%s", put("labels.json", "{\"uuid\": {}}"));
    FAILS(zr_labels(at("labels.json"), NULL, NULL, NULL, 0, &text, &error), ZR_BAD_INPUT, "uuid_type");
    put("labels.json", "{\"uuid\": {\"uuid_type\": \"logic\", \"uuid_design_component\": \"c\", \"uuid\": \"u\"}}");
    GIVES(zr_labels(at("labels.json"), at("part.json"), at("ext.json"), "/", 0, &text, &error), "\"uuid\"");
    FAILS(zr_labels(at("labels.json"), at("part.json"), NULL, NULL, 0, NULL, &error), ZR_REFUSED, "already");
    CHECK(zr_create_fixed(at("fixed.lfa"), files, 1, 0, &error) == ZR_OK);
    FAILS(zr_create_fixed(at("fixed.lfa"), files, 1, 0, &error), ZR_REFUSED, "already");
    FAILS(zr_create_fixed(at("fixed.cfa"), files, 1, 0, &error), ZR_WRONG_USE, "extension .lfa");
    FAILS(zr_create_fixed(at("g.lfa"), bad, 1, 0, &error), ZR_WRONG_USE, "TYPE=MEMBER=FILE");
    FAILS(zr_create_fixed(at("g.lfa"), none, 1, 0, &error), ZR_WRONG_USE, "files is NULL");
    CHECK(zr_check_modules(at("fixed.lfa"), static_part, 1, &misfits, &text, NULL) == ZR_OK && misfits == 1);
    GIVES(ZR_OK, "not the static part");
    FAILS(zr_check_modules(at("fixed.lfa"), NULL, 1, &misfits, NULL, &error), ZR_WRONG_USE, "modules is NULL");
    FAILS(zr_from_hdf(at("fixed.lfa"), at("hdf.lfa"), 0, &error), ZR_BAD_INPUT, "sysdef.xml");
    put("emu.json", "{\"pfm_metadata_version\": \"2.0\", \"emulations\": []}");
    GIVES(zr_convert_emulation(at("emu.json"), at("emu.xml"), 0, &text, &error), "pfm_metadata_version");
    FAILS(zr_convert_emulation(at("emu.json"), at("emu.txt"), 0, NULL, &error), ZR_WRONG_USE, "extension .xml");
    const zr_rqa place = {.size = sizeof place, .inst_path = "top"};
    CHECK(zr_rqa_create(at("a.rqa"), &place, NULL, 0, 0, &error) == ZR_OK);
    CHECK(zr_rqa_add(at("a.rqa"), files, 1, 0, &error) == ZR_OK);
    FAILS(zr_rqa_add(at("a.rqa"), files, 1, 0, &error), ZR_REFUSED, "'T'");
    GIVES(zr_rqa_index(at("a.rqa"), &text, &error), "\"instPath\": \"top\"");
    GIVES(zr_rqa_extract(at("a.rqa"), "T", at("made"), 0, &text, &error), "made/m.json");
    FAILS(zr_rqa_extract(at("a.rqa"), "T", at("made"), 0, &text, &error), ZR_REFUSED, "already");
    FAILS(zr_rqa_extract(at("a.rqa"), "U", at("made"), 0, NULL, &error), ZR_NOT_FOUND, "no file type");
}

static void takeMessage(void* user, const zr_message* message) {
    if (user && message->size == sizeof *message && strcmp(message->id, "74-60") == 0 &&
        message->severity == 0x10000000 && strstr(message->text, "could not be loaded"))
        ++*(int*)user;
}

static void testEmulation(const char* archive) {
    char installation[512], *end;
    snprintf(installation, sizeof installation, "%s", archive);
    for (int up = 0; up < 3; ++up)
        if ((end = strrchr(installation, '/'))) *end = 0;
    strncat(installation, "/morwen", sizeof installation - strlen(installation) - 1);
    zr_emulation how = {sizeof how, "memss", installation, NULL, 60000};
    const char* packed = at("harrier.cfa");
    CHECK(zr_pack(archive, packed, 0, &error) == ZR_OK);
    GIVES(zr_emulate(packed, at("emu.cfa"), &how, ZR_DRY_RUN, &text, &error), "");
    CHECK(remove(at("emu.cfa")) != 0);
    GIVES(zr_emulate(packed, at("emu.cfa"), &how, ZR_DYNAMIC, &text, &error), "emu/pfm_dynamic/pfm_dynamic.bd\n");
    FAILS(zr_emulate(packed, at("emu.cfa"), &how, 0, &text, &error), ZR_REFUSED, "already exists");
    how.keep = at("kept"), how.installation = at("gone");
    FAILS(zr_emulate(packed, at("emu.cfa"), &how, ZR_OVERWRITE, &text, &error), ZR_BAD_INPUT, "block design");
    CHECK(remove(at("kept/emu_update_cfa.tcl")) == 0);
    how.name = NULL;
    FAILS(zr_emulate(packed, at("emu.cfa"), &how, 0, &text, &error), ZR_WRONG_USE, "name is NULL");
    FAILS(zr_emulate(packed, at("emu.cfa"), NULL, 0, &text, &error), ZR_WRONG_USE, "emulation is NULL");
}

static void testMessages(void) {
    int taken = 0;
    zr_platform* platform = NULL;
    put("s.spfm", software);
    CHECK(zr_set_message_function(takeMessage, &taken, NULL) == ZR_OK);
    CHECK(zr_platform_load(put("p.zdf", descriptor), NULL, &platform, NULL) == ZR_BAD_INPUT && taken == 1);
    CHECK(zr_platform_load(at("s.spfm"), NULL, &platform, NULL) == ZR_OK && taken == 1);
    zr_platform_free(platform);
    CHECK(zr_set_message_function(takeMessage, NULL, NULL) == ZR_OK);
}

int main(int argc, char** argv) {
    if (argc != 2 || !mkdtemp(scratch)) return 2;
    CHECK(strncmp(zr_library_version(), "20", 2) == 0 && zr_interface_version() == ZR_INTERFACE_VERSION);
    testMessages();
    testPack();
    testLoad(argv[1]);
    testErrors();
    testSizes();
    testArchive();
    testSetFile();
    testChecks();
    testSearch();
    testHardware();
    testQuestions();
    testEmulation(argv[1]);
    testDerived();
    CHECK(zr_set_message_function(NULL, NULL, NULL) == ZR_OK);
    char command[64];
    snprintf(command, sizeof command, "rm -r %s", scratch);
    return system(command) != 0 || failures > 0;
}
