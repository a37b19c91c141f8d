#include "platform/HTEQPlatform.h"
#include "readers/Bindings.h"

namespace binding {

using P = Fields<TEQPlatform::Platform, HTEQPlatform>;
constexpr auto kPlatform = P::rows(P::both<&P::R::vendor, &P::M::getVendor, &P::M::setVendor>(),
                                   P::both<&P::R::library, &P::M::getLibrary, &P::M::setLibrary>(),
                                   P::both<&P::R::name, &P::M::getName, &P::M::setName>(),
                                   P::both<&P::R::version, &P::M::getVersion, &P::M::setVersion>(),
                                   P::both<&P::R::description, &P::M::getDescription, &P::M::setDescription>());

std::span<const Row> rowsOf(P) { return kPlatform; }

}  // namespace binding
