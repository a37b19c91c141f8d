// The least that a process from descriptor to document can do: parse the descriptor by expat and throw it away, find
// the member in the archive's directory, inflate it, write bytes that are ready. It checks nothing.
#include <expat.h>
#include <fcntl.h>
#include <libdeflate.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

unsigned number(const char* at, int bytes) {
    unsigned value = 0;
    for (int i = bytes; i-- > 0;) value = value << 8 | static_cast<unsigned char>(at[i]);
    return value;
}

std::string readAt(int file, std::size_t size, std::size_t offset) {
    std::string bytes(size, '\0');
    if (pread(file, bytes.data(), size, static_cast<off_t>(offset)) != static_cast<ssize_t>(size)) std::abort();
    return bytes;
}

std::string member(const char* archive, std::string_view name) {
    const int file = open(archive, O_RDONLY | O_CLOEXEC);
    struct stat status;
    if (fstat(file, &status) != 0) std::abort();
    const std::string end = readAt(file, 22, static_cast<std::size_t>(status.st_size) - 22);
    const std::string directory = readAt(file, number(&end[12], 4), number(&end[16], 4));
    for (const char* at = directory.data(); at < directory.data() + directory.size();) {
        const unsigned length = number(at + 28, 2);
        if (std::string_view(at + 46, length) == name) {
            const unsigned offset = number(at + 42, 4), packedSize = number(at + 20, 4);
            const std::string packed = readAt(file, 30 + length + packedSize, offset);
            std::string text(number(at + 24, 4), '\0');
            libdeflate_decompressor* const d = libdeflate_alloc_decompressor();
            libdeflate_deflate_decompress(d, packed.data() + 30 + length, packedSize, text.data(), text.size(),
                                          nullptr);
            return text;
        }
        at += 46 + length + number(at + 30, 2) + number(at + 32, 2);
    }
    std::abort();
}

}  // namespace

int main(int, char** arguments) {
    char text[65536];
    const int file = open(arguments[1], O_RDONLY | O_CLOEXEC);
    const ssize_t size = read(file, text, sizeof text);
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    if (XML_Parse(parser, text, static_cast<int>(size), 1) != XML_STATUS_OK) std::abort();
    const std::string document = member(arguments[2], "lfa.json");
    for (std::size_t done = 0; done < document.size();)
        done += static_cast<std::size_t>(write(1, document.data() + done, document.size() - done));
    _exit(0);
}
