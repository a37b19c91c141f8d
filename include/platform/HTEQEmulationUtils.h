#pragma once
#include <iosfwd>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HPLPlatform;

/// Builds the hardware emulation of a platform in an archive with XML metadata: writes Tcl scripts, evaluates them with
/// the scripts of the tool's installation (environment variable `TORVANE_MORWEN`), and merges into the archive what they
/// leave in the overlay directory.
///
/// Works in the working directory with fixed file names; two runs in one directory collide. "hw_emu_prop", "overlay"
/// and "emu_update_cfa.tcl" stay there. Texts of the archive never become code (docs/emulation.md).
///
/// Operations that return false have sent a message. They throw `HEXDataException` for a property file that is not valid,
/// `HEXError` ("@74-34@%s%s") for a member that cannot be opened, and `HEXUserException` for errors of the file
/// system. The archive is changed as the last step only, in one transaction.
class ZR_API HTEQEmulationUtils {
public:
    /// Builds the emulation of a platform without a dynamic region. `name` selects the property file of the
    /// installation, `platform_config/<name>.json`; if it is empty, only the property script is written. With an
    /// `outputDirectory`, "hw_emu_prop" and "overlay" are made in it, and the archive is not changed.
    static bool generateCfaEmu(const std::string& platformFile, const std::string& name,
                               const std::string& outputDirectory);
    /// Builds the overlay of a platform with a dynamic region in `<outputDirectory>/overlay`. `platformName` is the
    /// base name of the archive for which `propertyScript` was written.
    static bool generateEmuDir(const std::string& propertyScript, const std::string& platformName,
                               const std::string& outputDirectory);
    /// Writes the driver script, evaluates it, and describes the overlay in `<overlay>/emu/emu.xml`.
    static bool generateCfaEmuScripts(const std::string& propertyScript, const std::string& platformName,
                                      const std::string& overlay, bool isDr);
    /// Writes `<outputDirectory>/hw_emu_prop.tcl`. `isDr`: for a platform with a dynamic region.
    static bool generateEmuPropDict(const std::string& platformFile, const std::string& name, bool isDr,
                                    const std::string& outputDirectory);

    /// The driver script. Without the environment variable, the paths of the installation's scripts in it are
    /// relative.
    static void writeEmuUpdateCfa(std::ostream& out, const std::string& propertyScript, const std::string& overlay,
                                  const std::string& hpfmFile, const std::string& preLinkScript,
                                  const std::string& postLinkScript, bool isDr);
    /// The property script. Of the three property files, which may be missing, a later one overrides the keys of an
    /// earlier one; the first is part of the installation, and its texts are written as they are. An empty
    /// `uniqueName` stands for the platform's. Returns the flow: 0 none, 1 memory subsystem, 2 streaming, 3
    /// `customScript`.
    static int writeEmuPropertiesDict(HPLPlatform* platform, const std::string& defaultProperties,
                                      const std::string& properties, const std::string& userProperties,
                                      const std::string& boardRepository, const std::string& uniqueName,
                                      std::ostream& out, const std::string& platformFile, bool isDr,
                                      std::string& customScript);
    /// The part of it that describes the memories: false, without output, for a platform that has no bus interface
    /// with the tag "DDR". `dictionary` gets the name of the resulting dictionary.
    static bool printMemoriesInfo(HPLPlatform* platform, std::ostream& out, std::string& dictionary);

    /// Puts the files of the overlay directory into the archive, named relative to the overlay, with a digest. They
    /// replace members of the same name, with or without the overlay's name before it.
    static bool updateCfa(const std::string& platformFile, const std::string& overlay);
    /// Name of the emulation metadata in the archive: that of the file "EMU_XML", otherwise "emu/emu.xml".
    static std::string getEmuXmlFile(HPLPlatform* platform);
    /// Appends the paths of all files below the directory, sorted, relative to it, and after "<prefix>/" unless it is
    /// empty. Links are errors.
    static void getAllRelativeInDir(const std::string& directory, HSTVector<std::string>& out,
                                    const std::string& prefix);

    /// Directory of the IP in the tool's installation; empty, with a message, without the environment variable.
    static std::string getTorvaneIPPath();
    /// "platforms" below the directory that `TORVANE_SELBROOK`, otherwise `TORVANE_TEQ` names; empty without both.
    static std::string getSelbrookIPPath();
};
