/* Prints a platform's clocks, and the banks that a kernel can use. cc describe.c $(pkg-config --cflags --libs zr_platform) */
#include <platform/zr_platform.h>
#include <stdio.h>

int main(int argc, char** argv) {
    zr_platform* platform = NULL;
    zr_hardware* hardware = NULL;
    zr_error* error = NULL;
    if (argc != 2) return fprintf(stderr, "usage: describe FILE\n"), 2;
    if (zr_platform_load(argv[1], NULL, &platform, &error) != ZR_OK ||
        zr_platform_hardware(platform, &hardware, &error) != ZR_OK)
        return fprintf(stderr, "%s\n", zr_error_describe(error)), 1;
    printf("%s by %s\n", zr_platform_get(platform, ZR_FIELD_NAME), zr_platform_get(platform, ZR_FIELD_VENDOR));
    for (uint64_t i = 0; i < zr_hardware_clock_count(hardware); ++i) {
        zr_clock clock = {.size = sizeof clock};
        if (zr_hardware_clock(hardware, i, &clock, NULL) == ZR_OK)
            printf("clock %s: %s MHz%s\n", clock.name, clock.frequency, clock.is_default ? ", default" : "");
    }
    for (uint64_t i = 0; i < zr_hardware_bank_count(hardware); ++i) {
        zr_bank bank = {.size = sizeof bank};
        if (zr_hardware_bank(hardware, i, &bank, NULL) == ZR_OK)
            printf("bank %s[%u] in %s\n", bank.type, bank.number, bank.slr);
    }
    zr_hardware_free(hardware);
    zr_platform_free(platform);
    return 0;
}
