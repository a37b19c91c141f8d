proc emu_prop_gen { } { 
namespace eval config {
 set qlinkConfig [dict create] 
 set boardMemories {}
 dict set boardMemories_0 MEMORY_PART TMD18A2G72-2G4
 dict set boardMemories_0 TIMEPERIOD_PS 833
 lappend boardMemories $boardMemories_0
 dict set boardMemories_1 MEMORY_PART TMD18A2G72-2G4
 dict set boardMemories_1 TIMEPERIOD_PS 833
 lappend boardMemories $boardMemories_1
 dict set instance0 DATA_WIDTH {72}
 dict set instance0 LABEL {bank 0}
 dict set instance0 VLNV {torvane.com:ip:ddr4_model:1.0}
 dict set instanceConfig bank0 $instance0
 set clk_info [dict create]
 dict set clk_info "clk_data" 300.0
 dict set clk_info "clk_kernel" 500.0
 set board_repo_paths {}
 set feature_map_info [dict create]
 dict set feature_map_info Cdma_Base_Address0 0x200000
 dict set feature_map_info Cdma_Base_Address1 0x201000
 dict set feature_map_info Cdma_Base_Address2 0x
 dict set feature_map_info Cdma_Base_Address3 0x203000
 set memoryTags [dict create]
 set bank0_0 [dict create]
 dict set bank0_0 index 0
 dict set bank0_0 auto  preferred
 dict set bank0_0 sptag  bank0
 dict set bank0_0 slr  SLR0
 dict set bank0_0 max_masters  15
 lappend memoryList $bank0_0
 dict set memoryTags "bank0" $bank0_0
 set bank1_1 [dict create]
 dict set bank1_1 index 1
 dict set bank1_1 auto  preferred
 dict set bank1_1 sptag  bank1
 dict set bank1_1 slr  SLR1
 dict set bank1_1 max_masters  15
 lappend memoryList $bank1_1
 dict set memoryTags "bank1" $bank1_1
 set config_info [dict create]
 dict set config_info project_name         "project_unified_harrier"
 dict set config_info board_repo_paths     $board_repo_paths
 dict set config_info board_part           "tzh95-fsga2577-2-e"
 dict set config_info board_name           "torvane.com:harrier:1.0"
 dict set config_info board_memories       $boardMemories 
 dict set config_info project_part         "tzh95-fsga2577-2-e"
 dict set config_info bd_name              "emu" 
 dict set config_info dr_bd_name           "pfm_dynamic" 
 dict set config_info cfa_name             "harrier"
 dict set config_info platform_unique_name "torvane:harrier:gen3x16_dyn:5.2"
 dict set config_info qlink_config          $qlinkConfig 
 dict set config_info memory_tags          $memoryTags
 dict set config_info SimulationModel tlm
 dict set config_info UseTeqMemss true
} 
 set ip_repo_paths {}
 dict set config::config_info ip_repo_paths  $ip_repo_paths
 dict set config::config_info UseStreaming    false
} 
