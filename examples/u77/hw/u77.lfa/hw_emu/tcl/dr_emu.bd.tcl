# Block design of the dynamic region for emulation: memory and clock are models.
create_bd_cell -type ip -vlnv torvane.com:ip:sim_clk_gen:1.0 emu_clk_0
create_bd_cell -type ip -vlnv torvane.com:ip:sim_memory:1.0 sim_memory_0
set_property CONFIG.LATENCY_NS 60 [get_bd_cells sim_memory_0]
