#pragma once
#include <memory>
#include <string>

#include <platform/HTEQPlatform.h>
#include <platform/HwMetadataMode.h>

#include "Console.h"

/// What --metadata asks for.
teq_platform::HwMetadataMode modeOf(const Call& call);

/// The platform of `file`, by the metadata that --metadata asks for.
std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call);

/// The same without an exception for what is wrong with the file: null, and the reason in `failure`.
std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, teq_platform::Failure& failure);
