#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

/// Archives by their paths. An archive that cannot be read raises `HEXDataException`, the disk `HEXUserException`,
/// each with words that name the file, and the member if it is one member's fault.
class ZR_API HUTZip {
public:
    /// Whether the archive has this member. False, too, for a file that is missing or no archive. Never throws.
    static bool containsFile(const std::string& archive, const std::string& member);

    struct Member {
        std::string name;              ///< as it stands in the archive: a stranger's text
        std::uint64_t size = 0;        ///< in bytes, as the archive declares it
        std::uint64_t packedSize = 0;  ///< in the archive
    };
    /// All members in the order of their names.
    static HSTVector<Member> members(const std::string& archive);

    /// Puts the names of all members into `files`, in the order of the archive, those of directories with their "/".
    static void getFiles(const std::string& archive, HSTVector<std::string>& files);

    /// Writes the members below the archive's directory `directory` (all members when it is empty) below
    /// `destination`, which must exist, under their full names. False when there is no such member. A file that is
    /// already there is replaced when `overwrite` is true, else an error. Names that lead out of `destination` and
    /// links are errors.
    static bool uncompressDir(const std::string& archive, const std::string& directory,
                              const std::string& destination, bool overwrite);

    /// Makes an archive of all that is in `folder`: the same bytes each time and on each machine. A folder in it
    /// whose name ends in ".lfa", ".cfa", ".zip" or ".tilprj" becomes an archive member of that name. The archive,
    /// and those in it, carry a digest. Links and devices are errors. Without `overwrite` it is an error when
    /// `archive` exists. The archive appears whole or not at all. `accept`, if any, is called with the path of the
    /// finished archive before it takes its place, which it prevents by throwing.
    static void compressDir(const std::string& folder, const std::string& archive, bool overwrite = true,
                            const std::function<void(const std::string&)>& accept = {});

    /// Gives the archive a digest: the SHA-256 of each member in its row of the directory, and one over all in the
    /// archive's comment, in front of what stands there. An archive with a valid one is not written. Throws
    /// `HEXUserException`, too, when somebody else changes the archive for more than ten seconds.
    static void attachDigestEn(const std::string& archive);

    enum class DigestState { none, valid, broken };
    /// Why a member is not as it was when the digest was made, or its CRC.
    enum class Reason {
        crc,      ///< its bytes have another CRC than the directory says
        size,     ///< there are more or fewer of them
        damaged,  ///< they cannot be unpacked, or its two headers disagree
        hash,     ///< they have another SHA-256 than its field says
        field,    ///< its field is no SHA-256, or not the one that the digest was made of
        extra,    ///< it has no field: it was added or replaced after the digest was made
        missing,  ///< some member is missing, has another name, or was added with a field of its own
        count_
    };
    static const char* reasonText(Reason reason);  ///< "crc", ...
    struct Difference {
        std::string member;  ///< a stranger's text; empty when it cannot be told which one
        Reason reason = Reason::crc;
        std::string text;  ///< for people: printable, in one line
    };
    struct Verification {
        DigestState digest = DigestState::none;
        HSTVector<Difference> differences;  ///< in the order of the archive
        bool isSound() const { return differences.empty(); }
    };
    /// Reads all bytes of the archive, whose memory it does not need, and compares CRCs and digest. Without a digest
    /// it compares the CRCs. A digest finds what was changed by accident or carelessness; whoever means to deceive
    /// can make a new one.
    static Verification verify(const std::string& archive);
};
