#include "emulation/DriverScript.h"

#include <array>
#include <string_view>

#include "tcl/TclWord.h"

namespace emulation {
namespace {

using tcl::Form;

/// A line of the script, and when it is part of it.
struct Line {
    enum class When { always, fixed, dynamic } when;
    std::string_view text;
};
constexpr auto kAlways = Line::When::always;

/// "@" and a letter stands for a word, see `wordFor`.
constexpr std::array kLines{
    Line{kAlways, "proc emu_update_cfa { } { "},
    Line{kAlways, "  source @p"},
    Line{kAlways, "  emu_prop_gen "},
    Line{kAlways, ""},
    Line{kAlways, "  set isStreaming [dict get $config::config_info UseStreaming]"},
    Line{kAlways, "  if { [string tolower $isStreaming] eq \"true\"} {"},
    Line{kAlways, "    source @s"},
    Line{kAlways, "  } else {"},
    Line{kAlways, "    source @m"},
    Line{kAlways, "  }"},
    Line{kAlways, "  pre_sys_link_gen @A "},
    Line{kAlways, "  post_sys_link_gen @B "},
    Line{kAlways, "  source @a"},
    Line{kAlways, ""},
    Line{kAlways, "  emu_bd_gen "},
    Line{kAlways, ""},
    Line{kAlways, "  set shell_name [dict get $config::config_info cfa_name]"},
    Line{kAlways, "  emu_hpfm_gen ${shell_name}_emu.hpfm "},
    Line{kAlways, ""},
    Line{kAlways, "  set overlay_dir @o"},
    Line{kAlways, "  file delete -force $overlay_dir"},
    Line{kAlways, "  file mkdir $overlay_dir"},
    Line{kAlways, "  set projName            [dict get $config::config_info project_name]"},
    Line{kAlways, "  set bdName              [dict get $config::config_info bd_name]"},
    Line{Line::When::dynamic, "  set drBdName            [dict get $config::config_info dr_bd_name]"},
    Line{kAlways, "  set cfaPath             [dict get $config::config_info cfa_name]"},
    Line{kAlways, "  set cfaName             [file tail $cfaPath]"},
    Line{kAlways, "  set platformName        [lindex [split $cfaName .] 0]"},
    Line{kAlways, "  set ipRepos             [dict get $config::config_info ip_repo_paths] "},
    Line{kAlways, ""},
    Line{Line::When::dynamic, "  file mkdir $overlay_dir/$bdName/"},
    Line{Line::When::dynamic,
         "  file copy -force  $projName/$projName.srcs/sources_1/bd/$bdName $overlay_dir/$bdName/"},
    Line{Line::When::dynamic,
         "  file copy -force  $projName/$projName.srcs/sources_1/bd/$drBdName $overlay_dir/$bdName/"},
    Line{Line::When::fixed, "  file copy -force  $projName/$projName.srcs/sources_1/bd/$bdName $overlay_dir"},
    Line{kAlways, "  if {$ipRepos ne \"\"} {"},
    Line{kAlways, "    file copy -force $ipRepos  $overlay_dir/$bdName/user_ip_repo"},
    Line{kAlways, "  }"},
    Line{kAlways, "  file copy -force @A $overlay_dir/$bdName"},
    Line{kAlways, "  file copy -force @B $overlay_dir/$bdName"},
    Line{kAlways, "  file rename -force ${shell_name}_emu.hpfm  $overlay_dir/$bdName"},
    Line{kAlways, ""},
    Line{kAlways, "  set list_projs [get_projects -quiet]"},
    Line{kAlways, "  if { [lsearch -exact -inline $list_projs $projName] eq $projName } {"},
    Line{kAlways, "    save_bd_design"},
    Line{kAlways, "    current_project $projName"},
    Line{kAlways, "    close_project"},
    Line{kAlways, "  }"},
    Line{kAlways, "}"},
    Line{kAlways, ""},
    Line{kAlways, "set status [catch { emu_update_cfa } msg ]"},
    Line{kAlways, "if {$status != 0} { "},
    Line{kAlways, "  puts \"Updating CFA with emulation files was unsuccessful, message: '${msg}'\""},
    Line{kAlways, "  exit 0"},
    Line{kAlways, "}"},
};

std::string wordFor(char letter, const Driver& driver) {
    switch (letter) {
        case 'p': return tcl::word(driver.propertyScript, Form::bare);
        case 's': return tcl::word(driver.scripts + "/streaming/run.tcl", Form::bare);
        case 'm': return tcl::word(driver.scripts + "/memss/run.tcl", Form::bare);
        case 'a': return tcl::word(driver.preLink, Form::bare);
        case 'A': return tcl::word(driver.preLink, Form::quoted);
        case 'B': return tcl::word(driver.postLink, Form::quoted);
        default: return tcl::word(driver.overlay, Form::bare);
    }
}

}  // namespace

std::string driverScript(const Driver& driver) {
    const auto other = driver.isDynamic ? Line::When::fixed : Line::When::dynamic;
    std::string text;
    for (const Line& line : kLines) {
        if (line.when == other) continue;
        const auto mark = line.text.find('@');
        text += line.text.substr(0, mark);
        if (mark != line.text.npos) {
            text += wordFor(line.text[mark + 1], driver);
            text += line.text.substr(mark + 2);
        }
        text += '\n';
    }
    return text;
}

std::string scriptsDirectory(const std::string& installation, bool isDynamic) {
    return installation + "/data/emulation/hw_em/scripts" + (isDynamic ? "/emu_platform_build" : "");
}

}  // namespace emulation
