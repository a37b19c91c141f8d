#pragma once
#include <string>

#include "support/Replace.h"

/// XML metadata in the form that the library writes; written of the platform that it describes it is the same again.
inline const std::string kCfaXml =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<Root VersionMajor="1" VersionMinor="15">
  <GenAppInfo Name="gn" Version="gv" CL="7" TimeStamp="gt"/>
  <CFA Vendor="v" BoardId="b" Name="n" VersionMajor="3" VersionMinor="4" Description="d" FeatureRomTimestamp="9" DcpLogicFunctionStripped="true" DcpEncrypt="true" Unified="true" Fixed="false" DefaultOutputType="dot">
    <Host Architecture="aarch64" Interface="axi"/>
    <Build UsesPR="true" PlatformState="impl" AcceleratorBinaryFormat="abf" AcceleratorBinaryContent="abc" ValidBinaryContentValues="x,,y" TopModuleName="tm">
      <ZuncCompileSwitches>
        <ZuncCompileSwitch Name="xp" Value="c1"/>
      </ZuncCompileSwitches>
      <ZuncLinkSwitches>
        <ZuncLinkSwitch Name="xp" Value="l1"/>
      </ZuncLinkSwitches>
    </Build>
    <DesignIPs>
      <IP InstanceName="ii" VLNV="iv">
        <Configuration>
          <Parameter Name="k1" Value="kv"/>
        </Configuration>
      </IP>
    </DesignIPs>
    <Board Name="bn" Vendor="bv" Part="bp" BoardPart="bb">
      <Interfaces>
        <Interface Id="i1" Name="in" Type="it"/>
      </Interfaces>
      <Memories>
        <Memory Name="mn" Type="ddr4" Size="16GB" LowestAddress="-2" HighestAddress="-1">
          <Config>
            <Param Name="MEMORY_PART" Value="mv"/>
          </Config>
        </Memory>
      </Memories>
      <Connectors>
        <Connector Name="J1" DisplayName="jd" Type="DIMM" ConnectedConnector="M1" ConnectedConnectorDisplayName="md" IsLocked="true"/>
      </Connectors>
      <Images>
        <Img Type="HDPI" File="h"/>
        <Img Type="MDPI" File="m"/>
        <Img Type="LDPI" File="l"/>
      </Images>
      <PCIeId Vendor="pv" Device="pd" Subsystem="ps" FeatureId="pf"/>
    </Board>
    <Devices>
      <Device Name="fpga0" Type="fpga" FpgaDevice="a:b:c:d:e">
        <SystemClocks>
          <SystemClock Name="sn" Frequency="sf"/>
        </SystemClocks>
        <Core Name="cn" Type="ct" ComputeUnits="255" VLNV="cv" InstancePath="ci" ParentRMInstancePath="cp" ClockFreq="cf" DRBDName="cd">
          <Core>
            <Config>
              <Param Name="p1" Value="pv"/>
            </Config>
            <Port Name="q" Type="addressable" Mode="qm" Protocol="qp" Base="qb" Range="qr" DataWidth="512" IdWidth="qi" UserWidth="qu" AddressWidth="64" AddressOffset="qo" AddressRange="qa" MaxBurstLength="ql" Frequency="qf" Direction="qd" Polarity="qy">
              <AddressSegments>
                <AddressSegment Name="an" Base="ab" Range="ar" Slave="as"/>
              </AddressSegments>
            </Port>
            <AvailableResources LUT="11" REG="12" BRAM="13" DSP="14">
              <PBlock Name="pb" ValidSLRs="SLR0,SLR1">
                <Resource Name="LUT" Val="15"/>
              </PBlock>
            </AvailableResources>
          </Core>
        </Core>
      </Device>
    </Devices>
    <Files>
      <File Type="T1" Name="f1" UsedIn="u" ProcessingOrder="po"/>
    </Files>
    <FeatureRom MajorVersion="1" MinorVersion="2" MorwenBuildID="3" IPBuildID="4" TimeSinceEpoch="5" FPGAPartName="fp" VBNVName="fv" DDRChannelCount="6" DDRChannelSize="7" DRBaseAddress="8" FeatureBitMap="9" UUID="01234567-89ab-cdef-0123-456789abcdef" CDMABaseAddress0="10" CDMABaseAddress1="11" CDMABaseAddress2="12" CDMABaseAddress3="13" MaxTempLimit="14" MaxPowerLimit="15"/>
  </CFA>
</Root>
)";
