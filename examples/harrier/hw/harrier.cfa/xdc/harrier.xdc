create_clock -name pcie_ref -period 10.000 [get_ports pcie_ref_clk_p]
set_property IOSTANDARD LVCMOS18 [get_ports mgmt_led]
