#include "Verbs.h"

namespace {

constexpr const char* kModes = "default|primary|xml";
constexpr Option kMetadata = {"metadata", kModes,
                              "where an archive's metadata is read: alternative or primary JSON "
                              "member (default), the primary one only, the XML member"};
constexpr Option kJson = {"json", nullptr, "print records as one JSON document"};
constexpr Option kNdjson = {"ndjson", nullptr, "print one JSON record on each line"};
constexpr Option kForce = {"force", nullptr, "overwrite what is there"};

const std::vector<Verb> kVerbs = {
    {"json",
     {{"FILE", "a descriptor (.zdf), a hardware archive (.cfa, .lfa) or a software file (.spfm)"}},
     {{"short", nullptr, "only unique name, file and description"}, kMetadata},
     "Print a platform's JSON document",
     "The bytes are those of the C functions hteq_get_platform_json and hteq_get_short_platform_json.",
     "u77/u77_gen3x16_base_1.zdf --short",
     runJson},
    {"show",
     {{"FILE", "a descriptor (.zdf), a hardware archive (.cfa, .lfa) or a software file (.spfm)"}},
     {kMetadata},
     "Describe a platform for people",
     "Identity and type, device and resources, memories and banks, clocks, interfaces that a linker can attach to, "
     "tile partitions, processor groups and boot images, and the files in the archive. Where a file is missing, it "
     "says what can be read and why not the rest.",
     "u77/u77_gen3x16_base_1.zdf",
     runShow},
    {"pack",
     {{"DIR", "a folder with a platform's members"}, {"ARCHIVE", "the .cfa or .lfa to write"}},
     {{"force", nullptr, "overwrite ARCHIVE, and pack although listed files are missing"}},
     "Make an archive of a folder",
     "The same folder gives the same bytes each time and on each machine. A folder in it whose name ends in .lfa, "
     ".cfa, "
     ".zip or .tilprj becomes an archive member of that name. A file that the metadata lists and the folder lacks is "
     "named, and nothing is written.",
     "src/u77.lfa packed.lfa --force",
     runPack},
    {"members",
     {{"ARCHIVE", "any zip archive"}},
     {kJson, kNdjson},
     "List the members of an archive",
     "Names, sizes in bytes and packed sizes, in the order of their names.",
     "u77/hw/u77.lfa",
     runMembers},
    {"extract",
     {{"ARCHIVE", "a .cfa or .lfa"},
      {"MEMBER", "a member's name, a file type such as HPFM, or OUTER!INNER for a member of a nested archive"},
      {"DEST", "the file to write, - for standard output"}},
     {{"type", nullptr, "MEMBER is a file type, although a member has that name"},
      {"repair-hpfm", nullptr, "mark all HBM banks of an hpfm as default when only some of them are"},
      kForce},
     "Copy one file out of an archive",
     "A member of exactly that name is taken first, then the file that the metadata lists under that type.",
     "u77/hw/u77.lfa HPFM - --repair-hpfm",
     runExtract},
    {"set-file",
     {{"ARCHIVE", "a .cfa or .lfa with JSON metadata"},
      {"TYPE", "the file's type; the metadata then lists this file for it and no other"},
      {"MEMBER", "the member to add or replace"},
      {"SOURCE", "the file to put there"}},
     {{"dry-run", nullptr, "say what would change, and write nothing"},
      {"strip-paths", nullptr, "keep the key platformFile, a path of the maker's machine, out of the metadata"},
      {"force", nullptr, "write although keys of the metadata are lost or changed"}},
     "Put a file into an archive and list it in the metadata",
     "One rewrite for member, metadata and digest: the archive is the old one or the new one, whatever happens. The "
     "metadata is written anew by the library, which does not hold all that other makers' documents may say: each "
     "key that would be lost or changed is named, and nothing is written without --force.",
     "u77/hw/u77.lfa PRE_OPT_TCL tcl/pre_opt.tcl u77/u77_gen3x16_base_1.zdf --dry-run --force",
     runSetFile},
    {"verify",
     {{"ARCHIVE...", "any zip archives"}},
     {{"require-digest", nullptr, "an archive without a digest is a finding too"}, kJson, kNdjson},
     "Check archives against their CRCs and their digest",
     "All is computed from the bytes. The digest tells damage and change, not who made the archive: whoever changes "
     "it can stamp it anew.",
     "u77/hw/u77.lfa",
     runVerify},
    {"schema",
     {{"FORMAT", "one of zdf, spfm, hpfm, cfa, emu"}},
     {},
     "Print the W3C XML Schema of a format",
     "Made from the tables that the readers use, with what each element and attribute means: an editor that knows "
     "schemas completes and checks documents by it. docs/schemas.md tells how, and what a schema cannot say.",
     "zdf",
     runSchema},
    {"validate",
     {{"FILE...", "descriptors, software files, hardware archives, or metadata files of their own"}},
     {{"fail-on", "warning|error", "what makes the exit code 1 (error)"}, kJson, kNdjson},
     "Find all that is wrong in files",
     "Where a reader stops at the first fault, every fault is told that can be found without guessing, and what is "
     "legal and probably a mistake as a warning: FILE:LINE:COLUMN: error: ELEMENT: what stands there, what is "
     "allowed "
     "[NAME]; of a member ARCHIVE!MEMBER:LINE:COLUMN. A descriptor's files are checked too. explain NAME tells more. "
     "Exit code 0 clean, 1 faults, 3 a file cannot be opened.",
     "u77/u77_gen3x16_base_1.zdf lone/lorica.spfm",
     runValidate},
    {"explain",
     {{"NAME", "what validate prints in brackets, or the id of a message, such as 74-60"}},
     {},
     "Explain a finding or a message",
     "What it means, what to do, and a bad and a good sample. docs/validate.md has all findings.",
     "missing-attribute",
     runExplain},
    {"to-xml",
     {{"FILE", "a hardware archive (.cfa, .lfa), or a descriptor (.zdf) with one"},
      {"[OUT]", "the file to write; standard output without it"}},
     {kMetadata, kForce},
     "Write the hardware metadata in its XML form",
     "The form of older archives, which holds less than the document: no clocks and bus interfaces of the hpfm, no "
     "ids and tile arrays, one host interface, one feature ROM. Of a partitioned platform it is that of the default "
     "partition.",
     "harrier/hw/harrier.cfa",
     runToXml},
};

constexpr Option kCommon[] = {
    {"verbose", nullptr, "print all that the library says"},
    {"quiet", nullptr, "print nothing but the answer"},
    {"messages", "text|json", "form of what the library says: lines, or one JSON object with id and arguments each"},
};

}  // namespace

std::span<const Verb> verbs() { return kVerbs; }
std::span<const Option> commonOptions() { return kCommon; }
