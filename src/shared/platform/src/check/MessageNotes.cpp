#include "check/MessageNotes.h"

namespace check {
namespace {

constexpr MessageNote kNotes[] = {
    {"1-1874", "A temporary directory of the process could not be removed.",
     "Remove it by hand; look whether another process holds files in it.", nullptr},
    {"74-9", "A descriptor is not valid, so there is no platform.",
     "\"zr-platform validate\" tells every fault with its place.", "missing-attribute"},
    {"74-10", "A file could not be written; what was there before is there still.",
     "Check that the directory exists, permits writing, and has room.", nullptr},
    {"74-12", "An hpfm file is missing or not valid.", "\"zr-platform validate\" tells every fault of an hpfm file.",
     "bad-value"},
    {"74-15", "An hpfm file could not be written, because its record lacks something or holds what XML cannot.",
     "The text names the element.", nullptr},
    {"74-31", "The hpfm member of an archive is not valid. The platform loads without it.",
     "\"zr-platform validate ARCHIVE\" tells every fault of the member.", "out-of-range"},
    {"74-34", "A member that metadata lists cannot be opened, and the reader needs it.",
     "Add the member to the archive, or take the file out of the list.", "missing-emulation-member"},
    {"74-51", "A software file is not valid, so its platform cannot be loaded.",
     "\"zr-platform validate\" tells every fault with its place.", "missing-element"},
    {"74-52", "The XML metadata of an archive has a newer schema than this library reads.",
     "Use a newer library. Platforms in the state pre_synth are read whatever their schema.", "newer-schema"},
    {"74-60", "A platform could not be loaded; an earlier message tells more.",
     "Look for the message before, or run \"zr-platform validate\" on the file.", "missing-file"},
    {"74-62", "The XML metadata of an archive is missing or not valid.",
     "\"zr-platform validate ARCHIVE\" tells every fault with its place.", "no-metadata"},
    {"74-63", "Reading the metadata failed for a reason that has no words.",
     "Run \"zr-platform validate\" on the archive; if it finds nothing, the fault is the library's.", nullptr},
    {"74-64",
     "The JSON metadata of an archive cannot be read: it is no JSON, lacks a key, or has a value that the "
     "platform refuses.",
     "\"zr-platform validate ARCHIVE\" tells every fault with its place.", "refused-value"},
    {"74-65",
     "The XML metadata of an archive is valid, but a value is refused by the platform, or an emulation member "
     "cannot be read.",
     "\"zr-platform validate ARCHIVE\" tells the value and its place.", "missing-emulation-member"},
    {"74-66", "The hardware archive that was asked for does not exist.",
     "Check the path; a descriptor's paths are relative to the descriptor.", "missing-file"},
    {"74-67", "A metadata member of an archive could not be opened.",
     "\"zr-platform verify ARCHIVE\" tells whether its bytes are sound.", "damaged-member"},
    {"74-260", "An hpfm file was to be repaired and is not valid; it was left as it is.",
     "Mend what \"zr-platform validate\" tells of the file.", "unknown-attribute"},
    {"74-261", "Banks of a second HBM instance are not counted: only the first one is.",
     "Give the bus interfaces of the platform's HBM one instance.", nullptr},
};

}  // namespace

std::span<const MessageNote> messageNotes() { return kNotes; }

}  // namespace check
