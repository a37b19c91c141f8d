/* Every function of platform/zr_platform.h from plain C: codes, fields, sizes of structures, NULL. What the functions do
 * to archives is tested by the C++ wrapper. */
#define _XOPEN_SOURCE 700
#include <inttypes.h>
#include <platform/zr_platform.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

static int failures = 0;
static char scratch[] = "/tmp/zr_c_XXXXXX";

static void check(int holds, const char* condition, int line) {
    if (holds) return;
    fprintf(stderr, "line %d: %s\n", line, condition);
    ++failures;
}
#define CHECK(condition)     check((condition) ? 1 : 0, #condition, __LINE__)
#define SAME(text, expected) check(strcmp(text, expected) == 0, #text " is " #expected, __LINE__)

/* A path in the scratch directory; one of eight places, used in turn. */
static const char* at(const char* name) {
    static char places[8][256];
    static int next = 0;
    char* place = places[next++ % 8];
    snprintf(place, sizeof places[0], "%s/%s", scratch, name);
    return place;
}

static const char* put(const char* name, const char* text) {
    FILE* file = fopen(at(name), "wb");
    if (!file || fputs(text, file) < 0 || fclose(file) != 0) abort();
    return at(name);
}

static int contains(const zr_text* text, const char* part) { return strstr(zr_text_data(text), part) != NULL; }

/* Whether a failed call reported what it should have; frees the error. */
static int failed(zr_code code, zr_error** error, zr_code expected, const char* part) {
    const int holds = code == expected && zr_error_code(*error) == expected && strstr(zr_error_text(*error), part);
    if (!holds)
        fprintf(stderr, "code %d, error %d: %s: %s\n", (int)code, (int)zr_error_code(*error), zr_error_file(*error),
                zr_error_text(*error));
    zr_error_free(*error);
    *error = NULL;
    return holds;
}

#define FAILS(call, code, part) check(failed(call, &error, code, part), #call, __LINE__)

#define NAMESPACE "xmlns:teq='urn:torvane:teq:platform:1.0'"
#define IDENTITY  "teq:vendor='acme' teq:library='l' teq:name='n' teq:version='1.0'"
static const char metadata[] =
    "{\"vendor\": \"acme\", \"name\": \"card\", \"makersOwn\": \"1\", \"files\": [{\"name\": \"a\", \"type\": "
    "\"DCP\"}]}";
static const char software[] = "<teq:platform " NAMESPACE " " IDENTITY
                               "><teq:description>d</teq:description><teq:systemConfigurations><teq:configuration "
                               "teq:name='c' teq:displayName='C'><teq:description/></teq:configuration>"
                               "</teq:systemConfigurations></teq:platform>";
static const char descriptor[] =
    "<teq:platform " NAMESPACE " " IDENTITY
    "><teq:description>words</teq:description><teq:hardwarePlatforms><teq:hardwarePlatform teq:path='.' "
    "teq:name='x.lfa'/></teq:hardwarePlatforms><teq:softwarePlatforms><teq:softwarePlatform teq:path='.' "
    "teq:name='s.spfm'/></teq:softwarePlatforms></teq:platform>";

static void testPack(void) {
    zr_error* error = NULL;
    mkdir(at("in"), 0755);
    put("in/lfa.json", metadata);
    FAILS(zr_pack(at("in"), at("x.lfa"), 0, &error), ZR_BAD_INPUT, "missing files: a");
    put("in/a", "checkpoint");
    CHECK(zr_pack(at("in"), at("x.lfa"), 0, &error) == ZR_OK && !error);
    FAILS(zr_pack(at("in"), at("x.lfa"), 0, &error), ZR_REFUSED, "already");
    CHECK(zr_pack(at("in"), at("x.lfa"), ZR_OVERWRITE, NULL) == ZR_OK);
    FAILS(zr_pack(at("gone"), at("y.lfa"), 0, &error), ZR_NOT_FOUND, "no such folder");
    FAILS(zr_pack(at("in"), at("no/y.lfa"), 0, &error), ZR_ENVIRONMENT, "no such directory");
    FAILS(zr_pack(at("in"), at("y.lfa"), ZR_DRY_RUN, &error), ZR_WRONG_USE, "0x10");
    FAILS(zr_pack(NULL, at("y.lfa"), 0, &error), ZR_WRONG_USE, "folder is NULL");
    put("in/lfa.json", "{\n\"a\": ,\n}");
    CHECK(zr_pack(at("in"), at("bad.lfa"), 0, NULL) == ZR_BAD_INPUT);
    CHECK(zr_pack(at("in"), at("bad.lfa"), ZR_MAY_LACK, NULL) == ZR_OK);
}

static void testLoad(void) {
    zr_platform* platform = NULL;
    zr_error* error = NULL;
    put("s.spfm", software);
    CHECK(zr_platform_load(put("p.zdf", descriptor), NULL, &platform, &error) == ZR_OK && !error);
    SAME(zr_platform_get(platform, ZR_FIELD_NAME), "n");
    SAME(zr_platform_get(platform, ZR_FIELD_VENDOR), "acme");
    SAME(zr_platform_get(platform, ZR_FIELD_LIBRARY), "l");
    SAME(zr_platform_get(platform, ZR_FIELD_VERSION), "1.0");
    SAME(zr_platform_get(platform, ZR_FIELD_DESCRIPTION), "words");
    SAME(zr_platform_get(platform, ZR_FIELD_FILE), at("p.zdf"));
    CHECK(strstr(zr_platform_get(platform, ZR_FIELD_SOFTWARE_FILE), "s.spfm"));
    CHECK(zr_platform_get(platform, 1000) == NULL && zr_platform_get(NULL, ZR_FIELD_NAME) == NULL);
    zr_text* text = NULL;
    CHECK(zr_platform_document(platform, &text, &error) == ZR_OK && contains(text, "\"vendor\": \"acme\""));
    CHECK(zr_text_size(text) == strlen(zr_text_data(text)) && zr_text_data(text)[zr_text_size(text) - 1] == '\n');
    zr_text_free(text);
    CHECK(zr_platform_short_document(platform, &text, NULL) == ZR_OK && contains(text, "\"words\""));
    CHECK(!contains(text, "vendor"));
    zr_text_free(text);
    FAILS(zr_platform_xml(platform, &text, &error), ZR_BAD_INPUT, "<Devices>");
    CHECK(!text);
    FAILS(zr_platform_document(NULL, &text, &error), ZR_WRONG_USE, "platform is NULL");
    FAILS(zr_platform_document(platform, NULL, &error), ZR_WRONG_USE, "result is NULL");
    zr_platform_free(platform);
    CHECK(zr_platform_load(at("s.spfm"), NULL, &platform, NULL) == ZR_OK);
    FAILS(zr_platform_xml(platform, &text, &error), ZR_BAD_INPUT, "no hardware platform");
    zr_platform_free(platform);
}

static void testXml(const char* sample) {
    zr_platform* platform = NULL;
    zr_text* text = NULL;
    CHECK(zr_pack(sample, at("sample.cfa"), 0, NULL) == ZR_OK);
    CHECK(zr_platform_load(at("sample.cfa"), NULL, &platform, NULL) == ZR_OK);
    CHECK(zr_platform_xml(platform, &text, NULL) == ZR_OK && contains(text, "BoardId=\"harrier\""));
    zr_text_free(text);
    zr_platform_free(platform);
}

/* What is wrong, where, and what it is called. */
static void testErrors(void) {
    zr_platform* platform = (zr_platform*)&platform;
    zr_error* error = NULL;
    FAILS(zr_platform_load(at("gone.zdf"), NULL, &platform, &error), ZR_NOT_FOUND, "no such file");
    FAILS(zr_platform_load(at("gone.lfa"), NULL, &platform, &error), ZR_NOT_FOUND, "no such file");
    FAILS(zr_platform_load(put("text.lfa", "no archive"), NULL, &platform, &error), ZR_BAD_INPUT, "");
    put("root.zdf", "<?xml version='1.0'?>\n\n<platform/>\n");
    CHECK(zr_platform_load(at("root.zdf"), NULL, &platform, &error) == ZR_BAD_INPUT && platform == NULL);
    SAME(zr_error_file(error), at("root.zdf"));
    SAME(zr_error_member(error), "");
    SAME(zr_error_id(error), "74-9");
    CHECK(zr_error_line(error) == 3 && zr_error_column(error) == 1);
    zr_error_free(error);
    CHECK(zr_platform_load(at("bad.lfa"), NULL, &platform, &error) == ZR_BAD_INPUT);
    SAME(zr_error_member(error), "lfa.json");
    SAME(zr_error_id(error), "74-64");
    CHECK(zr_error_line(error) == 2 && zr_error_column(error) == 6);
    CHECK(strstr(zr_error_describe(error), "!lfa.json:2:6: ") && strstr(zr_error_describe(error), " [74-64]"));
    zr_error_free(error);
    CHECK(zr_error_code(NULL) == ZR_OK && zr_error_line(NULL) == 0 && zr_error_column(NULL) == 0);
    SAME(zr_error_text(NULL), "");
    SAME(zr_error_file(NULL), "");
    SAME(zr_error_member(NULL), "");
    SAME(zr_error_id(NULL), "");
    SAME(zr_error_describe(NULL), "");
    zr_error_free(NULL);
    zr_text_free(NULL);
    zr_platform_free(NULL);
    zr_archive_free(NULL);
    zr_verification_free(NULL);
    zr_findings_free(NULL);
    SAME(zr_text_data(NULL), "");
    CHECK(zr_text_size(NULL) == 0 && zr_archive_count(NULL) == 0 && zr_findings_count(NULL) == 0);
    CHECK(zr_verification_count(NULL) == 0 && zr_verification_digest(NULL) == ZR_DIGEST_NONE);
}

/* Programs that know fewer fields than the library, or more. */
static void testSizes(void) {
    struct {
        zr_options known;
        uint64_t later;
    } newer;
    const struct {
        size_t size;
        uint32_t metadata, reserved;
        uint64_t maxUnpacked, later;
        zr_code expected;
    } cases[] = {
        {sizeof newer.known, ZR_METADATA_DEFAULT, 0, 0, 0, ZR_OK},
        {sizeof newer.known, ZR_METADATA_PRIMARY_JSON, 0, 1 << 20, 0, ZR_OK},
        {sizeof newer.known, ZR_METADATA_XML, 0, 0, 0, ZR_BAD_INPUT}, /* the archive has none */
        {sizeof newer.known, ZR_METADATA_DEFAULT, 0, 10, 0, ZR_BAD_INPUT},
        {offsetof(zr_options, max_unpacked), ZR_METADATA_DEFAULT, 0, 10, 0, ZR_OK}, /* not in an older one */
        {offsetof(zr_options, metadata), 1000, 0, 10, 0, ZR_OK},
        {sizeof newer, ZR_METADATA_DEFAULT, 0, 0, 0, ZR_OK},
        {sizeof newer, ZR_METADATA_DEFAULT, 0, 0, 1, ZR_WRONG_USE},
        {0, ZR_METADATA_DEFAULT, 0, 0, 0, ZR_WRONG_USE},
        {12, ZR_METADATA_DEFAULT, 0, 0, 0, ZR_WRONG_USE},
        {(size_t)-8, ZR_METADATA_DEFAULT, 0, 0, 0, ZR_WRONG_USE},
        {sizeof newer.known, 3, 0, 0, 0, ZR_WRONG_USE},
        {sizeof newer.known, ZR_METADATA_DEFAULT, 1, 0, 0, ZR_WRONG_USE},
        {sizeof newer.known, ZR_METADATA_DEFAULT, 0, UINT64_MAX, 0, ZR_WRONG_USE},
    };
    for (size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
        zr_platform* platform = NULL;
        memset(&newer, 0, sizeof newer);
        newer.known.size = cases[i].size;
        newer.known.metadata = cases[i].metadata;
        newer.known.reserved = cases[i].reserved;
        newer.known.max_unpacked = cases[i].maxUnpacked;
        newer.later = cases[i].later;
        if (zr_platform_load(at("x.lfa"), &newer.known, &platform, NULL) != cases[i].expected) {
            fprintf(stderr, "case %zu\n", i);
            CHECK(!"the size of options");
        }
        zr_platform_free(platform);
    }
}

static void testArchive(void) {
    zr_archive* archive = NULL;
    zr_error* error = NULL;
    FAILS(zr_archive_open(at("gone.lfa"), NULL, &archive, &error), ZR_NOT_FOUND, "no such file");
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
    SAME(member->name, "lfa.json");
    FAILS(zr_archive_member(archive, 2, member, &error), ZR_WRONG_USE, "2");
    member->size = 0;
    FAILS(zr_archive_member(archive, 0, member, &error), ZR_WRONG_USE, "size");

    uint64_t index = 77;
    FAILS(zr_archive_find(archive, "A", &index, &error), ZR_NOT_FOUND, "'A'");
    CHECK(index == 77 && zr_archive_find(archive, "lfa.json", &index, &error) == ZR_OK && index == 1);
    zr_text* text = NULL;
    CHECK(zr_archive_read(archive, index, 0, &text, &error) == ZR_OK);
    SAME(zr_text_data(text), metadata);
    zr_text_free(text);
    CHECK(zr_archive_extract(archive, 0, at("out"), 0, &error) == ZR_OK);
    CHECK(zr_archive_extract(archive, 1, at("out"), ZR_OVERWRITE, &error) == ZR_OK);
    FAILS(zr_archive_extract(archive, 0, at("no/out"), 0, &error), ZR_ENVIRONMENT, "no such directory");
    FAILS(zr_archive_extract(archive, 0, at("y"), ZR_MAY_LACK, &error), ZR_WRONG_USE, "flags");
    FAILS(zr_archive_extract_all(archive, at("all"), 0, &error), ZR_NOT_FOUND, "no such folder");
    mkdir(at("all"), 0755);
    CHECK(zr_archive_extract_all(archive, at("all"), 0, &error) == ZR_OK);
    FAILS(zr_archive_extract_all(archive, at("all"), 0, &error), ZR_ENVIRONMENT, "exists");
    CHECK(zr_archive_extract_all(archive, at("all"), ZR_OVERWRITE, &error) == ZR_OK);

    zr_verification* verification = NULL;
    CHECK(zr_archive_verify(archive, &verification, &error) == ZR_OK);
    CHECK(zr_verification_digest(verification) == ZR_DIGEST_VALID && zr_verification_count(verification) == 0);
    zr_difference difference;
    memset(&difference, 0, sizeof difference);
    difference.size = sizeof difference;
    FAILS(zr_verification_difference(verification, 0, &difference, &error), ZR_WRONG_USE, "0");
    zr_verification_free(verification);
    FAILS(zr_archive_verify(NULL, &verification, &error), ZR_WRONG_USE, "archive is NULL");
    zr_archive_free(archive);

    zr_options few;
    memset(&few, 0, sizeof few);
    few.size = sizeof few;
    few.max_unpacked = 50;
    CHECK(zr_archive_open(at("x.lfa"), &few, &archive, &error) == ZR_OK);
    CHECK(zr_archive_extract(archive, 0, at("small"), 0, &error) == ZR_OK);
    CHECK(zr_archive_extract(archive, 1, at("large"), 0, NULL) == ZR_BAD_INPUT);
    CHECK(zr_archive_read(archive, 1, 0, &text, NULL) == ZR_BAD_INPUT);
    zr_archive_free(archive);
}

static void testSetFile(void) {
    const char *archive = strdup(at("x.lfa")), *source = strdup(put("pre.tcl", "puts hello"));
    const uint32_t flags = ZR_LOSE_KEYS | ZR_STRIP_PATHS;
    zr_text* losses = NULL;
    zr_error* error = NULL;
    zr_archive* opened = NULL;
    uint64_t index = 0;
    FAILS(zr_set_file(archive, "T", "m", source, 0, NULL, &losses, &error), ZR_REFUSED, "lost or changed");
    CHECK(contains(losses, "makersOwn: lost\n"));
    zr_text_free(losses);
    CHECK(zr_set_file(archive, "T", "m", source, ZR_DRY_RUN | ZR_LOSE_KEYS, NULL, NULL, NULL) == ZR_OK);
    CHECK(zr_archive_open(archive, NULL, &opened, NULL) == ZR_OK && zr_archive_count(opened) == 2);
    CHECK(zr_set_file(archive, "T", "m", source, flags, NULL, NULL, &error) == ZR_OK);
    CHECK(zr_archive_count(opened) == 2); /* it is the file that was opened */
    CHECK(zr_archive_find(opened, "m", &index, NULL) == ZR_NOT_FOUND);
    zr_archive_free(opened);
    CHECK(zr_set_file(archive, "T", "m", source, ZR_STRIP_PATHS, NULL, &losses, NULL) == ZR_OK);
    CHECK(zr_text_size(losses) == 0);
    zr_text_free(losses);
    FAILS(zr_set_file(archive, "T", "../out", source, flags, NULL, &losses, &error), ZR_ENVIRONMENT, "");
    FAILS(zr_set_file(archive, "T", "m", at("gone"), flags, NULL, &losses, &error), ZR_ENVIRONMENT, "");
    FAILS(zr_set_file(archive, "T", "m", archive, flags, NULL, &losses, &error), ZR_ENVIRONMENT, "");
    CHECK(losses == NULL);
    FAILS(zr_set_file(at("p.zdf"), "T", "m", source, flags, NULL, NULL, &error), ZR_BAD_INPUT, "hardware archive");
    FAILS(zr_set_file(archive, NULL, "m", source, flags, NULL, NULL, &error), ZR_WRONG_USE, "type is NULL");
    CHECK(zr_stamp_digest(archive, &error) == ZR_OK && !error);
    FAILS(zr_stamp_digest(at("gone.lfa"), &error), ZR_NOT_FOUND, "no such file");
    FAILS(zr_stamp_digest(source, &error), ZR_BAD_INPUT, "");
    free((void*)archive);
    free((void*)source);
}

static void testChecks(void) {
    zr_findings* findings = NULL;
    zr_error* error = NULL;
    zr_finding finding;
    memset(&finding, 0, sizeof finding);
    finding.size = sizeof finding;
    CHECK(zr_validate(at("root.zdf"), NULL, &findings, &error) == ZR_OK && zr_findings_count(findings) == 1);
    CHECK(zr_findings_get(findings, 0, &finding, &error) == ZR_OK);
    SAME(finding.file, at("root.zdf"));
    SAME(finding.member, "");
    SAME(finding.name, "wrong-root");
    CHECK(finding.line == 3 && finding.column == 1 && finding.severity == ZR_ERROR && *finding.text != '\0');
    FAILS(zr_findings_get(findings, 1, &finding, &error), ZR_WRONG_USE, "1");
    zr_findings_free(findings);
    FAILS(zr_validate(NULL, NULL, &findings, &error), ZR_WRONG_USE, "file is NULL");
    CHECK(!findings);
    zr_text* text = NULL;
    CHECK(zr_explain("74-60", &text, &error) == ZR_OK && contains(text, "@74-60@%s (critical)"));
    zr_text_free(text);
    FAILS(zr_explain("no-such-name", &text, &error), ZR_NOT_FOUND, "'no-such-name'");
    CHECK(!text && zr_schema("zdf", &text, &error) == ZR_OK && contains(text, "urn:torvane:teq:platform:1.0"));
    zr_text_free(text);
    FAILS(zr_schema("x", &text, &error), ZR_NOT_FOUND, "zdf, spfm, hpfm, cfa, emu");
}

static void takeMessage(void* user, const zr_message* message) {
    if (message->size == sizeof *message && strcmp(message->id, "74-60") == 0 && message->severity == 0x10000000 &&
        strstr(message->text, "could not be loaded"))
        ++*(int*)user;
}

static void ignoreMessage(void* user, const zr_message* message) {
    (void)user;
    (void)message;
}

static void testMessages(void) {
    int taken = 0;
    zr_platform* platform = NULL;
    CHECK(zr_set_message_function(takeMessage, &taken, NULL) == ZR_OK);
    CHECK(rename(at("x.lfa"), at("away")) == 0);
    CHECK(zr_platform_load(at("p.zdf"), NULL, &platform, NULL) == ZR_BAD_INPUT && taken == 1);
    CHECK(rename(at("away"), at("x.lfa")) == 0);
    CHECK(zr_platform_load(at("p.zdf"), NULL, &platform, NULL) == ZR_OK && taken == 1);
    zr_platform_free(platform);
    CHECK(zr_set_message_function(ignoreMessage, NULL, NULL) == ZR_OK);
}

int main(int argc, char** argv) {
    if (argc != 2) return fprintf(stderr, "usage: %s FOLDER\n", argv[0]), 2;
    if (!mkdtemp(scratch)) return 2;
    CHECK(strncmp(zr_library_version(), "20", 2) == 0);
    CHECK(zr_interface_version() == ZR_INTERFACE_VERSION);
    CHECK(zr_set_message_function(ignoreMessage, NULL, NULL) == ZR_OK);
    testPack();
    testLoad();
    testXml(argv[1]);
    testErrors();
    testSizes();
    testArchive();
    testMessages();
    testSetFile();
    testChecks();
    CHECK(zr_set_message_function(NULL, NULL, NULL) == ZR_OK);
    char command[64];
    snprintf(command, sizeof command, "rm -r %s", scratch);
    if (system(command) != 0) return 2;
    if (failures > 0) fprintf(stderr, "%d failures\n", failures);
    return failures > 0 ? 1 : 0;
}
