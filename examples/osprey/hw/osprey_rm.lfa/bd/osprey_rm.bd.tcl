# Block design of the module; kernels are added to it by a link.
create_bd_cell -type ip -vlnv torvane.com:ip:axi_switch:1.0 switch_0
create_bd_cell -type ip -vlnv torvane.com:ip:memory_bridge:1.3 memory_0
create_bd_cell -type ip -vlnv torvane.com:ip:memory_bridge:1.3 memory_1
