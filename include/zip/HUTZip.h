#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

/// Archives by their paths. Operations throw `HEXDataException` for an invalid archive and `HEXUserException` for
/// errors of the file system; the text names the file and, if the error concerns one, the member.
class ZR_API HUTZip {
public:
    /// Whether the archive has this member. Also false if the file is missing or not an archive. Never throws.
    static bool containsFile(const std::string& archive, const std::string& member);

    struct Member {
        std::string name;              ///< as in the archive: untrusted text
        std::uint64_t size = 0;        ///< uncompressed, in bytes, as declared by the archive
        std::uint64_t packedSize = 0;  ///< compressed, in bytes
    };
    /// All members, sorted by name.
    static HSTVector<Member> members(const std::string& archive);

    /// Puts the names of all members into `files`, in the order of the archive; directories end in "/".
    static void getFiles(const std::string& archive, HSTVector<std::string>& files);

    /// Extracts the members below the archive's directory `directory` (all members if it is empty) into
    /// `destination`, which must exist, under their full names. False if there is no such member. An existing file is
    /// replaced if `overwrite` is true, otherwise it is an error. Names that lead out of `destination` and links are
    /// errors.
    static bool uncompressDir(const std::string& archive, const std::string& directory,
                              const std::string& destination, bool overwrite);

    /// Extracts one member into `destination`, which must exist, under its full name. False if there is no such member.
    /// Otherwise like `uncompressDir`.
    static bool uncompress(const std::string& archive, const std::string& member, const std::string& destination,
                           bool overwrite);

    enum class Step {
        create,  ///< a new archive, in place of an existing file, with a digest
        append   ///< added to an existing archive, or replaced in it; a valid digest stays valid
    };
    /// Puts one file into an archive as `member`, by default under its own name. To add several files, `compressDir`
    /// is faster: each call writes the whole archive anew. The archive appears complete or not at all.
    static void compress(const std::string& file, const std::string& archive, Step step,
                         const std::string& member = {});

    /// Deletes the members of these names in one rewrite; a valid digest stays valid. Returns how many there were. At
    /// least one member must be left.
    static std::size_t deleteFilesFromZip(const std::string& archive, const HSTVector<std::string>& members);

    /// Makes an archive of everything in `folder`, reproducibly: the same bytes each time and on each machine. A
    /// folder in it whose name ends in ".lfa", ".cfa", ".zip" or ".tilprj" becomes an archive member of that name.
    /// The archive and those in it carry a digest. Links and devices are errors, and so is an existing `archive`
    /// without `overwrite`. The archive appears complete or not at all. `accept`, if any, is called with the path of
    /// the finished archive before it takes its name; it can prevent that by throwing.
    static void compressDir(const std::string& folder, const std::string& archive, bool overwrite = true,
                            const std::function<void(const std::string&)>& accept = {});

    /// Attaches a digest: the SHA-256 of each member in its central directory entry, and one over all members at the
    /// start of the archive's comment. An archive whose members agree with its digest is not written. Throws
    /// `HEXDataException` if a member does not agree with its CRC, and `HEXUserException` if somebody else is changing
    /// the archive for more than ten seconds.
    static void attachDigestEn(const std::string& archive);

    enum class DigestState { none, valid, broken };
    /// How a member differs from its state when the digest, or its CRC, was computed.
    enum class Reason {
        crc,      ///< the CRC of its bytes differs from its entry's
        size,     ///< it has more or fewer bytes
        damaged,  ///< it cannot be decompressed, or its two headers disagree
        hash,     ///< the SHA-256 of its bytes differs from its field's
        field,    ///< its field is not a SHA-256, or not the one in the digest
        extra,    ///< it has no field: it was added or replaced after the digest was made
        missing,  ///< a member is missing, was renamed, or was added with its own field
        count_
    };
    static const char* reasonText(Reason reason);  ///< "crc", ...
    struct Difference {
        std::string member;  ///< untrusted text; empty if unknown
        Reason reason = Reason::crc;
        std::string text;  ///< for people: printable, in one line
    };
    struct Verification {
        DigestState digest = DigestState::none;
        HSTVector<Difference> differences;  ///< in the order of the archive
        bool isSound() const { return differences.empty(); }
    };
    /// Reads the whole archive in constant memory, and compares the CRCs and, if there is one, the digest. A digest
    /// detects accidental changes; it does not protect against deliberate ones, since anybody can attach a new one.
    static Verification verify(const std::string& archive);
};
