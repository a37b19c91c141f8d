#pragma once
#include <memory>
#include <string>

#include <platform/HTEQPlatform.h>
#include <platform/HwMetadataMode.h>

#include "Console.h"

/// What --metadata asks for.
teq_platform::HwMetadataMode modeOf(const Call& call);

/// The platform of `file`, by the metadata that --metadata asks for. Throws what `PlatformLoader::open`
/// throws.
std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call);

/// The same without an exception: null, and the reason in `problem`.
std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, Problem& problem);
