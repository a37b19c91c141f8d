# What the flows share: a small project model, and the files that each build leaves. The driver script that sources a
# flow's run.tcl has set ::config::config_info and the dictionaries that it refers to.

namespace eval project {
    variable open {}    ;# names of the open projects
    variable current {}

    proc make {name} {
        variable open
        variable current
        file mkdir $name
        if {$name ni $open} { lappend open $name }
        set current $name
    }

    # Directory of a block design.
    proc design {name bd} { return [file join $name $name.srcs sources_1 bd $bd] }

    proc write {path lines} {
        file mkdir [file dirname $path]
        set file [open $path w]
        fconfigure $file -encoding utf-8 -translation lf
        puts $file [join $lines \n]
        close $file
    }
}

proc get_projects {args} { return $project::open }
proc current_project {name} { set project::current $name }
proc save_bd_design {} {
    if {$project::current eq ""} { error "no block design is open" }
}
proc close_project {} {
    set project::open [lsearch -all -inline -not -exact $project::open $project::current]
    set project::current {}
}

proc info_of {key} { return [dict get $config::config_info $key] }

# A text in the form of JSON.
proc json_text {text} {
    return "\"[string map {\\ \\\\ \" \\\" \n \\n \r \\r \t \\t} $text]\""
}
# A text in an attribute of XML.
proc xml_text {text} {
    return [string map {& &amp; < &lt; > &gt; \" &quot;} $text]
}

# The memory banks that links may use, as a list of the dictionaries of the address segments.
proc memory_tags {} {
    if {![dict exists $config::config_info memory_tags]} { return {} }
    return [dict values [info_of memory_tags]]
}

proc cell {name type pairs} {
    set lines {}
    dict for {key value} $pairs { lappend lines "        [json_text $key]: [json_text $value]" }
    return "    [json_text $name]: {\n      \"type\": [json_text $type],\n      \"config\": {\n[join $lines ,\n]\n      }\n    }"
}

# The cells that every block design has: memories, IP, clocks, the addresses of the feature ROM.
proc common_cells {} {
    set cells {}
    set number -1
    foreach bank [info_of board_memories] { lappend cells [cell memory_[incr number] memory_model $bank] }
    if {[info exists config::instanceConfig]} {
        dict for {tag pairs} $config::instanceConfig { lappend cells [cell ip_$tag ip $pairs] }
    }
    lappend cells [cell clocks clock_model $config::clk_info]
    lappend cells [cell feature_rom rom_model $config::feature_map_info]
    return $cells
}

proc write_design {name cells} {
    set directory [project::design [info_of project_name] $name]
    project::write $directory/$name.bd [list \
        "{" \
        "  \"design\": [json_text $name]," \
        "  \"part\": [json_text [info_of project_part]]," \
        "  \"board_part\": [json_text [info_of board_part]]," \
        "  \"cells\": {" \
        [join $cells ,\n] \
        "  }" \
        "}"]
}

# Scripts that a link runs before and after it; the first one is also sourced by the driver.
proc pre_sys_link_gen {file} {
    project::write $file [list \
        "# Before the link of [string map {\n { }} [info_of cfa_name]]." \
        "proc emu_pre_link {} { return emulation }"]
}
proc post_sys_link_gen {file} {
    project::write $file [list \
        "# After the link of [string map {\n { }} [info_of cfa_name]]." \
        "proc emu_post_link {} { return emulation }"]
}

# The hardware platform file of the emulation.
proc emu_hpfm_gen {file} {
    set name [xml_text [info_of cfa_name]_emu]
    set kp "xmlns:kp=\"urn:torvane:kp:hpfm:1.0\""
    set ids "kp:name=\"$name\" kp:library=\"$name\" kp:version=\"1.0\" kp:vendor=\"torvane\""
    set lines [list \
        {<?xml version="1.0" encoding="UTF-8"?>} \
        "<kp:repository $kp $ids>" \
        "  <kp:component $ids kp:type=\"platform\">" \
        "    <kp:platformInfo>" \
        "      <kp:description>Emulation of [xml_text [info_of platform_unique_name]]</kp:description>" \
        "    </kp:platformInfo>"]
    set segments {}
    foreach tag [memory_tags] {
        lappend segments "      <kp:addressSegment kp:baseName=\"EMU_MEM\" kp:index=\"[dict get $tag index]\"\
kp:auto=\"[xml_text [dict get $tag auto]]\" kp:sptag=\"[xml_text [dict get $tag sptag]]\"\
kp:slr=\"[xml_text [dict get $tag slr]]\" kp:maxMasters=\"[dict get $tag max_masters]\"/>"
    }
    if {[llength $segments]} {
        lappend lines "    <kp:busInterface kp:busTypeRef=\"aximm\" kp:name=\"S_AXI_DDR\" kp:instanceRef=\"/emu/memory\"\
kp:componentRef=\"memory_model\" kp:mode=\"slave\" kp:dataWidth=\"512\" kp:memport=\"MEMSS\" kp:sptag=\"DDR\">"
        lappend lines {*}$segments "    </kp:busInterface>"
    }
    project::write $file [concat $lines {"  </kp:component>"} {</kp:repository>}]
}
