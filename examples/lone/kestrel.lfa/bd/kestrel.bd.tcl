# Block design of the whole platform; kernels are added to it before synthesis.
create_bd_design kestrel
create_bd_cell -type ip -vlnv torvane.com:ip:ps_core:3.3 ps_core_0
set_property -dict [list CONFIG.DDR_WIDTH 32 CONFIG.UART0 true] [get_bd_cells ps_core_0]
create_bd_cell -type ip -vlnv torvane.com:ip:clk_gen:6.0 clk_gen_0
set_property CONFIG.OUT_MHZ 200.000 [get_bd_cells clk_gen_0]
create_bd_cell -type ip -vlnv torvane.com:user:pwm:1.0 pwm_0
connect_bd_net [get_bd_pins ps_core_0/pl_clk0] [get_bd_pins clk_gen_0/clk_in1]
connect_bd_net [get_bd_pins clk_gen_0/clk_out1] [get_bd_pins ps_core_0/S_AXI_FAST0_ACLK]
validate_bd_design
save_bd_design
