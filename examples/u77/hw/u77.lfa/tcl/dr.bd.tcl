# Block design of the dynamic region.
create_bd_cell -type ip -vlnv torvane.com:ip:axi_switch:1.0 axi_ctrl
set_property -dict [list CONFIG.NUM_SI 1 CONFIG.NUM_MI 2] [get_bd_cells axi_ctrl]
