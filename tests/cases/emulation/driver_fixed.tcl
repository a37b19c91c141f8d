proc emu_update_cfa { } { 
  source hw_emu_prop/hw_emu_prop.tcl
  emu_prop_gen 

  set isStreaming [dict get $config::config_info UseStreaming]
  if { [string tolower $isStreaming] eq "true"} {
    source @ROOT@/data/emulation/hw_em/scripts/streaming/run.tcl
  } else {
    source @ROOT@/data/emulation/hw_em/scripts/memss/run.tcl
  }
  pre_sys_link_gen "dynamic_pre_sys_link.tcl" 
  post_sys_link_gen "dynamic_post_sys_link.tcl" 
  source dynamic_pre_sys_link.tcl

  emu_bd_gen 

  set shell_name [dict get $config::config_info cfa_name]
  emu_hpfm_gen ${shell_name}_emu.hpfm 

  set overlay_dir overlay
  file delete -force $overlay_dir
  file mkdir $overlay_dir
  set projName            [dict get $config::config_info project_name]
  set bdName              [dict get $config::config_info bd_name]
  set cfaPath             [dict get $config::config_info cfa_name]
  set cfaName             [file tail $cfaPath]
  set platformName        [lindex [split $cfaName .] 0]
  set ipRepos             [dict get $config::config_info ip_repo_paths] 

  file copy -force  $projName/$projName.srcs/sources_1/bd/$bdName $overlay_dir
  if {$ipRepos ne ""} {
    file copy -force $ipRepos  $overlay_dir/$bdName/user_ip_repo
  }
  file copy -force "dynamic_pre_sys_link.tcl" $overlay_dir/$bdName
  file copy -force "dynamic_post_sys_link.tcl" $overlay_dir/$bdName
  file rename -force ${shell_name}_emu.hpfm  $overlay_dir/$bdName

  set list_projs [get_projects -quiet]
  if { [lsearch -exact -inline $list_projs $projName] eq $projName } {
    save_bd_design
    current_project $projName
    close_project
  }
}

set status [catch { emu_update_cfa } msg ]
if {$status != 0} { 
  puts "Updating CFA with emulation files was unsuccessful, message: '${msg}'"
  exit 0
}
