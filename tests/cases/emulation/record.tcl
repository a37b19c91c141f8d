# Procedures in place of those that the driver script calls, which record the calls, and those that read texts back.
foreach name {source file pre_sys_link_gen post_sys_link_gen emu_bd_gen emu_hpfm_gen get_projects} {
    proc $name args "lappend ::calls \[list $name {*}\$args\]; lindex \$args end"
}
proc call {number word} { return [lindex $::calls $number $word] }
proc config {key} { return [dict get $config::config_info $key] }
proc general {word} {
    set known {project_name board_repo_paths board_part board_name board_memories project_part bd_name dr_bd_name
        cfa_name platform_unique_name qlink_config memory_tags UserIpRepoPath UseStreaming ip_repo_paths}
    return [lindex [dict remove $config::config_info {*}$known] $word]
}
proc same {text args} {
    foreach other $args { if {$other ne $text} { return "$text, then $other" } }
    return $text
}
proc hex {text} { return [binary encode hex [encoding convertto utf-8 $text]] }
proc readBack {texts} {
    foreach text $texts { append ::lines [hex $text] "\n" }
    namespace delete config
    unset ::calls
}
