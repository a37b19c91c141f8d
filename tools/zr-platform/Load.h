#pragma once
#include <memory>
#include <string>

#include <platform/HTEQPlatform.h>
#include <platform/HwMetadataMode.h>
#include <platform/PlatformSearch.h>

#include "Console.h"

/// The value of --metadata.
teq_platform::HwMetadataMode modeOf(const Call& call);

/// The options --repo and --no-defaults.
teq_platform::requests::Repositories repositoriesOf(const Call& call);

/// The file for an argument that is a platform's file or name.
std::string platformFile(const std::string& fileOrName, const Call& call);

/// Loads the platform of `file` from the metadata that --metadata selects. What readers have ignored because of an
/// error is warned of; with `isChecked`, so is what only later reads would find.
std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call, bool isChecked = false);

/// The same, but an error gives null and sets `failure` instead of throwing.
std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, teq_platform::Failure& failure,
                                      bool isChecked = false);
