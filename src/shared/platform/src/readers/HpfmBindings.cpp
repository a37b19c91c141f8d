#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQSystemClock.h"
#include "readers/Bindings.h"

namespace binding {

using namespace WELHardwarePlatform;

using P = Fields<Component, HTEQHardwarePlatform>;
constexpr auto kComponent = P::rows(P::saturated<&P::R::BRAM, &P::M::getBRAMCount, &P::M::setBRAMCount>(),
                                    P::saturated<&P::R::DSP, &P::M::getDSPCount, &P::M::setDSPCount>(),
                                    P::saturated<&P::R::LUT, &P::M::getLUTCount, &P::M::setLUTCount>(),
                                    P::saturated<&P::R::FF, &P::M::getFFCount, &P::M::setFFCount>());

using C = Fields<Clock, HTEQSystemClock>;
constexpr auto kClock =
    C::rows(C::both<&C::R::name, &C::M::getOrigName, &C::M::setOrigName>(),
            C::both<&C::R::componentRef, &C::M::getCompRef, &C::M::setCompRef>(),
            C::both<&C::R::instanceRef, &C::M::getInstRef, &C::M::setInstRef>(),
            C::both<&C::R::status, &C::M::getStatus, &C::M::setStatus>(),
            C::both<&C::R::frequency, &C::M::getFrequency, &C::M::setFrequency>(),
            C::both<&C::R::period, &C::M::getPeriod, &C::M::setPeriod>(),
            C::optional(C::both<&C::R::normalizedPeriod, &C::M::getNormalizedPeriod, &C::M::setNormalizedPeriod>()),
            C::onlySet(C::saturated<&C::R::id, &C::M::getId, &C::M::setId>()));

using I = Fields<Parameter, HTEQHardwareIPParam>;
constexpr auto kParameter = I::rows(I::both<&I::R::name, &I::M::getName, &I::M::setName>(),
                                    I::both<&I::R::value, &I::M::getValue, &I::M::setValue>(),
                                    I::both<&I::R::isValid, &I::M::getIsValid, &I::M::setIsValid>(),
                                    I::both<&I::R::componentRef, &I::M::getCompRef, &I::M::setCompRef>(),
                                    I::both<&I::R::instanceRef, &I::M::getInstRef, &I::M::setInstRef>());

using N = Fields<NocConnectivity, HTEQHardwareNocConnectivity>;
constexpr auto kNocConnectivity =
    N::rows(N::both<&N::R::instanceRef, &N::M::getInstanceRef, &N::M::setInstanceRef>());

using B = Fields<BusInterface, HTEQHardwareBusInterface>;
constexpr auto kBusInterface = B::rows(
    B::both<&B::R::name, &B::M::getName, &B::M::setName>(),
    B::optional(B::both<&B::R::busTypeRef, &B::M::getBusTypeRef, &B::M::setBusTypeRef>()),
    B::optional(B::both<&B::R::instanceRef, &B::M::getInstRef, &B::M::setInstRef>()),
    B::optional(B::both<&B::R::componentRef, &B::M::getCompRef, &B::M::setCompRef>()),
    B::optional(B::both<&B::R::busInterfaceRef, &B::M::getBusInterfaceRef, &B::M::setBusInterfaceRef>()),
    B::optional(B::both<&B::R::clockRef, &B::M::getClockRef, &B::M::setClockRef>()),
    B::optional(B::saturated<&B::R::dataWidth, &B::M::getDataWidth, &B::M::setDataWidth>()),
    B::optional(B::both<&B::R::direction, &B::M::getDirection, &B::M::setDirection>()),
    B::optional(B::both<&B::R::memport, &B::M::getMemPort, &B::M::setMemPort>()),
    B::optional(B::both<&B::R::sptag, &B::M::getSPTag, &B::M::setSPTag>()),
    B::optional(B::both<&B::R::mode, &B::M::getMode, &B::M::setMode>()),
    B::optional(B::both<&B::R::addressSegment, &B::M::getAddressSegment, &B::M::setAddressSegment>()),
    B::optional(B::both<&B::R::memoryInstance, &B::M::getMemoryInstance, &B::M::setMemoryInstance>()),
    B::optional(B::both<&B::R::slr, &B::M::getSLR, &B::M::setSLR>()),
    B::optional(B::both<&B::R::size, &B::M::getSize, &B::M::setSize>()),
    B::optional(B::both<&B::R::peakMemoryBandwidth, &B::M::getPeakMemoryBandwidth, &B::M::setPeakMemoryBandwidth>()),
    B::optional(B::saturated<&B::R::maxMasters, &B::M::getMaxMasters, &B::M::setMaxMasters>()),
    B::optional(B::saturated<&B::R::idBits, &B::M::getNumIdBits, &B::M::setNumIdBits>()),
    B::optional(B::saturated<&B::R::isrId, &B::M::getISRId, &B::M::setISRId>()),
    B::optional(B::both<&B::R::category, &B::M::getCategory, &B::M::setCategory>()));

using S = Fields<BusInterfaceAddressSegment, HTEQHardwareAddressSegment>;
constexpr auto kAddressSegment =
    S::rows(S::optional(S::both<&S::R::baseName, &S::M::getBaseName, &S::M::setBaseName>()),
            S::optional(S::both<&S::R::name, &S::M::getName, &S::M::setName>()),
            S::optional(S::saturated<&S::R::index, &S::M::getIndex, &S::M::setIndex>()),
            S::optional(S::both<&S::R::memoryInstance, &S::M::getMemoryInstance, &S::M::setMemoryInstance>()),
            S::optional(S::both<&S::R::auto_, &S::M::getAuto, &S::M::setAuto>()),
            S::optional(S::both<&S::R::sptag, &S::M::getSpTag, &S::M::setSpTag>()),
            S::optional(S::both<&S::R::slr, &S::M::getSlr, &S::M::setSlr>()),
            S::optional(S::saturated<&S::R::maxMasters, &S::M::getMaxMasters, &S::M::setMaxMasters>()),
            S::optional(S::both<&S::R::instanceRef, &S::M::getInstanceRef, &S::M::setInstanceRef>()),
            S::optional(S::both<&S::R::region, &S::M::getRegion, &S::M::setRegion>()),
            S::optional(S::saturated<&S::R::readBwUsed, &S::M::getReadBwUsed, &S::M::setReadBwUsed>()),
            S::optional(S::saturated<&S::R::writeBwUsed, &S::M::getWriteBwUsed, &S::M::setWriteBwUsed>()),
            S::optional(S::both<&S::R::interleave, &S::M::getInterleave, &S::M::setInterleave>()));

std::span<const Row> rowsOf(P) { return kComponent; }
std::span<const Row> rowsOf(C) { return kClock; }
std::span<const Row> rowsOf(I) { return kParameter; }
std::span<const Row> rowsOf(N) { return kNocConnectivity; }
std::span<const Row> rowsOf(B) { return kBusInterface; }
std::span<const Row> rowsOf(S) { return kAddressSegment; }

}  // namespace binding
