#pragma once
#include <string>
#include <vector>

/// An hpfm document of four lines with two clocks; `parts` stand in its component, on the third line.
inline std::string hpfm(const std::string& parts) {
    return "<kp:repository xmlns:kp='urn:torvane:kp:hpfm:1.0' kp:name='r' kp:library='l' kp:version='1.0' "
           "kp:vendor='rv'>"
           "<kp:component kp:name='board' kp:library='l' kp:version='1.0' kp:vendor='torvane.com' kp:type='board'"
           " kp:BRAM='1' kp:DSP='2' kp:FF='3' kp:LUT='4'>\n<kp:platformInfo>"
           "<kp:deviceInfo kp:architecture='a' kp:device='d' kp:package='p' kp:speedGrade='-2'/>"
           "<kp:description>from hpfm</kp:description><kp:systemClocks kp:defaultClock='3'>"
           "<kp:clock kp:name='clk_a' kp:instanceRef='inst' kp:componentRef='comp' kp:frequency='300.000000'"
           " kp:period='3.333' kp:status='scalable' kp:id='3' kp:normalizedPeriod='.003333'/>"
           "<kp:clock kp:name='clk_b' kp:instanceRef='' kp:componentRef='' kp:frequency='100' kp:period='10'"
           " kp:status='fixed'/></kp:systemClocks></kp:platformInfo>\n" +
           parts + "</kp:component>\n</kp:repository>\n";
}

/// A bus interface of high-bandwidth memory with a segment for each value of `auto`.
inline std::string hbm(const std::string& instance, const std::vector<std::string>& autos) {
    std::string text =
        "<kp:busInterface kp:name='b' kp:instanceRef='" + instance + "' kp:componentRef='hbm_memory_subsystem'>";
    for (const std::string& value : autos) text += "<kp:addressSegment kp:auto='" + value + "'/>";
    return text + "</kp:busInterface>";
}
