#pragma once
#include <string>
#include <utility>

#include "platform/HPLPCIeId.h"
#include "platform/JSONSerializable.h"
#include "text/HSTFwdIter.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HPLDriver;

/// The board that carries the devices, with its connectors.
class ZR_API HPLBoard : public teq_platform::JSONSerializable {
public:
    /// Attribute names of a board's pins.
    static constexpr char PIN_NAME[] = "NAME", PIN_INDEX[] = "INDEX", PIN_LOC[] = "LOC", PIN_DIFFTERM[] = "DIFF_TERM",
                          PIN_DQS_BIAS[] = "DQS_BIAS", PIN_DRIVE[] = "DRIVE", PIN_EQUALIZATION[] = "EQUALIZATION",
                          PIN_IBUF_LOW_PWR[] = "IBUF_LOW_PWR", PIN_IOSTD[] = "IOSTANDARD", PIN_ODT[] = "ODT",
                          PIN_OUTPUT_IMPEDANCE[] = "OUTPUT_IMPEDANCE", PIN_PRE_EMPHASIS[] = "PRE_EMPHASIS",
                          PIN_SLEW[] = "SLEW";

    /// A connector of the board, and the connector of an extension card that it is connected to.
    class ZR_API DimmConnector : public teq_platform::JSONSerializable {
    public:
        DimmConnector() = default;
        DimmConnector(std::string name, std::string displayName, std::string type, std::string connectedName,
                      std::string connectedDisplayName, bool connected, bool locked);
        void toJSON(teq_platform::JSONObjectWriter& writer) const override;

        const std::string& getName() const { return name_; }
        void setName(std::string value) { name_ = std::move(value); }
        const std::string& getDisplayName() const { return displayName_; }
        void setDisplayName(std::string value) { displayName_ = std::move(value); }
        const std::string& getType() const { return type_; }
        void setType(std::string value) { type_ = std::move(value); }
        const std::string& getConnectedName() const { return connectedName_; }
        void setConnectedName(std::string value) { connectedName_ = std::move(value); }
        const std::string& getConnectedDisplayName() const { return connectedDisplayName_; }
        void setConnectedDisplayName(std::string value) { connectedDisplayName_ = std::move(value); }
        bool isConnected() const { return connected_; }
        void setConnected(bool value) { connected_ = value; }
        bool isLocked() const { return locked_; }
        void setLocked(bool value) { locked_ = value; }

    private:
        std::string name_, displayName_, type_ = "DIMM", connectedName_, connectedDisplayName_;
        bool connected_ = false, locked_ = false;
    };

    HPLBoard();
    ~HPLBoard() override;
    /// Never returns for a board with a driver, which has no form in the document. No reader adds one.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getVendor() const { return vendor_; }
    void setVendor(std::string value) { vendor_ = std::move(value); }
    const std::string& getPart() const { return part_; }
    void setPart(std::string value) { part_ = std::move(value); }
    const std::string& getBoardPart() const { return boardPart_; }
    void setBoardPart(std::string value) { boardPart_ = std::move(value); }
    /// Member names of the board's pictures, of high, medium and low density.
    const std::string& getImgFileHdpi() const { return imgFileHdpi_; }
    void setImgFileHdpi(std::string value) { imgFileHdpi_ = std::move(value); }
    const std::string& getImgFileMdpi() const { return imgFileMdpi_; }
    void setImgFileMdpi(std::string value) { imgFileMdpi_ = std::move(value); }
    const std::string& getImgFileLdpi() const { return imgFileLdpi_; }
    void setImgFileLdpi(std::string value) { imgFileLdpi_ = std::move(value); }

    /// Appends a new driver, owned by the board.
    HPLDriver* addDriver();
    /// The caller deletes the iterator.
    HSTFwdIter<HPLDriver*>* createDriverIter() const;
    const HPLPCIeId& getPCIeId() const { return pcieId_; }
    HPLPCIeId& getWriteablePCIeId() { return pcieId_; }

    /// Append a new connector, owned by the board.
    DimmConnector* addDimmConnector();
    DimmConnector* addDimmConnector(std::string name, std::string displayName, std::string type,
                                    std::string connectedName, std::string connectedDisplayName, bool connected,
                                    bool locked);
    bool hasDimmConnectors() const { return !connectors_.empty(); }
    /// Replaces the contents of `out`.
    void getConnectorsVec(HSTVector<DimmConnector*>& out) const { out = connectors_.items(); }
    /// Append names: of all connectors; of the locked ones; of the connected ones and their counterparts.
    void getDimmConnectors(HSTVector<std::string>& out) const;
    void getLockedDimmConnectors(HSTVector<std::string>& out) const;
    void getConnectedDimmConnectors(HSTVector<std::string>& names, HSTVector<std::string>& connectedNames) const;
    /// "name connectedName" of the connected connectors, separated by blanks: "J1 FMC0 J2 FMC1".
    std::string getBoardConnectionsString() const;
    std::string getLockedBoardConnectionsString() const;
    std::string getUnlockedBoardConnectionsString() const;
    /// The display name for a connector's name or for the name of its counterpart. Case is ignored, and the first
    /// match is used. Empty if there is none.
    std::string getConnectorDisplayName(const std::string& name) const;

private:
    template <class Pred>
    std::string connectionsOf_(Pred pred) const;

    std::string name_, vendor_, part_, boardPart_, imgFileHdpi_, imgFileMdpi_, imgFileLdpi_;
    Owned<HPLDriver> drivers_;
    Owned<DimmConnector> connectors_;
    HPLPCIeId pcieId_;
};
