#pragma once
#include <span>
#include <string>

#include "platform/HPLAddressSegment.h"
#include "platform/HPLBoard.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPCIeId.h"
#include "platform/HPLPlatform.h"
#include "platform/HPLPort.h"
#include "platform/HTEQDesignIPInstance.h"
#include "records/TEQCfaXmlLMX.h"

/// The texts that an element of the XML metadata and an object of the model share: one table for each pair, which the
/// reader and the writer walk. Numbers, flags and lists are theirs.
namespace cfaxml {

/// A text of record `R` and of object `M`.
template <class R, class M>
struct Text {
    xml::Attr<std::string> R::*attr;
    std::string (*get)(const M& object);
    void (*set)(M& object, const std::string& text);  ///< null for a text that is not read
    bool whenEmpty;                                   ///< it is written although it is empty
};

template <class R, class M>
std::span<const Text<R, M>> textsOf();

template <>
std::span<const Text<BasePlatform::GenAppInfo, HPLPlatform>> textsOf();
template <>
std::span<const Text<BasePlatform::CFA, HPLPlatform>> textsOf();
template <>
std::span<const Text<BasePlatform::Host, HPLPlatform>> textsOf();
template <>
std::span<const Text<BasePlatform::Build, HPLPlatform>> textsOf();
template <>
std::span<const Text<BasePlatform::IP, HTEQDesignIPInstance>> textsOf();
template <>
std::span<const Text<BasePlatform::Board, HPLBoard>> textsOf();
template <>
std::span<const Text<BasePlatform::Interface, HPLInterface>> textsOf();
template <>
std::span<const Text<BasePlatform::Memory, HPLMemory>> textsOf();
template <>
std::span<const Text<BasePlatform::Connector, HPLBoard::DimmConnector>> textsOf();
template <>
std::span<const Text<BasePlatform::PCIeId, HPLPCIeId>> textsOf();
template <>
std::span<const Text<BasePlatform::Device, HPLDevice>> textsOf();
template <>
std::span<const Text<BasePlatform::Core, HPLCore>> textsOf();
template <>
std::span<const Text<BasePlatform::AvailableResources, HPLCore>> textsOf();
template <>
std::span<const Text<BasePlatform::Port, HPLPort>> textsOf();
template <>
std::span<const Text<BasePlatform::AddressSegment, HPLAddressSegment>> textsOf();
template <>
std::span<const Text<BasePlatform::File, HPLFile>> textsOf();

/// Gives the object the texts that the document has.
template <class R, class M>
void readTexts(const R& record, M& object) {
    for (const Text<R, M>& text : textsOf<R, M>())
        if (const auto& attr = record.*text.attr; text.set && attr.isSet()) text.set(object, attr.get());
}

template <class R, class M>
void writeTexts(const M& object, R& record) {
    for (const Text<R, M>& text : textsOf<R, M>())
        if (std::string value = text.get(object); text.whenEmpty || !value.empty())
            (record.*text.attr).set(std::move(value));
}

}  // namespace cfaxml
