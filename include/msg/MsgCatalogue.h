/// The messages that the library can send, and their severities.
#pragma once
#include <array>
#include <string_view>

/// Severity of a message, in ascending order.
enum class MsgMask : unsigned { info = 0x4000000, warning = 0x8000000, critical = 0x10000000, error = 0x20000000 };

/// "information", "warning", "critical" or "error".
constexpr const char* nameOf(MsgMask severity) {
    switch (severity) {
        case MsgMask::info: return "information";
        case MsgMask::warning: return "warning";
        case MsgMask::critical: return "critical";
        case MsgMask::error: return "error";
    }
    return "";
}

/// An id without its "@" and its argument format: "74-60" for "@74-60@%s", "@74-60" or "74-60".
constexpr std::string_view shortMessageId(std::string_view id) {
    if (id.starts_with('@')) id.remove_prefix(1);
    return id.substr(0, id.find('@'));
}

/// One message that the library can send. The id and the arguments are the contract; the text may change.
struct MsgRow {
    std::string_view id;     ///< as sent, for instance "@74-60@%s"
    std::string_view kinds;  ///< of its arguments: 's' text, 'd' integer. The format of a few ids lists fewer.
    MsgMask mask;
    std::string_view text;  ///< for people; "{0}" and "{1}" are the arguments
};

/// All messages. Sending an id that is not listed, or with other arguments, does not compile (`ComMsgMgr::sendMsg`).
/// An id that is sent with different arguments has a row for each.
inline constexpr std::array kMsgCatalogue{
    MsgRow{"@1-1874@%s", "s", MsgMask::warning, "temporary directory '{0}' could not be removed"},
    MsgRow{"@74-1@%s", "s", MsgMask::warning, "{0}"},
    MsgRow{"@74-3@%s", "s", MsgMask::critical, "the platform '{0}' could not be loaded: its descriptor is not valid"},
    MsgRow{"@74-4@%s", "s", MsgMask::critical,
           "the platform '{0}' could not be loaded: its software file is not valid"},
    MsgRow{"@74-5@%s", "s", MsgMask::warning, "directory '{0}' could not be searched completely"},
    MsgRow{"@74-9@%s", "sd", MsgMask::error, "{0}:{1}: the platform descriptor is not valid"},
    MsgRow{"@74-10@%s", "s", MsgMask::error, "file '{0}' could not be written"},
    MsgRow{"@74-12@", "s", MsgMask::error, "{0}"},
    MsgRow{"@74-12@", "sd", MsgMask::error, "{0} (line {1})"},
    MsgRow{"@74-14@%s%s", "ss", MsgMask::critical,
           "the platform '{1}' could not be loaded: hardware platform file '{0}' does not exist"},
    MsgRow{"@74-15@%s%s%s%s", "sss", MsgMask::error, "file '{0}' could not be written: {1}"},
    MsgRow{"@74-17@%s%s%s", "sss", MsgMask::warning,
           "hardware platform {0} is in '{1}' and again in '{2}', which is ignored"},
    MsgRow{"@74-23@%s", "s", MsgMask::warning, "'{0}' is ignored: an earlier file has the same hardware platform"},
    MsgRow{"@74-31@", "", MsgMask::error, "the hpfm text of the archive is not valid"},
    MsgRow{"@74-32@%s", "s", MsgMask::error, "platform file '{0}' does not exist"},
    MsgRow{"@74-33@", "", MsgMask::error, "the emulation platform was not built: there is no block design"},
    MsgRow{"@74-34@%s%s", "ss", MsgMask::error, "archive '{0}': member '{1}' could not be opened"},
    MsgRow{"@74-35@", "", MsgMask::error,
           "the environment variable TORVANE_MORWEN, the tool's installation, is not set"},
    MsgRow{"@74-36@%s", "s", MsgMask::error, "platform file '{0}' is not a regular file"},
    MsgRow{"@74-46@", "", MsgMask::critical, "the hardware definition could not be copied"},
    MsgRow{"@74-47@", "", MsgMask::critical, "the metadata of the hardware definition could not be written"},
    MsgRow{"@74-49@%s", "s", MsgMask::warning,
           "support exceptions '{0}': the file is missing, empty or cannot be read"},
    MsgRow{"@74-50@%s", "s", MsgMask::warning, "support exceptions '{0}': the file does not have the expected form"},
    MsgRow{"@74-51@%s%d", "sd", MsgMask::error, "{0}:{1}: the software platform file is not valid"},
    MsgRow{"@74-52@%s", "s", MsgMask::error, "{0}"},
    MsgRow{
        "@74-55@%s%s%s", "sss", MsgMask::critical,
        "the platform '{1}' could not be loaded: '{0}' is not a hardware platform file; supported extensions are{2}"},
    MsgRow{"@74-56@%s", "s", MsgMask::warning,
           "the tool's installation has no property file for '{0}' and no default one"},
    MsgRow{"@74-57@", "", MsgMask::error, "an emulation with a dynamic region needs an output directory"},
    MsgRow{"@74-60@%s", "s", MsgMask::critical, "the platform could not be loaded: {0}"},
    MsgRow{"@74-62@%s%s%d", "ssd", MsgMask::critical, "{1}:{2}: {0}"},
    MsgRow{"@74-63@%s%s", "ss", MsgMask::critical, "{1}!{0}: reading the metadata failed for an unknown reason"},
    MsgRow{"@74-64@%s%s%s", "sss", MsgMask::critical, "{1}!{0}: {2}"},
    MsgRow{"@74-65@%s%s%s", "sss", MsgMask::critical, "{1}!{0}: {2}"},
    MsgRow{"@74-66@%s", "s", MsgMask::critical, "hardware platform file '{0}' does not exist"},
    MsgRow{"@74-67@%s%s", "ss", MsgMask::critical, "{1}: member '{0}' could not be opened"},
    MsgRow{"@74-78@%s", "s", MsgMask::info, "the platform is checked for the tool version {0}"},
    MsgRow{"@74-80@", "", MsgMask::error, "a label \"cpu_endpoint\" lacks a key or has a value that is not valid"},
    MsgRow{"@74-81@", "", MsgMask::error, "a label \"debug_network\" lacks a key or has a value that is not valid"},
    MsgRow{"@74-82@", "", MsgMask::error, "a label \"uuid\" lacks a key"},
    MsgRow{"@74-83@", "", MsgMask::error, "a label \"pcie_endpoint\" lacks a key or has a value that is not valid"},
    MsgRow{"@74-84@", "", MsgMask::error, "the label of an endpoint lacks a key or has a value that is not valid"},
    MsgRow{"@74-85@", "", MsgMask::error, "a label \"pcie_bar\" lacks a key or has a value that is not valid"},
    MsgRow{"@74-86@%s%s", "ss", MsgMask::error, "semantic labels '{0}' cannot be read: {1}"},
    MsgRow{"@74-87@%s", "s", MsgMask::error, "semantic labels '{0}': no such file"},
    MsgRow{"@74-88@%s", "s", MsgMask::critical, "semantic labels have an unknown key, '{0}', which is ignored"},
    MsgRow{"@74-89@%s", "s", MsgMask::critical, "metadata archive '{0}' does not exist"},
    MsgRow{"@74-260@%s%s%s", "sds", MsgMask::error, "{0}:{1}: {2}"},
    MsgRow{"@74-261@", "", MsgMask::error, "more than one HBM instance: only the first one is tracked"},
};
