/* Prints a platform's document. cc describe.c $(pkg-config --cflags --libs zr_platform) */
#include <platform/HTEQPlatformCAPI.h>
#include <stdio.h>

int main(int argc, char** argv) {
    char* document = argc == 2 ? hteq_get_platform_json(argv[1]) : NULL;
    if (!document) return fprintf(stderr, "%s: no document\n", argc == 2 ? argv[1] : "usage: describe FILE"), 1;
    fputs(document, stdout);
    hteq_free_json_string(document);
    return 0;
}
