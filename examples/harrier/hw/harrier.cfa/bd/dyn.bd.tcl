create_bd_design dyn
create_bd_cell -type ip -vlnv torvane.com:ip:dyn_region:1.0 dyn_region
save_bd_design
