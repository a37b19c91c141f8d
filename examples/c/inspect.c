/* Looks at a platform and its archive: prints what they are, and what is wrong with them.
 * cc inspect.c $(pkg-config --cflags --libs zr_platform) */
#include <platform/zr_platform.h>
#include <stdio.h>

static int fail(zr_error* error) {
    fprintf(stderr, "%s\n", zr_error_describe(error));
    zr_error_free(error);
    return 1;
}

static int inspectArchive(const char* file) {
    zr_archive* archive = NULL;
    zr_verification* verification = NULL;
    zr_error* error = NULL;
    if (zr_archive_open(file, NULL, &archive, &error) != ZR_OK) return fail(error);
    for (uint64_t i = 0; i < zr_archive_count(archive); ++i) {
        zr_member member = {.size = sizeof member};
        if (zr_archive_member(archive, i, &member, NULL) == ZR_OK)
            printf("    %8lu  %s\n", (unsigned long)member.bytes, member.name);
    }
    const zr_code code = zr_archive_verify(archive, &verification, &error);
    if (code == ZR_OK)
        printf("    %lu of %lu members differ\n", (unsigned long)zr_verification_count(verification),
               (unsigned long)zr_archive_count(archive));
    zr_verification_free(verification);
    zr_archive_free(archive);
    return code == ZR_OK ? 0 : fail(error);
}

static void ignore(void* user, const zr_message* message) { (void)user, (void)message; }

int main(int argc, char** argv) {
    zr_platform* platform = NULL;
    zr_findings* findings = NULL;
    zr_error* error = NULL;
    if (argc != 2) return fprintf(stderr, "usage: inspect FILE\n"), 2;
    zr_set_message_function(ignore, NULL, NULL); /* what matters is in the errors */
    if (zr_platform_load(argv[1], NULL, &platform, &error) != ZR_OK) return fail(error);
    printf("%s %s by %s\n", zr_platform_get(platform, ZR_FIELD_NAME), zr_platform_get(platform, ZR_FIELD_VERSION),
           zr_platform_get(platform, ZR_FIELD_VENDOR));
    const char* hardware = zr_platform_get(platform, ZR_FIELD_HARDWARE_FILE);
    int exit = *hardware ? inspectArchive(hardware) : 0;
    zr_platform_free(platform);

    if (zr_validate(argv[1], NULL, &findings, &error) != ZR_OK) return fail(error);
    for (uint64_t i = 0; i < zr_findings_count(findings); ++i) {
        zr_finding finding = {.size = sizeof finding};
        if (zr_findings_get(findings, i, &finding, NULL) == ZR_OK)
            printf("%s %s:%lu: %s [%s]\n", finding.file, finding.member, (unsigned long)finding.line, finding.text,
                   finding.name);
    }
    zr_findings_free(findings);
    return exit;
}
