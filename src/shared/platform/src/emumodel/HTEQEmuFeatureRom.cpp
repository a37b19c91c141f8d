#include "platform/HTEQEmuFeatureRom.h"

std::uint32_t HTEQEmuFeatureRom::getFeatureBitMap() const {
    constexpr std::uint32_t kAlways = 1U << 0, kBoardScheduler = 1U << 3, kPeerToPeer = 1U << 16;
    const bool boardScheduler = bitMapBoardSchedular_ == "enabled";
    const bool peerToPeer = bitMapPeerToPeer_ == "enabled";
    return kAlways | (boardScheduler ? kBoardScheduler : 0) | (peerToPeer ? kPeerToPeer : 0);
}
