#pragma once
#include <boost/property_tree/ptree.hpp>
#include <functional>

#include "policy/PolicyFacts.h"

class HTEQPlatform;

namespace services {

/// Puts the report of a platform with hardware into `report`. `verdict` is called for a detailed one.
void writeReport(const HTEQPlatform& platform, bool detailed, const std::function<policy::PolicyVerdict()>& verdict,
                 boost::property_tree::ptree& report);

}  // namespace services
