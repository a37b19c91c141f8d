#pragma once
#include <cstdint>
#include <map>
#include <string>

#include "platform/JSONSerializable.h"

/// The tile array of a device: its kind and the layout of its rows. Numbers are stored, not interpreted.
class ZR_API HTEQTilHardware : public teq_platform::JSONSerializable {
public:
    enum class Arch { NO_TIL, TIL1, TILML, TIL2P, TIL2PS, TIL2PK };

    /// The names of the kinds, equal to the enumerators.
    static const std::map<Arch, std::string>& getArchMap();
    /// Case is ignored; "NONE" means "NO_TIL" and "TIL" means "TIL1". Throws HEXAlgException for any other text,
    /// including an empty one.
    static Arch stringToArch(const std::string& text);
    /// "NO_TIL" for a value that is not an enumerator.
    static const std::string& archToString(Arch arch);

    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    Arch getArch() const { return arch_; }
    const std::string& getArchAsString() const { return archToString(arch_); }
    void setArch(Arch arch) { arch_ = arch; }
    /// Throws like `stringToArch`.
    void setArch(const std::string& text) { arch_ = stringToArch(text); }

    int getStartShimRow() const { return startShimRow_; }
    void setStartShimRow(int value) { startShimRow_ = value; }
    int getNumShimRows() const { return numShimRows_; }
    void setNumShimRows(int value) { numShimRows_ = value; }
    int getStartCoreRow() const { return startCoreRow_; }
    void setStartCoreRow(int value) { startCoreRow_ = value; }
    int getNumCoreRows() const { return numCoreRows_; }
    void setNumCoreRows(int value) { numCoreRows_ = value; }
    int getStartMemRow() const { return startMemRow_; }
    void setStartMemRow(int value) { startMemRow_ = value; }
    int getNumMemRows() const { return numMemRows_; }
    void setNumMemRows(int value) { numMemRows_ = value; }
    std::uint32_t getNpiBaseAddress() const { return npiBaseAddress_; }
    void setNpiBaseAddress(std::uint32_t value) { npiBaseAddress_ = value; }

private:
    Arch arch_ = Arch::NO_TIL;
    int startShimRow_ = 0, numShimRows_ = 0, startCoreRow_ = 0, numCoreRows_ = 0, startMemRow_ = 0, numMemRows_ = 0;
    std::uint32_t npiBaseAddress_ = 0;
};
