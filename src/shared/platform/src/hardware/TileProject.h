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

/// The project: a file of its name that this user has put into the temporary directory, else the platform's member,
/// which is not written to the disk. Null if there is none. Throws `HEXAll` if it is not an archive, or the file in
/// the temporary directory is not safe to use.
std::shared_ptr<const archive::MemberSource> openProject(const HTEQHardwarePlatform& platform);
/// Copies a file of the project. If that fails and `oldType` is not null, copies the archive's own file of that type,
/// as in older archives.
bool copyProjectFile(const HTEQHardwarePlatform& platform, const std::string& path, const char* oldType,
                     const std::string& destination);
/// The partitions in the project's partitions file; empty if there is no such file. Throws HEXAlgException if it is
/// not JSON.
HSTVector<HTEQTilPartition> readProjectPartitions(const HTEQHardwarePlatform& platform);
/// The interface id in the project's metadata; "" if it cannot be read.
std::string projectInterfaceId(const HTEQHardwarePlatform& platform);
/// Puts "name" and "value" of the items of the file's list "MetaData" into `out`. Throws like `json::parseFile`.
void readMetaData(const std::string& file, std::map<std::string, std::string>& out);

}  // namespace hardware
