#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"
#include "text/HSTVector.h"

/// A run of columns of the tile array: a root with its parts, one level deep.
class ZR_API HTEQTilPartition : public teq_platform::JSONSerializable {
public:
    explicit HTEQTilPartition(int startColumn = 0, int numColumns = 0)
        : startColumn_(startColumn), numColumns_(numColumns) {}

    /// Reads one object of the document's "tilPartitions", which makes this a root. Missing keys give 0 and "".
    void fromJSON(const boost::property_tree::ptree& object);
    /// Children are not part of the document.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    bool isRoot() const { return root_; }
    void isRoot(bool value) { root_ = value; }
    int startColumn() const { return startColumn_; }
    void startColumn(int value) { startColumn_ = value; }
    int numColumns() const { return numColumns_; }
    void numColumns(int value) { numColumns_ = value; }
    /// Name of the tile-array instance.
    const std::string& tilInst() const { return tilInst_; }
    void tilInst(std::string value) { tilInst_ = std::move(value); }
    const std::string& uuid() const { return uuid_; }
    void uuid(std::string value) { uuid_ = std::move(value); }
    const std::string& plIntefaceID() const { return plIntefaceID_; }
    void plIntefaceID(std::string value) { plIntefaceID_ = std::move(value); }

    /// Whether it has any columns.
    bool isPartition() const { return numColumns_ > 0; }
    const HSTVector<HTEQTilPartition>& partitions() const { return partitions_; }
    HSTVector<HTEQTilPartition>& partitions() { return partitions_; }
    bool hasPartitions() const { return !partitions_.empty(); }
    /// Appends a child; the reference is valid until the next one is added.
    HTEQTilPartition& addPartition(int startColumn = 0, int numColumns = 0);
    /// The first child with both numbers, else a shared empty partition, for which `isPartition` is false.
    const HTEQTilPartition& findPartition(int startColumn, int numColumns) const;
    /// Whether a child has exactly that instance name.
    bool hasPartition(const std::string& tilInst) const;
    void clear() { *this = HTEQTilPartition(); }
    /// Compares all fields, and the children in order.
    bool operator==(const HTEQTilPartition& other) const;

    /// The partition that represents "none".
    static const HTEQTilPartition& none();

private:
    bool root_ = false;
    int startColumn_, numColumns_;
    std::string tilInst_, uuid_, plIntefaceID_;
    HSTVector<HTEQTilPartition> partitions_;
};
