#include "Verbs.h"

namespace {

constexpr const char* kModes = "default|primary|xml";
constexpr Positional kPlatform = {
    "FILE", "a descriptor (.zdf), a hardware archive (.cfa, .lfa), a software file (.spfm) or a platform's name",
    true};
constexpr Option kMetadata = {"metadata", kModes,
                              "which metadata to read: the alternative JSON member, else the primary one, else XML "
                              "(default); the same without the alternative one (primary); XML only (xml)"};
constexpr Option kJson = {"json", nullptr, "print the records as one JSON document"};
constexpr Option kNdjson = {"ndjson", nullptr, "print one JSON record per line"};
constexpr Option kAppRoot = {"app-root", "DIR",
                             "the application root (default: share/zr_platform of this installation)"};
constexpr Option kRepo = {"repo", "DIR...", "search this directory first; may be given several times"};
constexpr Option kNoDefaults = {"no-defaults", nullptr, "do not search the default repositories"};
constexpr Option kForce = {"force", nullptr, "overwrite an existing file"};
constexpr Option kDryRun = {"dry-run", nullptr, "check everything, and write nothing"};

const std::vector<Verb> kVerbs = {
    {"json",
     {kPlatform},
     {{"short", nullptr, "print only unique name, file and description"}, kMetadata, kRepo, kNoDefaults},
     "Print a platform's JSON document",
     "The output is byte for byte that of the C functions hteq_get_platform_json and "
     "hteq_get_short_platform_json.",
     "u77/u77_gen3x16_base_1.zdf --short",
     runJson},
    {"show",
     {kPlatform},
     {kMetadata, kRepo, kNoDefaults},
     "Describe a platform for human readers",
     "Shows identity and type, device and resources, memories and banks, clocks, interfaces available to a linker, "
     "tile partitions, processor groups and boot images, and the files in the archive. If a file is missing, shows "
     "what can be read and why the rest cannot.",
     "u77/u77_gen3x16_base_1.zdf",
     runShow},
    {"list",
     {{"[NAME]", "a platform's name, or a pattern with *, ? and [...]; letter case is ignored", true}},
     {kRepo,
      kNoDefaults,
      {"path-only", nullptr, "print only the paths of the descriptors"},
      {"type", "fennick|lorimar|acceleration|undefined", "only platforms of this type"},
      {"part", "PART", "only those of this device architecture or part"},
      {"board", "BOARD", "only those of this board id"},
      {"vbnv", "V:B:N:V", "only those of this vendor, board, name and version; an empty field accepts everything"},
      {"intent", "INTENT",
       "only those with this design intent: server-managed, external-host, embedded, data-center, or several with "
       "commas"},
      {"latest", nullptr, "of each vendor, board and name only the highest version"},
      {"usable", nullptr, "only those that this tool may use; see check"},
      {"strict", nullptr, "exit with 1 if a platform cannot be read"},
      kJson,
      kNdjson},
     "List the platforms in repositories",
     "Platforms are listed repository by repository, then those whose name an earlier one has, with its file, and "
     "those that cannot be read, with the reason. Only descriptors are read, unless --type, --part, --board, --vbnv, "
     "--intent, --latest or --usable need more. docs/finding.md has the rules of the search.",
     "--no-defaults --repo u77 --repo heron",
     runList,
     true},
    {"where",
     {{"[NAME]", "a platform's name; letter case is ignored", true}},
     {{"why-not", "PATH", "say why the search does not find this descriptor"}, kRepo, kNoDefaults, kJson, kNdjson},
     "Show what a platform's name resolves to",
     "Prints the file, the directories that were searched, in order, and the files of the same name that it shadows "
     "or that cannot be read. With --why-not, prints the rule that skips a file (missing, outside, depth, extension, "
     "permission, broken-link, loop, duplicate, not-valid) and exits with 1, or \"found\".",
     "heron --no-defaults --repo heron",
     runWhere,
     true},
    {"info",
     {kPlatform},
     {kRepo, kNoDefaults, kJson, kNdjson},
     "Answer common questions about a platform",
     "Prints the answers that a compiler's front end asks for: identity, kind, software, part, resources, memory, "
     "clocks, host and board.",
     "u77/u77_gen3x16_base_1.zdf",
     runInfo},
    {"boards",
     {},
     {{"repo", "DIR...", "a board repository; may be given several times"}, kJson, kNdjson},
     "List boards and what fits their connectors",
     "Reads DIR/*/board.json of each board repository. For each connector, lists the DIMM connectors that it can be "
     "connected to.",
     "--repo boards",
     runBoards},
    {"repo-path",
     {},
     {kRepo, kNoDefaults, kJson, kNdjson},
     "Print the search path",
     "Prints the directories that are searched, each once and separated by colons, in one line.",
     "--no-defaults --repo u77",
     runRepoPath},
    {"pack",
     {{"DIR", "a folder with the members of a platform"}, {"ARCHIVE", "the .cfa or .lfa file to write"}},
     {{"force", nullptr, "overwrite ARCHIVE, and pack even if listed files are missing"}},
     "Create an archive from a folder",
     "The same folder always gives the same bytes, on every machine. A subfolder whose name ends in .lfa, .cfa, .zip "
     "or .tilprj becomes an archive member of that name. If the folder lacks a file that the metadata lists, the "
     "file "
     "is reported and nothing is written.",
     "src/u77.lfa packed.lfa --force",
     runPack},
    {"members",
     {{"ARCHIVE", "any zip archive"}},
     {kJson, kNdjson},
     "List the members of an archive",
     "Prints names, sizes and compressed sizes in bytes, sorted by name.",
     "u77/hw/u77.lfa",
     runMembers},
    {"extract",
     {{"ARCHIVE", "a .cfa or .lfa file"},
      {"MEMBER", "a member's name, a file type such as HPFM, or OUTER!INNER for a member of a nested archive"},
      {"DEST", "the file to write, or - for standard output"}},
     {{"type", nullptr, "treat MEMBER as a file type, even if a member has that name"},
      {"repair-hpfm", nullptr, "if only some HBM banks of an hpfm are default banks, make all of them default"},
      kForce},
     "Copy one file out of an archive",
     "A member of exactly that name takes precedence over a file that the metadata lists under that type.",
     "u77/hw/u77.lfa HPFM - --repair-hpfm",
     runExtract},
    {"set-file",
     {{"ARCHIVE", "a .cfa or .lfa file with JSON metadata"},
      {"TYPE", "the file's type; the new file replaces any that the metadata lists for this type"},
      {"MEMBER", "the member to add or replace"},
      {"SOURCE", "the file to copy into the archive"}},
     {{"dry-run", nullptr, "report what would change, and write nothing"},
      {"strip-paths", nullptr, "omit the key platformFile, a path on the writer's machine, from the metadata"},
      {"force", nullptr, "write even if keys of the metadata are lost or changed"}},
     "Put a file into an archive and its metadata",
     "Member, metadata and digest are written in one atomic replacement: whatever happens, the archive is either the "
     "old one or the new one. The library rewrites the metadata and does not keep keys that it does not know: each "
     "key that would be lost or changed is reported, and nothing is written without --force.",
     "u77/hw/u77.lfa PRE_OPT_TCL tcl/pre_opt.tcl u77/u77_gen3x16_base_1.zdf --dry-run --force",
     runSetFile},
    {"verify",
     {{"ARCHIVE...", "any zip archives"}},
     {{"require-digest", nullptr, "report an archive without a digest as a failure"}, kJson, kNdjson},
     "Check archives against their CRCs and their digest",
     "Everything is computed from the bytes. The digest reveals damage and changes, but does not authenticate the "
     "archive: whoever changes it can write a new digest.",
     "u77/hw/u77.lfa",
     runVerify,
     true},
    {"schema",
     {{"FORMAT", "one of zdf, spfm, hpfm, cfa, emu, emu-json"}},
     {},
     "Print the schema of a format",
     "The schema, a W3C XML Schema or, of emu-json, a JSON Schema, is generated from the readers' own tables. Those "
     "of "
     "XML document each element and attribute, so that an "
     "editor "
     "can complete and check documents. docs/schemas.md explains how, and what a schema cannot express.",
     "zdf",
     runSchema},
    {"validate",
     {{"FILE...", "descriptors, software files, hardware archives, stand-alone metadata files or names of platforms",
       true}},
     {{"fail-on", "warning|error", "lowest severity that makes the exit code 1 (default: error)"},
      kRepo,
      kNoDefaults,
      kJson,
      kNdjson},
     "Report all errors in files",
     "A reader stops at the first error; validate reports every error that can be found without guessing, and legal "
     "but probably mistaken content as warnings. The files that a descriptor names are checked too. Each finding is "
     "a "
     "line FILE:LINE:COLUMN: error: ELEMENT: what is there, what is allowed [NAME]; within an archive, the location "
     "is "
     "ARCHIVE!MEMBER:LINE:COLUMN. See also explain NAME. Exit code: 0 no errors, 1 errors, 3 a file cannot be "
     "opened.",
     "u77/u77_gen3x16_base_1.zdf lone/lorica.spfm",
     runValidate,
     true},
    {"explain",
     {{"NAME", "the name that validate prints in brackets, or a message id such as 74-60"}},
     {},
     "Explain a finding or a message",
     "Prints its meaning, the remedy, and a bad and a good sample. docs/validate.md lists all findings.",
     "missing-attribute",
     runExplain},
    {"to-xml",
     {{"FILE", "a hardware archive (.cfa, .lfa), a descriptor (.zdf) with one, or a platform's name", true},
      {"[OUT]", "the file to write (default: standard output)"}},
     {kMetadata, kRepo, kNoDefaults, kForce},
     "Write the hardware metadata in XML",
     "XML is the form of older archives and holds less than the JSON document: no clocks and bus interfaces of the "
     "hpfm, no ids or tile arrays, one host interface, one feature ROM. For a partitioned platform, the default "
     "partition is written.",
     "harrier/hw/harrier.cfa",
     runToXml},
    {"query",
     {kPlatform, {"PATH...", "paths in the platform's document, as hardwarePlatform.devices[0].name"}},
     {kMetadata, kRepo, kNoDefaults, kJson, kNdjson},
     "Answer paths in a platform's document",
     "Prints a value as it is, an object as JSON, and a list as JSON under the path's last segment. Several paths "
     "give "
     "a line PATH, tab, ANSWER each. docs/paths.md describes paths. A path that selects nothing: exit code 1, and "
     "the "
     "nearest names.",
     "u77/u77_gen3x16_base_1.zdf vendor 'hardwarePlatform.memories[0].size'",
     runQuery},
    {"keys",
     {kPlatform, {"[PREFIX]", "only this key and those below it"}},
     {kMetadata, kRepo, kNoDefaults, kJson, kNdjson},
     "List the keys of a platform's document",
     "Each key is printed once; \"[]\" follows the key of a list. A prefix that is not a key: exit code 1, and the "
     "nearest names.",
     "u77/u77_gen3x16_base_1.zdf hardwarePlatform.systemClocks",
     runKeys},
    {"doc",
     {{"[KEY]", "a key of a document (default: all keys)"}},
     {kAppRoot, kJson, kNdjson},
     "Explain a key of the document",
     "Prints its meaning, form, unit and source, from platforms/platform_keys_doc.json below the application root. "
     "Indexes in the key do not matter. An unknown key: exit code 1, and the nearest names.",
     "'hardwarePlatform.systemClocks[].frequency' --app-root share",
     runDoc},
    {"dict",
     {kPlatform, {"[BRANCH]", "the path of a branch (default: the whole document)"}},
     {{"filter", "KEY...", "print only entries with this key, in which [*] stands for any index; may be repeated"},
      {"default-filter", nullptr, "print only tile array, ids and files; with --filter, these too"},
      kRepo,
      kNoDefaults,
      kJson,
      kNdjson},
     "Print a branch of the document as keys and values",
     "A line KEY, tab, VALUE for each value. The document is that of the file: for an archive, its hardware platform "
     "alone. In a list of plain values the first one has the empty key, and each other one the index below its own: "
     "files written from this form rely on it.",
     "u77/u77_gen3x16_base_1.zdf hardwarePlatform.board",
     runDict},
    {"transform",
     {kPlatform, {"SPEC", "the specification, a .json file with the key spec"}},
     {kRepo, kNoDefaults, kJson, kNdjson},
     "Check a transform specification",
     "Prints the number of its entries. No transformation is applied to the platform yet.",
     "u77/u77_gen3x16_base_1.zdf src/transform.json",
     runTransform},
    {"check",
     {{"FILE...", "descriptors, hardware archives or names of platforms", true}},
     {{"tool-version", "V", "the tool's version (default: this release)"},
      {"product", "P",
       "the product's name for the host's settings; the exception list is compared with the product in "
       "the application root's name"},
      kAppRoot,
      {"pre-synth", nullptr, "ask for use as a platform before synthesis"},
      {"open", nullptr, "ask whether the hardware platform may be opened"},
      {"why", nullptr, "print the rules that were tried, and what would change the verdict"},
      {"matrix", "V1..V2", "print the verdicts for these tool versions, four a year"},
      kMetadata,
      kRepo,
      kNoDefaults,
      kJson,
      kNdjson},
     "Tell whether the tool may use platforms",
     "Prints the policy's verdict with its sentence. docs/policy.md lists the rules. The exception list is "
     "platforms/achromatic below the application root. Exit code: 0 usable, 1 not; 0 with --matrix.",
     "u77/u77_gen3x16_base_1.zdf --why",
     runCheck,
     true},
    {"catalog",
     {},
     {kRepo,
      kNoDefaults,
      {"detailed", nullptr, "add files, partitions, clocks, the policy's verdict and the targets"},
      {"strict", nullptr, "exit with 1 if a platform cannot be read"},
      {"json", nullptr, "print the library's own document of the reports"},
      kNdjson},
     "Report what each platform in the repositories is",
     "A platform that cannot be read is reported with the reason, and does not end the list.",
     "--no-defaults --repo u77 --repo harrier --detailed --ndjson",
     runCatalog,
     true},
    {"exceptions",
     {{"ACTION", "pack or print"},
      {"FILE", "the list: JSON to pack, or packed"},
      {"[OUT]", "the packed list to write"}},
     {kForce},
     "Pack or print a list of support exceptions",
     "The policy reads the list in its packed form only. docs/policy.md describes it.",
     "print share/platforms/achromatic",
     runExceptions},
    {"labels",
     {{"FILE", "semantic labels, a .json file"}},
     {{"partition-metadata", "OUT", "write the partition metadata to this file"},
      {"ext-metadata", "OUT", "write the extended metadata to this file"},
      {"partition", "PATH", "path of the partition for the extended metadata (default: /)"},
      kDryRun,
      kForce},
     "Make run-time metadata from semantic labels",
     "Without an option that names an output, prints the labels by kind as JSON. Labels that lack a key or have a "
     "number that cannot be read are an error, and nothing is written. docs/format-labels.md describes the "
     "documents.",
     "u77/hw/labels.json --partition-metadata part.json --force",
     runLabels},
    {"rqa",
     {{"ACTION", "create, list, add or extract"},
      {"ARCHIVE", "a metadata archive"},
      {"[ARG...]", "files to create or add, as TYPE=MEMBER=FILE; TYPE DIR to extract"}},
     {{"inst-path", "PATH", "for create: the instance path of the content in the design"},
      {"dr-bd-inst-name", "NAME", "for create: the instance of the block design"},
      {"pfm-name", "NAME", "for create: the platform's name"},
      {"hier-name", "NAME", "for create: the name of the hierarchy"},
      kDryRun,
      {"force", nullptr, "overwrite existing files, and replace files of the same type"},
      {"json", nullptr, "for list: print the index, a JSON document"},
      kNdjson},
     "Create, list, add to and extract from metadata archives",
     "A metadata archive is a zip file with the index rqa.json: which member has which type, and where in a design "
     "the content belongs. FILE may be a folder, whose files become members below MEMBER. Archive, index and digest "
     "are written in one atomic replacement. extract prints the path of what it made below DIR.",
     "create a.rqa LABELS=l.json=u77/hw/labels.json --force",
     runRqa},
    {"create-fixed",
     {{"ARCHIVE", "the .lfa file to write"},
      {"[FILE...]", "files to add, as TYPE=MEMBER=FILE: the type in the metadata, the member, the file on disk"}},
     {kDryRun, kForce},
     "Create an archive of a fixed platform",
     "The metadata describe a unified platform that a link step cannot extend, as a link makes them; they list the "
     "added files. The archive has a digest, and appears complete or not at all.",
     "fixed.lfa XDC=l.json=u77/hw/labels.json --force",
     runCreateFixed},
    {"from-hdf",
     {{"HDF", "a hardware definition: a zip archive with a member sysdef.xml or hwdef.xml"},
      {"ARCHIVE", "the .cfa or .lfa file to write"}},
     {kDryRun, kForce},
     "Create an archive from a hardware definition",
     "The archive holds the definition, and XML and JSON metadata of a fixed, unified platform in the state "
     "pre_synth, named after the definition's top module.",
     "lone/merlin.hdf merlin.lfa --force",
     runFromHdf},
    {"check-rm",
     {{"STATIC", "the archive of a static platform"}, {"MODULE...", "archives of reconfigurable modules"}},
     {kJson, kNdjson},
     "Check whether modules fit a static platform",
     "A module fits if its node id is that of a partition of the platform which no earlier module has. Exit code: 0 "
     "all "
     "fit, 1 not.",
     "osprey/hw/osprey_static.lfa osprey/hw/osprey_rm.lfa",
     runCheckRm},
    {"emu-convert",
     {{"IN", "emulation metadata, a .xml or .json file"}, {"OUT", "the file to write, in the other form"}},
     {kDryRun, kForce},
     "Convert emulation metadata between XML and JSON",
     "Each value that the other form does not hold is reported: the version of the schema in JSON, the version of "
     "the "
     "metadata and install paths in XML.",
     "src/harrier.cfa/emu/hw_emu.xml hw_emu.json --force",
     runEmuConvert},
};

constexpr Option kCommon[] = {
    {"verbose", nullptr, "print the library's output and messages"},
    {"quiet", nullptr, "print nothing except the result"},
    {"messages", "text|json",
     "format of the library's messages: lines, or one JSON object per message, with id "
     "and arguments"},
};

}  // namespace

std::span<const Verb> verbs() { return kVerbs; }
std::span<const Option> commonOptions() { return kCommon; }
