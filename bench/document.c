/* A whole process: prints the document of a platform, or the short one if "short" follows the file. */
#include <platform/HTEQPlatformCAPI.h>
#include <stdio.h>
#include <string.h>

int main(int argc, char** argv) {
    char* text = argc > 2 ? hteq_get_short_platform_json(argv[1]) : hteq_get_platform_json(argv[1]);
    if (!text) return 1;
    fwrite(text, 1, strlen(text), stdout);
    hteq_free_json_string(text);
    return 0;
}
