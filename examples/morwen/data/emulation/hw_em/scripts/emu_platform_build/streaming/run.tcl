# Streams between host and kernels, in a dynamic region of its own.
source [file join [file dirname [info script]] .. .. common.tcl]

proc emu_bd_gen {} {
    project::make [info_of project_name]
    write_design [info_of bd_name] [linsert [common_cells] end [cell dynamic_region region [list design [info_of dr_bd_name]]]]
    write_design [info_of dr_bd_name] [list [cell streams stream_model [list width 512 direction both]]]
}
