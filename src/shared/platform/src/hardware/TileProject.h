#pragma once
#include <map>
#include <memory>
#include <string>

#include "archive/MemberSource.h"
#include "platform/HTEQTilPartition.h"
#include "text/HSTVector.h"

class HTEQHardwarePlatform;

/// The tile-array project, an archive inside the platform's archive.
namespace hardware {

/// The project: a file that this user has put at its name in the temporary directory, else the platform's member,
/// from which nothing reaches the disk. Null when there is none. Throws `HEXAll`: it is no archive, or what stands in
/// the temporary directory is not to be trusted.
std::shared_ptr<const archive::MemberSource> openProject(const HTEQHardwarePlatform& platform);
/// Copies a file of the project; when that fails, and `oldType` is not null, the file of that type, which older
/// archives hold themselves.
bool copyProjectFile(const HTEQHardwarePlatform& platform, const std::string& path, const char* oldType,
                     const std::string& destination);
/// The partitions that the project's partitions file tells; none when there is no such file. Throws HEXAlgException
/// when it is no JSON.
HSTVector<HTEQTilPartition> readProjectPartitions(const HTEQHardwarePlatform& platform);
/// The interface id that the project's metadata tells; "" when it cannot be had.
std::string projectInterfaceId(const HTEQHardwarePlatform& platform);
/// Puts "name" and "value" of the items of the file's list "MetaData" into `out`. Throws as `json::parseFile` does.
void readMetaData(const std::string& file, std::map<std::string, std::string>& out);

}  // namespace hardware
