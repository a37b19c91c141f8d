#pragma once
#include <functional>
#include <string>

#include "msg/HEXDiagnostic.h"
#include "platform/PlatformSearch.h"
#include "text/ZrApi.h"

/// What each platform in the repositories is, as reports.
namespace teq_platform::requests {

/// A descriptor in a repository.
struct CatalogEntry {
    std::string file;
    std::string report;    ///< of `NativeCatalogService`, as JSON; empty if the platform cannot be read
    HEXDiagnostic reason;  ///< why it cannot be read
};
struct CatalogRequest {
    Repositories where = {};
    bool isDetailed = false;
};
/// Calls `each` for each descriptor in the repositories, in the order of the search, without the hidden platform. Each
/// file is a request of its own, unless the caller has opened one.
ZR_API void catalog(const CatalogRequest& request, const std::function<void(const CatalogEntry&)>& each);
/// The reports as the document of `NativeCatalogService::getAllAsJsonStr`. What cannot be read is passed to `broken`.
ZR_API std::string catalogDocument(const CatalogRequest& request,
                                   const std::function<void(const CatalogEntry&)>& broken);

}  // namespace teq_platform::requests
