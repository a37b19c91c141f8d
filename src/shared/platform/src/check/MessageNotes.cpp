#include "check/MessageNotes.h"

namespace check {
namespace {

constexpr MessageNote kNotes[] = {
    {"1-1874", "A temporary directory of the process could not be removed.",
     "Remove it by hand; check whether another process has files open in it.", nullptr},
    {"74-1", "A directory that was to be searched for hardware archives does not exist.", "Correct the search path.",
     nullptr},
    {"74-3", "A descriptor in a repository is not valid, so the platform is left out.",
     "Run \"zr-platform validate\": it reports every error with its location.", "missing-attribute"},
    {"74-4", "The software file of a platform in a repository is not valid, so the platform is left out.",
     "Run \"zr-platform validate\": it reports every error with its location.", "missing-element"},
    {"74-5", "A directory, or a part of it, could not be searched for platforms.",
     "Check the permissions; \"zr-platform list --repo DIR\" shows what could not be read, and why.", nullptr},
    {"74-9", "A descriptor is not valid, so the platform cannot be loaded.",
     "Run \"zr-platform validate\": it reports every error with its location.", "missing-attribute"},
    {"74-10", "A file could not be written; its previous content is unchanged.",
     "Check that the directory exists and is writable, and that the disk is not full.", nullptr},
    {"74-12", "An hpfm file is missing or not valid.",
     "Run \"zr-platform validate\": it reports every error in the file.", "bad-value"},
    {"74-14", "A platform in a repository names a hardware archive that does not exist, so it is left out.",
     "Check the paths in the descriptor; they are relative to it.", "missing-file"},
    {"74-15",
     "An hpfm file could not be written, because its record is incomplete or contains text that XML cannot express.",
     "The text names the element.", nullptr},
    {"74-17",
     "Two archives hold hardware platforms with the same vendor, board, name and version; the first one is used.",
     "Remove one of the archives, or give the platforms different versions.", nullptr},
    {"74-23", "An archive holds the same hardware platform as an earlier one and is ignored.",
     "Remove one of the archives, or give the platforms different versions.", nullptr},
    {"74-31", "The hpfm member of an archive is not valid. The platform loads without it.",
     "Run \"zr-platform validate ARCHIVE\": it reports every error in the member.", "out-of-range"},
    {"74-34", "A member that the metadata lists cannot be opened, and the reader needs it.",
     "Add the member to the archive, or remove the file from the list.", "missing-emulation-member"},
    {"74-46", "A hardware definition could not be copied to the directory in which its archive is made.",
     "Check the permissions of the temporary directory, and that the disk is not full.", nullptr},
    {"74-47", "The metadata of an archive for a hardware definition could not be written.",
     "Check the permissions of the temporary directory, and that the disk is not full.", nullptr},
    {"74-49",
     "The list of support exceptions is missing, empty, not in packed form, or not JSON. Platforms are judged "
     "without it.",
     "If there should be one, make it with \"zr-platform exceptions pack\".", nullptr},
    {"74-50",
     "The list of support exceptions is JSON, but has another key than black_list and white_list at the top, or an "
     "entry "
     "without products. What stands before that place has been compared; the rest is ignored.",
     "Run \"zr-platform exceptions print\", correct the text, and pack it again.", nullptr},
    {"74-51", "A software file is not valid, so its platform cannot be loaded.",
     "Run \"zr-platform validate\": it reports every error with its location.", "missing-element"},
    {"74-52", "The XML metadata of an archive has a newer schema than this library reads.",
     "Use a newer library. Platforms in the state pre_synth are read whatever their schema.", "newer-schema"},
    {"74-55", "A platform in a repository names a hardware archive with another extension than .cfa or .lfa.",
     "Rename the archive, and correct the descriptor.", nullptr},
    {"74-60", "A platform could not be loaded; an earlier message gives the reason.",
     "Look for the preceding message, or run \"zr-platform validate\" on the file.", "missing-file"},
    {"74-62", "The XML metadata of an archive is missing or not valid.",
     "Run \"zr-platform validate ARCHIVE\": it reports every error with its location.", "no-metadata"},
    {"74-63", "Reading the metadata failed with an unknown exception.",
     "Run \"zr-platform validate\" on the archive; if it finds nothing, the fault is in the library.", nullptr},
    {"74-64",
     "The JSON metadata of an archive cannot be read: it is not JSON, lacks a key, or has a value that the "
     "platform refuses.",
     "Run \"zr-platform validate ARCHIVE\": it reports every error with its location.", "refused-value"},
    {"74-65",
     "The XML metadata of an archive is valid, but a value is refused by the platform, or an emulation member "
     "cannot be read.",
     "Run \"zr-platform validate ARCHIVE\": it reports the value and its location.", "missing-emulation-member"},
    {"74-66", "The requested hardware archive does not exist.",
     "Check the path; a descriptor's paths are relative to the descriptor.", "missing-file"},
    {"74-67", "A metadata member of an archive could not be opened.",
     "Run \"zr-platform verify ARCHIVE\": it reports whether its bytes are intact.", "damaged-member"},
    {"74-78", "States the version of the tool for which a platform is checked.", "Nothing.", nullptr},
    {"74-80", "A cpu_endpoint in semantic labels lacks a key; the keys after it are not read.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "missing-key"},
    {"74-81",
     "A debug_network in semantic labels lacks a key, or has a number that cannot be read; the keys after it are not "
     "read.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "missing-key"},
    {"74-82", "A uuid in semantic labels lacks a key; the keys after it are not read.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "missing-key"},
    {"74-83",
     "A pcie_endpoint in semantic labels lacks a key, or has a number that cannot be read; the keys after it are not "
     "read.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "missing-key"},
    {"74-84",
     "An endpoint in semantic labels lacks a key, or has a number that cannot be read; the keys after it are not "
     "read.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "missing-key"},
    {"74-85",
     "A pcie_bar in semantic labels lacks a key, or has a number that cannot be read; the keys after it are not "
     "read.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "missing-key"},
    {"74-86", "A file of semantic labels cannot be read, or is not JSON.",
     "Run \"zr-platform validate\" on the labels: it reports every error with its location.", "not-json"},
    {"74-87", "A file of semantic labels does not exist.", "Correct the path.", nullptr},
    {"74-88", "Semantic labels have a key that is not uuid, pcie_bar, pcie_endpoint, cpu_endpoint or debug_network.",
     "Correct the key, or ignore the message: what it names is not used.", nullptr},
    {"74-89", "The file of a metadata archive does not exist.", "Correct the path.", nullptr},
    {"74-260", "An hpfm file could not be repaired because it is not valid; it is unchanged.",
     "Fix what \"zr-platform validate\" reports for the file.", "unknown-attribute"},
    {"74-261", "The banks of a second HBM instance are not counted; only the first instance is used.",
     "Use one instance for all bus interfaces of the platform's HBM.", nullptr},
};

}  // namespace

std::span<const MessageNote> messageNotes() { return kNotes; }

}  // namespace check
