# PCIe reference clock and reset
set_property PACKAGE_PIN QA7 [get_ports pcie_refclk_p]
set_property PACKAGE_PIN ZD31 [get_ports pcie_perst_n]
set_property IOSTANDARD LVCMOS18 [get_ports pcie_perst_n]
