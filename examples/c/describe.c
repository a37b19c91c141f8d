/* Prints a platform's document. cc describe.c $(pkg-config --cflags --libs zr_platform) */
#include <platform/HTEQPlatformCAPI.h>
#include <stdio.h>

int main(int argc, char** argv) {
    char* document = argc > 1 ? hteq_get_platform_json(argv[1]) : NULL;
    if (!document) return 1;
    fputs(document, stdout);
    hteq_free_json_string(document);
    return 0;
}
