# Fan controller on bank 44
set_property PACKAGE_PIN W14 [get_ports fan_pwm]
set_property IOSTANDARD LVCMOS33 [get_ports fan_pwm]
set_property SLEW SLOW [get_ports fan_pwm]
set_property PACKAGE_PIN Y12 [get_ports fan_tach]
set_property IOSTANDARD LVCMOS33 [get_ports fan_tach]
